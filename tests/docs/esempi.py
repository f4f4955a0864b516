#!/usr/bin/env python3
"""Runs what the documents show, and compares what comes out with what they show.

    esempi.py --include DIR --lib DIR[:DIR] --kelfun FILE --kelsim FILE --esempi DIR --cc CC --cxx CXX [--write] DOCUMENT...

A block of C, C++ or Python is a whole program; the text block that follows it is its output. In a console block every
line that begins with "$ " is a command, and what follows is its output; a line "..." there stands for any lines left
out. With --write the outputs are replaced by those of this run (blocks with "..." stay), and nothing is compared.

A program without its output, an output without its program, and a program that fails are mistakes of the document.
Console blocks that install or build something, or use what was installed, are counted, not run.
"""

import argparse
import difflib
import os
import re
import shlex
import subprocess
import sys
import tempfile
from pathlib import Path

BLOCK = re.compile(r"^```(\w*)\n(.*?)^```$", re.M | re.S)
PROGRAMS = ("c", "cpp", "python")
PACKAGE = re.compile(r"^(import|from) kelfunzioni", re.M)
BUILDING = re.compile(r"^\$ (sudo |apt|cmake|ctest|scripts/|git |python3 -m venv |v/bin/)", re.M)


PYTHON_PACKAGE = Path(__file__).resolve().parents[2] / "python" / "src"


class Failed(Exception):
    pass


def run(command, options, folder, shell=False):
    environment = dict(os.environ, LC_ALL="C.UTF-8", LD_LIBRARY_PATH=options.lib, NO_COLOR="1")
    environment |= {"PYTHONPATH": str(PYTHON_PACKAGE), "KELFUNZIONI_LIBRARIES": options.lib}
    environment["PATH"] = os.pathsep.join([str(Path(options.kelfun).parent), str(Path(options.kelsim).parent),
                                           options.esempi, environment["PATH"]])
    done = subprocess.run(command, cwd=folder, env=environment, shell=shell, text=True, stdin=subprocess.DEVNULL,
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=120)
    if not shell and done.returncode != 0:
        raise Failed(f"{command[0]} ended with {done.returncode}\n{done.stdout}")
    return done.stdout


def package_built(options):
    """Whether what the Python package needs was built: it is in the release build."""
    return any(Path(place, "libkelpython.so").exists() for place in options.lib.split(os.pathsep))


def program(language, text, options, folder):
    """Output of a program in one of the languages that the documents speak."""
    if language == "python":
        # The package needs numpy, which Debian's own Python has.
        python = "/usr/bin/python3" if PACKAGE.search(text) else sys.executable
        return run([python, "-B", "-W", "error", "-c", text], options, folder)
    source = Path(folder) / ("esempio.c" if language == "c" else "esempio.cpp")
    source.write_text(text)
    compiler = [options.cc, "-std=c99"] if language == "c" else [options.cxx, "-std=c++11"]
    run([*compiler, "-Wall", "-Wextra", "-pedantic-errors", "-Werror", f"-I{options.include}", str(source),
         "-o", "esempio", *(f"-L{place}" for place in options.lib.split(os.pathsep)),
         *(["-lkelregistrazioni"] if "<kelregistrazioni.h>" in text else []), "-lkelfunzioni", "-lm"], options, folder)
    return run(["./esempio"], options, folder)


def same(shown, found):
    if "\n...\n" not in shown:
        return shown == found
    place = 0
    parts = shown.split("\n...\n")
    for number, part in enumerate(parts):
        part = part.strip("\n")
        at = found.find(part, place)
        if at < 0 or (number == 0 and at != 0):
            return False
        place = at + len(part)
    return parts[-1].strip("\n") == "" or found.rstrip("\n").endswith(parts[-1].strip("\n"))


def console(block, options, folder):
    """The block's text with the outputs of this run, and whether they are those shown."""
    commands = re.findall(r"^\$ (.*)\n((?:(?!\$ ).*\n)*)", block, re.M)
    text, agrees = "", True
    for command, shown in commands:
        found = run(command, options, folder, shell=True)
        agrees = agrees and same(shown, found)
        text += f"$ {command}\n" + (shown if same(shown, found) and "\n...\n" in shown else found)
    return text, agrees


def check(document, options):
    text = document.read_text()
    blocks = list(BLOCK.finditer(text))
    languages = [block[1] for block in blocks] + [None]
    ran, left, failures, replacements = 0, 0, [], []

    def wrong(block, why):
        failures.append(f"{document}:{text.count(chr(10), 0, block.start(2)) + 1}: {why}")

    for place, block in enumerate(blocks):
        language, body = block.groups()
        target = block
        try:
            with tempfile.TemporaryDirectory() as folder:
                if language == "console":
                    if BUILDING.search(body):
                        left += 1
                        continue
                    found, agrees = console(body, options, folder)
                elif language == "python" and PACKAGE.search(body) and not package_built(options):
                    left += 1
                    continue
                elif language in PROGRAMS:
                    if languages[place + 1] != "text":
                        raise Failed("a program without its output")
                    target = blocks[place + 1]
                    found = program(language, body, options, folder)
                    agrees = same(target[2], found)
                elif language == "text" and (place == 0 or languages[place - 1] not in PROGRAMS):
                    raise Failed("an output without its program")
                else:
                    continue
        except Failed as failure:
            wrong(block, failure)
            continue
        ran += 1
        if options.write:
            replacements.append((target.start(2), target.end(2), found))
        elif not agrees:
            difference = difflib.unified_diff(target[2].splitlines(True), found.splitlines(True), "shown", "found")
            wrong(target, "the output is another\n" + "".join(difference))
    for begin, end, found in reversed(replacements):
        text = text[:begin] + found + text[end:]
    if options.write:
        document.write_text(text)
    print(*failures, sep="\n")
    if any("the output is another" in failure for failure in failures):
        print(f"Where what was found is right, this writes it into the page:\n    python3 {shlex.join([*sys.argv, '--write'])}")
    print(f"{document.name}: {ran} examples run, {left} that install or build not run, {len(failures)} mistakes")
    return not failures and ran > 0


def main():
    parser = argparse.ArgumentParser()
    for name in ("include", "lib", "kelfun", "kelsim", "esempi", "cc", "cxx"):
        parser.add_argument(f"--{name}", required=True)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("document", nargs="+", type=Path)
    options = parser.parse_args()
    for name in ("include", "lib", "kelfun", "kelsim", "esempi"):  # the examples run in folders of their own
        setattr(options, name, os.pathsep.join(map(os.path.abspath, getattr(options, name).split(os.pathsep))))
    sys.exit(0 if all([check(document, options) for document in options.document]) else 1)


main()
