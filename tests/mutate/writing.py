"""Finds in parsed sources what can be broken, and writes it so that its number breaks it."""
import collections
import os
import pathlib
import re

import clang.cindex as ci

K = ci.CursorKind
ROOT = pathlib.Path(__file__).resolve().parents[2]
COMPARISONS = {"<": ("Less", "<=", ">="), "<=": ("LessEqual", "<", ">"),
               ">": ("Greater", ">=", "<="), ">=": ("GreaterEqual", ">", "<")}
OPERATIONS = {"==": ("Equal", "!="), "!=": ("Unequal", "=="), "+": ("Plus", "-"),
              "-": ("Minus", "+"), "*": ("Times", "/"), "/": ("Over", "*"), "%": ("Modulo", "/"),
              "<<": ("ShiftLeft", ">>"), ">>": ("ShiftRight", "<<"), "&": ("And", "|"),
              "|": ("Or", "&")}
STEPS = {"++": ("Up", "--"), "--": ("Down", "++")}
NUMBERS = {ci.TypeKind.BOOL, ci.TypeKind.CHAR_S, ci.TypeKind.UCHAR, ci.TypeKind.SHORT,
           ci.TypeKind.USHORT, ci.TypeKind.INT, ci.TypeKind.UINT, ci.TypeKind.LONG,
           ci.TypeKind.ULONG, ci.TypeKind.LONGLONG, ci.TypeKind.ULONGLONG, ci.TypeKind.FLOAT,
           ci.TypeKind.DOUBLE, ci.TypeKind.POINTER, ci.TypeKind.DEPENDENT}
FUNCTIONS = {K.FUNCTION_DECL, K.CXX_METHOD, K.CONSTRUCTOR, K.DESTRUCTOR, K.FUNCTION_TEMPLATE,
             K.LAMBDA_EXPR, K.CONVERSION_FUNCTION}
DECLARED = {K.VAR_DECL, K.FIELD_DECL, K.FUNCTION_DECL, K.CXX_METHOD, K.FUNCTION_TEMPLATE,
            K.PARM_DECL}
NAMESPACES = {K.NAMESPACE, K.TRANSLATION_UNIT}
CONDITIONS = {K.IF_STMT, K.WHILE_STMT, K.DO_STMT, K.CONDITIONAL_OPERATOR}
BODIES = {K.COMPOUND_STMT, K.IF_STMT, K.FOR_STMT, K.WHILE_STMT, K.DO_STMT, K.CXX_FOR_RANGE_STMT,
          K.CASE_STMT, K.DEFAULT_STMT}
LEAVES = {K.RETURN_STMT, K.CONTINUE_STMT, K.BREAK_STMT}
NOT_RUN = {K.STATIC_ASSERT, K.ENUM_DECL, K.TYPE_ALIAS_DECL}
OUT = "::kestrin::mutants::"


class Mutants:
    """The mutants of all files, numbered, and the edits that write them."""

    def __init__(self, constants, left_out):
        self.constants = constants  # names that stay constexpr
        self.left_out = left_out    # "file:line" that does not compile otherwise
        self.all = {}               # number -> file, line, code, mutation
        self.times = collections.Counter()
        self.edits = {}             # file -> list of (key, position, length, text)
        self.stripped = set()
        self.next = 1

    def number(self, file, at, whats):
        first = self.next
        line = file.text.count(b"\n", 0, at) + 1
        code = file.lines[line - 1].strip()
        for what in whats:
            alike = (file.name, code, what)
            self.times[alike] += 1
            if self.times[alike] > 1:
                what += f" ({self.times[alike]})"
            self.all[self.next] = {"file": file.name, "line": line, "code": code, "what": what}
            self.next += 1
        return first

    def wrap(self, file, begin, end, before, after):
        """Outer before inner; of equal ones the earlier is outside."""
        edits = self.edits.setdefault(file.name, [])
        seq = len(edits)
        edits.append(((begin, 1, -end, seq), begin, 0, before))
        edits.append(((end, 0, -begin, -seq), end, 0, after))

    def replace(self, file, begin, end, text):
        self.edits.setdefault(file.name, []).append(((begin, 2, 0, 0), begin, end - begin, text))

    def written(self, file):
        text, at, out = file.text, 0, []
        for _, begin, length, new in sorted(self.edits.get(file.name, [])):
            out += [text[at:begin], new.encode()]
            at = begin + length
        return b"".join(out + [text[at:]])


