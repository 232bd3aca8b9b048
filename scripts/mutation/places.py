"""Finds the places of a source where a mutant can stand.

A mutant is a small change that a test should notice: a comparison that takes its limit in or leaves it out,
the other of two that tie, `&&` for `||`, a condition turned round, `+` for `-`, a statement left out. Left
out by rule is what must be known when compiling (constexpr, static_assert, arguments of templates, labels,
bounds of arrays), declarations, and what a macro hides.
"""

import bisect
import multiprocessing
import os
import re

import clang.cindex as cindex
from clang.cindex import CursorKind as Kind
from clang.cindex import TypeKind

COMPARISONS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
LOGICAL = {"&&": "||", "||": "&&"}
ARITHMETIC = {"+": "-", "-": "+", "*": "/", "/": "*"}
ASSIGNED = {"+=": "-=", "-=": "+=", "*=": "/=", "/=": "*="}
TIES = {"min": "max", "max": "min", "lower_bound": "upper_bound", "upper_bound": "lower_bound"}
ORDERING = {"sort", "stable_sort", "partial_sort", "nth_element", "min_element", "max_element",
            "minmax_element", "lower_bound", "upper_bound", "equal_range", "binary_search"}

FUNCTIONS = {Kind.FUNCTION_DECL, Kind.CXX_METHOD, Kind.CONSTRUCTOR, Kind.DESTRUCTOR,
             Kind.CONVERSION_FUNCTION, Kind.FUNCTION_TEMPLATE}
CONTAINERS = {Kind.TRANSLATION_UNIT, Kind.NAMESPACE, Kind.CLASS_DECL, Kind.STRUCT_DECL, Kind.UNION_DECL,
              Kind.CLASS_TEMPLATE, Kind.CLASS_TEMPLATE_PARTIAL_SPECIALIZATION, Kind.LINKAGE_SPEC,
              Kind.UNEXPOSED_DECL}
NUMBERS = {TypeKind.CHAR_U, TypeKind.UCHAR, TypeKind.USHORT, TypeKind.UINT, TypeKind.ULONG,
           TypeKind.ULONGLONG, TypeKind.CHAR_S, TypeKind.SCHAR, TypeKind.WCHAR, TypeKind.SHORT,
           TypeKind.INT, TypeKind.LONG, TypeKind.LONGLONG, TypeKind.FLOAT, TypeKind.DOUBLE}
CONDITIONED = {Kind.IF_STMT, Kind.WHILE_STMT, Kind.DO_STMT, Kind.FOR_STMT, Kind.CONDITIONAL_OPERATOR}


class Place:
    """One mutant: where it stands, what it changes and how the changed text is put together."""

    def __init__(self, path, start, end, kind, change, pieces):
        self.path = path
        self.start = start
        self.end = end
        self.kind = kind
        self.change = change
        # What the mutant's text is made of: texts, and spans of the source.
        self.pieces = pieces
        self.line = 0
        self.column = 0
        self.line_text = ""

    @property
    def name(self):
        return f"{self.path}:{self.line}:{self.column}:{self.change.replace(' ', '')}"

    @property
    def is_statement(self):
        return self.kind in ("statement", "return", "jump")


def is_number(cursor_type):
    return cursor_type.get_canonical().kind in NUMBERS


def span(cursor):
    return cursor.extent.start.offset, cursor.extent.end.offset


def unwrapped(cursor):
    """The expression within casts, temporaries and brackets that add nothing to it."""
    while cursor.kind in (Kind.UNEXPOSED_EXPR, Kind.PAREN_EXPR):
        children = list(cursor.get_children())
        if len(children) != 1:
            break
        cursor = children[0]
    return cursor


