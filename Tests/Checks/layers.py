"""Checks that the folders of Sources include only what lies below them, and the rooms of a folder what stands beside it.

    layers.py SOURCES                  lists every #include that draws an arrow the architecture does not have
    layers.py --draw SOURCES           prints the picture of the arrows that are really there
    layers.py --drawn FILE SOURCES     fails where the picture in FILE is not that one; with --update, writes it there
    layers.py --self-test              checks the checker with small trees, good and bad

The alternative, a library per folder that links only what it may know, is there as well; but headers are found without
linking, so a library alone notices too late or never.
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
# The remote upscaler is one more request to Gemini, so it shares these with the providers.
EXCEPTIONS = {"Upscaling": {"Providers/EncodedImage.h", "Providers/GeminiProvider.h", "Providers/ProviderError.h", "Providers/ServiceRequest.h"}}

# The rooms of a folder, and which rooms of the same folder each may include. The folder's own files ("") are its floor
# or its roof: FLOOR names the folders whose own files every room may include; elsewhere they may include every room.
ROOMS = {
    "Platform": {
        "Threads": set(),
        "Files": {"Threads"},
        "Bus": {"Threads"},
        "Network": {"Threads"},
        "Secrets": {"Bus", "Threads"},
        "Pictures": {"Files", "Threads"},
        "X11": {"Pictures", "Files", "Threads"},
        "Wayland": {"Pictures", "Files", "Threads"},
        "Desktops": {"Wayland", "X11", "Bus", "Pictures", "Files", "Threads"},
        "System": {"Bus", "Files", "Threads"},
    },
    "Manager": {
        "Library": set(),
        "Undo": {"Library"},
    },
    "Upscaling": {
        "Image": set(),
        "Network": {"Image"},
        "Gpu": {"Network", "Image"},
    },
    "App": {
        "Command": set(),
        "Control": {"Command"},
        "Tray": set(),
        "Application": {"Command", "Control", "Tray"},
    },
}
FLOOR = {"Platform"}

# A macro may stand for the file: #define QUORVANE_VIEWS "Views/Views.h" in a file or in CMake, then #include QUORVANE_VIEWS.
INCLUDE = re.compile(r'^\s*#\s*include\s*(?:([<"])([^>"]+)[>"]|([A-Za-z_]\w*))')
DEFINE = re.compile(r'^\s*#\s*define\s+([A-Za-z_]\w*)\s+[<"]([^>"]+)[>"]', re.M)
DEFINE_IN_CMAKE = re.compile(r'\b([A-Z_][A-Z0-9_]*)=\\?"([^"\\]+)\\?"')
# Written by the build, beside the file that includes them.
GENERATED = re.compile(r'^(moc_[^/]+\.cpp|[^/]+\.moc|ui_[^/]+\.h|[a-z0-9]+adaptor\.h)$')
SOURCE_ENDINGS = (".h", ".cpp", ".mm")


def place(path):
    """(folder, room) of a path below Sources; the room is "" for the folder's own files."""
    parts = path.split("/")
    folder = parts[0]
    return folder, parts[1] if len(parts) > 2 and folder in ROOMS else ""


def may_know(folder, room, other):
    """Whether a room of folder may include another of the same folder."""
    if room == other:
        return True
    if room == "":
        return folder not in FLOOR
    if other == "":
        return folder in FLOOR
    return other in ROOMS[folder].get(room, ())


def problem_with(where, opening, target, sources):
    """What is wrong with the file at where including target, or None."""
    folder, room = place(where)
    first, slash, _ = target.partition("/")
    if slash and first in ARROWS:
        if not (sources / target).is_file():
            return "there is no such file"
        if first == folder:
            other = place(target)[1]
            if folder in ROOMS and not may_know(folder, room, other):
                return f"{folder}/{room or '(its own files)'} may not know {folder}/{other or '(its own files)'}"
            return None
        if first in ARROWS[folder] or target in EXCEPTIONS.get(folder, ()):
            return None
        return f"{folder} may not know {first}"
    if opening == '"' and not GENERATED.match(target):
        return "includes of our own are written from Sources/, as in \"Platform/Files/Paths.h\""
    return None


def macros(sources):
    """The files that macros stand for, wherever they are defined: each name with all its meanings."""
    found = {}
    for path in sources.rglob("*"):
        pattern = DEFINE if path.suffix in SOURCE_ENDINGS else DEFINE_IN_CMAKE if path.name == "CMakeLists.txt" else None
        for name, target in pattern.findall(path.read_text(encoding="utf-8")) if pattern else ():
            found.setdefault(name, set()).add(target)
    return found


def includes(sources):
    """Every include: (path below Sources, line number, opening, target). A macro counts as each file it stands for; one
    that stands for nothing known gives None as its target."""
    known = macros(sources)
    for path in sorted(path for path in sources.rglob("*") if path.suffix in SOURCE_ENDINGS):
        where = path.relative_to(sources).as_posix()
        for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
            match = INCLUDE.match(line)
            if not match:
                continue
            if match[3]:
                for target in sorted(known.get(match[3], ())) or [None]:
                    yield where, number, '"', target
            else:
                yield where, number, match[1], match[2]


