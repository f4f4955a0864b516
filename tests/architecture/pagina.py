"""docs/architecture.md names every room of rooms.txt, with the words there.

usage: pagina.py PROJECT
"""

import pathlib
import re
import sys

from rooms import rooms

ROW = re.compile(r"^\| `([^`]+)` \| (.*) \|$", re.MULTILINE)


def main():
    page = pathlib.Path(sys.argv[1], "docs/architecture.md").read_text(encoding="utf-8")
    listed = [f"{room}: {words}" for room, words in rooms().items()]
    shown = [f"{room}: {words}" for room, words in ROW.findall(page)]
    wrong = [f"not on the page: {row}" for row in listed if row not in shown]
    wrong += [f"only on the page: {row}" for row in shown if row not in listed]
    if not wrong and listed != shown:
        wrong.append("the page has the rooms in another order")
    print("\n".join(wrong) or f"docs/architecture.md names all {len(listed)} rooms")
    return 1 if wrong else 0


sys.exit(main())
