"""The house rules. Each takes a Source and yields (line, message); ALL_RULES lists them."""

import re
from functools import cached_property

from cpp_text import functions, read_cpp
from house import HOUSE

COLUMNS, FUNCTION_LINES = 100, 70
SOURCE_LINES, HEADER_LINES, TEST_LINES = 500, 200, 800

SCRIPT_NAMES = ("run", "check", ".ci/run")


class Source:
    """A file of the project: its path below the top, and its text."""

    def __init__(self, path, text):
        self.path, self.text = path, text
        self.lines = text.split("\n")
        self.is_header = path.endswith(".h")
        self.is_cpp = self.is_header or path.endswith(".cpp")
        self.is_test = path.startswith("tests/")
        self.is_script = (path in SCRIPT_NAMES or path.endswith((".py", ".sh", ".cmake"))
                          or path.endswith("CMakeLists.txt") or text.startswith("#!"))

    @cached_property
    def cpp(self):
        return read_cpp(self.text)

    def code_matches(self, pattern):
        for number, line in enumerate(self.cpp.code.split("\n"), 1):
            for match in re.finditer(pattern, line):
                yield number, match[0]

    def string_matches(self, pattern):
        for number, text in self.cpp.strings:
            match = re.search(pattern, text)
            if match:
                yield number, match[0]


def is_without_qt(path):
    if path.endswith("_window_bench.cpp"):
        return False
    folder = HOUSE.folder_of(path)
    if folder:
        return not HOUSE.has_qt(folder)
    return path.startswith(("tests/rules/", "tests/data/", "bench/", "fuzz/"))


def may_hold_sql(path):
    return (path.startswith(("data/", "tests/", "bench/", "fuzz/"))
            or re.search(r"_sql\.(h|cpp)$", path))


def line_length(source):
    if not (source.is_cpp or source.is_script):
        return
    for number, line in enumerate(source.lines, 1):
        if len(line) > COLUMNS:
            yield number, f"{len(line)} columns; a line has at most {COLUMNS}"


def function_length(source):
    if not source.is_cpp:
        return
    for first, last in functions(source.cpp.code):
        if last - first + 1 > FUNCTION_LINES:
            yield first, (f"a function of {last - first + 1} lines; "
                          f"it has at most {FUNCTION_LINES}")


def file_length(source):
    if not source.is_cpp:
        return
    limit = TEST_LINES if source.is_test else HEADER_LINES if source.is_header else SOURCE_LINES
    count = len(source.text.splitlines())
    if count > limit:
        yield 1, f"{count} lines; a file of its kind has at most {limit}: cut it by what it does"


def white_space(source):
    for number, line in enumerate(source.lines, 1):
        if "\t" in line and not source.path.endswith(".csv"):
            yield number, "a tab; indent with blanks"
        if line != line.rstrip():
            yield number, "blanks at the end of the line"
    if source.text and not source.text.endswith("\n"):
        yield len(source.lines), "no line end at the end of the file"


def pragma_once(source):
    if source.is_header and "#pragma once" not in source.lines[:20]:
        yield 1, "a header without #pragma once"


def message_boxes(source):
    if not source.is_cpp or source.is_test:
        return
    if source.path.startswith("screen/message_boxes."):
        return
    for number, _ in source.code_matches(r"\bQMessageBox\b"):
        yield number, "QMessageBox outside screen/message_boxes; talk through IMessages"


SQL = re.compile(
    r"\bselect\b.+\bfrom\b|\binsert\s+(into\s+)?\w+\s*(\(|values)|\bupdate\s+(?!the\b)\S+\s+set\b"
    r"|\bdelete\s+from\b|^\s*delete\s+\w+\s*(where\b|$)"
    r"|\b(create|drop|alter)\s+(table|index|schema)\b"
    r"|\b(begin|commit|rollback)\s+transaction\b|\b(order|group)\s+by\b"
    r"|\b\w+\s*(=|<>|<=|>=|<|>|\blike\b|\bin\b)\s*[('\s]*%(d|lf|s)"
    r"|^\s*(l|b|by|s|m|d)(?-i:[A-Z])\w*\s*(=|<>|<=|>=|<|>)\s*['0-9]", re.IGNORECASE)


def sql_at_its_place(source):
    if not source.is_cpp or may_hold_sql(source.path):
        return
    for number, text in source.string_matches(SQL):
        yield number, f"SQL ('{text.strip()}') outside data/ and the folder's _sql file"


