#!/usr/bin/env python3
"""Runs a notebook, and makes the page of the site that shows it.

    notebook.py [--write] NOTEBOOK PAGE

Runs the cells of code in order, in one namespace, as a notebook does: what a cell prints, and what
its last expression gives, is its output. Without --write the texts must be those that the notebook
holds, there must be a picture where it holds one, and the page must be the one that it makes. With
--write they are put in. Pictures of the page lie beside it.
"""

import argparse
import ast
import base64
import contextlib
import io
import json
import os
import sys
import tempfile
from pathlib import Path


def _outputs(result, printed):
    found = []
    if printed:
        found.append({"name": "stdout", "output_type": "stream", "text": printed.splitlines(True)})
    if result is None:
        return found
    data = {"text/plain": repr(result).splitlines(True)}
    if hasattr(result, "savefig"):
        picture = io.BytesIO()
        result.savefig(picture, format="png", dpi=80, metadata={"Software": None})
        data = {
            "image/png": base64.b64encode(picture.getvalue()).decode(),
            "text/plain": ["<Figure>"],
        }
    return [*found, {"data": data, "metadata": {}, "output_type": "display_data"}]


def run(notebook):
    """Give the outputs of each cell of code, run in a folder of its own."""
    names = {"__name__": "__main__"}
    outputs = []
    before = os.getcwd()
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        try:
            for number, cell in enumerate(_code(notebook), 1):
                tree = ast.parse("".join(cell["source"]))
                last = tree.body[-1] if tree.body and isinstance(tree.body[-1], ast.Expr) else None
                body = ast.Module(tree.body[:-1] if last else tree.body, [])
                printed = io.StringIO()
                with contextlib.redirect_stdout(printed):
                    exec(compile(body, f"<cell {number}>", "exec"), names)
                    shown = ast.Expression(last.value) if last else None
                    result = (
                        eval(compile(shown, f"<cell {number}>", "eval"), names) if last else None
                    )
                outputs.append(_outputs(result, printed.getvalue()))
        finally:
            os.chdir(before)
    return outputs


def _code(notebook):
    return [cell for cell in notebook["cells"] if cell["cell_type"] == "code"]


def texts(outputs):
    """The texts of a cell's outputs; of a picture, that there is one."""
    found = []
    for each in outputs:
        data = each.get("data", {})
        found.append(
            "picture"
            if "image/png" in data
            else "".join(each.get("text", data.get("text/plain", [])))
        )
    return found


def page(notebook, name):
    """Give the page, and its pictures by their names."""
    parts, pictures = [], {}
    for cell in notebook["cells"]:
        source = "".join(cell["source"])
        if cell["cell_type"] == "markdown":
            parts.append(source)
            continue
        parts.append(f"```py\n{source}\n```")
        for output in cell["outputs"]:
            picture = output.get("data", {}).get("image/png")
            if picture:
                file = f"{name}-{len(pictures) + 1}.png"
                pictures[file] = base64.b64decode(picture)
                parts.append(f"![{_title(source)}]({file})")
            else:
                parts.append(f"```text\n{texts([output])[0].rstrip()}\n```")
    return "\n\n".join(parts) + "\n", pictures


def _title(source):
    first = source.splitlines()[0]
    return first.lstrip("# ").strip() if first.startswith("#") else "picture"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--write", action="store_true")
    parser.add_argument("notebook", type=Path)
    parser.add_argument("page", type=Path)
    options = parser.parse_args()
    notebook = json.loads(options.notebook.read_text(encoding="utf-8"))
    outputs = run(notebook)
    if options.write:
        for number, (cell, found) in enumerate(zip(_code(notebook), outputs, strict=True), 1):
            cell["outputs"], cell["execution_count"] = found, number
        options.notebook.write_text(
            json.dumps(notebook, indent=1, ensure_ascii=False) + "\n", encoding="utf-8"
        )
        text, pictures = page(notebook, options.page.stem)
        options.page.write_text(text, encoding="utf-8")
        for name, picture in pictures.items():
            (options.page.parent / name).write_bytes(picture)
        return 0
    wrong = 0
    for number, (cell, found) in enumerate(zip(_code(notebook), outputs, strict=True), 1):
        if texts(cell["outputs"]) != texts(found):
            print(
                f"cell {number} gives\n{texts(found)}\n"
                f"and the notebook holds\n{texts(cell['outputs'])}"
            )
            wrong += 1
    text, pictures = page(notebook, options.page.stem)
    if options.page.read_text(encoding="utf-8") != text:
        print(f"{options.page} is not what the notebook makes")
        wrong += 1
    for name, picture in pictures.items():
        if (options.page.parent / name).read_bytes() != picture:
            print(f"{name} is not the notebook's picture")
            wrong += 1
    if wrong:
        print(f"to put in what it gives: {sys.argv[0]} --write {options.notebook} {options.page}")
    return int(wrong > 0)


if __name__ == "__main__":
    sys.exit(main())
