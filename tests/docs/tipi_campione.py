#!/usr/bin/env python3
"""Whether headers and pages know the sample types up to the last row of tests/model/tables/campioni.tsv.

    tipi_campione.py ROOT

The public header names every type, and the table of formats in docs/converters.md has a row for each. Where a page says how
far the codes go, it says the same.
"""

import re
import sys
from pathlib import Path

root = Path(sys.argv[1])
rows = (root / "tests/model/tables/campioni.tsv").read_text().splitlines()
codes = [int(row.split("\t")[0]) for row in rows if row[:1].isdigit()]
last = codes[-1]
COMPUTED = 25  # in tables of packets only, and so never the last
mistakes = []
if codes != list(range(last + 1)):
    mistakes.append("tests/model/tables/campioni.tsv: a row for each code from 0 on")

header = (root / "include/kel_record.h").read_text()
constants = {int(code): name for name, code in re.findall(r"\b(KEL_TIPO_\w+) = (\d+)", header)}
missing = [code for code in codes if code not in constants]
if missing:
    mistakes.append(f"include/kel_record.h: no KEL_TIPO_ constant for {missing}")
above = sorted(code for code in constants if code > last and code != COMPUTED)
if above:
    mistakes.append(f"tests/model/tables/campioni.tsv: no row for {', '.join(constants[code] for code in above)}")

# What each place says of the range; the header's comment at `tipo_campione` names the two ends.
said = {
    "include/kel_record.h": f"`{constants.get(0)}` to `{constants.get(last)}`",
    "docs/recordings.md": f"the sample type, 0 to {last} |",
    "docs/glossary.md": f"sample type: a code from 0 to {last} |",
    "docs/failures.md": f"and codes above {last} |",
    "docs/converters.md": f", above {last} |",
    "docs/adding-a-table-row.md": f"Sample types 0 to {last} are taken",
    "docs/adding-a-sample-format.md": f"The first free number is {max(last, COMPUTED) + 1}.** 0 to {last} are taken",
}
for path, words in said.items():
    if words not in (root / path).read_text():
        mistakes.append(f"{path} does not say '{words.strip(' |,')}'")

# The first cells of the rows: "3, 4, 5", or "14, 19, 23, above 24".
converters = (root / "docs/converters.md").read_text()
section = converters.split("\n## Sample types\n")[1].split("\n## ")[0]
listed = [int(code) for cell in re.findall(r"^\| (\d[^|]*)\|", section, re.M)
          for code in re.findall(r"\d+", cell.split("above")[0])]
mistakes += [f"docs/converters.md, Sample types: code {code} stands in {listed.count(code)} rows"
             for code in codes if listed.count(code) != 1]

for mistake in mistakes:
    print(mistake)
print(f"{len(codes)} sample types, {len(said)} places that say how far they go")
sys.exit(bool(mistakes))
