"""The mutants of a source file: found by libclang, which knows what every piece of it is."""

import re
from pathlib import Path

from clang import cindex
from clang.cindex import CursorKind as K
from clang.cindex import TypeKind

from celle import Table, layout
from mutante import Mutant

RELATIONAL = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
LOGICAL = {"&&": ("||",), "||": ("&&",)}
ARITHMETIC = {"+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "<<": (">>",), ">>": ("<<",), "&": ("|",),
              "|": ("&",), "^": ("&",), "+=": ("-=",), "-=": ("+=",), "*=": ("/=",), "/=": ("*=",), "%=": ("*=",),
              "<<=": (">>=",), ">>=": ("<<=",), "&=": ("|=",), "|=": ("&=",), "^=": ("&=",)}
BINARY = {**{op: ("relational", new) for op, new in RELATIONAL.items()},
          **{op: ("logical", new) for op, new in LOGICAL.items()},
          **{op: ("arithmetic", new) for op, new in ARITHMETIC.items()}}
FUNCTIONS = (K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.FUNCTION_TEMPLATE, K.CONVERSION_FUNCTION)
SIMPLE = (K.CALL_EXPR, K.BINARY_OPERATOR, K.COMPOUND_ASSIGNMENT_OPERATOR, K.UNARY_OPERATOR, K.UNEXPOSED_EXPR)
JUMPS = (K.BREAK_STMT, K.CONTINUE_STMT, K.CXX_THROW_EXPR)
LOOPS = (K.FOR_STMT, K.CXX_FOR_RANGE_STMT, K.WHILE_STMT)
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)


class Place:
    """Where in the program a piece stands."""

    def __init__(self, function="", compiled=False):
        self.function = function
        self.compiled = compiled  # the compiler computes it

    def within(self, function):
        return Place(function, self.compiled)

    def computed(self):
        return Place(self.function, True)


