"""The libraries' objects: with a switch for each mutant at once, or with one change compiled alone; and what the tests run."""

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
SOVERSION = re.search(r"^set\(KEL_SOVERSION (\d+)\)$", (HERE.parents[1] / "CMakeLists.txt").read_text(), re.M)[1]
# A changed library may do what C++ leaves undefined: what leaves an array, or copies beyond the end of an object, ends
# the program, and otherwise the compiler is not to conclude anything from it.
DEFINED = ("-fsanitize=bounds", "-fsanitize-undefined-trap-on-error", "-fstack-protector-all", "-D_FORTIFY_SOURCE=2",
           "-fwrapv", "-fno-strict-aliasing", "-fno-aggressive-loop-optimizations")
# What a compiler says of a constant that is not what it was proved to be, or that it cannot compute.
PROOF = re.compile(r"static assertion failed|constant expression|limit|too many|overflow|out of bounds|outside")


class Library:
    """Compiles the sources below a folder as the build does, with the commands of the build.

    What is made of them is a folder: `launch` says what runs of it for a test program.
    """

    folder = ""
    tables = True      # the cells of its constant tables are changed in the library, not in the source
    environment = {}   # of its tests

    def __init__(self, root, build, jobs, rooms):
        self.root, self.build, self.jobs = root, build, jobs
        self.programs = [self.program(room) for room in rooms]
        self.work = build / "mutation" / Path(self.folder).name
        self.work.mkdir(parents=True, exist_ok=True)
        self.commands, self.objects = {}, {}
        for entry in json.loads((build / "compile_commands.json").read_text()):
            file = Path(entry["file"])
            if file.is_relative_to(root / self.folder):
                words = shlex.split(entry["command"])
                output = words.index("-o")
                source = str(file.relative_to(root))
                self.commands[source] = words[:output]
                self.objects[source] = build / words[output + 1]
        self.sources = sorted(self.commands)
        self.compiler = self.commands[self.sources[0]][0]

    def libclang_arguments(self, source):
        given = self.commands[source]
        words = [word for word in given if word.startswith(("-D", "-I", "-std", "-f", "-m"))]
        words += [part for at, word in enumerate(given) if word == "-isystem" for part in given[at:at + 2]]
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
        words.insert(words.index(f"-I{self.root / self.folder}"), f"-I{tree / self.folder}")
        file = tree / source if (tree / source).exists() else self.root / source
        output = tree / (source.replace("/", "_") + ".o")
        done = subprocess.run([*words, "-w", "-Wno-error", *extra, "-o", str(output), "-c", str(file)],
                              capture_output=True, text=True, timeout=timeout)
        return output, done.stderr if done.returncode else ""

    def link(self, tree, objects):
        """What the tests run, of objects by their sources: a folder."""
        raise NotImplementedError

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
        # What does not compile with its switch is compiled alone.
        blamed = {mutant for said in errors for mutant in self.blamed(said, by_file)}
        if blamed:
            for mutant in blamed:
                mutant.alone, mutant.number = True, 0
            return self.with_switches(texts, [mutant for mutant in mutants if mutant not in blamed], sources)
        if errors:
            raise SystemExit("the instrumented library does not compile:\n" + "\n".join(errors))
        switch = tree / "switch.o"
        subprocess.run([self.compiler, "-std=c++20", "-O1", "-fPIC", "-fvisibility=hidden", f"-DKEL_MUTANTS={len(mutants)}",
                        "-c", str(HERE / "switch.cpp"), "-o", str(switch)], check=True)
        return self.link(tree, {**self.objects, **dict(zip(sources, (o for o, _ in results)))}, switch)

    def blamed(self, said, by_file):
        """The mutants on the lines that a compiler complains of."""
        for name, line in re.findall(r"^\S*?(src/\S+?):(\d+):\d+: (?:error|  required from here)", said, re.M):
            for mutant in by_file.get(name, ()):
                if mutant.line <= int(line) <= mutant.line + mutant.lines:
                    yield mutant

    @contextmanager
    def with_change(self, mutant, text, sources):
        """Compiles the sources that a change concerns: what becomes of it, or "" and the library that it makes."""
        with tempfile.TemporaryDirectory(dir=self.work) as folder:
            tree = self.tree(folder, {mutant.file: text[:mutant.begin] + mutant.text + text[mutant.end:]})
            outcome, differ = self.compared(tree, sources)
            changed = {source: self.compile(source, tree, DEFINED)[0] for source in differ}
            yield outcome, self.link(tree, {**self.objects, **changed}) if changed else None

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


