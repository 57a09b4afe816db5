"""Small made-up files, each with the faults the house rules must find in it, and no others."""

from tidy_rules import Source, faults


def lines(count):
    return "int a;\n" * count


def function_of(count):
    return "int f() {\n" + "    g();\n" * (count - 2) + "}\n"


HEADER = "#pragma once\n"

# (what it shows, path, text, the rules that fire with their lines)
SAMPLES = [
    ("a line of 100 columns passes", "data/sql/a.cpp", "//" + "x" * 98 + "\n", []),
    ("a line of 101 columns is too long", "data/sql/a.cpp", "\n//" + "x" * 99 + "\n",
     [("line_length", 2)]),
    ("columns are counted in characters, not bytes", "data/sql/a.cpp", "//" + "科" * 98 + "\n", []),
    ("a long line of prose is no fault", "README.md", "x" * 300 + "\n", []),
    ("a long line in a script is one", "tools/a.py", "#" * 101 + "\n", [("line_length", 1)]),

    ("a function of 70 lines passes", "data/sql/a.cpp", function_of(70), []),
    ("a function of 71 lines is too long", "data/sql/a.cpp", "\n" + function_of(71),
     [("function_length", 2)]),
    ("a method inside a class is measured", "data/sql/a.h",
     HEADER + "namespace n {\nclass C : public B {\n" + function_of(71) + "};\n}\n",
     [("function_length", 4)]),
    ("a test is a function", "tests/rules/a.cpp",
     "TEST(Topic, Sentence) {\n" + "    f();\n" * 70 + "}\n", [("function_length", 1)]),
    ("a constructor with braced initialisers is measured", "data/sql/a.cpp",
     "C::C(int a)\n    : m_a{a},\n      m_b(a) {\n" + "    f();\n" * 70 + "}\n",
     [("function_length", 1)]),
    ("a long table of values is no function", "data/sql/a.cpp",
     "const int a[] = {\n" + "    1,\n" * 80 + "};\n", []),
    ("a long class is no function", "data/sql/a.h",
     HEADER + "class C {\n" + "    void f();\n" * 80 + "};\n", []),
    ("a long enum class is no function", "data/sql/a.h",
     HEADER + "enum class E : int {\n" + "    a,\n" * 80 + "};\n", []),
    ("a comparison operator is a function", "data/sql/a.cpp",
     "bool operator==(const C& a, const C& b) {\n" + "    f();\n" * 70 + "}\n",
     [("function_length", 1)]),
    ("a lambda at file level is a function", "data/sql/a.cpp",
     "const auto f = [](int a) {\n" + "    g();\n" * 70 + "};\n", [("function_length", 1)]),
    ("braces in strings, letters and comments do not count", "data/sql/a.cpp",
     "int f() {\n    g(\"}\", '}', R\"({)\");  // }\n    int n = 1'000;\n}\n"
     + function_of(71), [("function_length", 5)]),

    ("a source of 500 lines passes", "data/sql/a.cpp", lines(500), []),
    ("a source of 501 lines is too long", "data/sql/a.cpp", lines(501), [("file_length", 1)]),
    ("a header of 200 lines passes", "data/sql/a.h", HEADER + lines(199), []),
    ("a header of 201 lines is too long", "data/sql/a.h", HEADER + lines(200),
     [("file_length", 1)]),
    ("a test file of 800 lines passes", "tests/rules/a.cpp", lines(800), []),
    ("a test file of 801 lines is too long", "tests/rules/a.cpp", lines(801),
     [("file_length", 1)]),

    ("a tab is found", "data/sql/a.cpp", "int a;\n\tint b;\n", [("white_space", 2)]),
    ("a trailing blank is found", "a.md", "text \n", [("white_space", 1)]),
    ("a missing last line end is found", "a.md", "text", [("white_space", 1)]),
    ("a header without its guard is found", "data/sql/a.h", "int a();\n", [("pragma_once", 1)]),

    ("a message box in a window is found", "settle/window/a.cpp",
     "void f() {\n    QMessageBox::warning(this, a, b);\n}\n", [("message_boxes", 2)]),
    ("the message seam may use message boxes", "screen/message_boxes.cpp",
     "QMessageBox box;\n", []),
    ("a message box in a comment is none", "shell/a.cpp", "// QMessageBox\n", []),
    ("a test may look for message boxes", "tests/window/a.cpp", "QMessageBox* box;\n", []),

    ("a select in a window is found", "settle/window/a.cpp",
     'f("SELECT lId FROM Settle");\n', [("sql_at_its_place", 1)]),
    ("an insert without INTO is found", "settle/service.cpp",
     'f("Insert AccSum Values( %d )");\n', [("sql_at_its_place", 1)]),
    ("an update is found", "session/a.cpp", 'f("update Code Set bEnd = 1");\n',
     [("sql_at_its_place", 1)]),
    ("a delete without FROM is found", "opening/sheet/a.cpp", 'f("DELETE AccSum");\n',
     [("sql_at_its_place", 1)]),
    ("a transaction is found", "opening/sheet/a.cpp", 'f("BEGIN TRANSACTION xiugai");\n',
     [("sql_at_its_place", 1)]),
    ("a condition is found", "accounts/chart/a.cpp", "f(\"sCode = '%s'\");\n",
     [("sql_at_its_place", 1)]),
    ("a condition without a value is found", "books/logon/a.cpp", 'f("lId > 0");\n',
     [("sql_at_its_place", 1)]),
    ("an order is found", "accounts/chart/a.cpp", 'f("lId > 0 ORDER BY sCode");\n',
     [("sql_at_its_place", 1)]),
    ("SQL in a raw string is found at its first line", "tool/a.cpp",
     '\nf(R"(select lId\nfrom Code)");\n'.replace("\nfrom", " from"), [("sql_at_its_place", 2)]),
    ("a folder's SQL file holds its SQL", "settle/settle_sql.cpp",
     'f("SELECT lId FROM Settle");\n', []),
    ("the data layer holds SQL", "data/sql/a.cpp", 'f("SELECT lId FROM Settle");\n', []),
    ("plain English is no SQL", "tool/a.cpp",
     'f("Update the set of books from a backup", "select one", "insert a disk");\n', []),

    ("setlocale is found", "shell/main.cpp", "setlocale(LC_ALL, a);\n",
     [("locale_independence", 1)]),
    ("printing through the locale is found", "data/sql/a.cpp", 'snprintf(a, 9, "%f", b);\n',
     [("locale_independence", 1)]),
    ("reading through the locale is found", "data/sql/a.cpp", "double d = std::stod(a);\n",
     [("locale_independence", 1)]),
    ("fmt is independent of the locale", "data/sql/a.cpp", "fmt::print(a);\nformat(a);\n", []),

    ("a text that the compiler cannot check is found", "tool/a.cpp",
     "f = fmt::format(fmt::runtime(text), a);\n", [("checked_texts", 1)]),
    ("a text that it checks passes", "tool/a.cpp",
     "void f(fmt::format_string<int> text) {\n    fmt::format(text, 1);\n}\n", []),

    ("Qt in the data layer is found", "data/sql/a.h", HEADER + "#include <QString>\n",
     [("qt_at_its_place", 2)]),
    ("Qt in a rule is found", "opening/balance/trial_balance.cpp", "#include <QtCore/QString>\n",
     [("qt_at_its_place", 1)]),
    ("Qt in a window passes", "opening/window/a.cpp", "#include <QDialog>\n", []),
    ("a Chinese text in the data layer is found", "data/sql/a.cpp", 'f("科目");\n',
     [("no_texts_in_data", 1)]),
    ("a Chinese text outside the texts file is found", "settle/settle_form.cpp",
     'f(a);\nf("结算方式");\n', [("texts_at_their_place", 2)]),
    ("a Chinese text in the texts file passes", "settle/settle_texts.h",
     HEADER + 'const char* a = "结算方式";\n', []),
    ("Chinese that is data passes", "books/demo/demo_data.cpp", 'f("人民币");\n', []),
    ("a Chinese text in a test passes", "tests/rules/a_test.cpp", 'f("结算方式");\n', []),
    ("a Chinese comment in the data layer passes", "data/sql/a.h", HEADER + "// 科目\n", []),

    ("an include that runs up is found", "data/sql/a.h",
     HEADER + '#include "data/engine/engine.h"\n', [("arrows_run_down", 2)]),
    ("an include that runs down passes", "data/engine/a.h",
     HEADER + '#include "data/sql/value.h"\n', []),
    ("an include within a folder passes", "data/sql/a.h",
     HEADER + '#include "data/sql/value.h"\n', []),
    ("an include of what stands beside the tool is found", "screen/a.h",
     HEADER + '#include "tool/tool.h"\n', [("arrows_run_down", 2)]),
    ("an include from outside the house is found", "data/sql/a.h",
     HEADER + '#include "tests/support/a.h"\n', [("arrows_run_down", 2)]),
    ("a form's own header passes", "shell/a.cpp", '#include "ui_a.h"\n', []),
    ("a file in no folder of the house is found", "accounts/a.cpp", "int a;\n",
     [("lies_in_a_folder", 1)]),
    ("a program's main lies outside the folders", "program/main.cpp", "int a;\n", []),

    ("a left-over mark is found", "data/sql/a.cpp", "// TO" + "DO later\n",
     [("left_over_marks", 1)]),
    ("the other left-over mark is found", "a.md", "FIX" + "ME\n", [("left_over_marks", 1)]),
    ("a word that only contains the mark passes", "a.md", "TO" + "DOS\n", []),
    ("the chapter of another document is found", "a.md", "see Part " + "1.3\n",
     [("own_words", 1)]),
    ("the word for such a document is found", "a.md", "the specifi" + "cation\n",
     [("own_words", 1)]),
    ("a format specifier passes", "a.md", "a specifier\n", []),
    ("a path of one machine is found", "run", "cd /ho" + "me/somebody/project\n",
     [("no_machine_paths", 1)]),
    ("the superuser's folder is found", "data/sql/a.cpp", 'f("/ro' + 'ot/x");\n',
     [("no_machine_paths", 1)]),
    ("a relative path passes", "run", "cd data/ho" + "me/x\n", []),
]


def run():
    """Checks every sample; prints what differs and 'N passed, N failed'."""
    failed = 0
    for title, path, text, expected in SAMPLES:
        found = [(rule, line) for line, rule, _ in faults(Source(path, text))]
        if found != expected:
            failed += 1
            print(f"{title} ({path}): expected {expected}, found {found}")
    print(f"{len(SAMPLES) - failed} passed, {failed} failed")
    return 1 if failed else 0
