"""The operators: each says how one kind of expression or statement is changed.

An operator is a function with the decorator @operator: the name of its kind in the table of results, and the kinds of
libclang's cursors that it changes. It gets the source, the cursor and the context where it stands (source.py), and gives
a Change for each mutant.
"""

import re
from collections import defaultdict
from dataclasses import dataclass

from clang.cindex import CursorKind as K
from clang.cindex import TypeKind

OPERATORS = defaultdict(list)

BINARY = (K.BINARY_OPERATOR, K.COMPOUND_ASSIGNMENT_OPERATOR, K.CALL_EXPR)  # a call of an operator function, too
LOOPS = (K.FOR_STMT, K.CXX_FOR_RANGE_STMT, K.WHILE_STMT)
SIMPLE = (K.CALL_EXPR, K.BINARY_OPERATOR, K.COMPOUND_ASSIGNMENT_OPERATOR, K.UNARY_OPERATOR, K.UNEXPOSED_EXPR, K.BREAK_STMT,
          K.CONTINUE_STMT, K.CXX_THROW_EXPR)
COMPARISONS = {"<": ("<=", ">="), "<=": ("<", ">"), ">": (">=", "<="), ">=": (">", "<"), "==": ("!=",), "!=": ("==",)}
ARITHMETIC = {"+": ("-",), "-": ("+",), "*": ("/",), "/": ("*",), "%": ("*",), "<<": (">>",), ">>": ("<<",), "&": ("|",),
              "|": ("&",), "^": ("&",)}
ARITHMETIC |= {f"{old}=": (f"{new}=",) for old, (new,) in ARITHMETIC.items()}
COMMENT = re.compile(r"//[^\n]*|/\*.*?\*/", re.S)


@dataclass
class Change:
    """[begin, end) of the file becomes `text`. `mark` is what a reader is shown: (begin, end, new)."""

    begin: int
    end: int
    text: str
    mark: tuple
    alone: bool = False  # in place of the original it may not compile, so it gets no switch


def operator(name, *kinds):
    def register(function):
        for kind in kinds:
            OPERATORS[kind].append((name, function))
        return function
    return register


def replaced(source, cursor, new, text=None):
    begin, end = source.span(cursor)
    return Change(begin, end, text or new, (begin, end, new))


def exchanged(source, cursor, others):
    """A binary operator, exchanged for each of its others."""
    operands = list(cursor.get_children())
    if cursor.kind == K.CALL_EXPR:
        if not cursor.spelling.startswith("operator") or len(operands) != 3:
            return
        del operands[1]
    if len(operands) != 2:
        return
    left, right = operands
    begin, end = left.extent.end.offset, right.extent.start.offset
    between = COMMENT.sub(lambda comment: " " * len(comment[0]), source.text[begin:end])
    written = between.strip()
    begin += between.index(written)
    numbers = is_number(left.type) and is_number(right.type)
    for new in others.get(written, ()):
        # Pointers and objects may not have the other operation.
        yield Change(*source.span(cursor), f"({source.piece(left)}) {new} ({source.piece(right)})",
                     (begin, begin + len(written), new), alone=others is ARITHMETIC and not numbers)


@operator("relational", *BINARY)
def relational(source, cursor, _):
    return exchanged(source, cursor, COMPARISONS)


@operator("logical", *BINARY)
def logical(source, cursor, _):
    return exchanged(source, cursor, {"&&": ("||",), "||": ("&&",)})


@operator("arithmetic", *BINARY)
def arithmetic(source, cursor, _):
    return exchanged(source, cursor, ARITHMETIC)


@operator("arithmetic", K.UNARY_OPERATOR)
def sign_or_step(source, cursor, _):
    """++ becomes --, and the reverse; - and ~ are left out."""
    operand = next(cursor.get_children())
    begin, end = source.span(cursor)
    inner = source.piece(operand)
    before = source.text[begin:operand.extent.start.offset].strip()
    after = source.text[operand.extent.end.offset:end].strip()
    other = {"++": "--", "--": "++"}
    if before in other:
        yield Change(begin, end, f"{other[before]}({inner})", (begin, begin + 2, other[before]))
    elif after in other:
        yield Change(begin, end, f"({inner}){other[after]}", (end - 2, end, other[after]))
    elif before in ("-", "~"):
        yield Change(begin, end, f"({inner})", (begin, begin + 1, ""))


