"""Checks that nothing is built inside the arguments of a co_await, and that no co_await stands in a catch block.

    coroutine_arguments.py FOLDER...    lists every offence in the .h and .cpp files below; fails on one
    coroutine_arguments.py --self-test  checks the checker with good and bad examples

gcc 12 destroys a braced aggregate or a capturing lambda twice when it is built inside the awaiting expression, so every
argument gets a name first. The check reads tokens, not C++: a temporary is known by its braces, by the lambda's capture
or by a type's upper-case name. What a function call returns is not looked at.
"""

import pathlib
import re
import sys

TOKEN = re.compile(r"""
    (?P<skip>\s+|//[^\n]*|/\*.*?\*/|\#(?:[^\n\\]|\\.)*)
  | (?P<raw>(?:u8|[uUL])?R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)")
  | (?P<text>(?:u8|[uUL])?(?:"(?:[^"\\\n]|\\.)*"|'(?:[^'\\\n]|\\.)+'))
  | (?P<number>\.?\d(?:'?[\w.]|[eEpP][+-])*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<sign>::|->|&&|.)
""", re.VERBOSE | re.DOTALL)

CLOSING = {"(": ")", "[": "]", "{": "}"}


class Token:
    def __init__(self, kind, text, line):
        self.kind, self.text, self.line = kind, text, line


def tokens_of(source):
    tokens = []
    line = 1
    for match in TOKEN.finditer(source):
        if match["skip"] is None:
            kind = "word" if match["word"] else "sign" if match["sign"] else "literal"
            tokens.append(Token(kind, match[0], line))
        line += match[0].count("\n")
    return tokens


def end_of(tokens, start):
    """The position of the bracket that closes the one at start."""
    expected = []
    for at in range(start, len(tokens)):
        text = tokens[at].text
        if tokens[at].kind != "sign":
            continue
        if text in CLOSING:
            expected.append(CLOSING[text])
        elif expected and text == expected[-1]:
            expected.pop()
            if not expected:
                return at
    return len(tokens) - 1


def end_of_template_arguments(tokens, start):
    """The position of the ">" that closes the "<" at start when this reads like template arguments, else None."""
    depth = 0
    for at in range(start, len(tokens)):
        text = tokens[at].text
        if text == "<":
            depth += 1
        elif text == ">":
            depth -= 1
            if depth == 0:
                return at
        elif tokens[at].kind == "sign" and text not in ("::", ",", "*", "&", "&&"):
            return None
    return None


def built_inside(tokens, start, end):
    """What is built between the brackets at start and end, as (line, description)."""
    found = []
    at = start + 1
    while at < end:
        token, before = tokens[at], tokens[at - 1]
        if token.text == "[" and not (before.kind == "word" or before.text in (")", "]")):
            capture_end = end_of(tokens, at)
            if capture_end > at + 1:
                found.append((token.line, "a capturing lambda"))
            # The body is a function of its own.
            while at < end and tokens[at].text != "{":
                at = end_of(tokens, at) if tokens[at].text in CLOSING else at
                at += 1
            at = end_of(tokens, at) + 1
            continue
        if token.kind == "sign" and token.text == "{":
            found.append((token.line, "a braced value"))
            at = end_of(tokens, at) + 1
            continue
        if token.kind == "word" and token.text[0].isupper():
            name_end = at
            if tokens[at + 1].text == "<":
                name_end = end_of_template_arguments(tokens, at + 1) or at
            if tokens[name_end + 1].text == "(":
                found.append((token.line, f"a temporary {token.text}"))
                at = end_of(tokens, name_end + 1) + 1
                continue
        at += 1
    return found


def check_operand(tokens, at):
    """What is built in the argument lists of the expression that the co_await at at waits for."""
    found = []
    at += 1
    while at < len(tokens):
        text = tokens[at].text
        if text == "<" and tokens[at - 1].kind == "word":
            closing = end_of_template_arguments(tokens, at)
            if closing is None:
                break
            at = closing
        elif text in ("(", "[", "{") and tokens[at].kind == "sign":
            if text == "{":
                found.append((tokens[at].line, "a braced value"))
            closing = end_of(tokens, at)
            found += built_inside(tokens, at, closing)
            at = closing
        elif tokens[at].kind == "word":
            # A second word in a row begins something else.
            if tokens[at - 1].kind == "word" and tokens[at - 1].text not in ("co_await", "template"):
                break
            if tokens[at - 1].text in (")", "]", "}"):
                break
        elif text not in ("::", ".", "->", "*", "&", "!") or (text in "*&!" and tokens[at - 1].text != "co_await"):
            break
        at += 1
    return found