class Source:
    """A file as libclang counts it: in bytes."""

    def __init__(self, root, path):
        self.path = path
        with open(os.path.join(root, path), "rb") as file:
            self.data = file.read()
        self.starts = [0] + [match.end() for match in re.finditer(b"\n", self.data)]

    def text(self, start, end):
        return self.data[start:end].decode()

    def position(self, offset):
        line = bisect.bisect_right(self.starts, offset)
        return line, offset - self.starts[line - 1] + 1

    def line_text(self, line):
        end = self.starts[line] if line < len(self.starts) else len(self.data)
        return self.text(self.starts[line - 1], end).strip()

    def operator_between(self, start, end):
        """The operator that is all there is between two operands, without comments; else None."""
        between = re.sub(r"//[^\n]*|/\*.*?\*/", "", self.text(start, end), flags=re.DOTALL)
        between = between.strip(" \t\r\n()")
        return between if re.fullmatch(r"[-+*/<>=!&|]{1,2}", between) else None


class Finder:
    """Walks one translation unit and gathers the places of the files that were asked for."""

    def __init__(self, root, sources):
        self.root = root
        self.sources = sources
        self.places = {}
        self.by_name = {}
        self.visited = set()

    def source_of(self, cursor):
        file = cursor.location.file
        name = file.name if file else ""
        if name not in self.by_name:
            path = os.path.relpath(os.path.realpath(name), self.root)
            self.by_name[name] = self.sources.get(path)
        return self.by_name[name]

    def add(self, source, start, end, kind, change, pieces, at=None):
        """at: where the mutant is said to stand, its start unless told otherwise."""
        key = (source.path, start, end, kind, change)
        if key not in self.places:
            place = Place(source.path, start, end, kind, change, pieces)
            place.line, place.column = source.position(start if at is None else at)
            place.line_text = source.line_text(place.line)
            self.places[key] = place

    def visit_declaration(self, cursor):
        for child in cursor.get_children():
            source = self.source_of(child)
            if source is None:
                continue
            if child.kind in CONTAINERS:
                self.visit_declaration(child)
            elif child.kind in FUNCTIONS:
                self.visit_function(source, child)

    def visit_function(self, source, cursor):
        where = (source.path, *span(cursor))
        head = source.text(*span(cursor)).split("{", 1)[0]
        if where in self.visited or re.search(r"\bconst(expr|eval)\b", head):
            return
        self.visited.add(where)
        for child in cursor.get_children():
            if child.kind == Kind.COMPOUND_STMT:
                self.visit(source, child, Surroundings())
            elif child.kind.is_expression():
                self.visit(source, child, Surroundings())

    def visit(self, source, cursor, around):
        if self.source_of(cursor) is not source or self.is_left_out(source, cursor):
            return
        children = list(cursor.get_children())
        self.expression_places(source, cursor, children, around)
        for number, child in enumerate(children):
            inner = around.within(cursor, number, children)
            self.statement_places(source, cursor, child, inner)
            self.visit(source, child, inner)

    def is_left_out(self, source, cursor):
        if cursor.kind in (Kind.STATIC_ASSERT, Kind.TEMPLATE_REF, Kind.TYPE_REF, Kind.PARM_DECL,
                           Kind.CXX_UNARY_EXPR):
            return True
        if cursor.kind in (Kind.STRUCT_DECL, Kind.CLASS_DECL, Kind.ENUM_DECL, Kind.TYPE_ALIAS_DECL):
            return True
        if cursor.kind == Kind.VAR_DECL:
            head = re.split(r"[={(]", source.text(*span(cursor)), maxsplit=1)[0]
            return "constexpr" in head or ("[" in head and "auto" not in head)
        if cursor.kind == Kind.IF_STMT:
            return source.text(*span(cursor)).startswith("if constexpr")
        return False

    def expression_places(self, source, cursor, children, around):
        if cursor.kind in CONDITIONED:
            self.condition_place(source, cursor, children)
        operands = self.operands(cursor, children)
        if operands is not None:
            self.operator_places(source, cursor, *operands, around)
        elif cursor.kind == Kind.UNARY_OPERATOR and len(children) == 1:
            self.unary_place(source, cursor, children[0])
        elif cursor.kind == Kind.CALL_EXPR and cursor.spelling in TIES:
            self.tie_place(source, cursor, children)

    @staticmethod
    def operands(cursor, children):
        """Both sides of an operator, built in or a function."""
        if cursor.kind in (Kind.BINARY_OPERATOR, Kind.COMPOUND_ASSIGNMENT_OPERATOR):
            return children if len(children) == 2 else None
        if cursor.kind == Kind.CALL_EXPR and re.fullmatch(r"operator[-+*/<>=!]+", cursor.spelling or ""):
            arguments = [argument for argument in cursor.get_arguments() if argument is not None]
            return arguments if len(arguments) == 2 else None
        if cursor.kind == Kind.UNEXPOSED_EXPR and len(children) == 2:
            return children
        return None

    def operator_places(self, source, cursor, left, right, around):
        start, end = span(cursor)
        left_span, right_span = span(left), span(right)
        if not (start <= left_span[0] < left_span[1] <= right_span[0] < right_span[1] <= end):
            return
        operator = source.operator_between(left_span[1], right_span[0])
        whole = (start, left_span[1], right_span[0], end)
        if operator in COMPARISONS:
            self.comparison_places(source, operator, whole, around)
        elif operator in LOGICAL:
            self.exchange(source, "logical", operator, LOGICAL[operator], whole)
        elif operator in ARITHMETIC and self.is_exchangeable(cursor, left, right, operator):
            self.exchange(source, "arithmetic", operator, ARITHMETIC[operator], whole)
        elif operator in ASSIGNED and is_number(left.type):
            start, left_end, right_start, end = whole
            other = ASSIGNED[operator]
            pieces = [(start, left_end), f" {other} ", (right_start, end)]
            self.add(source, start, end, "arithmetic", f"{operator} to {other}", pieces,
                     source.data.index(operator.encode(), left_end))

    @staticmethod
    def is_exchangeable(cursor, left, right, operator):
        if is_number(left.type) and is_number(right.type):
            return True
        moved = cursor.type.get_canonical().spelling == left.type.get_canonical().spelling.replace("const ", "")
        return operator in "+-" and moved and "AcGeVector3d" in right.type.get_canonical().spelling

    def comparison_places(self, source, operator, whole, around):
        start, left_end, right_start, end = whole
        other = COMPARISONS[operator]
        if operator in ("==", "!="):
            pieces = ["!(", (start, end), ")"]
            self.add(source, start, end, "comparison", f"{operator} to {other}", pieces,
                     source.data.index(operator.encode(), left_end))
            return
        self.exchange(source, "comparison", operator, other, whole)
        if around.in_ordering:
            pieces = ["(", (right_start, end), f") {operator} (", (start, left_end), ")"]
            self.add(source, start, end, "tie", f"sides of {operator}", pieces)

    def exchange(self, source, kind, operator, other, whole):
        start, left_end, right_start, end = whole
        pieces = ["(", (start, left_end), f") {other} (", (right_start, end), ")"]
        self.add(source, start, end, kind, f"{operator} to {other}", pieces,
                 source.data.index(operator.encode(), left_end))

    def unary_place(self, source, cursor, operand):
        start, end = span(cursor)
        operand_span = span(operand)
        if operand_span[0] > start:
            operator = source.text(start, operand_span[0]).strip()
            if operator == "-" and is_number(operand.type) and operand.kind != Kind.INTEGER_LITERAL:
                self.add(source, start, end, "arithmetic", "- to nothing", ["+(", operand_span, ")"])

    def tie_place(self, source, cursor, children):
        arguments = list(cursor.get_arguments())
        plain = 2 if cursor.spelling in ("min", "max") else 3
        start, end = span(cursor)
        name = re.match(r"std::(\w+)", source.text(start, end))
        if name is None or name.group(1) != cursor.spelling or len(arguments) > plain or not children:
            return
        other = TIES[cursor.spelling]
        pieces = [f"std::{other}", (start + name.end(), end)]
        self.add(source, start, end, "tie", f"{cursor.spelling} to {other}", pieces)

    def condition_place(self, source, cursor, children):
        condition = self.condition_of(source, cursor, children)
        if condition is None or not condition.kind.is_expression():
            return
        start, end = span(condition)
        inner = unwrapped(condition)
        operands = self.operands(inner, list(inner.get_children()))
        if operands is not None:
            operator = source.operator_between(span(operands[0])[1], span(operands[1])[0])
            if operator in ("==", "!="):
                return  # the comparison's own mutant is the same
        self.add(source, start, end, "condition", "negated", ["!(", (start, end), ")"])

    @staticmethod
    def condition_of(source, cursor, children):
        if not children:
            return None
        if cursor.kind in (Kind.WHILE_STMT, Kind.CONDITIONAL_OPERATOR):
            return children[0]
        if cursor.kind == Kind.DO_STMT:
            return children[-1]
        if cursor.kind == Kind.IF_STMT:
            for child in children[:2]:
                after = source.data[span(child)[1]:].lstrip()
                if child.kind.is_expression() and after.startswith(b")"):
                    return child
            return None
        for child in children[:-1]:
            before = source.data[cursor.extent.start.offset:span(child)[0]]
            if before.count(b";") == 1 and child.kind.is_expression() and b"{" not in before:
                return child
        return None

    def statement_places(self, source, parent, child, around):
        in_case = parent.kind in (Kind.CASE_STMT, Kind.DEFAULT_STMT)
        if parent.kind != Kind.COMPOUND_STMT and not in_case:
            return
        kind = statement_kind(child, around)
        if kind is None or (in_case and parent.kind == Kind.CASE_STMT and around.number == 0):
            return
        start, end = span(child)
        rest = re.match(rb"\s*;", source.data[end:])
        if rest is None:
            return
        end += rest.end()
        text = source.text(start, end)
        if text.startswith("static_cast<void>"):
            return
        change = "left out" if kind == "statement" else "no " + re.match(r"\w+", text).group()
        self.add(source, start, end, kind, change, [])


