"""Reads C++ sources just well enough for the house rules: what is code, what is a string,
where a function begins and ends. No preprocessing; every byte keeps its line and column."""

import re
from dataclasses import dataclass, field

TOKENS = re.compile(
    r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<raw>(?:u8|[uUL])?R"(?P<mark>[^()\s\\]{0,16})\((?P<rawtext>.*?)\)(?P=mark)")
  | (?P<string>(?:u8|[uUL])?"(?P<text>(?:[^"\\\n]|\\.)*)")
  | (?P<number>\b\d[\w'.]*)
  | (?P<letter>'(?:[^'\\\n]|\\.)+')
    """,
    re.DOTALL | re.VERBOSE)


@dataclass
class CppText:
    code: str  # the source with comments and the insides of strings and letters blanked
    strings: list = field(default_factory=list)  # (line, text between the quotes)


def blanked(text):
    return re.sub(r"[^\n]", " ", text)


def read_cpp(source):
    found = CppText("")
    parts, end = [], 0
    for token in TOKENS.finditer(source):
        parts.append(source[end:token.start()])
        end = token.end()
        whole = token[0]
        if token["number"]:
            parts.append(whole)
            continue
        if token["comment"]:
            parts.append(blanked(whole))
            continue
        quote = "'" if token["letter"] else '"'
        opening = whole.index(quote) + 1
        parts.append(whole[:opening] + blanked(whole[opening:-1]) + quote)
        if not token["letter"] and not is_include(source, token.start()):
            line = source.count("\n", 0, token.start()) + 1
            found.strings.append((line, token["rawtext"] if token["raw"] else token["text"]))
    found.code = "".join(parts) + source[end:]
    return found


def is_include(source, position):
    line_start = source.rfind("\n", 0, position) + 1
    return source[line_start:position].lstrip().startswith("#include")


def functions(code):
    """Yields (first line, last line) of every function body that is not inside another."""
    for head, _, closing in function_blocks(code):
        yield line_of(code, head), line_of(code, closing)


def without_directives(code):
    return re.sub(
        r"^[ \t]*#(?:[^\n\\]|\\.|\\\n)*", lambda match: blanked(match[0]), code, flags=re.MULTILINE)


def function_blocks(code):
    """Yields where each function that is not inside another begins, and its two braces."""
    scopes = []  # for each open brace what kind_of_block says, where its head begins, the brace
    head_start = 0
    kind = None
    depth_in_function = 0
    text = without_directives(code)
    for match in re.finditer(r"[{};]", text):
        mark, position = match[0], match.start()
        if depth_in_function:
            depth_in_function += {"{": 1, "}": -1}.get(mark, 0)
            if not depth_in_function:
                _, head, opening = scopes.pop()
                yield head, opening, position
                head_start = position + 1
            continue
        if mark == "{":
            head = text[head_start:position]
            kind = kind_of_block(head)
            scopes.append((kind, head_start + len(head) - len(head.lstrip()), position))
            if kind == "function":
                depth_in_function = 1
        elif mark == "}" and scopes:
            kind = scopes.pop()[0]
        if kind != "initialiser":
            head_start = position + 1
        if mark != "{":
            kind = None


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def kind_of_block(head):
    """What the brace after this text opens: a scope, a function, a member's initialiser in a
    constructor (its head goes on after it) or something other, such as a list of values."""
    if re.search(r"\b(namespace|extern)\b", head):
        return "scope"
    flat = re.sub(r"\boperator\s*[^\w\s(]+|\boperator\s*\(\s*\)", "operator_", head)
    flat = re.sub(r"template\s*<[^{}]*?>\s*(?=\w)", "", flat)
    if re.search(r"\](\s*\([^()]*\))?[^=,;]*$", flat) and "=" in flat:
        return "function"  # a named lambda
    if re.search(r"\b(class|struct|union|enum)\b[^()]*$", flat):
        return "scope"
    while re.search(r"\([^()]*\)", flat):
        flat = re.sub(r"\([^()]*\)", "<>", flat)
    if re.search(r">\s*(noexcept\s*)?:(?!:)[^{]*[\w]\s*$", flat):
        return "initialiser"
    if "=" in flat or "<>" not in flat:
        return "other"
    return "function"
