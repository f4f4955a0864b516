"""The includes between the rooms, from the build's own data: a picture of them, or a check of the picture.

usage: includi.py PROJECT BUILD dot            prints the picture's description, for dot
       includi.py PROJECT BUILD check SVG      compares the picture with the tree

Which files are compiled, and where their includes are looked for, stands in BUILD/compile_commands.json. What ninja keeps of
the headers that the compiler read must be the same files.
"""

import collections
import html
import json
import pathlib
import re
import shlex
import subprocess
import sys

from rooms import house, room_of, rooms

INCLUDE = re.compile(r'^\s*#\s*include\s+["<]([^">]+)[">]', re.MULTILINE)
EDGE = re.compile(r'class="edge">\s*<title>(.*?)</title>')
NODE = re.compile(r'class="node">\s*<title>(.*?)</title>')

class Tree:
    def __init__(self, project, build):
        self.project, self.build = project.resolve(), build
        self.folders = {}  # of each compiled file: where its includes are looked for
        for step in json.loads((build / "compile_commands.json").read_text(encoding="utf-8")):
            path = self.inside(step["file"])
            if path is not None and room_of(path) is not None:
                words = shlex.split(step["command"])
                self.folders[path] = [pathlib.Path(word[2:]) for word in words if word.startswith("-I")]
                self.folders[path] += [pathlib.Path(b) for a, b in zip(words, words[1:]) if a == "-isystem"]
        self.direct = {}  # of each file read: the files of the tree that it includes
        self.reached = {path: self.follow(path, folders) for path, folders in self.folders.items()}

    def inside(self, path):
        """A path within the tree, or None."""
        path = pathlib.Path(path).resolve()
        return path.relative_to(self.project).as_posix() if path.is_relative_to(self.project) else None

    def follow(self, start, folders):
        """All files of the tree that the compiler reads for this one."""
        reached, waiting = set(), [start]
        while waiting:
            path = waiting.pop()
            if path in reached:
                continue
            reached.add(path)
            if path not in self.direct:
                self.direct[path] = self.included(self.project / path, folders)
            waiting += self.direct[path]
        return reached

    def included(self, path, folders):
        found = []
        for name in INCLUDE.findall(path.read_text(encoding="utf-8")):
            place = next((folder / name for folder in [path.parent, *folders] if (folder / name).is_file()), None)
            if place is not None and self.inside(place) is not None:
                found.append(self.inside(place))
        return found

    def arrows(self):
        """Between rooms: from the room that includes to the included one, with the files that do so."""
        arrows = collections.defaultdict(set)
        for path, included in self.direct.items():
            for other in included:
                ends = room_of(path), room_of(other)
                if None not in ends and ends[0] != ends[1]:
                    arrows[ends].add(f"{path} includes {other}")
        return arrows

    def newer(self, target, read):
        """Whether something was changed after the compiler read it."""
        target, files = self.build / target, [self.build / path.strip() for path in read]
        return not target.exists() or any(not path.exists() or path.stat().st_mtime > target.stat().st_mtime for path in files)

    def differs_from_compiler(self):
        """Compiled files for which the compiler read others than `follow` found."""
        done = subprocess.run(["ninja", "-C", str(self.build), "-t", "deps"], capture_output=True, text=True, check=True)
        compared, wrong = 0, []
        for step in done.stdout.strip().split("\n\n") if done.stdout.strip() else []:
            first, *read = step.strip().splitlines()
            files = {self.inside(self.build / path.strip()) for path in read}
            source = next((path for path in files if path in self.reached), None)
            if source is None or self.newer(first.split(":")[0], read):
                continue
            compared += 1
            files = {path for path in files if path is not None and room_of(path) is not None}
            ours = {path for path in self.reached[source] if room_of(path) is not None}
            wrong += [f"{source}: the compiler reads {path}, which no include names" for path in files - ours]
            wrong += [f"{source}: includes {path}, which the compiler does not read" for path in ours - files]
        return compared, wrong


def against_the_order(arrows):
    """Arrows that run back, or past a house's public headers."""
    order = list(rooms())
    for (start, end), why in sorted(arrows.items()):
        if order.index(end) > order.index(start):
            yield f"{start} -> {end} runs back: {sorted(why)[0]}"
        elif house(start) != house(end) and house(end).split("/")[0] != "include":
            yield f"{start} -> {end} passes by the public headers: {sorted(why)[0]}"


def implied(arrows):
    """Arrows beside which a longer way leads to the same room."""
    after = collections.defaultdict(set)
    for start, end in arrows:
        after[start].add(end)

    def reaches(start, end):
        return end in after[start] or any(reaches(room, end) for room in after[start])

    return {(start, end) for start, end in arrows if any(reaches(room, end) for room in after[start] - {end})}


def dot(arrows):
    """The picture's description. Grey: beside a black way of several arrows."""
    lines = ['digraph includes {', '  graph [rankdir=TB, ranksep=0.45, nodesep=0.25, fontname="Helvetica", bgcolor=white]',
             '  node [shape=box, style="rounded,filled", fillcolor=white, fontname="Helvetica", fontsize=13, margin="0.15,0.06"]',
             '  edge [arrowsize=0.6]']
    houses = collections.defaultdict(list)
    for room in rooms():
        houses[house(room)].append(room)
    colours = {"src/funzioni": "#e8f0fa", "src/registrazioni": "#e9f6e9", "tools/kelfun": "#fbf1e3"}
    for number, (name, inside) in enumerate(houses.items()):
        if name in colours:
            lines += [f'  subgraph cluster_{number} {{', f'    label="{name}"; labeljust=l; style="rounded,filled"; color="#c0c0c0"; fillcolor="{colours[name]}"']
        for room in inside:
            label = room if name not in colours else "main" if room == name + "/" else pathlib.Path(room).name
            lines.append(f'    "{room}" [label="{label}"]')
        if name in colours:
            lines.append("  }")
    grey = implied(arrows)
    for start, end in sorted(arrows):
        style = ' [color="#b8b8b8", penwidth=0.7]' if (start, end) in grey else ""
        lines.append(f'  "{start}" -> "{end}"{style}')
    # The libraries below the tool: side by side the picture would be too wide for a page.
    tool = next(room for room in rooms() if house(room) == "tools/kelfun")
    included = {end for start, end in arrows if house(start) == house(end)}
    lines += [f'  "{tool}" -> "{room}" [style=invis]' for room in rooms()
              if house(room).startswith("src/") and room not in included]
    return "\n".join([*lines, "}"])


def main():
    project, build, what = pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]), sys.argv[3]
    tree = Tree(project, build)
    arrows = tree.arrows()
    if what == "dot":
        print(dot(arrows))
        return 0
    compared, wrong = tree.differs_from_compiler()
    wrong += against_the_order(arrows)
    picture = pathlib.Path(sys.argv[4]).read_text(encoding="utf-8")
    drawn = {tuple(html.unescape(title).split("->")) for title in EDGE.findall(picture)}
    wrong += [f"not in the picture: {start} -> {end}" for start, end in sorted(set(arrows) - drawn)]
    wrong += [f"only in the picture: {start} -> {end}" for start, end in sorted(drawn - set(arrows))]
    if {html.unescape(title) for title in NODE.findall(picture)} != set(rooms()):
        wrong.append("the picture's rooms are not those of rooms.txt")
    print(*wrong, f"{len(rooms())} rooms, {len(arrows)} arrows, {compared} compiled files compared with what the compiler read",
          sep="\n")
    if wrong:
        print("scripts/architecture draws the picture again")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