def statement_kind(cursor, around):
    if cursor.kind == Kind.RETURN_STMT:
        return "return" if around.followed else None
    if cursor.kind in (Kind.BREAK_STMT, Kind.CONTINUE_STMT):
        return "jump"
    return "statement" if cursor.kind.is_expression() else None


class Surroundings:
    """What is known of where a cursor stands within its function."""

    def __init__(self, followed=False, in_ordering=False, number=0):
        self.followed = followed  # what comes behind is reached when it falls through
        self.in_ordering = in_ordering  # within the predicate of a sort or search
        self.number = number

    def within(self, parent, number, siblings):
        followed = self.followed
        in_ordering = self.in_ordering
        if parent.kind == Kind.LAMBDA_EXPR:
            followed = False
        if parent.kind == Kind.COMPOUND_STMT and number + 1 < len(siblings):
            followed = True
        if parent.kind in (Kind.WHILE_STMT, Kind.FOR_STMT, Kind.DO_STMT, Kind.CXX_FOR_RANGE_STMT):
            followed = True
        if parent.kind == Kind.CALL_EXPR and parent.spelling in ORDERING:
            in_ordering = True
        return Surroundings(followed, in_ordering, number)


def places_of_unit(task):
    """The places that one translation unit shows, in the files `paths`."""
    root, paths, source, arguments = task
    finder = Finder(root, {path: Source(root, path) for path in paths})
    unit = cindex.Index.create().parse(source, args=arguments)
    errors = [each for each in unit.diagnostics if each.severity >= cindex.Diagnostic.Error]
    if errors:
        raise ValueError(f"libclang cannot read {source}: {errors[0]}")
    finder.visit_declaration(unit.cursor)
    return finder.places


def find_places(root, paths, units, jobs):
    """The places in the files `paths`, in order. Takes about two seconds for each unit and processor.

    units: (source, arguments of the compiler) for each translation unit that brings one of the files in.
    """
    places = {}
    with multiprocessing.Pool(jobs) as pool:
        tasks = [(root, paths, source, arguments) for source, arguments in units]
        for found in pool.imap(places_of_unit, tasks):
            places.update(found)
    return [places[key] for key in sorted(places)]