class Funzioni(Library):
    """The first library. The build's test programs load it."""

    folder = "src/funzioni"
    name = f"libkelfunzioni.so.{SOVERSION}"

    def program(self, room):
        return self.build / "tests" / f"kel_test_{room}"

    def link(self, tree, objects, *others):
        made = tree / "lib"
        made.mkdir()
        script = self.root / self.folder / "kelfunzioni.map"
        subprocess.run([self.compiler, "-shared", f"-Wl,-soname,{self.name}", f"-Wl,--version-script={script}",
                        "-Wl,-Bsymbolic-functions", "-Wl,-z,relro,-z,now", *map(str, [*others, *objects.values()]), "-ldl",
                        "-o", str(made / self.name)], check=True)
        return made

    def launch(self, made, program):
        """The program to run, and where it finds the libraries."""
        return program, made


class Registrazioni(Library):
    """The second library. Its tests look into it, so its objects are linked into them, as in the build: each program is
    linked anew."""

    folder = "src/registrazioni"
    tables = False
    environment = {"KEL_PASSO_ROBUSTEZZA": "41"}  # as under an emulator: a run is made for each mutant

    def program(self, room):
        return self.build / "tests/registrazioni" / f"kel_test_{room}"

    def link_command(self, program):
        """The words by which the build links a program."""
        target = str(program.relative_to(self.build))
        commands = subprocess.run(["ninja", "-C", str(self.build), "-t", "commands", "-s", target], check=True,
                                  capture_output=True, text=True).stdout
        return shlex.split(commands.strip().splitlines()[-1].split(" && ")[1])

    def link(self, tree, objects, *others):
        made = tree / "bin"
        made.mkdir()
        ours = {str(self.objects[source].relative_to(self.build)): source for source in self.sources}
        # The entry of columns is in the shared library alone.
        entry = str(objects[f"{self.folder}/columns/kelColLeggi.cpp"])
        for program in self.programs:
            words = self.link_command(program)
            at = words.index("-o")
            words[at + 1] = str(made / program.name)
            words[1:at] = [str(objects[ours[word]]) if word in ours else word for word in words[1:at]]
            columns = [str(objects[source]) for source in self.sources
                       if "/columns/" in source and str(objects[source]) not in words]
            words[at:at] = dict.fromkeys([*map(str, others), *columns, entry])
            subprocess.run(words, check=True, cwd=self.build)
        return made

    def launch(self, made, program):
        return made / program.name, self.build / "src/funzioni"


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
            here = f"\n#line {text.count(chr(10), 0, first) + 1}\n"
            after = f"\n#line {text.count(chr(10), 0, last) + 1}\n"
            parts += [text[begin:first], switched(rendered(first, last), pieces[first, last], here), after]
            begin = last
        return "".join(parts) + text[begin:end]

    return '#include "switch.h"\n#line 1\n' + rendered(0, len(text))


def switched(original, mutants, here):
    """A piece with its mutants; `here` tells the compiler before each which line it is on, so that `blamed` finds it."""
    if mutants[0].kind == "statement":
        return f"{{ if ({' && '.join(f'!kel_mutant({mutant.number})' for mutant in mutants)}) {here}{original} }}"
    asked = "".join(f"kel_mutant({mutant.number}) ? ({here}{mutant.text}) : " for mutant in mutants)
    return f"({asked}({here}{original}))"
