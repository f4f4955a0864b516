#!/usr/bin/env python3
"""A file as the documentation site reads it.

    filtro.py FILE

A page: links into the source tree, which the site does not have, become plain text; a link to nothing stays, so that it
is found. Pages are known by their names and not by their paths, which may have blanks. A heading has the same name as on
the pages of a forge, so that links to it lead there.

A header: an enumerator without a sentence of its own is documented by its value, else the site would list it and lead
nowhere.
"""

import re
import sys
from collections import Counter
from pathlib import Path

file = Path(sys.argv[1])
text = file.read_text()


def plain(link):
    shown, target, place = link.groups()
    page = Path(target) if target else file
    if not (target or place) or "://" in target or not (file.parent / target).exists():
        return link[0]
    return f'@ref {label(page, place)} "{shown}"' if page.suffix == ".md" else shown


def label(page, place=""):
    return f"page-{page.stem.lower()}" + (f"-{place}" if place else "")


headings = Counter()


def heading(found):
    place = re.sub(r"[^\w\- ]", "", found[2].lower()).replace(" ", "-")
    headings[place] += 1
    if headings[place] > 1:  # as forges count them
        place += f"-{headings[place] - 1}"
    return f"{found[0]} {{#{label(file, place)}}}"


ENUMERATOR = r"[A-Z]+_\w+ *= *(?:0x)?[0-9A-F]+"

if file.suffix == ".md":
    # A link that goes over the end of a line would not be read as one.
    text = re.sub(r"\[[^\]\n]+\n[^\]\n]+\]\(", lambda m: " ".join(m[0].split()), text)
    text = re.sub(r"(?<!!)\[([^\]]+)\]\(([^)#\s]*)(?:#([^)\s]*))?\)", plain, text)
    # Programs and outputs, which have lines that begin with "#" too, stay as they are.
    blocks = re.split(r"(^```.*?^```$)", text, flags=re.M | re.S)
    blocks[::2] = [re.sub(r"^(##+) (.*)$", heading, prose, flags=re.M) for prose in blocks[::2]]
    text = "".join(blocks)
    # The site has all pictures in one folder.
    text = re.sub(r"(!\[[^\]]+\]\()(?:[^)\s]*/)?([^)/\s]+\))", r"\1\2", text)
    if file.name != "README.md":  # the main page has a label of its own
        text = re.sub(r"\A# (.*)$", lambda m: f"{m[0]} {{#{label(file)}}}", text, flags=re.M)
else:
    # Two on a line share its sentence.
    text = re.sub(rf"^ +({ENUMERATOR}), +({ENUMERATOR})(,?) +///< (.*)$", r"\1,  ///< \4: shift\n\2\3  ///< \4: mask", text,
                  flags=re.M)
    text = re.sub(rf"^( +{ENUMERATOR})(,?)$", lambda m: f"{m[0]}  ///< {m[1].split('=')[1].strip()}", text, flags=re.M)
sys.stdout.write(text)
