"""Makes mutants: small changes of a C++ source that a good test must notice. It works on the
text alone and leans on the layout of clang-format: an operator with two operands stands
between blanks, a pointer's star and a template's bracket do not."""

import re
from dataclasses import dataclass

from cpp_text import blanked, function_blocks, line_of, read_cpp, without_directives

OPERATORS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
             "&&": "||", "||": "&&", "+": "-", "-": "+", "*": "/"}
OPERATOR = re.compile(r"(?<=\s)(<=|>=|==|!=|&&|\|\||[-<>+*])(?=\s)")
INTEGER = re.compile(r"(?<![\w.'])(0[xX][\da-fA-F']+|\d[\d']*)([uUlLzZ]*)(?![\w.'])")
STATEMENT_KEYWORDS = re.compile(
    r"(return|co_return|throw|if|else|for|while|do|switch|case|default|break|continue|goto|using"
    r"|typedef|delete|try|catch|static_assert|public|private|protected)\b")
CALL = re.compile(
    r"(\*|\+\+|--)?[\w:.>\[\]()-]+?(\(\)(\(\)|\[\])*|\+\+|--)|(\+\+|--)[\w:.>\[\]()-]+")
ASSIGNMENT = re.compile(r"\*?[\w:.>\[\]()-]+ (?:[-+*/%|&^]|<<|>>)?= .*", re.DOTALL)
DECLARATION = re.compile(r"\s*(const )?[\w:<>, ]+[\s&*]+\w+ = ", re.DOTALL)
DECLARED_ONLY = re.compile(r"= (?:delete|default)$")
OF_NO_EFFECT = re.compile(r"[.>](reserve|shrink_to_fit)\(")
# What a value made of nothing is already.
NOT_FOR_DEFAULTS = {"true", "{}", "false", "0", "nullptr", "std::nullopt", '""', "'\\0'",
                    "Status::done()", "UntoldOutcome::done()"}
CONTROL_HEAD = re.compile(r"\b(?:if|for|while)\s*(?:constexpr\s*)?\(")


@dataclass(frozen=True)
class Change:
    """Some bytes of a source and what stands there instead."""
    start: int
    end: int
    text: str


@dataclass(frozen=True)
class Mutant:
    path: str
    line: int
    change: Change
    before: str  # the lines it touches, in one
    after: str

    def title(self):
        """The mutant without its line, as tools/mutate_allowed.txt has it."""
        return f"{self.path}: {self.before} -> {self.after}"

    def __str__(self):
        return f"{self.path}:{self.line}: {self.before} -> {self.after}"


@dataclass(frozen=True)
class Function:
    """A function's body: where its braces are."""
    opening: int
    closing: int

    def holds(self, change):
        return self.opening < change.start and change.end <= self.closing


def functions_of_source(source):
    """The bodies that can be had in several variants. What must be evaluated by the compiler
    cannot, and a brace without a statement is no body."""
    code = read_cpp(source).code
    for head, opening, closing in function_blocks(code):
        text = code[head:opening]
        ends_well = code[opening + 1:closing].rstrip()[-1:] in (";", "}")
        table_made_by_compiler = re.match(r"[^()]*\bconstexpr\b[^()]*=", text)
        if ends_well and "consteval" not in text and not table_made_by_compiler:
            yield Function(opening, closing)


def mutants_of(path, source, first_values=frozenset()):
    """Every mutant of a file, in the order of the file. A return of a name in `first_values`
    (the first ones of enumerations) is a return of the default value already."""
    code = read_cpp(source).code
    plain = only_code(code)
    changes = {change for maker in MAKERS for change in maker(plain)}
    changes |= set(default_returns(plain, first_values))
    for change in sorted(changes, key=lambda one: (one.start, one.end, one.text)):
        before, after = touched_lines(source, change)
        if before != after:
            line = line_of(source, change.start)
            yield Mutant(path, line, change, before, after)


