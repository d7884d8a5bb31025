"""Runs clang-tidy on what a build compiles of some folders, on all cores.

    clang_tidy.py PROGRAM BUILD FOLDER...

A file that passed is looked at again only when itself, a header that it reads, the checks or the compiler's arguments
changed: clang-tidy reads all of Qt once per file, which takes seconds each. Which headers a file reads is known only
after it was built; until then it is looked at every time. Prints what was found; fails on any finding.
"""

import concurrent.futures
import hashlib
import json
import os
import pathlib
import subprocess
import sys


def files_read(build):
    """For each source file what the build recorded to have read for it, itself included."""
    listing = subprocess.run(["ninja", "-C", build, "-t", "deps"], capture_output=True, text=True, check=False).stdout
    read = {}
    for block in listing.split("\n\n"):
        heading, *paths = block.strip().splitlines() or [""]
        if heading.endswith("(VALID)") and paths:
            paths = [os.path.normpath(os.path.join(build, path.strip())) for path in paths]
            read[os.path.abspath(paths[0])] = paths
    return read


def fingerprint(program_version, entry, paths):
    """Changes when anything changes that clang-tidy's answer depends on."""
    value = hashlib.sha256()
    value.update(program_version + pathlib.Path(".clang-tidy").read_bytes() + entry["command"].encode())
    for path in paths:
        relative = os.path.relpath(path)
        if relative.startswith(".."):
            about = os.stat(path)
            value.update(f"{path} {about.st_size} {about.st_mtime_ns}\n".encode())
        else:
            value.update(relative.encode() + pathlib.Path(path).read_bytes())
    return value.hexdigest()


def check(program, version, build, entry, paths):
    """What clang-tidy found in one file; empty when all is well."""
    file = os.path.relpath(entry["file"])
    stamp = pathlib.Path(build, "clang-tidy", file + ".passed")
    mark = fingerprint(version, entry, paths) if paths else None
    if mark and stamp.is_file() and stamp.read_text() == mark:
        return ""
    run = subprocess.run([program, "--quiet", "-p", build, file], capture_output=True, text=True, check=False)
    if run.returncode != 0:
        return run.stdout or run.stderr
    if mark:
        stamp.parent.mkdir(parents=True, exist_ok=True)
        stamp.write_text(mark)
    return ""


def main():
    program, build, *folders = sys.argv[1:]
    version = subprocess.run([program, "--version"], capture_output=True, check=True).stdout
    entries = json.loads(pathlib.Path(build, "compile_commands.json").read_text())
    entries = [entry for entry in entries if os.path.relpath(entry["file"]).split("/")[0] in folders]
    read = files_read(build)
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        jobs = [pool.submit(check, program, version, build, entry, read.get(entry["file"], []))
                for entry in entries]
        problems = 0
        for job in jobs:
            if job.result():
                problems += 1
                print(job.result(), end="", flush=True)
    print(f"{len(entries)} files, {problems} with problems")
    return 1 if problems or not entries else 0


if __name__ == "__main__":
    sys.exit(main())
