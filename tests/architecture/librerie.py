"""The second library stands on the first one's public headers, and the first knows nothing of the second.

usage: librerie.py PROJECT
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]', re.MULTILINE)
SOURCES = {".h", ".cpp", ".hpp", ".c", ".in"}
# The second library's public headers: the first one's are all the others.
SECOND = {"kelregistrazioni.h"}


def includes(folder):
    for path in sorted(folder.rglob("*")):
        if path.suffix in SOURCES:
            for included in INCLUDE.findall(path.read_text(encoding="utf-8", errors="replace")):
                yield path, included


def main():
    project = pathlib.Path(sys.argv[1])
    public = {path.name for path in (project / "include").iterdir()}
    first, second = project / "src/funzioni", project / "src/registrazioni"
    wrong = []

    rooms = {path.name for path in first.iterdir() if path.is_dir()}
    files = {path.name for path in first.rglob("*.h")}
    for path, included in includes(second):
        room, name = included.split("/")[0], pathlib.PurePath(included).name
        inside = (second / included).is_file() or (path.parent / included).is_file()
        if not inside and (".." in included or (room in rooms and "/" in included) or (name in files - public)):
            wrong.append(f"{path.relative_to(project)} includes {included}, which is the first library's own")

    ours = {path.name for path in second.iterdir() if path.is_dir()}
    for path, included in includes(first):
        if included in SECOND or "registrazioni" in included or included.split("/")[0] in ours:
            wrong.append(f"{path.relative_to(project)} includes {included}, which is the second library's")
    for name in sorted(public - SECOND):
        for included in INCLUDE.findall((project / "include" / name).read_text(encoding="utf-8")):
            if included in SECOND:
                wrong.append(f"include/{name} includes {included}, which is the second library's")

    print("\n".join(wrong) or "the second library includes the first one's public headers only, the first none of it")
    return 1 if wrong else 0


sys.exit(main())