def locale_independence(source):
    if not source.is_cpp or source.path.startswith(("tests/", "bench/", "fuzz/")):
        return
    for number, name in source.code_matches(
            r"\bsetlocale\b|\bstd::locale\b|\.imbue\b|\b(?<!fmt::)v?s?n?printf\b(?=\s*\()"
            r"|\bstrtod\b|\batof\b|\bstod\b|\bstof\b|\bstrtof\b"):
        yield number, f"{name} depends on the locale; use fmt::format or std::from_chars"


def checked_texts(source):
    if not source.is_cpp:
        return
    for number, name in source.code_matches(r"\bfmt::(?:runtime|vformat)\b"):
        yield number, (f"{name}: give the text itself or a fmt::format_string, so that the "
                       "compiler holds it against its values")


def qt_at_its_place(source):
    if not source.is_cpp or not is_without_qt(source.path):
        return
    for number, line in enumerate(source.lines, 1):
        if re.match(r"\s*#\s*include\s*<(Q[A-Z]|Qt)", line):
            yield number, "Qt in a part that has none: data, rules, services, their tests"


CHINESE = re.compile("[\u2e80-\u9fff\uff00-\uffef]")


TEXTLESS = ("base/values/", "base/system/", "data/")


def no_texts_in_data(source):
    if not source.is_cpp or not source.path.startswith(TEXTLESS):
        return
    for number, text in source.string_matches(CHINESE):
        yield number, f"a text for the operator ('{text}') in a low folder; return a status instead"


# Where Chinese is what the program works on, not what it says: readings, punctuation, typed
# characters, names of fonts, contents of books; and the name of the product.
CHINESE_AS_DATA = ("accounts/codes/mnemonic.cpp", "base/messages/messages.h",
                   "books/demo/demo_data.", "opening/editing/amount_text.cpp",
                   "report/engine/cell_lines.cpp", "report/output/print_templates.cpp",
                   "screen/fonts.cpp", "session/rights_list.cpp")


def texts_at_their_place(source):
    if not source.is_cpp or source.path.startswith(("tests/", "bench/", "fuzz/") + TEXTLESS):
        return
    if re.search(r"_texts\.(h|cpp)$", source.path) or source.path.startswith(CHINESE_AS_DATA):
        return
    for number, text in source.string_matches(CHINESE):
        yield number, f"a text for the operator ('{text}') outside the folder's _texts file"


def arrows_run_down(source):
    own = source.is_cpp and HOUSE.folder_of(source.path)
    if not own:
        return
    for number, line in enumerate(source.lines, 1):
        match = re.match(r'\s*#\s*include\s*"([^"]+)"', line)
        fault = match and HOUSE.fault_of_arrow(own, match[1])
        if fault:
            yield number, fault


OUTSIDE_THE_FOLDERS = ("tests/", "bench/", "fuzz/", "program/", "cmake/")


def lies_in_a_folder(source):
    if source.is_cpp and not source.path.startswith(OUTSIDE_THE_FOLDERS):
        if not HOUSE.folder_of(source.path):
            yield 1, "lies in no folder of cmake/folders.txt"


def left_over_marks(source):
    for number, line in enumerate(source.lines, 1):
        match = re.search(r"\b(TO[D]O|FIX[M]E|X[X]X)\b", line)
        if match:
            yield number, f"{match[0]}: do it, or write it into an issue"


FOREIGN_WORDS = re.compile(
    r"\b[Pp]arts? [1-9]\.[0-9]|\b[Ss]pecifi[c]ation|\bspe[c]\.md|\bthe spe[c]\b|规[格]说明|需[求]文档")


def own_words(source):
    for number, line in enumerate(source.lines, 1):
        match = FOREIGN_WORDS.search(line)
        if match:
            yield number, f"'{match[0]}': say what holds and why, in this project's own words"


MACHINE_PATHS = re.compile(r"(?:^|[^\w./-])(/(?:wor[k]|far[m]|roo[t]|hom[e]/[a-z]+)/)")


def no_machine_paths(source):
    for number, line in enumerate(source.lines, 1):
        match = MACHINE_PATHS.search(line)
        if match:
            yield number, f"'{match[1]}' is a path of one machine"


ALL_RULES = (line_length, function_length, file_length, white_space, pragma_once, message_boxes,
             sql_at_its_place, locale_independence, checked_texts, qt_at_its_place,
             no_texts_in_data, texts_at_their_place, arrows_run_down, lies_in_a_folder,
             left_over_marks, own_words, no_machine_paths)


def faults(source):
    for rule in ALL_RULES:
        for line, message in rule(source):
            yield line, rule.__name__, message
