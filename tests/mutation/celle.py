"""The cells of the constant tables: where they lie in the library, what they hold, and what they are changed to."""

import ctypes
import re
import struct
import subprocess
from collections import defaultdict
from dataclasses import dataclass

from clang.cindex import TypeKind

from mutante import Mutant

TEXT, DATA, FUNCTION, FLOAT, DOUBLE, INTEGER, BOOL = "text", "data", "function", "float", "double", "integer", "bool"
POINTER = struct.Struct("P")


@dataclass
class Table:
    """A constant that is written out as a list of values. `cells` holds path, offset, what it is, and bytes."""

    file: str
    name: str
    function: str
    line: int
    cells: list


def layout(of, path="", offset=0):
    """The cells of a type."""
    of = of.get_canonical()
    kind = of.kind
    if kind == TypeKind.CONSTANTARRAY:
        element = of.element_type
        size = element.get_canonical().get_size()
        for index in range(of.get_array_size()):
            yield from layout(element, f"{path}[{index}]", offset + index * size)
    elif kind == TypeKind.RECORD:
        for field in of.get_fields():
            name = f"{path}.{field.spelling}" if path else field.spelling
            yield from layout(field.type, name, offset + field.get_field_offsetof() // 8)
    elif kind == TypeKind.POINTER:
        pointee = of.get_pointee().get_canonical()
        what = FUNCTION if pointee.kind in (TypeKind.FUNCTIONPROTO, TypeKind.FUNCTIONNOPROTO) else DATA
        yield path, offset, TEXT if pointee.spelling in ("const char", "char") else what, of.get_size()
    elif kind in (TypeKind.FLOAT, TypeKind.DOUBLE):
        yield path, offset, FLOAT if kind == TypeKind.FLOAT else DOUBLE, of.get_size()
    elif kind == TypeKind.BOOL:
        yield path, offset, BOOL, of.get_size()
    elif kind == TypeKind.ENUM or TypeKind.CHAR_U.value <= kind.value <= TypeKind.LONGLONG.value:
        yield path, offset, INTEGER, of.get_size()
    else:
        raise ValueError(f"a cell of a type that is not known here: {path} {of.spelling}")


class Image:
    """The library as it lies in the memory of this process."""

    def __init__(self, library):
        self.handle = ctypes.CDLL(str(library))
        self.symbols = defaultdict(list)
        self.exported = {}
        for demangle in ("--demangle", "--no-demangle"):
            lines = subprocess.run(["nm", demangle, str(library)], check=True, capture_output=True, text=True).stdout
            for address, kind, name in re.findall(r"^([0-9a-f]+) ([a-zA-Z]) (.*)$", lines, re.M):
                if demangle == "--demangle" and kind in "rRdDvVuU":
                    self.symbols[re.split(r"::(?![^(]*\))", name)[-1]].append((name, int(address, 16)))
                elif demangle == "--no-demangle" and kind in "RDV":
                    self.exported[int(address, 16)] = name
        one = next(name for name in self.exported.values() if name.endswith("_FunzKel"))
        place = next(address for address, name in self.exported.items() if name == one)
        self.base = ctypes.addressof(ctypes.c_char.in_dll(self.handle, one)) - place

    def address(self, table):
        """Where a table begins, counted from the library's beginning."""
        found = {address for name, address in self.symbols[table.name]
                 if not table.function or table.function.split("::")[-1] + "(" in name or f"{table.function}::" in name}
        if len(found) != 1:
            raise SystemExit(f"{table.file}:{table.line}: {table.name} is {len(found)} times in the library")
        return found.pop()

    def exported_name(self, table):
        address = self.address(table)
        name = self.exported.get(address, "")
        dynamic = name and hasattr(self.handle, name)
        return name if dynamic else ""

    def bytes(self, place, size):
        return ctypes.string_at(self.base + place, size)

    def text(self, pointer):
        return ctypes.string_at(pointer) if pointer else None


def cell_mutants(tables, image):
    """Every cell of every table, changed in each of the ways of what it is."""
    functions = sorted({POINTER.unpack(image.bytes(image.address(table) + offset, size))[0] - image.base
                        for table in tables for _, offset, what, size in table.cells if what == FUNCTION} - {-image.base})
    for table in tables:
        address, exported = image.address(table), image.exported_name(table)
        start = 0 if exported else address
        for path, offset, what, size in table.cells:
            held = image.bytes(address + offset, size)
            for change, request in changes(what, held, image, functions, address + offset):
                yield Mutant("cell", table.file, table.name, path, change, line=table.line,
                             cell=f"{exported}:{start + offset:x}:{request}")


def changes(what, held, image, functions, place):
    """(words, request to the library) of each change of a cell."""
    if what == TEXT:
        return text_changes(image.text(POINTER.unpack(held)[0]))
    if what == DATA:
        return pointer_changes(POINTER.unpack(held)[0], image, place)
    if what == FUNCTION:
        return function_changes(POINTER.unpack(held)[0], image, functions)
    if what == BOOL:
        return [("false => true", "01")] if held == b"\0" else [("true => false", "00")]
    if what == INTEGER:
        return integer_changes(held)
    return float_changes(held, "<f" if what == FLOAT else "<d")


def text_changes(text):
    if text is None:
        return [("null => \"?\"", "text:3f")]
    if not text:
        return [("\"\" => \"?\"", "text:3f"), ("\"\" => null", bytes(8).hex())]
    last = text[:-1] + bytes([text[-1] + 1 if text[-1] < 0x7E else 0x21])
    return [(f'"{text.decode()}" => "{other.decode()}"', f"text:{other.hex()}") for other in (last, text[:-1])] + [
        (f'"{text.decode()}" => null', bytes(8).hex())]


def pointer_changes(held, image, place):
    if not held:
        return [("null => itself", f"address:{place:x}")]
    return [("null", bytes(8).hex()), ("8 bytes later", f"address:{held - image.base + 8:x}")]


def function_changes(held, image, functions):
    if not held:
        return [("null => a function", f"address:{functions[0]:x}")]
    mine = held - image.base
    other = functions[(functions.index(mine) + 1) % len(functions)]
    return [("null", bytes(8).hex()), ("another function", f"address:{other:x}")]


def integer_changes(held):
    value = int.from_bytes(held, "little", signed=True)
    bits = 8 * len(held)
    return [(f"{value} => {value + step}", ((value + step) % (1 << bits)).to_bytes(len(held), "little").hex())
            for step in (1, -1)]


def float_changes(held, form):
    """The next float, or, of doubles, what differs by a millionth; and the other sign."""
    value, = struct.unpack(form, held)
    if form == "<f":
        near, = struct.unpack("<f", (int.from_bytes(held, "little") + 1).to_bytes(4, "little"))
    else:
        near = value * (1 + 1e-6) if value else 1e-6
    others = [near] + ([-value] if value else [1.0])
    return [(f"{value:.9g} => {other:.12g}", struct.pack(form, other).hex()) for other in others]