def circles():
    """Rooms that would reach themselves by the table above."""
    found = []
    for folder, rooms in ROOMS.items():
        for room in rooms:
            seen, open_rooms = set(), set(rooms[room])
            while open_rooms:
                other = open_rooms.pop()
                if other not in seen:
                    seen.add(other)
                    open_rooms |= rooms[other]
            if room in seen:
                found.append(f"{folder}/{room}: the table of rooms leads back to it")
    return found


def problems(sources):
    found = circles()
    files = [path for path in sorted(sources.rglob("*")) if path.suffix in SOURCE_ENDINGS]
    for path in files:
        where = path.relative_to(sources)
        folder, room = place(where.as_posix())
        if len(where.parts) < 2 or folder not in ARROWS:
            found.append(f"{where}: lies in no folder of the architecture")
        elif room and room not in ROOMS[folder]:
            found.append(f"{where}: lies in no room of the architecture")
    for where, number, opening, target in includes(sources):
        if place(where)[0] not in ARROWS:
            continue
        if target is None:
            found.append(f"{where}:{number}: includes through a macro that nobody defines")
            continue
        problem = problem_with(where, opening, target, sources)
        if problem:
            found.append(f"{where}:{number}: {target}: {problem}")
    return found, len(files)


def picture(sources):
    """The arrows that are really there, a line for each folder and room, the highest first."""
    arrows = {}
    for where, _, _, target in includes(sources):
        if target and target.partition("/")[0] in ARROWS and (sources / target).is_file():
            start, end = place(where), place(target)
            arrows.setdefault(start, set())
            if start != end:
                arrows[start].add(end if end[0] == start[0] else (end[0], ""))
    for folder in ARROWS:
        if (sources / folder).is_dir():
            arrows.setdefault((folder, ""), set())

    def title(node, inside):
        folder, room = node
        return room if inside and room else folder + (f"/{room}" if room else "")

    lines = []
    for folder in ARROWS:
        own = {end for (start, _), ends in arrows.items() if start == folder for end in ends if end[0] != folder}
        if not (sources / folder).is_dir():
            continue
        lines.append(f"{folder:<12} → " + (", ".join(f for f in ARROWS if (f, "") in own) or "nobody"))
        for room in ROOMS.get(folder, ()):
            ends = {end for end in arrows.get((folder, room), ()) if end[0] == folder and end[1]}
            names = [other for other in ROOMS[folder] if (folder, other) in ends]
            if (sources / folder / room).is_dir():
                lines.append(f"    {room:<12} → " + (", ".join(names) or "nobody"))
    return "\n".join(lines) + "\n"


BEGIN, END = "<!-- layers: drawn by Tests/Checks/layers.py --drawn HACKING.md --update Sources -->\n```\n", "```\n<!-- layers end -->\n"


def drawn(file, sources, update):
    text = file.read_text(encoding="utf-8")
    start, end = text.find(BEGIN), text.find(END)
    if start < 0 or end < start:
        return [f"{file}: has no place for the picture"]
    new = text[:start] + BEGIN + picture(sources) + text[end:]
    if new == text:
        return []
    if update:
        file.write_text(new, encoding="utf-8")
        return []
    return [f"{file}: its picture is not that of the sources; Tests/Checks/layers.py --drawn {file} --update {sources}"]


def tree(folder, files):
    sources = pathlib.Path(folder)
    for name, text in files.items():
        (sources / name).parent.mkdir(parents=True, exist_ok=True)
        (sources / name).write_text(text, encoding="utf-8")
    return sources


