"""Walks through a source file and has the operators change what they find."""

import re
from dataclasses import dataclass, replace
from pathlib import Path

from clang import cindex
from clang.cindex import CursorKind as K
from clang.cindex import TypeKind

from cells import Table, layout
from mutant import Mutant
from operators import COMMENT, LOOPS, OPERATORS, bare, other_character

FUNCTIONS = (K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.FUNCTION_TEMPLATE, K.CONVERSION_FUNCTION)
CLASSES = (K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE)
VARIABLES = (K.VAR_DECL, K.FIELD_DECL, K.PARM_DECL)
# Proofs, and names for values and types.
SKIPPED = (K.STATIC_ASSERT, K.CXX_UNARY_EXPR, K.ENUM_CONSTANT_DECL, K.TYPEDEF_DECL, K.TYPE_ALIAS_DECL)
WORDS = re.compile(rf"""("(?:\\.|[^"\\])*"|'(?:\\.|[^'\\])*')|{COMMENT.pattern}|\s+""", re.S)


@dataclass(frozen=True)
class Context:
    """Where a piece of a program stands."""

    function: str = ""
    statement: tuple = ()   # begin and end of the smallest statement or declaration around it
    constant: bool = False  # the compiler computes it
    label: bool = False     # of a case


class Source:
    def __init__(self, path, name, stored):
        self.name, self.stored = name, stored  # whether the cells of tables are changed in the library
        self.text = Path(path).read_bytes().decode("ascii")
        self.mutants, self.tables = [], []

    def span(self, cursor):
        return cursor.extent.start.offset, cursor.extent.end.offset

    def piece(self, cursor):
        begin, end = self.span(cursor)
        return self.text[begin:end]

    def visit(self, cursor, at):
        if cursor.kind not in SKIPPED and not (cursor.kind in VARIABLES and self.is_stored_table(cursor, at)):
            self.walk(cursor, at)

    def walk(self, cursor, at):
        self.change(OPERATORS[cursor.kind], cursor, at)
        children = list(cursor.get_children())
        statements = bodies(cursor, children)
        if cursor.kind in VARIABLES:
            at = self.in_variable(cursor, at)
        for child in children:
            there = self.context(cursor, child, at)
            if child in statements:
                there = replace(at, statement=self.head(child), label=False)
                self.change(OPERATORS["statement"], child, there)
            self.visit(child, there)

    def context(self, parent, child, at):
        """Where a child stands, unless it is a statement."""
        if parent.kind in FUNCTIONS:
            initialiser = parent.kind == K.CONSTRUCTOR and child.kind.is_expression()
            inside = initialiser or child.kind in (K.COMPOUND_STMT, K.PARM_DECL)
            consteval = re.match(r"(template\s*<.*?>\s*)?(\[\[.*?\]\]\s*)?consteval\b", self.piece(parent), re.S)
            owner = parent.semantic_parent
            owner = owner.spelling + "::" if owner and owner.kind in CLASSES else ""
            return Context(owner + parent.spelling, self.span(child), not inside or consteval is not None)
        if parent.kind in VARIABLES:
            # Part of the type: the size of an array, an argument of a template.
            of_type = child.kind.is_expression() and (self.span(child)[0] < parent.location.offset or
                                                      self.text[self.span(child)[1]:].lstrip().startswith("]"))
            return replace(at, constant=True) if of_type else at
        if parent.kind == K.CASE_STMT:
            return replace(at, constant=True, label=True)
        return replace(at, constant=True) if parent.kind == K.DECL_REF_EXPR else at

    def in_variable(self, variable, at):
        constant = at.constant or self.is_fixed(variable)
        return Context(at.function or variable.spelling, at.statement or self.span(variable), constant)

    def is_fixed(self, variable):
        """Whether a variable gets its value once, before the program or its function runs."""
        before = self.text[self.span(variable)[0]:variable.location.offset]
        parent = variable.semantic_parent
        return variable.kind == K.VAR_DECL and ("constexpr" in before or before.startswith("static") or
                                                parent is not None and parent.kind not in FUNCTIONS)

    def is_stored_table(self, variable, at):
        """Notes tables: their cells are changed in the library. One that is no part of it is changed here."""
        if not self.stored or not self.is_fixed(variable) or not is_table(variable):
            return False
        if at.function and not self.piece(variable).startswith("static"):
            self.characters(variable, replace(at, constant=True))
            return False
        self.tables.append(Table(self.name, variable.spelling, at.function, variable.location.line,
                                 list(layout(variable.type))))
        return True

    def characters(self, variable, at):
        """The characters of a text that only the compiler reads."""
        begin, end = self.span(bare(list(variable.get_children())[-1]))
        literal = self.text[begin:end]
        if literal.startswith('"') and "\\" not in literal:
            for place in range(begin + 1, end - 2):
                self.add("cell", place, place + 1, other_character(self.text[place]), None, at, True)

    def change(self, operators, cursor, at):
        for kind, function in operators:
            for change in function(self, cursor, at) or ():
                self.add(kind, change.begin, change.end, change.text, change.mark, at, change.alone)

    def add(self, kind, begin, end, text, mark, at, alone):
        self.mutants.append(Mutant(kind, self.name, at.function, self.shown(at.statement, *(mark or (begin, end, text))),
                                   self.text.count("\n", 0, begin) + 1, begin, end, text, alone or at.constant,
                                   lines=self.text.count("\n", begin, end)))

    def shown(self, statement, begin, end, new):
        """A statement with a change in it."""
        first, last = statement
        end = min(end, max(last, begin))
        return words(self.text[first:begin]) + "{{" + words(f"{self.text[begin:end]} => {new}").strip() + "}}" + \
            words(self.text[end:last]).rstrip()

    def head(self, statement):
        """A statement, without the statements in it."""
        inner = bodies(statement, list(statement.get_children()))
        return self.span(statement)[0], self.span(inner[0])[0] if inner else self.statement_end(statement)

    def statement_end(self, statement):
        end = self.span(statement)[1]
        semicolon = re.compile(r"\s*;").match(self.text, end)
        return semicolon.end() if semicolon else end


