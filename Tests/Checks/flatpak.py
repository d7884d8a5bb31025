"""Holds the Flatpak manifest against the rest of the program: one id everywhere, no more rights than those listed here,
and every library by the sum of its sources.

flatpak.py MANIFEST DESKTOP-FOLDER. Exit status: 0 all well, 1 something differs, 77 PyYAML is not installed.
"""

import pathlib
import sys

try:
    import yaml
except ImportError:
    print("flatpak: PyYAML is not installed")
    sys.exit(77)

RIGHTS = {
    "--share=network", "--share=ipc", "--socket=wayland", "--socket=fallback-x11", "--device=dri",
    "--filesystem=~/Pictures/Quorvane:create", "--persist=Library",
    "--talk-name=org.kde.StatusNotifierWatcher", "--talk-name=org.freedesktop.Notifications",
    "--system-talk-name=org.freedesktop.login1",
}


def findings(manifest, desktop_folder, file_name):
    app_id = manifest.get("id")
    if file_name != f"{app_id}.yml":
        yield f"the file {file_name} does not have the name of the id {app_id}"
    for name in (f"{app_id}.desktop.in", f"{app_id}.service.in", f"{app_id}.metainfo.xml.in"):
        if not (desktop_folder / name).is_file():
            yield f"there is no {name}"
    for name in ("runtime", "runtime-version", "sdk", "command", "modules"):
        if not manifest.get(name):
            yield f"{name} is missing"
    if not isinstance(manifest.get("runtime-version"), str):
        yield "runtime-version is not a text"
    rights = set(manifest.get("finish-args", []))
    for right in sorted(rights ^ RIGHTS):
        yield f"{right} is {'not expected' if right in rights else 'missing'}"
    modules = manifest.get("modules", [])
    for module in modules:
        if not module.get("name") or not module.get("buildsystem") or not module.get("sources"):
            yield f"the module {module.get('name')} has no name, build system or sources"
        for source in module.get("sources", []):
            # A tag can be moved, and a file replaced.
            if source.get("url") and not source.get("sha256") and not source.get("commit"):
                yield f"{source['url']} is named without its sum or commit"
    if not modules or modules[-1].get("name") != manifest.get("command"):
        yield "the program is not the last module"


def main():
    path, desktop_folder = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2])
    try:
        manifest = yaml.safe_load(path.read_text())
    except yaml.YAMLError as error:
        print(f"{path}: {error}")
        return 1
    found = list(findings(manifest, desktop_folder, path.name))
    for finding in found:
        print(f"{path}: {finding}")
    return 1 if found else 0


sys.exit(main())