def self_test():
    headers = ["App/Application/Program.h", "App/Command/Commands.h", "App/Control/ControlService.h", "App/Tray/MenuBar.h",
               "Views/Gallery/GalleryModel.h", "Manager/Library/Album.h", "Providers/ProviderError.h",
               "Providers/ServiceRequest.h", "Providers/GrokProvider.h", "Upscaling/LocalUpscaler.h",
               "Upscaling/Image/PngEncoder.h", "Upscaling/Gpu/Gpu.h", "Upscaling/Network/ModelFiles.h",
               "Storage/ImageStore.h", "Platform/Failure.h"]
    headers += [f"Platform/{room}/{room}.h" for room in ROOMS["Platform"]]
    good = [("App/Application", header) for header in headers] + [
        ("Views", "Manager/Library/Album.h"), ("Views", "Platform/Files/Files.h"),
        ("Manager", "Providers/GrokProvider.h"), ("Manager", "Upscaling/LocalUpscaler.h"),
        ("Manager", "Upscaling/Image/PngEncoder.h"), ("Manager", "Storage/ImageStore.h"),
        ("Manager", "Platform/Failure.h"), ("Providers", "Platform/Network/Network.h"),
        ("Upscaling", "Platform/Files/Files.h"), ("Upscaling", "Upscaling/Gpu/Gpu.h"),
        ("Upscaling/Gpu", "Upscaling/Image/PngEncoder.h"), ("Upscaling", "Providers/ProviderError.h"),
        ("Upscaling/Network", "Providers/ServiceRequest.h"), ("Storage", "Platform/Failure.h"),
        ("App/Control", "App/Command/Commands.h"), ("Platform/Threads", "Platform/Failure.h"),
        ("Platform/Desktops/Choice", "Platform/Desktops/Desktops.h"), ("Platform/Bus", "moc_Bus.cpp"),
    ] + [(f"Platform/{room}", f"Platform/{other}/{other}.h") for room, others in ROOMS["Platform"].items() for other in others]
    bad = [
        ("Views", "App/Command/Commands.h"), ("Views", "Storage/ImageStore.h"), ("Manager", "Views/Gallery/GalleryModel.h"),
        ("Manager", "App/Command/Commands.h"), ("Providers", "Storage/ImageStore.h"),
        ("Providers", "Upscaling/LocalUpscaler.h"), ("Providers", "Manager/Library/Album.h"),
        ("Storage", "Providers/ProviderError.h"), ("Storage", "Upscaling/LocalUpscaler.h"),
        ("Upscaling", "Providers/GrokProvider.h"), ("Upscaling", "Storage/ImageStore.h"),
        ("Upscaling/Image", "Upscaling/Gpu/Gpu.h"), ("Upscaling/Image", "Upscaling/LocalUpscaler.h"),
        ("Upscaling/Network", "Upscaling/Gpu/Gpu.h"), ("App/Command", "App/Control/ControlService.h"),
        ("App/Tray", "App/Application/Program.h"), ("Platform", "Platform/Threads/Threads.h"),
        ("Platform/Files", "Storage/ImageStore.h"), ("Platform/Files", "Manager/Library/Album.h"), ("Platform/Files", "Files.h"),
        ("Platform/Files", "Platform/Files/Gone.h"), ("Storage", "../Platform/Files/Files.h"),
        ("Platform/Cellar", "Platform/Failure.h"),
    ] + [(f"Platform/{room}", f"Platform/{other}/{other}.h") for room, others in ROOMS["Platform"].items()
         for other in ROOMS["Platform"] if other != room and other not in others]
    wrong = []
    plain = {header: "#include <QString>\n#include <sys/stat.h>\n" for header in headers}
    for expected, cases in ((0, good), (1, bad)):
        for folder, target in cases:
            for text in (f'#include "{target}"\n', f'  #  include "{target}" // why\n',
                         f'#define QUORVANE_TARGET "{target}"\n#include QUORVANE_TARGET\n'):
                with tempfile.TemporaryDirectory() as name:
                    sources = tree(name, {**plain, f"{folder}/Case.cpp": text})
                    if len(problems(sources)[0]) != expected:
                        wrong.append(f"{folder} including {target} should give {expected} problems: {problems(sources)[0]}")
    count = 3 * (len(good) + len(bad))
    others = [
        ({"Helpers/Case.cpp": "\n"}, "a folder that the architecture does not have"),
        ({"Manager/Case.cpp": "#include QUORVANE_TARGET\n"}, "an include through a macro that nobody defines"),
        ({"Manager/Case.cpp": "#include QUORVANE_TARGET\n", "App/Application/Program.h": "",
          "Manager/CMakeLists.txt": 'target_compile_definitions(m PRIVATE QUORVANE_TARGET="App/Application/Program.h")\n'},
         "an include through a macro of the build"),
    ]
    for files, what in others:
        with tempfile.TemporaryDirectory() as name:
            if len(problems(tree(name, files))[0]) != 1:
                wrong.append(f"{what} should be one problem")
    with tempfile.TemporaryDirectory() as name:
        sources = tree(name, {**plain, "Platform/Files/Case.cpp": '#include "Platform/Threads/Threads.h"\n'})
        page = sources / "PAGE.md"
        page.write_text(f"Before.\n\n{BEGIN}old\n{END}\nAfter.\n", encoding="utf-8")
        steps = [bool(drawn(page, sources, False)), not drawn(page, sources, True), not drawn(page, sources, False),
                 "    Files        → Threads\n" in page.read_text(encoding="utf-8"),
                 page.read_text(encoding="utf-8").startswith("Before.\n") and page.read_text(encoding="utf-8").endswith("After.\n")]
        if not all(steps):
            wrong.append(f"the picture in a page should be told apart from another, and be replaced: {steps}")
    return wrong, count + len(others) + 1


def main():
    arguments = sys.argv[1:]
    if arguments == ["--self-test"]:
        found, count = self_test()
        what = "cases"
    elif arguments[:1] == ["--draw"]:
        print(picture(pathlib.Path(arguments[1])), end="")
        return 0
    elif arguments[:1] == ["--drawn"]:
        found, count, what = drawn(pathlib.Path(arguments[1]), pathlib.Path(arguments[-1]), "--update" in arguments), 1, "picture"
    else:
        found, count = problems(pathlib.Path(arguments[0]))
        what = "files"
        if count == 0:
            found.append(f"{arguments[0]} has no sources")
    print("\n".join(found + [f"{count} {what}, {len(found)} problems"]))
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
