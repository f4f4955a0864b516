#!/usr/bin/env python3
"""What a client program's loader sees of the built library, compared with what this folder says.

    library.py CHECK LIBRARY      one check; exit status 1 and the differences when it fails
    library.py refresh LIBRARY    writes the lists of this folder anew from the library

Sizes of data are kept for 32-bit and 64-bit pointers; a refresh writes those of the library given and keeps the
others. For the first library scripts/abi --refresh does it with a library of each kind.
"""

import pathlib
import re
import subprocess
import sys

QUI = pathlib.Path(__file__).resolve().parent
VTABLES = QUI / "vtables.txt"

SOVERSION = re.search(r"^set\(KEL_SOVERSION (\d+)\)$", (QUI.parents[1] / "CMakeLists.txt").read_text(), re.M)[1]
# ld-linux is the loader itself, which the linker names on some targets.
SYSTEM = re.compile(r"lib(stdc\+\+\.so\.6|m\.so\.6|gcc_s\.so\.1|c\.so\.6)|ld-linux[-a-z0-9_]*\.so\.[0-9]")
# Newest versions that may be asked for: gcc 5, whose string type the interfaces have, and the first C library for arm64.
# A library built here without packed addresses thus loads on any system of the last ten years.
NEWEST = {"GLIBC": (2, 17), "GLIBCXX": (3, 4, 21), "CXXABI": (1, 3, 9), "GCC": (5, 0, 0)}


class Promise:
    """What one library promises: its soname, what it needs, how new a system it asks for, its list of exports,
    and the constants that are computed when they are first asked for."""

    def __init__(self, soname, symbols, uses, newest, classes=(), once=r"(?!)"):
        self.soname, self.uses, self.newest, self.classes, self.once = soname, uses, newest, classes, once
        self.symbols = QUI / symbols


PROMISES = {
    "libkelfunzioni": Promise(f"libkelfunzioni.so.{SOVERSION}", "exported-symbols.txt", ("libstdc++.so.6", "libc.so.6"), NEWEST,
                              ("IFunzioni", "CFunzioni", "IConverter", "CConverter")),
    # The C library that tells which instructions a PC's processor has, and its hypot; the C++ library that writes and reads
    # floats. GeographicLib computes two constants at the first call, under the compiler's guard for several threads.
    "libkelregistrazioni": Promise(f"libkelregistrazioni.so.{SOVERSION}", "exported-symbols-registrazioni.txt",
                                   (f"libkelfunzioni.so.{SOVERSION}", "libstdc++.so.6", "libc.so.6"),
                                   dict(NEWEST, GLIBC=(2, 35), GLIBCXX=(3, 4, 29), GCC=(7, 0, 0)),
                                   once=r"_Z(GV)?ZN13GeographicLib\w+"),
}


def readelf(*arguments):
    return subprocess.run(("readelf", "-W") + arguments, check=True, capture_output=True, text=True,
                          env={"PATH": "/usr/bin:/bin", "LC_ALL": "C"}).stdout


class Library:
    def __init__(self, path):
        self.path = str(path)
        self.promise = PROMISES[pathlib.Path(path).name.split(".")[0]]
        self.bytes = pathlib.Path(path).read_bytes()
        assert self.bytes[:4] == b"\x7fELF", f"{path} is no ELF file"
        self.word = 8 if self.bytes[4] == 2 else 4
        self.sections = {}  # name -> (index, address, offset, size, flags)
        for line in readelf("-S", self.path).splitlines():
            m = re.match(r"\s*\[ *(\d+)\] (\S+) +\S+ +([0-9a-f]+) ([0-9a-f]+) ([0-9a-f]+) [0-9a-f]+ +([A-Zop]*) ", line)
            if m:
                self.sections[m[2]] = (int(m[1]), int(m[3], 16), int(m[4], 16), int(m[5], 16), m[6])
        self.dynamic = readelf("-d", self.path)
        self.exported = {}  # name -> (kind, address, size, visibility, section index)
        for line in readelf("--dyn-syms", self.path).splitlines():
            fields = line.split()
            if len(fields) >= 8 and fields[0].endswith(":") and fields[6].isdigit() and fields[4] != "LOCAL":
                self.exported[fields[7].split("@")[0]] = (fields[3], int(fields[1], 16), int(fields[2], 0), fields[5],
                                                          int(fields[6]))

    def section_of(self, index):
        return next((name for name, s in self.sections.items() if s[0] == index), "?")

    def relocations(self):
        """Address -> (type, symbol or None, address in the library or None)."""
        found = {}
        for line in readelf("-r", self.path).splitlines():
            m = re.match(r"([0-9a-f]{8,16}) +[0-9a-f]+ (R_\S+) *(.*)", line)
            if m:
                symbol = re.match(r"[0-9a-f]{8,16} +([^\s@]+)\S*(?: \+ ([0-9a-f]+))?", m[3])
                addend = re.fullmatch(r"([0-9a-f]+)\s*", m[3])
                found[int(m[1], 16)] = (m[2], symbol[1] if symbol else None, int(addend[1], 16) if addend else None)
        return found

    def word_at(self, address):
        for _, start, offset, size, _ in self.sections.values():
            if start and start <= address < start + size:
                at = address - start + offset
                return int.from_bytes(self.bytes[at:at + self.word], "little")
        return 0


