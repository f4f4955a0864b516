#!/usr/bin/env python3
"""Links of the Markdown pages, and the paths that they name: what they point to within the tree must be there. A page that
nothing points to is not read.

    rimandi.py FOLDER
"""
import re
import sys
from pathlib import Path

BLOCK = re.compile(r"^```.*?^```$", re.M | re.S)
CODE = re.compile(r"^```.*?^```$|`[^`\n]*`", re.M | re.S)
PATH = re.compile(r"`((?:bench|cmake|completions|debian|docs|examples|include|man|scripts|src|tests|tools)/[\w./*+-]*)")
LINK = re.compile(r"\[[^\]]*\]\(([^)\s]+)\)")


def places(text):
    """Names of a page's headings, as they are linked to."""
    headings = re.findall(r"^#+ +(.*)$", BLOCK.sub("", text), re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def main():
    root = Path(sys.argv[1]).resolve()
    pages = {path: path.read_text(encoding="utf-8")
             for path in [root / "README.md", root / "CONTRIBUTING.md", root / "CHANGELOG.md",
                          *sorted((root / "docs").glob("*.md"))]}
    mistakes, checked, reached = [], 0, {root / "README.md"}
    for page, text in pages.items():
        for link in LINK.findall(CODE.sub("", text)):
            if re.match(r"[a-z]+:", link):
                continue
            checked += 1
            path, _, place = link.partition("#")
            target = (page.parent / path).resolve() if path else page
            if not target.exists():
                mistakes.append(f"{page.relative_to(root)}: {link}: no such file")
            elif place and place not in places(pages.get(target, "")):
                mistakes.append(f"{page.relative_to(root)}: {link}: no such heading")
            if page.name == "README.md":
                reached.add(target)
        for path in PATH.findall(BLOCK.sub("", text)):
            checked += 1
            if not list(root.glob(path)):
                mistakes.append(f"{page.relative_to(root)}: `{path}`: no such file")
    mistakes += [f"README.md does not link {page.relative_to(root)}" for page in pages if page not in reached]
    print(*mistakes, f"{len(pages)} pages, {checked} links and paths checked, {len(mistakes)} mistakes", sep="\n")
    return 1 if mistakes or checked < len(pages) else 0


if __name__ == "__main__":
    sys.exit(main())
