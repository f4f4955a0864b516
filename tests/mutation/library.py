"""The library's objects: with a switch for each mutant in one library, or with one change compiled alone."""

import json
import re
import shlex
import shutil
import subprocess
import tempfile
from collections import defaultdict, deque
from concurrent.futures import ThreadPoolExecutor
from contextlib import contextmanager
from pathlib import Path

from mutant import COMPILER, INVALID, SAME

HERE = Path(__file__).resolve().parent
FOLDER = "src/funzioni"
NAME = "libkelfunzioni.so.0"
MAP = "kelfunzioni.map"
# A changed library may do what C++ leaves undefined: what leaves an array, or copies beyond the end of an object, ends
# the program, and otherwise the compiler is not to conclude anything from it.
DEFINED = ("-fsanitize=bounds", "-fsanitize-undefined-trap-on-error", "-fstack-protector-all", "-D_FORTIFY_SOURCE=2",
           "-fwrapv", "-fno-strict-aliasing", "-fno-aggressive-loop-optimizations")
# What a compiler says of a constant that is not what it was proved to be, or that it cannot compute.
PROOF = re.compile(r"static assertion failed|constant expression|limit|too many|overflow|out of bounds|outside")


class Library:
    """Compiles the sources as the build does, with the commands of the build."""

    def __init__(self, root, build, jobs):
        self.root, self.build, self.jobs = root, build, jobs
        self.work = build / "mutation"
        self.work.mkdir(exist_ok=True)
        self.commands, self.objects = {}, {}
        for entry in json.loads((build / "compile_commands.json").read_text()):
            file = Path(entry["file"])
            if file.is_relative_to(root / FOLDER):
                words = shlex.split(entry["command"])
                output = words.index("-o")
                source = str(file.relative_to(root))
                self.commands[source] = words[:output]
                self.objects[source] = build / words[output + 1]
        self.sources = sorted(self.commands)
        self.compiler = self.commands[self.sources[0]][0]

    def libclang_arguments(self, source):
        words = [word for word in self.commands[source] if word.startswith(("-D", "-I", "-std", "-f"))]
        return ["-xc++", "-fconstexpr-steps=100000000", *words]

    def tree(self, folder, texts):
        """A folder with some sources, which stand in for those of the project."""
        tree = Path(folder)
        for file, text in texts.items():
            (tree / file).parent.mkdir(parents=True, exist_ok=True)
            (tree / file).write_text(text)
        return tree

    def compile(self, source, tree, extra=(), timeout=None):
        """Compiles a source with a tree of others before the project's: its object, and what the compiler says."""
        words = list(self.commands[source])
        words.insert(words.index(f"-I{self.root / FOLDER}"), f"-I{tree / FOLDER}")
        file = tree / source if (tree / source).exists() else self.root / source
        output = tree / (source.replace("/", "_") + ".o")
        done = subprocess.run([*words, "-w", "-Wno-error", *extra, "-o", str(output), "-c", str(file)],
                              capture_output=True, text=True, timeout=timeout)
        return output, done.stderr if done.returncode else ""

    def link(self, tree, objects):
        library = tree / "lib" / NAME
        library.parent.mkdir()
        subprocess.run([self.compiler, "-shared", f"-Wl,-soname,{NAME}", f"-Wl,--version-script={self.root / FOLDER / MAP}",
                        "-Wl,-Bsymbolic-functions", "-Wl,-z,relro,-z,now", *map(str, objects), "-ldl", "-o", str(library)],
                       check=True)
        return library

    def with_switches(self, texts, mutants, sources):
        """The library with all mutants that have a number; `sources` have to be compiled anew."""
        by_file = defaultdict(list)
        for mutant in mutants:
            by_file[mutant.file].append(mutant)
        shutil.rmtree(self.work / "switched", ignore_errors=True)
        tree = self.tree(self.work / "switched", {file: instrumented(texts[file], by_file[file]) for file in by_file})
        tree.mkdir(exist_ok=True)
        extra = ["-O1", "-fno-toplevel-reorder", *DEFINED, f"-I{HERE}"]
        with ThreadPoolExecutor(self.jobs) as pool:
            results = list(pool.map(lambda source: self.compile(source, tree, extra), sources))
        errors = [said for _, said in results if said]
        if errors:
            raise SystemExit("the instrumented library does not compile:\n" + "\n".join(errors))
        switch = tree / "switch.o"
        subprocess.run([self.compiler, "-std=c++20", "-O1", "-fPIC", "-fvisibility=hidden", f"-DKEL_MUTANTS={len(mutants)}",
                        "-c", str(HERE / "switch.cpp"), "-o", str(switch)], check=True)
        return self.link(tree, [switch, *{**self.objects, **dict(zip(sources, (o for o, _ in results)))}.values()])

    @contextmanager
    def with_change(self, mutant, text, sources):
        """Compiles the sources that a change concerns: what becomes of it, or "" and the library that it makes."""
        with tempfile.TemporaryDirectory(dir=self.work) as folder:
            tree = self.tree(folder, {mutant.file: text[:mutant.begin] + mutant.text + text[mutant.end:]})
            outcome, differ = self.compared(tree, sources)
            changed = {source: self.compile(source, tree, DEFINED)[0] for source in differ}
            yield outcome, self.link(tree, {**self.objects, **changed}.values()) if changed else None

    def compared(self, tree, sources):
        """What becomes of changed sources, and those of which the compiler makes other code than before."""
        differ = []
        for source in sources:
            try:
                output, said = self.compile(source, tree, timeout=120)
            except subprocess.TimeoutExpired:
                return COMPILER, []
            if said:
                return COMPILER if PROOF.search(said) else INVALID, []
            if output.read_bytes() != self.objects[source].read_bytes():
                differ.append(source)
        return "" if differ else SAME, differ


def instrumented(text, mutants):
    """A source in which each piece asks for its mutants."""
    pieces = defaultdict(list)
    for mutant in mutants:
        pieces[mutant.begin, mutant.end].append(mutant)
    left = deque(sorted(pieces, key=lambda piece: (piece[0], -piece[1])))  # outer ones first

    def rendered(begin, end):
        parts = []
        while left and left[0][0] < end:
            first, last = left.popleft()
            if last > end:
                raise SystemExit(f"pieces overlap: {pieces[first, last][0]}")
            parts += [text[begin:first], switched(rendered(first, last), pieces[first, last])]
            begin = last
        return "".join(parts) + text[begin:end]

    return '#include "switch.h"\n#line 1\n' + rendered(0, len(text))


def switched(original, mutants):
    if mutants[0].kind == "statement":
        return f"{{ if ({' && '.join(f'!kel_mutant({mutant.number})' for mutant in mutants)}) {original} }}"
    asked = "".join(f"kel_mutant({mutant.number}) ? ({mutant.text}) : " for mutant in mutants)
    return f"({asked}({original}))"
