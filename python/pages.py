#!/usr/bin/env python3
"""Makes a page of the site for each public class and function, from its docstring.

    pages.py [--write] FOLDER

Without --write the pages in the folder must be those that this makes.
"""

import enum
import importlib
import inspect
import re
import sys
from pathlib import Path

MODULES = ["kelfunzioni", "kelfunzioni.mapping", "kelfunzioni.plot"]
LISTS = {"Parameters", "Returns", "Attributes", "Raises", "Warns", "See Also"}
INDEX = "python-reference.md"


def _unquoted(call):
    """Annotations without the quotes that they are kept in."""
    return re.sub(r"(: |-> )'([^']*)'", r"\1\2", call)


def signature(name, what):
    """Its call, one line where that is short."""
    if inspect.isclass(what) and issubclass(what, (BaseException, enum.Enum)):
        return None
    try:
        found = inspect.signature(what)
    except (TypeError, ValueError):
        return None
    given = [each for each in found.parameters.values() if each.name != "self"]
    call = _unquoted(str(found.replace(parameters=given)))
    if len(name + call) > 96:
        shown = [_unquoted(str(each)) for each in given]
        if any(each.kind is each.KEYWORD_ONLY for each in given) and not any(
            each.kind is each.VAR_POSITIONAL for each in given
        ):
            first = next(i for i, each in enumerate(given) if each.kind is each.KEYWORD_ONLY)
            shown.insert(first, "*")
        tail = call[call.rindex(")") :] if "->" in call else ")"
        call = "(\n    " + ",\n    ".join(shown) + f",\n{tail}"
    return f"```py\n{name}{call}\n```"


def _inline(text):
    return re.sub(r"``([^`]+)``", r"`\1`", text)


def _items(lines):
    """Names with their types, each with what it is in the lines below."""
    found = []
    for line in lines:
        if line and not line.startswith(" "):
            name, colon, kind = line.partition(" : ")
            found.append(f"- `{name}`{f', {_inline(kind)}' if colon else ''}")
        elif line.strip() and found:
            end = ": " if "\n" not in found[-1] and not found[-1].endswith(":") else ""
            joined = found[-1].split(": ", 1)
            text = _inline(line.strip())
            found[-1] = f"{found[-1]} {text}" if len(joined) > 1 else f"{found[-1]}{end}{text}"
    return "\n".join(found)


def _examples(lines):
    return "```py\n" + "\n".join(lines).strip() + "\n```"


def body(doc):
    """A docstring of numpydoc as Markdown."""
    lines, parts, section, taken = doc.splitlines(), [], None, []

    def close():
        if section is None:
            parts.append(_inline("\n".join(taken)).strip())
        elif section == "Examples":
            parts.append(f"**{section}**\n\n{_examples(taken)}")
        elif section in LISTS:
            parts.append(f"**{section}**\n\n{_items(taken)}")
        else:
            parts.append(f"**{section}**\n\n{_inline(chr(10).join(taken)).strip()}")

    for line in lines:
        if taken and re.fullmatch(r"-{3,}", line.strip()) and len(line.strip()) == len(taken[-1]):
            heading = taken.pop()
            close()
            section, taken = heading, []
        else:
            taken.append(line)
    close()
    return "\n\n".join(part for part in parts if part)


def _members(what):
    own = [cls for cls in what.__mro__ if cls.__module__.startswith("kelfunzioni")]
    names = dict.fromkeys(name for cls in own for name in vars(cls))
    for name in names:
        value = inspect.getattr_static(what, name)
        kinds = (property, classmethod, staticmethod)
        plain = inspect.isfunction(value) or isinstance(value, kinds) or hasattr(value, "func")
        if not name.startswith("_") and plain and inspect.getdoc(getattr(what, name)):
            yield name, value


def page(module, name, what):
    """Give the page of a class or a function."""
    kind = "class" if inspect.isclass(what) else "function"
    path = f"{module}.{name}"
    parts = [f"# {path}", f"A {kind} of the [Python package](../python.md); [all]({INDEX})."]
    parts += filter(None, [signature(name, what), body(inspect.getdoc(what))])
    if inspect.isclass(what) and not issubclass(what, BaseException):
        for member, value in _members(what):
            call = getattr(what, member)
            wrapped = isinstance(value, property) or hasattr(value, "func")
            shown = None if wrapped else signature(member, call)
            doc = body(inspect.getdoc(value if wrapped else call))
            parts += [f"## {member}", *filter(None, [shown, doc])]
    return "\n\n".join(parts) + "\n"


def _file(module, name):
    """A file of this name alone, where capitals do not matter: there are `Laps` and `laps`."""
    parts = ["python", *module.split(".")[1:], name.lower()]
    others = importlib.import_module(module).__all__
    if name.islower() and any(each != name and each.lower() == name for each in others):
        parts.append("function")
    return "-".join(parts) + ".md"


def pages():
    """All pages by their names, and the list of them."""
    found, index = {}, ["# Python reference", "A page for each class and function."]
    for module in MODULES:
        imported = importlib.import_module(module)
        rows = [f"**`{module}`**", ""]
        for name in imported.__all__:
            what = getattr(imported, name)
            file = _file(module, name)
            if module != MODULES[0] and name in importlib.import_module(MODULES[0]).__all__:
                continue
            found[file] = page(module, name, what)
            first = _inline(inspect.getdoc(what).splitlines()[0])
            rows.append(f"- [{name}]({file}): {first}")
        index.append("\n".join(rows))
    found[INDEX] = "\n\n".join(index) + "\n"
    return found


def main():
    """Write or compare the pages; the number of those that differ is what is wrong."""
    arguments = [each for each in sys.argv[1:] if each != "--write"]
    if len(arguments) != 1:
        sys.exit(__doc__)
    folder, made = Path(arguments[0]), pages()
    if "--write" in sys.argv:
        folder.mkdir(parents=True, exist_ok=True)
        for old in folder.glob("*.md"):
            old.unlink()
        for name, text in made.items():
            (folder / name).write_text(text, encoding="utf-8")
        return 0
    there = {each.name: each.read_text(encoding="utf-8") for each in folder.glob("*.md")}
    wrong = sorted(name for name in there | made if there.get(name) != made.get(name))
    for name in wrong:
        print(f"{folder / name} is not what the docstrings make; {sys.argv[0]} --write {folder}")
    return len(wrong)


if __name__ == "__main__":
    sys.exit(main())
