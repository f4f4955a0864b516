#!/usr/bin/env python3
"""Dead links of a folder of HTML pages: every file and every place in a page that something on the site points to must be
there. Links that leave the site are counted, not followed.

    link.py FOLDER
"""

import re
import sys
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit


class Page(HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.links, self.places = set(), set()
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        for name, value in attrs:
            if name in ("href", "src") and value:
                self.links.add(value)
            elif name in ("id", "name") and value:
                self.places.add(value)


root = Path(sys.argv[1]).resolve()
pages = {path: Page(path.read_text(encoding="utf-8")) for path in root.rglob("*.html")}
links = {(path, link) for path, page in pages.items() for link in page.links}
# The navigation and the search of the site are programs; their data are lists of links.
for script in root.rglob("*.js"):
    base = root / script.name if script.parent == root else script
    for link in re.findall(r"""["']((?:\.\./)?[\w./-]+\.html(?:#[^"']*)?)["']""", script.read_text(encoding="utf-8")):
        links.add((base, link))

checked = outside = dead = 0
for source, link in sorted(links, key=str):
    parts = urlsplit(link)
    if parts.scheme or parts.netloc:
        outside += 1
        continue
    checked += 1
    target = (source.parent / unquote(parts.path)).resolve() if parts.path else source
    place = unquote(parts.fragment)
    if not target.is_file():
        why = "no such file"
    elif place and target in pages and place not in pages[target].places:
        why = "no such place in that file"
    else:
        continue
    dead += 1
    print(f"{source.relative_to(root)}: {link}: {why}")
print(f"{len(pages)} pages, {checked} links checked, {outside} leave the site, {dead} dead")
sys.exit(dead > 0 or len(pages) < 2 or checked == 0)