def offences(source):
    """Every offence as (line, text)."""
    tokens = tokens_of(source)
    found = []
    for at, token in enumerate(tokens):
        if token.kind != "word":
            continue
        if token.text == "co_await":
            found += [(line, f"{what} is built inside the arguments of a co_await; give it a name first")
                      for line, what in check_operand(tokens, at)]
        elif token.text == "catch":
            body = end_of(tokens, at + 1) + 1
            found += [(inner.line, "co_await in a catch block") for inner in tokens[body:end_of(tokens, body)]
                      if inner.kind == "word" and inner.text == "co_await"]
    return found


GOOD = [
    "auto request = Request{a, b}; co_await f(std::move(request));",
    "auto work = [x] { return x; }; co_await onWorker(std::move(work));",
    "auto [status, body] = co_await client.post(url, body, headers[0]);",
    "if (co_await f(x)) { g({1, 2}); }",
    "for (const auto &one : co_await all(list)) { use(Thing(one)); }",
    "co_await f(a), g({1, 2});",
    "auto x = co_await f(a) + QSize(3, 4).width();",
    "auto x = co_await f(a) < limit ? Size{1} : Size{2};",
    "co_await f<Result>(a); g({b});",
    "co_await std::move(future); return Thing{1};",
    "co_await f([] { return Thing{1}; });",
    "co_await f(values[index], other(values[index]), list[list[0]]);",
    'co_await f("{[(", \'{\', R"x({ Thing( )x", name); // f({a})',
    "/* co_await f({a}); */ co_await g(b);",
    "#define AWAIT co_await f({a})\nco_await g(b);",
    "try { co_await f(a); } catch (const Error &error) { failed = true; } co_await g(b);",
    "const int million = 1'000'000; co_await f(million); g(QString());",
    "co_return co_await f(a);",
    "while (!co_await f(a)) { b = B{}; }",
    "co_await *pending; g(QSize(1, 2));",
]
BAD = [
    ("co_await f({a, b});", "braced"),
    ("co_await f(Request{a, b});", "braced"),
    ("co_await f(Map<int, QString>{});", "braced"),
    ("co_await f([x] { return x; });", "lambda"),
    ("co_await f(a, [&] { return a; });", "lambda"),
    ("co_await f(a,\n         [this](int b) mutable -> int { return b; });", "lambda"),
    ("co_await f(g([x = 1] { return x; }));", "lambda"),
    ("co_await f(QString(a));", "temporary QString"),
    ("co_await f(std::move(a), Request(b));", "temporary Request"),
    ("co_await f(List<QString>(a));", "temporary List"),
    ('co_await f(QStringLiteral("a"));', "temporary QStringLiteral"),
    ("co_await m_client->post(url, QNetworkRequest(url)).then();", "temporary QNetworkRequest"),
    ("co_await f<Result>({a});", "braced"),
    ("co_await f(a).g({b});", "braced"),
    ("co_await Request{a, b};", "braced"),
    ("auto x = (co_await f({a})).value();", "braced"),
    ("co_await (f({a}));", "braced"),
    ("if (!co_await f({a})) { return; }", "braced"),
    ("co_await f([] { return 1; }, {a});", "braced"),
    ("try { f(); } catch (const Error &error) { co_await report(error); }", "catch block"),
    ("try { f(); } catch (...) { if (a) { co_await g(); } }", "catch block"),
]


def self_test():
    wrong = [f"should be accepted: {text}: {offences(text)}" for text in GOOD if offences(text)]
    for text, word in BAD:
        found = offences(text)
        if len(found) != 1 or word not in found[0][1]:
            wrong.append(f"should be one offence about \"{word}\": {text}: {found}")
    if [line for line, _ in offences("\n// {\nco_await f(a,\n  {b});")] != [4]:
        wrong.append("the line of an offence is counted wrongly")
    return wrong, len(GOOD) + len(BAD) + 1


def main():
    if sys.argv[1:] == ["--self-test"]:
        found, count = self_test()
        what = "cases"
    else:
        files = [path for folder in sys.argv[1:] for path in sorted(pathlib.Path(folder).rglob("*"))
                 if path.suffix in (".h", ".cpp")]
        found = [f"{path}:{line}: {text}" for path in files
                 for line, text in offences(path.read_text(encoding="utf-8"))]
        count = len(files)
        what = "files"
        if count == 0:
            found.append(f"no sources in {' '.join(sys.argv[1:])}")
    print("\n".join(found + [f"{count} {what}, {len(found)} problems"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
