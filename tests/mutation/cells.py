"""The cells of the constant tables: where they lie in the library, what they hold, and what they are changed to."""

import ctypes
import re
import struct
import subprocess
from collections import defaultdict, namedtuple

from clang.cindex import TypeKind

from mutant import Mutant

TEXT, DATA, FUNCTION, FLOAT, DOUBLE, INTEGER, BOOL = "text", "data", "function", "float", "double", "integer", "bool"
KINDS = {TypeKind.FLOAT: FLOAT, TypeKind.DOUBLE: DOUBLE, TypeKind.BOOL: BOOL, TypeKind.ENUM: INTEGER}
NULL = f"bytes {bytes(8).hex()}"


# An array that is written out as a list of values; `function` where it is a local one, path, offset, kind and size of cells.
Table = namedtuple("Table", "file name function line cells")


def layout(of, path="", offset=0):
    """The cells of a type."""
    of = of.get_canonical()
    if of.kind == TypeKind.CONSTANTARRAY:
        for index in range(of.get_array_size()):
            yield from layout(of.element_type, f"{path}[{index}]",
                              offset + index * of.element_type.get_canonical().get_size())
    elif of.kind == TypeKind.RECORD:
        for field in of.get_fields():
            yield from layout(field.type, f"{path}.{field.spelling}".lstrip("."),
                              offset + field.get_field_offsetof() // 8)
    elif of.kind == TypeKind.POINTER:
        to = of.get_pointee().get_canonical()
        function = to.kind in (TypeKind.FUNCTIONPROTO, TypeKind.FUNCTIONNOPROTO)
        kind = FUNCTION if function else TEXT if to.spelling in ("const char", "char") else DATA
        yield path, offset, kind, of.get_size()
    elif of.kind in KINDS or TypeKind.CHAR_U.value <= of.kind.value <= TypeKind.LONGLONG.value:
        yield path, offset, KINDS.get(of.kind, INTEGER), of.get_size()
    else:
        raise ValueError(f"a cell of a type that is not known here: {path} {of.spelling}")


class Image:
    """The library in the memory of this process. Places count from its beginning."""

    def __init__(self, library):
        names = subprocess.run(["nm", "-C", str(library)], check=True, capture_output=True, text=True).stdout
        self.symbols = defaultdict(dict)  # by the last part of a name: places by whole names
        exported = {}
        for place, kind, name in re.findall(r"^([0-9a-f]+) ([rRdDvV]) (.*)$", names, re.M):
            self.symbols[name.rsplit("::", 1)[-1]][name] = int(place, 16)
            if kind.isupper() and re.fullmatch(r"\w+", name):
                exported[name] = int(place, 16)
        self.exported = set(exported)
        self.handle = ctypes.CDLL(str(library))
        name, place = next(iter(exported.items()))
        self.base = ctypes.addressof(ctypes.c_char.in_dll(self.handle, name)) - place

    def place(self, table):
        """Where a table begins."""
        function = table.function.split("::")[-1]
        found = {place for name, place in self.symbols[table.name].items() if not function or f"{function}(" in name}
        if len(found) != 1:
            raise SystemExit(f"{table.file}:{table.line}: {table.name} is {len(found)} times in the library")
        return found.pop()

    def bytes(self, place, size):
        return ctypes.string_at(self.base + place, size)

    def pointer(self, place):
        """The address that a pointer holds."""
        return int.from_bytes(self.bytes(place, ctypes.sizeof(ctypes.c_void_p)), "little")


def mutants(tables, library):
    """Every cell of every table, changed in each of the ways of its kind."""
    image = Image(library)
    functions = sorted({image.pointer(image.place(table) + offset) - image.base
                        for table in tables for _, offset, kind, _ in table.cells if kind == FUNCTION} - {-image.base})
    for table in tables:
        begin = image.place(table)
        # Seen from outside, an exported table may be a copy in the program: its name leads to that one.
        symbol, start = (table.name, 0) if table.name in image.exported else ("-", begin)
        for path, offset, kind, size in table.cells:
            for shown, request in changes(kind, image, begin + offset, size, functions):
                yield Mutant("cell", table.file, table.name, f"{path} {{{{{shown}}}}}", table.line,
                             cell=f"{symbol} {start + offset:x} {request}")


def changes(kind, image, place, size, functions):
    """What a reader is shown of each change of a cell, and what switch.cpp is told."""
    held = image.bytes(place, size)
    if kind == BOOL:
        return [("false => true", "bytes 01")] if held == b"\0" else [("true => false", "bytes 00")]
    if kind == INTEGER:
        return integer_changes(held)
    if kind in (FLOAT, DOUBLE):
        return float_changes(held, kind)
    to = image.pointer(place)
    if kind == TEXT:
        return text_changes(ctypes.string_at(to) if to else None)
    if not to:
        return [("null => itself", f"place {place if kind == DATA else functions[0]:x}")]
    other = to - image.base + 8 if kind == DATA else functions[(functions.index(to - image.base) + 1) % len(functions)]
    return [(f"{kind} => null", NULL), (f"{kind} => other {kind}", f"place {other:x}")]


def text_changes(text):
    """Another last character, one character less, and none at all."""
    if text is None:
        return [('null => "?"', "text 3f")]
    others = [text[:-1] + bytes([text[-1] + 1 if text[-1] < 0x7E else 0x21]), text[:-1]] if text else [b"?"]
    return [(f'"{text.decode()}" => "{other.decode()}"', f"text {other.hex()}") for other in others] + [
        (f'"{text.decode()}" => null', NULL)]


def integer_changes(held):
    value, size = int.from_bytes(held, "little", signed=True), len(held)
    return [(f"{value} => {other}", f"bytes {(other % (1 << 8 * size)).to_bytes(size, 'little').hex()}")
            for other in (value + 1, value - 1)]


def float_changes(held, kind):
    """The next float, or, of doubles, what differs by a millionth; and the other sign."""
    form = "<f" if kind == FLOAT else "<d"
    value, = struct.unpack(form, held)
    near = value * (1 + 1e-6) if value else 1e-6
    if kind == FLOAT:
        near, = struct.unpack(form, (int.from_bytes(held, "little") + 1).to_bytes(4, "little"))
    return [(f"{value:.9g} => {other:.12g}", f"bytes {struct.pack(form, other).hex()}")
            for other in (near, -value if value else 1.0)]