def touched_lines(source, change):
    start = source.rfind("\n", 0, change.start) + 1
    end = source.find("\n", change.end)
    end = len(source) if end < 0 else end
    after = source[start:change.start] + change.text + source[change.end:end]
    return " ".join(source[start:end].split()), " ".join(after.split())


def only_code(code):
    """The code without what has no mutants: directives, attributes, template parameters,
    the names of operators, what the compiler alone looks at."""
    text = without_directives(code)
    for opening in (r"\bstatic_assert\s*\(", r"\bif\s+constexpr\s*\(", r"\bnoexcept\s*\(",
                    r"\balignas\s*\(", r"\bdecltype\s*\(", r"\bsizeof\s*\("):
        text = without_brackets(text, opening)
    text = without_brackets(text, r"\[(?=\[)")
    text = without_brackets(text, r"\btemplate\s*<")
    return re.sub(r"\boperator\s*(?:\(\)|\[\]|[^\w\s(]+)", lambda match: blanked(match[0]), text)


def without_brackets(text, opening):
    while match := re.search(opening, text):
        end = closing_bracket(text, match.end() - 1)
        text = text[:match.start()] + blanked(text[match.start():end + 1]) + text[end + 1:]
    return text


def closing_bracket(text, opening):
    """Where the bracket that opens here is closed; the end of the text when nowhere."""
    pairs = "<>" if text[opening] == "<" else "()[]{}"
    depth = 0
    for position in range(opening, len(text)):
        kind = pairs.find(text[position])
        if kind >= 0:
            depth += 1 if kind % 2 == 0 else -1
            if depth == 0:
                return position
    return len(text) - 1


def flat(text):
    """The text with nothing between its brackets, so that what is left is on one level."""
    text = re.sub(r"(?<=\w)<[^<>;(){}&|]*>", lambda match: "_" * len(match[0]), text)
    depth, parts = 0, []
    for mark in text:
        depth -= mark in ")]}"
        parts.append(mark if depth == 0 or mark == "\n" else " ")
        depth += mark in "([{"
    return "".join(parts)


def without_blanks_in_brackets(text):
    return re.sub(r"([(\[{])\s+([)\]}])", r"\1\2", text)


def operators(code):
    for match in OPERATOR.finditer(code):
        before = code[:match.start()].rstrip()[-1:]
        if re.match(r"[\w)\]}\"']", before):
            yield Change(match.start(), match.end(), OPERATORS[match[1]])


def negations(code):
    for match in re.finditer(r"!(?=[\w(:*])", code):
        yield Change(match.start(), match.end(), "")


def truths(code):
    for match in re.finditer(r"\b(?:true|false)\b", code):
        yield Change(match.start(), match.end(), "false" if match[0] == "true" else "true")


def integers(code):
    while True:  # what stands between a template's brackets is part of a type
        outer = re.sub(r"(?<=\w)<[^<>;(){}&|]*>", lambda match: blanked(match[0]), code)
        if outer == code:
            break
        code = outer
    for match in INTEGER.finditer(code):
        line = code[code.rfind("\n", 0, match.start()) + 1:match.start()]
        if OF_NO_EFFECT.search(line) or re.search(r"\)[\w ]*= $", line) and match[0] == "0":
            continue  # '= 0' after a declaration makes a method abstract
        digits = match[1].replace("'", "")
        octal = len(digits) > 1 and digits[0] == "0" and digits[1] not in "xX"
        number = int(digits, 8 if octal else 0)
        yield Change(match.start(), match.end(), f"{number + 1}{match[2]}")


def forced_conditions(code):
    for match in re.finditer(r"\bif\s*\(", code):
        opening = match.end() - 1
        closing = closing_bracket(code, opening)
        inside = code[opening + 1:closing]
        semicolon = flat(inside).rfind(";")
        condition = inside[semicolon + 1:]
        is_declaration = DECLARATION.match(flat(condition))
        if condition.strip() in ("true", "false") or is_declaration and semicolon >= 0:
            continue
        start = opening + 1 + semicolon + 1
        start += len(condition) - len(condition.lstrip())
        for value in ("true", "false"):
            if is_declaration:
                yield Change(closing, closing, f"; {value}")
            else:
                yield Change(start, closing, value)


