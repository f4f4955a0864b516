"""Includes run one way: a room includes itself and the rooms before it in rooms.txt.

usage: stanze.py PROJECT HOUSE    as src/funzioni; its files outside rooms may include all of its rooms
"""

import pathlib
import re
import sys

from rooms import house, rooms

INCLUDE = re.compile(r'^\s*#\s*include\s+"([a-z_]+)/[^"]+"', re.MULTILINE)


def main():
    folder = pathlib.Path(sys.argv[1], sys.argv[2])
    listed = [pathlib.Path(room).name for room in rooms() if house(room) == sys.argv[2] and room != sys.argv[2] + "/"]
    found = {path.name for path in folder.iterdir() if path.is_dir()}
    wrong = [f"{name}: no room of that name in rooms.txt" for name in sorted(found - set(listed))]
    wrong += [f"{name}: in rooms.txt, but there is no such room" for name in listed if name not in found]
    for place, room in enumerate(listed):
        for path in sorted((folder / room).rglob("*.*")):
            for included in INCLUDE.findall(path.read_text(encoding="utf-8", errors="replace")):
                if included in listed[place + 1 :]:
                    wrong.append(f"{path.relative_to(folder)} includes a file of {included}/, a room above its own")
    print("\n".join(wrong) or f"{len(listed)} rooms, every include runs down")
    return 1 if wrong else 0


sys.exit(main())
