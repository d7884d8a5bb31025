"""Checks the catalogues of the translations.

    translations.py FOLDER           every text is translated, into every language, with the placeholders, options and
                                     names that the English one has; fails on one that is not
    translations.py FOLDER UPDATER   no text of the sources is missing, and none is left over: runs UPDATER on a copy of
                                     FOLDER and compares; 77 where it has no tool
    translations.py --self-test      checks the checker with small catalogues, good and bad
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import xml.etree.ElementTree as ElementTree

SKIPPED = 77
LANGUAGES = ("de", "es", "fr", "ja", "zh_CN")
ENGLISH = "en"
# What stands in a text and is no word: placeholders, options, keys, names of variables and of services.
FIXED = re.compile(r"%L?\d|%n|--[a-z]+|⌘,|\b[A-Z]+_[A-Z_]+\b|\bSWAYSOCK\b|\bDISPLAY\b|\b(?:Gemini|Grok|OpenAI|4K|NSFW)\b",
                   re.ASCII)


def messages(catalogue):
    """(context, source, comment, is it counted) and the element of every text."""
    for context in ElementTree.parse(catalogue).getroot().iter("context"):
        for message in context.iter("message"):
            key = (context.findtext("name"), message.findtext("source"), message.findtext("comment", ""),
                   message.get("numerus") == "yes")
            yield key, message


def problem_with(key, message):
    """What is wrong with a translation, or None."""
    _, source, _, counted = key
    translation = message.find("translation")
    if translation is None or translation.get("type"):
        return "is not translated"
    forms = [form.text or "" for form in translation.findall("numerusform")] if counted else [translation.text or ""]
    if not forms or not all(form.strip() for form in forms):
        return "is not translated"
    for form in forms:
        if sorted(FIXED.findall(form)) != sorted(FIXED.findall(source)):
            return f"has not the same placeholders and names in {form!r}"
        if form.count("\n") == 0 != source.count("\n"):
            return f"has not its lines in {form!r}"
    return None


def problems(folder):
    found = []
    keys = {}
    for language in LANGUAGES + (ENGLISH,):
        catalogue = folder / f"quorvane_{language}.ts"
        if not catalogue.is_file():
            found.append(f"{catalogue.name}: there is no such file")
            continue
        if ElementTree.parse(catalogue).getroot().get("language") != language:
            found.append(f"{catalogue.name}: names another language")
        keys[language] = set()
        for key, message in messages(catalogue):
            keys[language].add(key)
            problem = problem_with(key, message)
            if problem:
                found.append(f"{catalogue.name}: {key[0]}: {key[1]!r} {problem}")
    every = set().union(*keys.values())
    for language in keys:
        wanted = {key for key in every if key[3] or language != ENGLISH}
        found += [f"quorvane_{language}.ts: {key[0]}: {key[1]!r} is missing" for key in sorted(wanted - keys[language])]
    return found, len(every)


def differences(folder, updater):
    """What running the updater would change, or None where it has no tool."""
    with tempfile.TemporaryDirectory() as name:
        copy = pathlib.Path(name) / "translations"
        shutil.copytree(folder, copy)
        run = subprocess.run([updater, copy], capture_output=True, text=True, check=False)
        if run.returncode == SKIPPED:
            print(run.stderr.strip())
            return None
        if run.returncode != 0:
            return [f"{updater} failed: {run.stderr.strip()}"]
        found = []
        for language in LANGUAGES + (ENGLISH,):
            before = {key for key, _ in messages(folder / f"quorvane_{language}.ts")}
            after = {key for key, _ in messages(copy / f"quorvane_{language}.ts")}
            found += [f"quorvane_{language}.ts: {key[0]}: {key[1]!r} is new" for key in sorted(after - before)]
            found += [f"quorvane_{language}.ts: {key[0]}: {key[1]!r} is in no source" for key in sorted(before - after)]
        return found


def catalogue_of(language, *entries):
    body = ""
    for source, translation in entries:
        counted = ' numerus="yes"' if "<numerusform>" in translation else ""
        body += f"<message{counted}><source>{source}</source>{translation}</message>"
    return f'<TS version="2.1" language="{language}"><context><name>Window</name>{body}</context></TS>'


def self_test():
    counted = ("%n tiles", "<translation><numerusform>%n</numerusform><numerusform>%n s</numerusform></translation>")
    good = [("Next: %1", "<translation>%1!</translation>"), counted]
    bad = {
        "unfinished": ("Next: %1", '<translation type="unfinished">%1!</translation>'),
        "empty": ("Next: %1", "<translation></translation>"),
        "a placeholder less": ("Next: %1", "<translation>!</translation>"),
        "a placeholder twice": ("Next: %1", "<translation>%1 %1</translation>"),
        "a form without its number": ("%n tiles", "<translation><numerusform>%n</numerusform>"
                                                  "<numerusform>s</numerusform></translation>"),
        "a form that is empty": ("%n tiles", "<translation><numerusform>%n</numerusform><numerusform></numerusform>"
                                             "</translation>"),
        "another option": ("see --help", "<translation>--hilfe</translation>"),
        "another key": ("Settings (⌘,)", "<translation>(⌘;)</translation>"),
    }

    def found_with(entries, broken="de", without=None):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            for language in LANGUAGES:
                content = entries if language == broken else [(s, t) for s, t in good]
                if language != without:
                    (folder / f"quorvane_{language}.ts").write_text(catalogue_of(language, *content), encoding="utf-8")
            (folder / "quorvane_en.ts").write_text(catalogue_of("en", counted), encoding="utf-8")
            return problems(folder)[0]

    wrong = []
    if found_with(good):
        wrong.append(f"good catalogues are refused: {found_with(good)}")
    for what, entry in bad.items():
        if not any("not" in line for line in found_with([entry] + [each for each in good if each[0] != entry[0]])):
            wrong.append(f"not found: {what}")
    if not any("missing" in line for line in found_with(good[:1])):
        wrong.append("not found: a text that one language lacks")
    if not any("no such file" in line for line in found_with(good, without="ja")):
        wrong.append("not found: a language that is not there")
    return wrong


def main(arguments):
    if arguments == ["--self-test"]:
        found = self_test()
    elif len(arguments) == 2:
        found = differences(pathlib.Path(arguments[0]), pathlib.Path(arguments[1]).resolve())
        if found is None:
            return SKIPPED
        if found:
            found.append("the target update_translations takes texts over; then translate what is new")
    elif len(arguments) == 1:
        found, count = problems(pathlib.Path(arguments[0]))
        print(f"{count} texts in {len(LANGUAGES)} languages")
    else:
        print(__doc__, file=sys.stderr)
        return 2
    for line in found:
        print(line)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
