#!/usr/bin/env python3
"""The soname and the Debian package named after it bear the number of CMakeLists.txt, in every file that names them.

    soname.py ROOT SOVERSION            exit status 1, and the places with another number
    soname.py ROOT SOVERSION --write    gives all places this number, CMakeLists.txt too, and renames the files that bear it
"""

import pathlib
import re
import sys

# Files that cannot take the number from CMakeLists.txt: what they hold is read by people or by other programs. When the
# number is raised, all of them change together.
PLACES = [
    "debian/control",
    "debian/libkelfunzioni{}.install",
    "debian/libkelfunzioni{}.symbols",
    "debian/libkelregistrazioni{}.install",
    "debian/libkelregistrazioni{}.symbols",
    "docs/abi.md",
    "docs/flat-face.md",
    "docs/glossary.md",
    "docs/promises.md",
]
# They speak of older releases, or were compiled with one.
HISTORY = re.compile(r"CHANGELOG\.md|debian/changelog|tests/abi/([-\w]+\.abi|releases/.*)")
FOLDERS = ["bench", "cmake", "completions", "debian", "docs", "examples", "include", "man", "scripts", "src", "tests", "tools"]
SOVERSION = re.compile(r"^set\(KEL_SOVERSION (\d+)\)$", re.MULTILINE)
NAMED = re.compile(r"\blibkel(?:funzioni|registrazioni)(?:\.so\.)?(\d+)\b")


def numbers(root):
    """File -> the numbers in its text and in its name."""
    found = {}
    for path in [*root.glob("*.*"), *(path for folder in FOLDERS for path in (root / folder).rglob("*"))]:
        name = path.relative_to(root).as_posix()
        if path.is_file() and not HISTORY.fullmatch(name) and "__pycache__" not in name:
            borne = set(NAMED.findall(path.read_bytes().decode(errors="replace"))) | set(NAMED.findall(name))
            if borne:
                found[name] = borne
    return found


def write(root, wanted):
    """Every place with the wanted number in its text and in its name."""
    cmake = root / "CMakeLists.txt"
    text = cmake.read_text(encoding="utf-8")
    old = SOVERSION.search(text)[1]
    cmake.write_text(SOVERSION.sub(f"set(KEL_SOVERSION {wanted})", text), encoding="utf-8")
    for place in PLACES:
        path = root / place.format(old)
        if path.is_file():
            text = path.read_text(encoding="utf-8")
            path.write_text(re.sub(rf"\b(libkel(?:funzioni|registrazioni)(?:\.so\.)?){old}\b", rf"\g<1>{wanted}", text), encoding="utf-8")
            path.rename(root / place.format(wanted))


def main():
    if len(sys.argv) not in (3, 4) or not sys.argv[2].isdigit() or sys.argv[3:] not in ([], ["--write"]):
        sys.exit("usage: soname.py ROOT SOVERSION [--write]")
    root, wanted = pathlib.Path(sys.argv[1]), sys.argv[2]
    if sys.argv[3:] == ["--write"]:
        write(root, wanted)
    found = numbers(root)
    places = {place.format(wanted) for place in PLACES if (root / "debian").is_dir() or not place.startswith("debian/")}
    others = [f"{name} bears {', '.join(sorted(borne - {wanted}))}, the soname {wanted}"
              for name, borne in sorted(found.items()) if borne != {wanted}]
    if others:
        print(*others, f"One number in all places: python3 tests/abi/soname.py . {wanted} --write", sep="\n")
        return 1
    mistakes = [f"{name} does not name the soname or is not there: take it from the list in tests/abi/soname.py"
                 for name in sorted(places - set(found))]
    mistakes += [f"{name} names the soname: let it take the number from CMakeLists.txt, or add it to the list in "
                 "tests/abi/soname.py" for name in sorted(set(found) - places)]
    print("\n".join(mistakes) or f"the soname has the number {wanted} in {len(found)} files")
    return 1 if mistakes else 0


sys.exit(main())