@operator("constant", K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CHARACTER_LITERAL)
def number(source, cursor, _):
    written = source.piece(cursor)
    if written not in ("", "__LINE__") and cursor.type.kind != TypeKind.DEPENDENT:
        yield from one_more_and_less(source, cursor)


@operator("constant", K.DECL_REF_EXPR)
def named_constant(source, cursor, at):
    meant = cursor.referenced
    if meant is None or at.constant and not at.label:  # what the compiler computes names what is changed elsewhere
        return
    head = "".join(token.spelling + " " for token in meant.get_tokens()).split("=")[0]
    constant = meant.kind == K.VAR_DECL and is_number(meant.type) and meant.type.is_const_qualified() and "constexpr" in head
    if constant or meant.kind == K.ENUM_CONSTANT_DECL and not meant.semantic_parent.is_scoped_enum():
        yield from one_more_and_less(source, cursor)


def one_more_and_less(source, cursor):
    written = source.piece(cursor)
    for sign in "+-":
        new = f"{written} {sign} 1"
        yield replaced(source, cursor, f"({new})", f"static_cast<decltype({written})>({new})")


@operator("constant", K.CXX_BOOL_LITERAL_EXPR)
def truth(source, cursor, _):
    yield replaced(source, cursor, "false" if source.piece(cursor) == "true" else "true")


@operator("constant", K.STRING_LITERAL)
def text(source, cursor, _):
    """The last character becomes another."""
    match = re.fullmatch(r'"([^\\]*)"', source.piece(cursor))
    if match:
        yield replaced(source, cursor, f'"{match[1][:-1]}{other_character(match[1][-1])}"' if match[1] else '"?"')


@operator("condition", K.UNARY_OPERATOR)
def negation_left_out(source, cursor, _):
    begin, end = source.span(cursor)
    operand = next(cursor.get_children())
    if source.text[begin:source.span(operand)[0]].strip() == "!":
        yield Change(begin, end, f"static_cast<bool>({source.piece(operand)})", (begin, begin + 1, ""))


@operator("condition", K.IF_STMT, K.WHILE_STMT, K.FOR_STMT, K.CONDITIONAL_OPERATOR)
def condition(source, cursor, _):
    """A condition is negated, unless it is a comparison or a negation: these have their own mutants."""
    children = list(cursor.get_children())
    if cursor.kind == K.FOR_STMT:
        conditions = [c for c in children[:-1] if c.kind.is_expression() and c.type.spelling == "bool"]
    else:
        conditions = [c for c in children if c.kind.is_expression()][:1]
    for one in conditions:
        inner = bare(one)
        own = inner.kind == K.UNARY_OPERATOR and source.piece(inner).startswith("!") or \
            any(exchanged(source, inner, COMPARISONS))
        if own or inner.kind in (K.CXX_BOOL_LITERAL_EXPR, K.INTEGER_LITERAL):
            continue
        declared = children[0]
        if declared.kind == K.VAR_DECL and source.span(one)[0] < source.span(declared)[1]:  # if (int n = f())
            begin, end = source.span(declared)
            new = f"; !{declared.spelling}"
            yield Change(begin, end, source.piece(declared) + new, (end, end, new), alone=True)
        else:
            begin, end = source.span(one)
            yield Change(begin, end, f"!({source.piece(one)})", (begin, end, "!(...)"))


@operator("statement", "statement")  # not a kind of cursor: whatever stands where a statement stands
def left_out(source, cursor, _):
    """A statement is left out; a branch or a loop that holds just one loses that one."""
    begin, end = source.span(cursor)
    children = list(cursor.get_children())
    if cursor.kind == K.IF_STMT:
        between = source.text[children[-2].extent.end.offset:children[-1].extent.start.offset]
        if re.search(r"\belse\b", COMMENT.sub("", between)) or children[-1].kind in SIMPLE:
            return
    elif cursor.kind in LOOPS:
        endless = re.match(r"for\s*\([^;]*;\s*;", source.text[begin:end])  # the function ends within it
        if endless or children[-1].kind in SIMPLE:
            return
    elif cursor.kind not in SIMPLE and (cursor.kind != K.RETURN_STMT or children):
        return
    end = source.statement_end(cursor)
    if source.text[end - 1] in ";}":
        yield Change(begin, end, ";", (begin, end, ""))


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


def other_character(c):
    return {"~": "}", "[": "Z", "!": "x", '"': "x"}.get(c) or chr(ord(c) + 1)
