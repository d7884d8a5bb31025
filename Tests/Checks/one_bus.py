"""Checks that nobody but Platform/Bus opens a connection to a message bus.

    one_bus.py SOURCES     lists every place of SOURCES that does
    one_bus.py --self-test checks the checker

A connection of one's own costs a socket and a greeting, and does not come back when the bus does: MessageBus gives the
one that the process shares.
"""

import pathlib
import re
import sys
import tempfile

ALLOWED = pathlib.Path("Platform/Bus")
OPENING = re.compile(r"\bQDBusConnection\s*::\s*(sessionBus|systemBus|connectToBus|connectToPeer)\b")
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.DOTALL)


def blank(match):
    """A comment as nothing, with its line ends kept."""
    return "\n" * match.group().count("\n")


def problems(sources):
    found = []
    files = sorted(path for path in sources.rglob("*") if path.suffix in {".h", ".cpp", ".mm"})
    for path in files:
        where = path.relative_to(sources)
        if where.is_relative_to(ALLOWED):
            continue
        text = COMMENT.sub(blank, path.read_text(encoding="utf-8"))
        for match in OPENING.finditer(text):
            line = text.count("\n", 0, match.start()) + 1
            found.append(f"{where}:{line}: opens a connection of its own ({match.group()}); MessageBus has the shared one")
    return found, len(files)


def self_test():
    good = [
        ("Platform/Bus/Case.cpp", "auto bus = QDBusConnection::connectToBus(address, name);"),
        ("App/Case.cpp", "// QDBusConnection::sessionBus() never comes back."),
        ("App/Case.cpp", "/* Not\n QDBusConnection::systemBus(). */"),
        ("App/Case.cpp", "QDBusConnection bus = m_bus.connection();"),
        ("App/Case.cpp", "QDBusConnection::disconnectFromBus(name);"),
    ]
    bad = [
        ("App/Case.cpp", "QDBusConnection::sessionBus().send(message);"),
        ("Platform/System/Case.h", "auto bus = QDBusConnection::systemBus();"),
        ("Platform/Business/Case.cpp", "auto bus = QDBusConnection :: connectToBus(address, name);"),
        ("Views/Case.cpp", "auto bus = QDBusConnection::\n    connectToPeer(address, name);"),
    ]
    wrong = []
    for expected, cases in ((0, good), (1, bad)):
        for where, text in cases:
            with tempfile.TemporaryDirectory() as name:
                sources = pathlib.Path(name)
                (sources / where).parent.mkdir(parents=True)
                (sources / where).write_text(text + "\n", encoding="utf-8")
                found = problems(sources)[0]
                if len(found) != expected:
                    wrong.append(f"{where}: {text!r} should give {expected} problems: {found}")
    return wrong, len(good) + len(bad)


def main():
    if sys.argv[1:] == ["--self-test"]:
        found, count = self_test()
        what = "cases"
    else:
        found, count = problems(pathlib.Path(sys.argv[1]))
        what = "files"
        if count == 0:
            found.append(f"{sys.argv[1]} has no sources")
    print("\n".join(found + [f"{count} {what}, {len(found)} problems"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
