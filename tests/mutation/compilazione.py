"""The library's objects: with all switched mutants in one library, or with one change of text."""

import json
import re
import shlex
import shutil
import subprocess
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

from mutante import COMPILER, ILL, SAME

HERE = Path(__file__).resolve().parent
SOVERSION = re.search(r"^set\(KEL_SOVERSION (\d+)\)$", (HERE.parents[1] / "CMakeLists.txt").read_text(), re.M)[1]
LIBRARY = f"libkelfunzioni.so.{SOVERSION}"
# A changed library may do what C++ leaves undefined: what leaves an array, or copies beyond the end of an object, ends
# the program, and otherwise the compiler is not to conclude anything from it.
DEFINED = ("-fsanitize=bounds", "-fsanitize-undefined-trap-on-error", "-fstack-protector-all", "-D_FORTIFY_SOURCE=2",
           "-fwrapv", "-fno-strict-aliasing", "-fno-aggressive-loop-optimizations")
# What a compiler says of a constant that is not what it was proved to be, or that it cannot compute.
PROOF = re.compile(r"static assertion failed|constant expression|limit|too many|overflow|out of bounds|outside")


class Compilation:
    """How the build compiles every source of the library, taken from the build itself."""

    def __init__(self, root, build, jobs):
        self.root = root
        self.build = build
        self.jobs = jobs
        self.work = build / "mutation"
        self.work.mkdir(exist_ok=True)
        self.commands = {}
        for entry in json.loads((build / "compile_commands.json").read_text()):
            file = Path(entry["file"])
            if file.is_relative_to(root / "src/funzioni"):
                words = shlex.split(entry["command"])
                output = words[words.index("-o") + 1]
                self.commands[str(file.relative_to(root))] = (words[:words.index("-o")], build / output)

    @property
    def sources(self):
        return sorted(self.commands)

    def libclang_arguments(self, source):
        words, _ = self.commands[source]
        wanted = [word for word in words[1:] if word.startswith(("-D", "-I", "-std", "-f")) and word != "-fno-math-errno"]
        return ["-xc++", "-fconstexpr-steps=100000000", *wanted]

    def changed(self, mutant, text, sources, number):
        """Compiles what a change of text concerns. The outcome, or None and the library, where the code differs."""
        tree = self.work / f"changed{number}"
        shutil.rmtree(tree, ignore_errors=True)
        file = tree / mutant.file
        file.parent.mkdir(parents=True)
        file.write_text(text[:mutant.begin] + mutant.text + text[mutant.end:])
        objects = {source: output for source, (_, output) in self.commands.items()}
        differ = []
        for source in sources:
            output = tree / (source.replace("/", "_") + ".o")
            try:
                done = subprocess.run(self.command(source, tree, output), capture_output=True, text=True, timeout=120)
            except subprocess.TimeoutExpired:
                return COMPILER, None
            if done.returncode:
                return COMPILER if PROOF.search(done.stderr) else ILL, None
            if output.read_bytes() != objects[source].read_bytes():
                differ.append(source)
        if not differ:
            return SAME, None
        for source in differ:
            objects[source] = tree / (source.replace("/", "_") + ".o")
            subprocess.run(self.command(source, tree, objects[source], DEFINED), check=True)
        library = tree / "lib" / LIBRARY
        self.link(list(objects.values()), library)
        return None, library

    def command(self, source, tree, output, extra=()):
        """Compiles a source as the build does, but out of another tree of sources."""
        words, _ = self.commands[source]
        include = f"-I{self.root / 'src/funzioni'}"
        place = words.index(include)
        file = tree / source
        return [*words[:place], f"-I{tree / 'src/funzioni'}", *words[place:], "-w", "-Wno-error", *extra, "-o", str(output), "-c",
                str(file if file.exists() else self.root / source)]

    def link(self, objects, output):
        output.parent.mkdir(parents=True, exist_ok=True)
        subprocess.run([self.commands[self.sources[0]][0][0], "-shared", f"-Wl,-soname,{LIBRARY}",
                        f"-Wl,--version-script={self.root / 'src/funzioni/kelfunzioni.map'}", "-Wl,-Bsymbolic-functions",
                        "-Wl,-z,relro,-z,now", *map(str, objects), "-ldl", "-o", str(output)], check=True)

    def instrumented(self, texts, sources):
        """The library with the switches: `texts` holds the instrumented files, `sources` what has to be compiled anew."""
        tree = self.work / "switched"
        shutil.rmtree(tree, ignore_errors=True)
        for name, text in texts.items():
            file = tree / name
            file.parent.mkdir(parents=True, exist_ok=True)
            file.write_text(text)
        tree.mkdir(exist_ok=True)

        def compile_one(source):
            output = tree / (source.replace("/", "_") + ".o")
            command = self.command(source, tree, output, ["-O1", "-fno-toplevel-reorder", *DEFINED, f"-I{HERE}"])
            done = subprocess.run(command, capture_output=True, text=True)
            return source, output, done.stderr if done.returncode else ""

        with ThreadPoolExecutor(self.jobs) as pool:
            results = list(pool.map(compile_one, sorted(sources)))
        errors = [error for _, _, error in results if error]
        if errors:
            raise SystemExit("the instrumented library does not compile:\n" + "\n".join(errors))
        switch = tree / "interruttore.o"
        subprocess.run([self.commands[self.sources[0]][0][0], "-std=c++20", "-O1", "-fPIC", "-fvisibility=hidden", "-c",
                        str(HERE / "interruttore.cpp"), "-o", str(switch)], check=True)
        objects = {source: output for source, (_, output) in self.commands.items()}
        objects.update({source: output for source, output, _ in results})
        library = tree / "lib" / LIBRARY
        self.link([switch, *objects.values()], library)
        return library
