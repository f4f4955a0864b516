"""Includes run one way: a room includes itself and the rooms before it.

usage: stanze.py FOLDER ROOM...    the rooms in their order, lowest first; files outside rooms may include all of them
"""

import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+"([a-z_]+)/[^"]+"', re.MULTILINE)


def main():
    folder, rooms = pathlib.Path(sys.argv[1]), sys.argv[2:]
    found = {path.name for path in folder.iterdir() if path.is_dir()}
    wrong = [f"{name}: no room of that name in the list" for name in sorted(found - set(rooms))]
    wrong += [f"{name}: in the list, but there is no such room" for name in rooms if name not in found]
    for place, room in enumerate(rooms):
        for path in sorted((folder / room).rglob("*.*")):
            for included in INCLUDE.findall(path.read_text(encoding="utf-8", errors="replace")):
                if included in rooms[place + 1 :]:
                    wrong.append(f"{path.relative_to(folder)} includes a file of {included}/, a room above its own")
    print("\n".join(wrong) or f"{len(rooms)} rooms, every include runs down")
    return 1 if wrong else 0


sys.exit(main())
