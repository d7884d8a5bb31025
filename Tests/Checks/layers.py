"""Checks that the folders of Sources include only what lies below them.

    layers.py SOURCES       lists every #include that draws an arrow the architecture does not have; fails on one
    layers.py --self-test   checks the checker with small trees, good and bad
"""

import pathlib
import re
import sys
import tempfile

# Who may include whom. A folder may always include itself.
ARROWS = {
    "App": {"Views", "Manager", "Providers", "Upscaling", "Storage", "Platform"},
    "Views": {"Manager", "Platform"},
    "Manager": {"Providers", "Upscaling", "Storage", "Platform"},
    "Providers": {"Platform"},
    "Upscaling": {"Platform"},
    "Storage": {"Platform"},
    "Platform": set(),
}
# The remote upscaler is one more request to a service, so it shares these with the providers.
EXCEPTIONS = {"Upscaling": {"Providers/ProviderError.h", "Providers/ServiceRequest.h"}}

INCLUDE = re.compile(r'^\s*#\s*include\s*([<"])([^>"]+)[>"]')
# Written by the build, beside the file that includes them.
GENERATED = re.compile(r'^(moc_[^/]+\.cpp|[^/]+\.moc|ui_[^/]+\.h)$')


def problem_with(folder, opening, target, sources):
    """What is wrong with a file of folder including target, or None."""
    first, slash, _ = target.partition("/")
    if slash and first in ARROWS:
        if not (sources / target).is_file():
            return "there is no such file"
        if first == folder or first in ARROWS[folder] or target in EXCEPTIONS.get(folder, ()):
            return None
        return f"{folder} may not know {first}"
    if opening == '"' and not GENERATED.match(target):
        return "includes of our own are written from Sources/, as in \"Platform/Paths.h\""
    return None


def problems(sources):
    found = []
    files = [path for path in sorted(sources.rglob("*")) if path.suffix in (".h", ".cpp", ".mm")]
    for path in files:
        where = path.relative_to(sources)
        folder = where.parts[0]
        if len(where.parts) < 2 or folder not in ARROWS:
            found.append(f"{where}: lies in no folder of the architecture")
            continue
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if match:
                problem = problem_with(folder, match[1], match[2], sources)
                if problem:
                    found.append(f"{where}:{number}: {match[2]}: {problem}")
    return found, len(files)


def self_test():
    headers = ["App/Commands.h", "Views/GalleryModel.h", "Manager/Album.h", "Providers/ProviderError.h",
               "Providers/ServiceRequest.h", "Providers/GrokProvider.h", "Upscaling/PngEncoder.h",
               "Storage/ImageStore.h", "Platform/Paths.h"]
    good = [("App", h) for h in headers] + [
        ("Views", "Manager/Album.h"), ("Views", "Platform/Paths.h"),
        ("Manager", "Providers/GrokProvider.h"), ("Manager", "Upscaling/PngEncoder.h"),
        ("Manager", "Storage/ImageStore.h"), ("Manager", "Platform/Paths.h"), ("Providers", "Platform/Paths.h"),
        ("Upscaling", "Platform/Paths.h"), ("Storage", "Platform/Paths.h"), ("Platform", "Platform/Paths.h"),
        ("Upscaling", "Providers/ProviderError.h"), ("Upscaling", "Providers/ServiceRequest.h"),
        ("Platform", "Paths.moc"), ("Platform", "moc_Paths.cpp"),
    ]
    bad = [
        ("Views", "App/Commands.h"), ("Views", "Storage/ImageStore.h"),
        ("Manager", "Views/GalleryModel.h"), ("Manager", "App/Commands.h"),
        ("Providers", "Storage/ImageStore.h"), ("Providers", "Upscaling/PngEncoder.h"),
        ("Providers", "Manager/Album.h"), ("Storage", "Providers/ProviderError.h"),
        ("Storage", "Upscaling/PngEncoder.h"), ("Upscaling", "Providers/GrokProvider.h"),
        ("Upscaling", "Storage/ImageStore.h"), ("Platform", "Storage/ImageStore.h"),
        ("Platform", "Manager/Album.h"), ("Platform", "Paths.h"), ("Platform", "Platform/Gone.h"),
        ("Storage", "../Platform/Paths.h"),
    ]
    wrong = []
    for expected, cases in ((0, good), (1, bad)):
        for folder, target in cases:
            for line in (f'#include "{target}"', f'  #  include "{target}" // why'):
                with tempfile.TemporaryDirectory() as name:
                    sources = pathlib.Path(name)
                    for header in headers:
                        (sources / header).parent.mkdir(exist_ok=True)
                        (sources / header).write_text("#include <QString>\n#include <sys/stat.h>\n", encoding="utf-8")
                    (sources / folder / "Case.cpp").write_text(line + "\n", encoding="utf-8")
                    if len(problems(sources)[0]) != expected:
                        wrong.append(f"{folder} including {target} should give {expected} problems")
    with tempfile.TemporaryDirectory() as name:
        (pathlib.Path(name) / "Helpers").mkdir()
        (pathlib.Path(name) / "Helpers" / "Case.cpp").write_text("\n", encoding="utf-8")
        if not problems(pathlib.Path(name))[0]:
            wrong.append("a folder that the architecture does not have should be a problem")
    return wrong, 2 * (len(good) + len(bad)) + 1


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