def bodies(cursor, children):
    """The children that stand where statements stand."""
    if cursor.kind == K.COMPOUND_STMT:
        return children
    if cursor.kind == K.CASE_STMT:
        return children[1:]
    if cursor.kind == K.IF_STMT:
        condition = next(index for index, child in enumerate(children) if child.kind.is_expression())
        return children[condition + 1:]
    return children[-1:] if cursor.kind in (*LOOPS, K.SWITCH_STMT) else []


def is_table(variable):
    """Whether an array is written out as a list of values or a text. A record alone is not: the compiler writes its values
    where they are used."""
    children = list(variable.get_children())
    return variable.type.get_canonical().kind == TypeKind.CONSTANTARRAY and bool(children) and \
        bare(children[-1]).kind in (K.INIT_LIST_EXPR, K.STRING_LITERAL)


def words(text):
    """A text without comments, line breaks and the spaces that depend on them."""
    text = WORDS.sub(lambda match: match[1] or " ", text)
    return re.sub(r"(?<=[(\[{]) | (?=[)\]},;]|\.\w|->)", "", re.sub(" +", " ", text))


def read(root, folder, stored, source, arguments):
    """The files below a folder that a source consists of: [(name, mutants, tables)]."""
    unit = cindex.Index.create().parse(str(root / source), args=arguments)
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        raise SystemExit("libclang does not understand the source:\n" + "\n".join(errors))
    files = {}
    for path in [root / source, *(Path(file.include.name).resolve() for file in unit.get_includes())]:
        if path.is_relative_to(root / folder):
            files[str(path)] = Source(path, str(path.relative_to(root)), stored)
    for cursor in unit.cursor.get_children():
        file = cursor.location.file and files.get(str(Path(cursor.location.file.name).resolve()))
        if file:
            file.visit(cursor, Context())
    return [(file.name, file.mutants, file.tables) for file in files.values()]