class Reader:
    """Reads the mutants off one file of a translation unit."""

    def __init__(self, path, name):
        self.path = str(path)
        self.name = name
        self.text = Path(path).read_bytes().decode("ascii")
        self.mutants = []
        self.tables = []

    def piece(self, cursor):
        return self.text[cursor.extent.start.offset:cursor.extent.end.offset]

    def add(self, kind, place, begin, end, text, edits):
        """A mutant: [begin, end) becomes `text`; `edits`, the same as small changes of the file, describe it."""
        first = self.text.rfind("\n", 0, edits[0][0]) + 1
        last = self.text.find("\n", edits[-1][1])
        original = self.text[first:last]
        changed = original
        for a, b, new in reversed(edits):
            changed = changed[:a - first] + new + changed[b - first:]
        self.mutants.append(Mutant(kind, self.name, place.function, words(original), words(changed), begin=begin, end=end,
                                   text=text, compiled=place.compiled, line=self.text.count("\n", 0, begin) + 1))

    # --- Walking ---------------------------------------------------------------------------------------------------

    def walk(self, cursor, place):
        kind = cursor.kind
        if kind == K.STATIC_ASSERT or kind == K.CXX_UNARY_EXPR:
            return
        if kind in FUNCTIONS:
            self.function(cursor, place)
        elif kind in (K.VAR_DECL, K.FIELD_DECL, K.PARM_DECL):
            self.variable(cursor, place)
        elif kind == K.CASE_STMT:
            self.case(cursor, place)
        elif kind == K.DECL_REF_EXPR:
            self.named_constant(cursor, place)
            self.children(cursor, place.computed())
        elif kind in (K.ENUM_CONSTANT_DECL, K.TYPEDEF_DECL, K.TYPE_ALIAS_DECL, K.TEMPLATE_REF, K.TYPE_REF):
            return
        else:
            self.mutate(cursor, place)
            self.children(cursor, place)

    def children(self, cursor, place):
        for child in cursor.get_children():
            self.walk(child, place)

    def function(self, cursor, place):
        head = self.piece(cursor)
        parent = cursor.semantic_parent
        owner = parent.spelling + "::" if parent and parent.kind in (K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE) else ""
        consteval = re.match(r"(template\s*<.*?>\s*)?(\[\[.*?\]\]\s*)?consteval\b", head, re.S)
        inside = Place(owner + cursor.spelling, consteval is not None)
        for child in cursor.get_children():
            initialiser = child.kind.is_expression() and cursor.kind == K.CONSTRUCTOR
            body = initialiser or child.kind in (K.COMPOUND_STMT, K.PARM_DECL)
            self.walk(child, inside if body else inside.computed())

    def variable(self, cursor, place):
        head = self.text[cursor.extent.start.offset:cursor.location.offset]
        parent = cursor.semantic_parent
        fixed = cursor.kind == K.VAR_DECL and (
            "constexpr" in head or (parent is not None and parent.kind not in FUNCTIONS) or re.match(r"static\b", head))
        inside = place if place.function else place.within(cursor.spelling)
        stored = not place.function or re.match(r"static\b", head)
        if fixed and is_table(cursor) and not stored:
            self.characters(cursor, inside.computed())
        if fixed and is_table(cursor) and stored:
            self.tables.append(Table(self.name, cursor.spelling, place.function, cursor.location.line,
                                     list(layout(cursor.type))))
            return  # its cells are changed one by one
        for child in cursor.get_children():
            if child.kind.is_expression() and self.names_type(cursor, child):
                self.walk(child, inside.computed())
            else:
                self.walk(child, inside.computed() if fixed else inside)

    def names_type(self, variable, child):
        """Whether an expression is part of the variable's type: an array's size, an argument of a template."""
        after = self.text[child.extent.end.offset:].lstrip()
        return child.extent.start.offset < variable.location.offset or after.startswith("]")

    def case(self, cursor, place):
        label, *body = cursor.get_children()
        self.walk(label, place.computed())
        for child in body:
            self.statement(child, place)
            self.walk(child, place)

    # --- Mutants ---------------------------------------------------------------------------------------------------

    def mutate(self, cursor, place):
        kind = cursor.kind
        if kind in (K.BINARY_OPERATOR, K.COMPOUND_ASSIGNMENT_OPERATOR):
            operands = list(cursor.get_children())
            if len(operands) == 2:
                self.binary(cursor, *operands, place)
        elif kind == K.CALL_EXPR and cursor.spelling.startswith("operator"):
            operands = list(cursor.get_children())
            if len(operands) == 3:
                self.binary(cursor, operands[0], operands[2], place)
        elif kind == K.UNARY_OPERATOR:
            self.unary(cursor, place)
        elif kind in (K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CHARACTER_LITERAL):
            self.number(cursor, place)
        elif kind == K.CXX_BOOL_LITERAL_EXPR:
            self.replace("constant", cursor, place, "false" if self.piece(cursor) == "true" else "true")
        elif kind == K.STRING_LITERAL:
            self.string(cursor, place)
        elif kind == K.COMPOUND_STMT:
            for child in cursor.get_children():
                self.statement(child, place)
        elif kind == K.CONDITIONAL_OPERATOR:
            self.condition(next(cursor.get_children()), place)
        elif kind in (K.IF_STMT, *LOOPS):
            self.branch(cursor, place)

    def replace(self, kind, cursor, place, new, text=None):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        self.add(kind, place, begin, end, text or new, [(begin, end, new)])

    def binary(self, cursor, left, right, place):
        begin, end = left.extent.end.offset, right.extent.start.offset
        between = COMMENT.sub(lambda m: " " * len(m[0]), self.text[begin:end])
        operator = between.strip()
        if operator not in BINARY:
            return
        begin += between.index(operator)
        kind, others = BINARY[operator]
        if kind == "arithmetic" and not (is_number(left.type) and is_number(right.type)):
            place = place.computed()  # of pointers and objects the other operation may not exist: tried alone
        for other in others:
            self.add(kind, place, cursor.extent.start.offset, cursor.extent.end.offset,
                     f"({self.piece(left)}) {other} ({self.piece(right)})", [(begin, begin + len(operator), other)])

    def unary(self, cursor, place):
        operand = next(cursor.get_children())
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        before = self.text[begin:operand.extent.start.offset].strip()
        after = self.text[operand.extent.end.offset:end].strip()
        inner = self.piece(operand)
        if before in ("++", "--"):
            other = "--" if before == "++" else "++"
            self.add("arithmetic", place, begin, end, f"{other}({inner})", [(begin, begin + 2, other)])
        elif after in ("++", "--"):
            other = "--" if after == "++" else "++"
            self.add("arithmetic", place, begin, end, f"({inner}){other}", [(end - 2, end, other)])
        elif before in ("-", "~"):
            self.add("arithmetic", place, begin, end, f"({inner})", [(begin, begin + 1, "")])
        elif before == "!":
            self.add("condition", place, begin, end, f"static_cast<bool>({inner})", [(begin, begin + 1, "")])

    def number(self, cursor, place):
        written = self.piece(cursor)
        if written in ("", "__LINE__") or cursor.type.kind == TypeKind.DEPENDENT:
            return
        for sign in "+-":
            self.replace("constant", cursor, place, f"({written} {sign} 1)",
                         f"static_cast<{cursor.type.spelling}>({written} {sign} 1)")

    def named_constant(self, cursor, place):
        meant = cursor.referenced
        if meant is None or place.compiled and not self.is_label(cursor):
            return
        enumerator = meant.kind == K.ENUM_CONSTANT_DECL
        constant = meant.kind == K.VAR_DECL and meant.type.is_const_qualified() and is_number(meant.type) and \
            "constexpr" in "".join(token.spelling + " " for token in meant.get_tokens()).split("=")[0]
        if not enumerator and not constant:
            return
        written = self.piece(cursor)
        for sign in "+-":
            self.replace("constant", cursor, place, f"({written} {sign} 1)",
                         f"static_cast<decltype({written})>({written} {sign} 1)")

    def is_label(self, cursor):
        return re.search(r"\bcase\s*$", self.text[:cursor.extent.start.offset]) is not None

    def string(self, cursor, place):
        written = self.piece(cursor)
        match = re.fullmatch(r'"(.*)"', written)
        if not match or "\\" in written:
            return
        inside = match[1]
        self.replace("constant", cursor, place, f'"{inside[:-1]}{next_character(inside[-1])}"' if inside else '"?"')

    def characters(self, variable, place):
        """A table of characters without a place in the library: each of them changed in the text."""
        literal = bare(list(variable.get_children())[-1])
        begin = literal.extent.start.offset
        if literal.kind == K.STRING_LITERAL and "\\" not in self.piece(literal):
            for place_of, c in enumerate(self.piece(literal)[1:-2], begin + 1):
                self.add("cell", place, place_of, place_of + 1, next_character(c),
                         [(place_of, place_of + 1, next_character(c))])

    def condition(self, condition, place, declared=None):
        """The negation of a condition, unless it is a comparison: that has its own."""
        inner = bare(condition)
        if inner.kind == K.BINARY_OPERATOR and inner.binary_operator.name in ("LT", "LE", "GT", "GE", "EQ", "NE"):
            return
        if inner.kind == K.UNARY_OPERATOR and self.piece(inner).startswith("!"):
            return
        if inner.kind in (K.CXX_BOOL_LITERAL_EXPR, K.INTEGER_LITERAL):
            return
        if inner.kind == K.CALL_EXPR and inner.spelling in ("operator==", "operator!="):
            return
        written = self.piece(condition)
        begin, end = condition.extent.start.offset, condition.extent.end.offset
        if declared is not None:
            begin, end, written = declared.extent.start.offset, declared.extent.end.offset, self.piece(declared)
            text = f"{written}; !({declared.spelling})"
            computed = Place(place.function, True)  # no expression: it cannot be switched
            self.add("condition", computed, begin, end, text, [(end, end, f"; !{declared.spelling}")])
        else:
            self.add("condition", place, begin, end, f"!({written})", [(begin, begin, "!("), (end, end, ")")])

    def branch(self, cursor, place):
        children = list(cursor.get_children())
        declared = children[0] if children[0].kind == K.VAR_DECL else None
        if cursor.kind == K.IF_STMT:
            index = self.if_condition(cursor, children)
            if index is not None:
                only = declared if declared is not None and index == 1 and not self.separate(declared, children[1]) else None
                self.condition(children[index], place, only)
                for child in children[index + 1:]:
                    self.statement(child, place)
            return
        if cursor.kind == K.WHILE_STMT:
            self.condition(children[0], place)
        elif cursor.kind == K.FOR_STMT:
            for child in children[:-1]:
                if child.kind.is_expression() and child.type.spelling == "bool":
                    self.condition(child, place)
        self.statement(children[-1], place)

    def separate(self, declared, condition):
        return condition.extent.start.offset >= declared.extent.end.offset

    def if_condition(self, cursor, children):
        for index, child in enumerate(children):
            if child.kind.is_expression():
                return index
        return None

    def statement(self, cursor, place):
        """The removal of a statement."""
        kind = cursor.kind
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        if kind == K.IF_STMT:
            children = list(cursor.get_children())
            between = self.text[children[-2].extent.end.offset:children[-1].extent.start.offset]
            if re.search(r"\belse\b", COMMENT.sub("", between)):
                return
            if self.is_simple(children[-1]):
                return  # its one statement is removed
        elif kind == K.RETURN_STMT:
            if next(cursor.get_children(), None) is not None:
                return
        elif kind in LOOPS:
            if re.match(r"for\s*\([^;]*;\s*;", self.text[begin:end]):
                return  # without it nothing is left: the function ends only within
            if self.is_simple(list(cursor.get_children())[-1]):
                return
        elif not self.is_simple(cursor):
            return
        semicolon = re.compile(r"\s*;").match(self.text, end)
        if semicolon:
            end = semicolon.end()
        elif self.text[end - 1] not in ";}":
            return
        line = self.text.find("\n", begin)
        shown = min(end, line if line > 0 else end)
        self.add("statement", place, begin, end, ";", [(begin, shown, "/* removed */")])

    def is_simple(self, cursor):
        return cursor.kind in SIMPLE or cursor.kind in JUMPS