def statement_starts(code):
    for match in re.finditer(r"[;{}]|\belse\b|\b(?:default|case\b[^:;{}]*(?:::[^:;{}]*)*)\s*:(?!:)",
                             code):
        yield match.end()
    for match in CONTROL_HEAD.finditer(code):
        yield closing_bracket(code, match.end() - 1) + 1


def statement_end(code, start):
    """Where the semicolon of the statement stands; None when a bracket ends it before."""
    depth = 0
    for position in range(start, len(code)):
        mark = code[position]
        depth += (mark in "([{") - (mark in ")]}")
        if depth < 0:
            return None
        if mark == ";" and depth == 0:
            return position
    return None


def dropped_statements(code):
    for after in set(statement_starts(code)):
        rest = code[after:]
        start = after + len(rest) - len(rest.lstrip())
        if STATEMENT_KEYWORDS.match(code, start) or not re.match(r"[\w:*(+-]", code[start:]):
            continue
        end = statement_end(code, start)
        if end is None or OF_NO_EFFECT.search(code[start:end]):
            continue
        if DECLARED_ONLY.search(code[start:end]):
            continue
        statement = flat(code[start:end]).rstrip()
        statement = without_blanks_in_brackets(re.sub(r"\s+(?=\.|->)", "", statement))
        if CALL.fullmatch(statement) or ASSIGNMENT.fullmatch(statement):
            yield Change(start, end, "")


def dropped_jumps(code):
    for match in re.finditer(r"\b(break|continue)(?=\s*;)", code):
        rest = code[match.end():].lstrip("; \n")
        if match[1] == "break" and rest[:1] == "}" and is_in_switch(code, match.start()):
            continue  # the last one of a switch
        if match[1] == "break" or rest[:1] != "}" or not ends_a_loop(code, match.start()):
            yield Change(match.start(), match.end(), "")


def opening_brace(code, position):
    depth = 0
    for place in range(position - 1, -1, -1):
        depth += (code[place] == "}") - (code[place] == "{")
        if depth < 0:
            return place
    return 0


def head_before(code, opening):
    """The word before the brackets before a brace: if, for, while, switch or a name."""
    before = code[:opening].rstrip()
    if not before.endswith(")"):
        return ""
    depth = 0
    for place in range(len(before) - 1, -1, -1):
        depth += (before[place] == ")") - (before[place] == "(")
        if depth == 0:
            return "".join(re.findall(r"\w+\s*$", before[:place])).strip()
    return ""


def is_in_switch(code, position):
    return head_before(code, opening_brace(code, position)) == "switch"


def ends_a_loop(code, position):
    return head_before(code, opening_brace(code, position)) in ("for", "while")


def default_returns(code, first_values):
    for match in re.finditer(r"\breturn\b(?=[^;])", code):
        end = statement_end(code, match.end())
        if end is None:
            continue
        value = code[match.end():end].strip()
        last_names = re.search(r"(\w+::)?\w+$", value)
        is_first = last_names and last_names[0] in first_values and re.fullmatch(r"[\w:]+", value)
        if value and value not in NOT_FOR_DEFAULTS and not is_first:
            yield Change(match.end(), end, " {}")


MAKERS = (operators, negations, truths, integers, forced_conditions, dropped_statements,
          dropped_jumps)


def first_values_of(source):
    """The first value of each enumeration as 'Enumeration::value': the default value of it."""
    code = read_cpp(source).code
    return {f"{match[1]}::{match[2]}" for match in re.finditer(
        r"\benum\s+(?:class\s+|struct\s+)?(\w+)[^{};]*\{\s*(\w+)\s*(?:=\s*0\s*)?(?=[,}])", code)}
