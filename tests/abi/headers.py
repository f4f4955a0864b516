#!/usr/bin/env python3
"""Compiles every public header alone, in each language and standard that it promises, with every common warning on.

    headers.py [--few] INCLUDE COMPILER...

INCLUDE is the folder of the headers. A COMPILER is a C and a C++ compiler joined by a comma ("gcc,g++"), each with its
flags behind it, if any. With --few only the oldest standards, and the library's own, are tried: enough for a target
whose compiler differs from this machine's in nothing but the target.
"""

import concurrent.futures
import os
import pathlib
import shlex
import subprocess
import sys

WARNINGS = ["-pedantic-errors", "-Wall", "-Wextra", "-Wconversion", "-Wsign-conversion", "-Wshadow", "-Wundef",
            "-Wcast-align", "-Wcast-qual", "-Werror"]
FOR_C = ["-Wstrict-prototypes", "-Wmissing-prototypes", "-Wold-style-definition"]
FOR_CXX = ["-Wold-style-cast", "-Wnon-virtual-dtor", "-Woverloaded-virtual"]
C_STANDARDS = ["c99", "c11", "c17"]
CXX_STANDARDS = ["c++11", "c++14", "c++17", "c++20", "c++2b"]


def is_for_c(header):
    """The headers of the flat face have names in small letters; those of the classes bear the class's name."""
    return header.name.startswith("kel")


def compile_alone(compiler, language, standard, warnings, header):
    # Twice: the include guard is part of what is tried.
    source = f'#include "{header.name}"\n#include "{header.name}"\nint kel_una_unita;\n'
    run = subprocess.run([*compiler, f"-std={standard}", *WARNINGS, *warnings, "-fsyntax-only", "-x", language,
                          f"-I{header.parent}", "-"], input=source, capture_output=True, text=True)
    return (f"{header.name} with {shlex.join(compiler)} -std={standard}", run.stderr) if run.returncode else None


def main():
    arguments = sys.argv[1:]
    few = arguments[0] == "--few"
    if few:
        arguments.pop(0)
    c_standards = C_STANDARDS[:1] if few else C_STANDARDS
    cxx_standards = ["c++11", "c++20"] if few else CXX_STANDARDS
    include = pathlib.Path(arguments[0])
    headers = sorted(include.glob("*.h"))
    jobs = []
    for pair in arguments[1:]:
        c, cxx = (shlex.split(part) for part in pair.split(","))
        for header in headers:
            if is_for_c(header):
                jobs += [(c, "c", standard, FOR_C, header) for standard in c_standards]
            jobs += [(cxx, "c++", standard, FOR_CXX, header) for standard in cxx_standards]
    if not jobs:
        sys.exit(f"no headers in {include}, or no compiler given")
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        problems = [p for p in pool.map(lambda job: compile_alone(*job), jobs) if p]
    # The same line of one header fails in all that include it: told in full once.
    told = set()
    for where, text in problems:
        errors = [line for line in text.splitlines() if " error: " in line]
        print(f"{where}: {len(errors) or 1} error(s)")
        if not errors or not told.issuperset(errors):
            print(text)
        told.update(errors)
    print(f"{len(headers)} headers, {len(jobs)} compilations, {len(problems)} failed")
    sys.exit(1 if problems else 0)


main()