def bare(cursor):
    """An expression without the conversions and parentheses round it."""
    while cursor.kind in (K.UNEXPOSED_EXPR, K.PAREN_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


def is_number(of):
    kind = of.get_canonical().kind
    return kind == TypeKind.ENUM or TypeKind.BOOL.value <= kind.value <= TypeKind.LONGDOUBLE.value


def is_table(variable):
    """Whether a constant array is written out as a list of values, or a text: it has cells.

    A single record has none: the compiler knows it and writes its values where they are used.
    """
    if variable.type.get_canonical().kind != TypeKind.CONSTANTARRAY:
        return False
    last = None
    for last in variable.get_children():
        pass
    return last is not None and bare(last).kind in (K.INIT_LIST_EXPR, K.STRING_LITERAL)


def next_character(c):
    return chr(ord(c) + 1) if c not in '~!["' else chr(ord(c) - 1) if c in "~[" else "x"


def words(text):
    return " ".join(text.split())


def parse(path, arguments):
    unit = cindex.Index.create().parse(str(path), args=arguments)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        raise ValueError("libclang does not understand the source:\n" + "\n".join(errors))
    return unit


def read_unit(unit, root, known):
    """Reads the files of a translation unit below root/src that are not known yet; gives their readers."""
    readers = {}

    def reader(cursor):
        file = cursor.location.file
        if file is None:
            return None
        path = Path(file.name).resolve()
        if not path.is_relative_to(root / "src/funzioni") or str(path) in known:
            return None
        if str(path) not in readers:
            readers[str(path)] = Reader(path, str(path.relative_to(root)))
        return readers[str(path)]

    for cursor in unit.cursor.get_children():
        one = reader(cursor)
        if one is not None:
            one.walk(cursor, Place())
    known.update(readers)
    return readers.values()