def read_list(path):
    return [line for line in path.read_text().splitlines() if line and not line.startswith("#")]


def stored_symbols(lib):
    """Name -> (kind, size with 32-bit pointers, size with 64-bit pointers); None = not kept."""
    rows = {}
    for line in read_list(lib.promise.symbols):
        kind, *sizes, name = line.split()
        rows[name] = (kind, {word: None if text == "-" else int(text) for word, text in zip((4, 8), sizes)})
    return rows


def library_symbols(lib):
    return {name: (kind, size if kind == "OBJECT" else None)
            for name, (kind, _, size, _, _) in lib.exported.items()}


def check_symbols(lib):
    wanted, found = stored_symbols(lib), library_symbols(lib)
    if list(wanted) != sorted(wanted):
        yield f"{lib.promise.symbols.name} is not sorted"
    for name in sorted(wanted.keys() | found.keys()):
        if name not in found:
            yield f"no longer exported: {name}"
        elif name not in wanted:
            yield f"exported, but not in the list: {name}"
        else:
            kind, sizes = wanted[name]
            if kind != found[name][0]:
                yield f"{name} is now {found[name][0]}, was {kind}"
            elif kind == "OBJECT" and sizes[lib.word] != found[name][1]:
                yield f"{name} now has {found[name][1]} bytes, had {sizes[lib.word]}"


def library_vtables(lib):
    """Lines 'class slot function' of the virtual tables, in slot order."""
    relocations = lib.relocations()
    # Of the names of one address the first counts: complete destructors stand before those of base objects.
    functions = {}
    for name, (kind, address, _, _, _) in sorted(lib.exported.items()):
        if kind == "FUNC":
            functions.setdefault(address, name)
    for name in lib.promise.classes:
        _, address, size, _, _ = lib.exported[f"_ZTV{len(name)}{name}"]
        # Before the slots: the offset to the whole object and the type information.
        for slot, at in enumerate(range(address + 2 * lib.word, address + size, lib.word)):
            # By symbol, or by an address in the library: in the relocation or, packed or on 32 bits, in place.
            _, symbol, target = relocations.get(at, ("", None, None))
            if symbol is None:
                symbol = functions.get(lib.word_at(at) if target is None else target)
            # The destructors of a class that nobody can make stand empty.
            yield f"{name} {slot} {symbol or '-'}"


def check_vtables(lib):
    wanted, found = read_list(VTABLES), list(library_vtables(lib))
    for row in range(max(len(wanted), len(found))):
        was = wanted[row] if row < len(wanted) else "nothing"
        now = found[row] if row < len(found) else "nothing"
        if was != now:
            yield f"'{now}' stands where '{was}' was"


def check_needed(lib):
    needed = re.findall(r"\(NEEDED\).*\[(.*)\]", lib.dynamic)
    for name in needed:
        if not SYSTEM.fullmatch(name) and name not in lib.promise.uses:
            yield f"needs {name}"
    for name in lib.promise.uses:
        if name not in needed:
            yield f"does not name {name}, which it uses"


def check_versions(lib):
    asked = set(re.findall(r"Name: ([A-Z]+)_([0-9.]+)", readelf("-V", lib.path)))
    if not asked:
        yield "asks for no version at all: this check has lost its footing"
    for family, text in sorted(asked):
        version = tuple(int(part) for part in text.split("."))
        newest = lib.promise.newest
        if family not in newest:
            yield f"asks for {family}_{text}: a family that nobody has thought about"
        elif version > newest[family]:
            yield f"asks for {family}_{text}, newer than {'.'.join(map(str, newest[family]))}"


def check_soname(lib):
    found = re.findall(r"\(SONAME\).*\[(.*)\]", lib.dynamic)
    if found != [lib.promise.soname]:
        yield f"soname is {found}, not {lib.promise.soname}"


