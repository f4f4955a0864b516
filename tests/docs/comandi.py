#!/usr/bin/env python3
"""The scripts and presets are what is said of them.

    comandi.py ROOT

Every script of scripts/ prints its help, from a tree without git and from another folder. CONTRIBUTING.md names every
script. The pages and scripts name only presets that exist, each for what it has: to configure, build or test. What a page
calls can be called so. The sets of scripts/packages.txt are those that its head explains and that the scripts install.
"""

import json
import os
import re
import subprocess
import sys
from pathlib import Path

root = Path(sys.argv[1]).resolve()
mistakes = []
scripts = sorted(path for path in (root / "scripts").iterdir() if os.access(path, os.X_OK) and path.is_file())
shell = [path for path in scripts if "lib.sh" in path.read_text()]
pages = [root / "README.md", root / "CONTRIBUTING.md", *sorted((root / "docs").glob("*.md"))]
contributing = (root / "CONTRIBUTING.md").read_text()

for script in shell:
    done = subprocess.run([script, "--help"], cwd="/", capture_output=True, text=True, stdin=subprocess.DEVNULL,
                          env={"PATH": os.environ["PATH"], "GIT_DIR": "/nonexistent"}, timeout=60)
    help_text = done.stdout
    if done.returncode != 0 or done.stderr or not re.match(r"[A-Z]", help_text) or "set -" in help_text:
        mistakes.append(f"scripts/{script.name} --help: exit {done.returncode}, {done.stderr or help_text!r}")
    elif f"\n  scripts/{script.name}" not in help_text:
        mistakes.append(f"scripts/{script.name} --help does not show how it is called")
    mistakes += [f"scripts/{script.name} --help has a line of {len(line)} characters: {line}"
                 for line in help_text.splitlines() if len(line) > 120]
    if f"`scripts/{script.name}" not in contributing:
        mistakes.append(f"CONTRIBUTING.md does not name scripts/{script.name}")

presets = json.loads((root / "CMakePresets.json").read_text())
known = {kind: {preset["name"] for preset in presets[f"{kind}Presets"] if not preset.get("hidden")}
         for kind in ("configure", "build", "test")}
named = 0
for place in [*pages, *shell, root / ".ci/run"]:
    text = place.read_text()
    for command, preset in re.findall(r"(cmake|cmake --build|ctest) --preset ([a-z][a-z0-9-]*)", text):
        named += 1
        kind = {"cmake": "configure", "cmake --build": "build", "ctest": "test"}[command]
        if preset not in known[kind]:
            mistakes.append(f"{place.relative_to(root)}: there is no {kind} preset {preset}")
for kind, row in (("build", r"^\| `cmake --preset NAME`.*: (.*) \|$"), ("test", r"^\| `ctest --preset NAME`.*: (.*) \|$")):
    listed = set(re.split(r",\s*", re.search(row, contributing, re.M)[1]))
    if listed != known[kind]:
        mistakes.append(f"CONTRIBUTING.md and CMakePresets.json differ in the {kind} presets {sorted(listed ^ known[kind])}")

# A command on a page runs as it stands there.
called = 0
for page in [*pages, root / "tests/README.md"]:
    for command in re.findall(r"`((?:tests|scripts|bench)/[\w./-]+) [^`]*`", page.read_text()):
        called += 1
        if not os.access(root / command, os.X_OK):
            mistakes.append(f"{page.relative_to(root)}: {command} cannot be called so: it is not there, or it is python3 {command}")

head, _, rows = (root / "scripts/packages.txt").read_text().partition("\n\n")
explained = re.findall(r"^#   ([\w-]+) ", head + "\n" + "\n".join(re.findall(r"^#.*", rows, re.M)), re.M)
used = {row.split()[0] for row in rows.splitlines() if row and not row.startswith("#")}
installed = set()
for place in [*shell, root / ".ci/run"]:
    for words in re.findall(r"\binstall_packages ([a-z -]+)", place.read_text()):
        installed |= set(words.split())
if not set(explained) == used == installed:
    mistakes.append(f"sets of packages: explained {sorted(explained)}, filled {sorted(used)}, installed {sorted(installed)}")

if len(shell) < 10 or named < 5 or called < 5:
    mistakes.append(f"only {len(shell)} scripts, {named} presets and {called} calls found: this test reads the tree wrongly")
print(*mistakes, f"{len(shell)} scripts, {named} commands with a preset, {called} calls, {len(used)} sets of packages", sep="\n")
sys.exit(1 if mistakes else 0)