class File:
    def __init__(self, name):
        self.name = name
        self.text = (ROOT / name).read_bytes()
        self.lines = self.text.decode().split("\n")


class Walk:
    """Finds what can be broken in the files asked for, as one source includes them."""

    def __init__(self, mutants, files, done):
        self.mutants, self.files, self.done = mutants, files, done

    def text(self, file, begin, end):
        return file.text[begin:end].decode()

    def new(self, file, kind, begin, end):
        line = file.text.count(b"\n", 0, begin) + 1
        if f"{file.name}:{line}" in self.mutants.left_out:
            return False
        key = (file.name, kind, begin, end)
        known = key in self.done
        self.done.add(key)
        return not known

    def unit(self, cursor):
        for child in cursor.get_children():
            where = child.location.file
            if where is None:
                continue
            name = os.path.relpath(where.name, ROOT)
            if name in self.files:
                self.visit(child, self.files[name], cursor, False)

    def visit(self, cursor, file, parent, now):
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        if cursor.kind in NOT_RUN or file.text[begin:end].endswith(b"= default"):
            return
        if parent.kind in DECLARED and begin < parent.location.offset:
            return  # in a type
        if parent.kind == K.FIELD_DECL and not parent.spelling.endswith("_"):
            return  # of a plain row or point, which whoever makes one fills
        children = list(cursor.get_children())
        if cursor.kind == K.VAR_DECL:
            now = self.variable(cursor, file, parent, begin, now)
        elif cursor.kind in (K.BINARY_OPERATOR, K.CALL_EXPR):
            self.operator(cursor, file, children, begin, end)
        elif cursor.kind == K.COMPOUND_ASSIGNMENT_OPERATOR:
            self.assignment(cursor, file, children)
        elif cursor.kind == K.UNARY_OPERATOR:
            self.unary(cursor, file, children, begin, end)
        elif cursor.kind in (K.INTEGER_LITERAL, K.FLOATING_LITERAL, K.CHARACTER_LITERAL,
                             K.CXX_BOOL_LITERAL_EXPR, K.STRING_LITERAL):
            self.constant(cursor, file, begin, end, now)
        elif cursor.kind == K.DECL_REF_EXPR:
            self.enumerator(cursor, file, begin, end)
        if cursor.kind in CONDITIONS and children:
            self.condition(cursor, file, children)
        if cursor.kind in BODIES:
            for child in children:
                self.statement(child, file, cursor, parent, children)
        for child in children:
            self.visit(child, file, cursor, now)

    def variable(self, cursor, file, parent, begin, now):
        """A constexpr one becomes a variable, so that its constants can be others."""
        found = re.search(r"\bconstexpr\b", self.text(file, begin, cursor.location.offset))
        if not found:
            return now or parent.kind in NAMESPACES
        if cursor.spelling in self.mutants.constants:
            return now
        if self.new(file, "variable", begin, begin):
            at = begin + found.start()
            inside = parent.kind in (K.CLASS_DECL, K.STRUCT_DECL, K.CLASS_TEMPLATE)
            self.mutants.replace(file, at, at + 9, "inline" if inside else "")
            self.mutants.stripped.add(cursor.spelling)
        return True

    def operator(self, cursor, file, children, begin, end):
        if cursor.kind == K.BINARY_OPERATOR:
            if len(children) != 2:
                return
            left, right = (c.extent for c in children)
            at, to = left.end.offset, right.start.offset
            while at < to and file.text[at:at + 1].isspace():
                at += 1
            to = at + len(self.text(file, at, to).split("/")[0].rstrip() or "/")
        else:
            parts = sorted((c.extent for c in children), key=lambda e: e.start.offset)
            if len(parts) != 3:
                return self.smallest(cursor, file, begin)
            left, middle, right = parts
            at, to = middle.start.offset, middle.end.offset
            if not left.end.offset <= at < to <= right.start.offset:
                return self.smallest(cursor, file, begin)
        sign = self.text(file, at, to)
        lbegin, lend = left.start.offset, left.end.offset
        rbegin, rend = right.start.offset, right.end.offset
        if sign in ("&&", "||"):
            if not self.new(file, sign, begin, end):
                return
            whole = self.short(file, lbegin, rend)
            whats = [f"{whole}: {sign} to {'||' if sign == '&&' else '&&'}",
                     f"{whole}: without {self.short(file, lbegin, lend)}",
                     f"{whole}: without {self.short(file, rbegin, rend)}"]
            n = self.mutants.number(file, at, whats)
            on = [f"{OUT}On({n + i})" for i in range(3)]
            is_and = sign == "&&"
            drop = "({} || bool(" if is_and else "(!{} && bool("
            self.mutants.wrap(file, lbegin, rend, "((", ")")
            self.mutants.wrap(file, lbegin, lend, drop.format(on[1]), "))")
            self.mutants.replace(file, at, to, f"{'==' if is_and else '!='} {on[0]}) ? "
                                 f"{'' if is_and else '!'}{on[0]} : ")
            self.mutants.wrap(file, rbegin, rend, drop.format(on[2]), "))")
            return
        if sign in COMPARISONS:
            name, *others = COMPARISONS[sign]
        elif sign in OPERATIONS:
            name, *others = OPERATIONS[sign]
            numbers = cursor.type.get_canonical().kind in NUMBERS
            if sign not in ("==", "!=") and not numbers:
                return
        else:
            return
        if self.new(file, sign, lbegin, rend):
            what = self.short(file, lbegin, rend)
            n = self.mutants.number(file, at, [f"{what}: {sign} to {o}" for o in others])
            self.mutants.wrap(file, lbegin, rend, f"{OUT}{name}({n}, ", ")")
            self.mutants.wrap(file, lbegin, lend, "(", ")")
            self.mutants.replace(file, at, to, ", ")
            self.mutants.wrap(file, rbegin, rend, "(", ")")

    def smallest(self, cursor, file, begin):
        found = re.match(r"std::(min|max)\(", file.text[begin:begin + 9].decode())
        if found and self.new(file, "call", begin, begin):
            what = found.group(1)
            n = self.mutants.number(file, begin, [f"{what} to {'max' if what == 'min' else 'min'}"])
            self.mutants.replace(file, begin, begin + 8, f"{OUT}{what.title()}{{{n}}}")

    def assignment(self, cursor, file, children):
        left, right = (c.extent for c in children)
        sign = self.text(file, left.end.offset, right.start.offset).strip()
        begin, end = right.start.offset, right.end.offset
        if (sign in ("+=", "-=") and cursor.type.get_canonical().kind in NUMBERS
                and self.new(file, sign, begin, end)):
            what = self.short(file, left.start.offset, end)
            n = self.mutants.number(file, begin, [f"{what}: {sign} to {'-=' if sign[0] == '+' else '+='}"])
            self.mutants.wrap(file, begin, end, f"{OUT}Negative({n}, ", ")")

    def unary(self, cursor, file, children, begin, end):
        inner = children[0].extent
        ibegin, iend = inner.start.offset, inner.end.offset
        sign = self.text(file, begin, ibegin).strip()
        after = self.text(file, iend, end).strip()
        numbers = cursor.type.get_canonical().kind in NUMBERS
        what = self.short(file, begin, end)
        if sign == "!" and self.new(file, "!", begin, end):
            n = self.mutants.number(file, begin, [f"{what}: without !"])
            self.mutants.wrap(file, begin, end, f"{OUT}Not({n}, bool(", "))")
        elif sign == "-" and numbers and self.new(file, "-", begin, end):
            n = self.mutants.number(file, begin, [f"{what}: without -"])
            self.mutants.wrap(file, begin, end, f"{OUT}Negative({n}, ", ")")
        elif (sign in STEPS or after in STEPS) and numbers and self.new(file, "++", begin, end):
            name, other = STEPS[sign or after]
            n = self.mutants.number(file, begin, [f"{what}: {sign or after} to {other}"])
            self.mutants.wrap(file, begin, end, f"{OUT}{name}{'After' if after else ''}({n}, ", ")")
            at = begin if sign else iend
            self.mutants.replace(file, at, at + 2, "")

    def constant(self, cursor, file, begin, end, now):
        text = self.text(file, begin, end)
        suffix = "Now" if now else ""
        if cursor.kind == K.STRING_LITERAL:
            if text[:1] == '"' and text != '""' and self.new(file, "text", begin, end):
                n = self.mutants.number(file, begin, [f"{self.short(file, begin, end)}: another text"])
                self.mutants.wrap(file, begin, end, f"{OUT}Text{suffix}<{n}>(", ")")
            return
        if not (text[:1].isdigit() or text[:1] == "'" or text in ("true", "false")):
            return
        if not self.new(file, "constant", begin, end):
            return
        if cursor.kind == K.CXX_BOOL_LITERAL_EXPR:
            whats = [f"{text} to {'false' if text == 'true' else 'true'}"]
        elif cursor.kind == K.FLOATING_LITERAL:
            whats = [f"{text} to a thousandth more"]
        else:
            whats = [f"{text} to one more", f"{text} to one less"]
        n = self.mutants.number(file, begin, whats)
        self.mutants.wrap(file, begin, end, f"{OUT}Constant{suffix}({n}, ", ")")

    def enumerator(self, cursor, file, begin, end):
        to = cursor.referenced
        if to is None or to.kind != K.ENUM_CONSTANT_DECL:
            return
        where = to.location.file
        if where is None or not where.name.startswith(str(ROOT)):
            return
        names = [c.spelling for c in to.semantic_parent.get_children()]
        text = self.text(file, begin, end)
        if len(names) < 2 or not text.endswith(to.spelling):
            return
        if self.new(file, "enumerator", begin, end):
            other = names[(names.index(to.spelling) + 1) % len(names)]
            other = text[:len(text) - len(to.spelling)] + other
            n = self.mutants.number(file, begin, [f"{text} to {other}"])
            self.mutants.replace(file, begin, end, f"({OUT}On({n}) ? {other} : {text})")

    def condition(self, cursor, file, children):
        """A lone one, which is no operator's result, is negated."""
        begin = cursor.extent.start.offset
        if cursor.kind == K.DO_STMT:
            found = children[-1]
        elif cursor.kind == K.CONDITIONAL_OPERATOR:
            found = children[0]
        else:
            found = children[0]
            if len(children) > 1 and children[1].kind == K.VAR_DECL or ";" in self.text(
                    file, begin, children[1].extent.start.offset if len(children) > 1 else begin):
                return
        fbegin, fend = found.extent.start.offset, found.extent.end.offset
        text = self.text(file, fbegin, fend)
        if not found.kind.is_expression() or re.search(r"[<>=!&|]", text.split("[&")[0]):
            return
        if "constexpr" not in self.text(file, begin, fbegin) and self.new(file, "if", fbegin, fend):
            n = self.mutants.number(file, fbegin, [f"{self.short(file, fbegin, fend)}: negated"])
            self.mutants.wrap(file, fbegin, fend, f"{OUT}Not({n}, bool(", "))")

    def statement(self, cursor, file, parent, grandparent, siblings):
        if not (cursor.kind.is_expression() or cursor.kind in LEAVES):
            return
        begin, end = cursor.extent.start.offset, cursor.extent.end.offset
        rest = re.match(rb"\s*;", file.text[end:])
        if self.text(file, begin, begin + 7) == "assert(":
            return
        if not rest or parent.kind in (K.FOR_STMT, K.CXX_FOR_RANGE_STMT) and cursor != siblings[-1]:
            return
        if parent.kind == K.DO_STMT:
            return
        last = parent.kind == K.COMPOUND_STMT and cursor == siblings[-1]
        if (cursor.kind == K.RETURN_STMT and last and grandparent.kind in FUNCTIONS
                and list(cursor.get_children())):
            return
        end += rest.end()
        if self.new(file, "statement", begin, end):
            n = self.mutants.number(file, begin, [f"without {self.short(file, begin, end)}"])
            self.mutants.wrap(file, begin, end, f"{{ if (!{OUT}On({n})) ", " }")

    def short(self, file, begin, end):
        text = " ".join(self.text(file, begin, end).split())
        return text if len(text) <= 60 else text[:57] + "..."
