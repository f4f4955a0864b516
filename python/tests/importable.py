"""Which test files an interpreter can run: prints those whose imports it has, and tells of others.

For interpreters that not all packages of PyPI are made for: `scripts/test-python PYTHON...`.
"""

from __future__ import annotations

import ast
import importlib
import sys
import warnings
from pathlib import Path


def missing(file: Path) -> str:
    """The first import that fails, with the reason; "" for none."""
    own = {
        each.stem for folder in (file.parent, file.parent.parent) for each in folder.glob("*.py")
    }
    for node in ast.walk(ast.parse(file.read_text(encoding="utf-8"))):
        names = [each.name for each in node.names] if isinstance(node, ast.Import) else []
        if isinstance(node, ast.ImportFrom) and node.level == 0:
            names = [str(node.module)]
        for name in names:
            if name in own:
                continue
            try:
                importlib.import_module(name)
            except Exception as error:  # whatever a half-made package raises
                return f"{name}: {type(error).__name__}: {error}".splitlines()[0]
    return ""


def main() -> None:
    """Go through the files that are named."""
    warnings.simplefilter("ignore")
    for each in sys.argv[1:]:
        reason = missing(Path(each))
        if reason:
            print(f"left out: {each} ({reason})", file=sys.stderr)
        else:
            print(each)


if __name__ == "__main__":
    main()
