#!/usr/bin/env python3
"""A file as the documentation site reads it.

    filtro.py FILE

A page: links into the source tree, which the site does not have, become plain text; a link to nothing stays, so that it
is found. Pages are known by their names and not by their paths, which may have blanks. A header: an enumerator without a sentence of its own is documented by its value, else the site would list it and
lead nowhere.
"""

import re
import sys
from pathlib import Path

file = Path(sys.argv[1])
text = file.read_text()


def plain(link):
    shown, target = link.groups()  # a place within a page is left out: the link goes to its top
    if "://" in target or not (file.parent / target).exists():
        return link[0]
    return f'@ref {label(Path(target))} "{shown}"' if target.endswith(".md") else shown


def label(page):
    return f"page-{page.stem.lower()}"


ENUMERATOR = r"[A-Z]+_\w+ *= *(?:0x)?[0-9A-F]+"

if file.suffix == ".md":
    # A link that goes over the end of a line would not be read as one.
    text = re.sub(r"\[[^\]\n]+\n[^\]\n]+\]\(", lambda m: " ".join(m[0].split()), text)
    text = re.sub(r"(?<!!)\[([^\]]+)\]\(([^)#\s]+)(?:#[^)\s]*)?\)", plain, text)
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
