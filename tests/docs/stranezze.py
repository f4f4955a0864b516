#!/usr/bin/env python3
"""Every oddity of the page names the files of the library where its reason stands.

    stranezze.py PAGE
"""

import re
import sys
from pathlib import Path

page = Path(sys.argv[1])
prose = re.sub(r"^```.*?^```$", "", page.read_text(encoding="utf-8"), flags=re.M | re.S)
oddities = re.findall(r"^- (.*?)(?=^- |^#|\Z|^$)", prose, flags=re.M | re.S)
wrong = [text for text in oddities
         if not (files := re.findall(r"\]\((\.\./(?:src/funzioni|include)/[^)]+)\)", text))
         or not all((page.parent / file).is_file() for file in files)]
for text in wrong:
    print(f"no file of src/funzioni or include is named: {' '.join(text.split())}")
print(f"{len(oddities)} oddities, {len(wrong)} without a place in the code")
sys.exit(1 if wrong or not oddities else 0)