def check_initialisers(lib):
    # The one entry that the compiler's own start-up object brings is frame_dummy.
    for section, most in ((".preinit_array", 0), (".init_array", 1), (".ctors", 0)):
        count = lib.sections.get(section, (0, 0, 0, 0))[3] // lib.word
        if count > most:
            yield f"{section} has {count} entries: something runs when the library is loaded"
    symbols = readelf("-s", lib.path)
    if ".symtab" not in symbols:
        yield "the library is stripped, its initialisers have no names"
    for name in re.findall(r"\b_GLOBAL__\S+", symbols):
        yield f"{name} runs when the library is loaded"


def check_data(lib):
    """Tables are constant, and their addresses are left to the loader."""
    for name, (kind, _, _, visibility, index) in sorted(lib.exported.items()):
        section = lib.section_of(index)
        if kind == "OBJECT" and not re.fullmatch(r"\.rodata.*|\.data\.rel\.ro.*", section):
            yield f"{name} is in {section}: writable while the program runs"
        if visibility != "DEFAULT":
            yield f"{name} is {visibility}: clients that hold a copy would see another address"
    for flag in ("SYMBOLIC", "TEXTREL"):
        if re.search(rf"\b{flag}\b", lib.dynamic):
            yield f"linked with {flag}"


def check_writable(lib):
    """Nothing that a call could change: what can be written is what the compiler's start-up object brings."""
    # DW.ref: how gcc's exception tables name the personality routine, and what is caught.
    start_up = re.compile(r"completed\.\d+|__dso_handle|__TMC_END__|DW\.ref\.(__gxx_personality_v0|_ZTI\w+)")
    writable = {str(section[0]): name for name, section in lib.sections.items()
                if "W" in section[4] and re.match(r"\.(data|bss|tdata|tbss)(?!\.rel\.ro)", name)}
    once = 0
    for line in readelf("-s", lib.path).splitlines():
        fields = line.split()
        if len(fields) == 8 and fields[6] in writable and fields[3] in ("OBJECT", "TLS", "COMMON"):
            if re.fullmatch(lib.promise.once, fields[7]):
                once += int(fields[2])
            elif not start_up.fullmatch(fields[7]):
                yield f"{fields[7]} ({fields[2]} bytes) is in {writable[fields[6]]}: it can be written"
    for name in writable.values():
        # Room for those, for a constant that gcc for ARM copies a local variable from, and for gaps before what is aligned.
        if lib.sections[name][3] > 5 * lib.word + (once and once + 64):
            yield f"{name} has {lib.sections[name][3]} bytes, more than start-up code needs"


def refresh(lib):
    old = stored_symbols(lib) if lib.promise.symbols.exists() else {}
    rows = {}
    for name, (kind, size) in library_symbols(lib).items():
        sizes = dict(old[name][1]) if name in old and old[name][0] == kind else {4: None, 8: None}
        sizes[lib.word] = size
        rows[name] = (kind, sizes)
    lines = ["# Everything that the library exports: kind, size of data in bytes with 32-bit and with 64-bit pointers, name.",
             "# Written by tests/abi/library.py refresh LIBRARY."]
    for name, (kind, s) in sorted(rows.items()):
        lines.append(f"{kind:6} {'-' if s[4] is None else s[4]:>5} {'-' if s[8] is None else s[8]:>5}  {name}")
    lib.promise.symbols.write_text("\n".join(lines) + "\n")
    lines = ["# Slots of the virtual tables, which client programs are compiled against.",
             "# Written by tests/abi/library.py refresh LIBRARY."]
    if lib.promise.classes:
        VTABLES.write_text("\n".join(lines + list(library_vtables(lib))) + "\n")


CHECKS = {name[6:]: function for name, function in globals().items() if name.startswith("check_")}


def main():
    if len(sys.argv) != 3 or sys.argv[1] not in ("refresh", *CHECKS):
        sys.exit(f"usage: library.py {{refresh|{'|'.join(CHECKS)}}} LIBRARY")
    check, lib = sys.argv[1], Library(sys.argv[2])
    if check == "refresh":
        refresh(lib)
        return
    problems = list(CHECKS[check](lib))
    for problem in problems:
        print(problem)
    if problems and check in ("symbols", "vtables"):
        command = ("scripts/abi --refresh" if lib.promise.classes else f"python3 tests/abi/library.py refresh {sys.argv[2]}")
        print(f"\nWhere the change is meant (it breaks clients unless the soname changes or nothing was taken away):\n"
              f"    {command}\n"
              f"and look at the difference.")
    sys.exit(1 if problems else 0)


main()
