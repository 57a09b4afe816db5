"""Small made-up pieces of code, each with the mutants that must be made of it, and no others;
and what becomes of a source that is written with all variants of its functions."""

from mutant_runs import failed_test
from mutant_tree import File, refused_functions, refused_mutants
from mutants import first_values_of, functions_of_source, mutants_of

# (what it shows, a statement or several, what the mutants make of it)
STATEMENTS = [
    ("a comparison's border is moved", "bool b = a < c;", ["bool b = a <= c;"]),
    ("and back", "bool b = a >= c;", ["bool b = a > c;"]),
    ("equal becomes unequal", "bool b = a == c;", ["bool b = a != c;"]),
    ("unequal becomes equal", "bool b = a != c;", ["bool b = a == c;"]),
    ("and becomes or", "bool b = a && c;", ["bool b = a || c;"]),
    ("an operator at the end of a line", "bool b = a ||\n    c;", ["bool b = a && c;"]),
    ("plus and minus change places", "int b = a + c - d;", ["int b = a - c - d;",
                                                            "int b = a + c + d;"]),
    ("a product becomes a quotient", "int b = a * c;", ["int b = a / c;"]),
    ("a pointer is no product", "int* b = *a;", []),
    ("a reference is no and", "auto&& b = c;", []),
    ("a sign is no minus", "int b = -a;", []),
    ("a negation is dropped", "bool b = !a;", ["bool b = a;"]),
    ("true becomes false", "bool b = true;", ["bool b = false;"]),
    ("a constant grows by one", "int b = 41;", ["int b = 42;"]),
    ("with its ending", "auto b = 1'000u;", ["auto b = 1001u;"]),
    ("and its base", "int b = 0xFF;", ["int b = 256;"]),
    ("a fraction stays", "double b = 0.5;", []),
    ("a number in a name stays", "int b2 = a1;", []),
    ("a number in a type stays", "std::array<std::array<int, 3>, 2> b;", []),
    ("strings, letters and comments stay", "auto b = \"1 < 2\", 'a';  // 3 == 4", []),
    ("a raw string stays", 'auto b = R"(a && 1)";', []),
    ("a condition is forced", "if (a) b();",
     ["if (true) b();", "if (false) b();", "if (a) ;"]),
    ("one after a declaration", "if (int c = a; f(c)) {}",
     ["if (int c = a; true) {}", "if (int c = a; false) {}"]),
    ("one that declares a value", "if (const auto* c = f(a)) {}",
     ["if (const auto* c = f(a); true) {}", "if (const auto* c = f(a); false) {}"]),
    ("what the compiler decides stays", "if constexpr (sizeof(a) > 4) {}", []),
    ("a compile-time check stays", "static_assert(1 + 1 == 2, \"!\");", []),
    ("a call is dropped", "a.b(c)->d();", [";"]),
    ("a call over several lines", "a(c,\n  d)\n  .e();", [";"]),
    ("a call of a template", "f<A, B>(a);", [";"]),
    ("a call of a function in a namespace", "std::sort(a);", [";"]),
    ("a call with a lambda", "f([](int a) { g(a); });", [";", "f([](int a) { ; });"]),
    ("a call of a value in braces is no statement", "int b = A{c}.d();", []),
    ("an assignment is dropped", "a.b[c] = d;", [";"]),
    ("one that adds", "*a += b;", [";"]),
    ("a count is dropped", "++a;", [";"]),
    ("a declaration stays", "std::vector<int> a(b);", []),
    ("one of what must not be done too", "struct A { A(const A&) = delete; };", []),
    ("one with a value too", "const auto a = f(b);", []),
    ("a body without braces", "for (auto a : b) f(a);", ["for (auto a : b) ;"]),
    ("the head of a loop keeps its parts", "for (; a < b; ++a) {}", ["for (; a <= b; ++a) {}"]),
    ("an else without braces", "if constexpr (a) {} else f(a);",
     ["if constexpr (a) {} else ;"]),
    ("a statement of a case", "switch (a) { case A::b: f(a); break; default: g(a); }",
     ["switch (a) { case A::b: ; break; default: g(a); }",
      "switch (a) { case A::b: f(a); ; default: g(a); }",
      "switch (a) { case A::b: f(a); break; default: ; }"]),
    ("the last break of a switch stays", "switch (a) { case A::b: { } break; }", []),
    ("a loop's break is dropped", "while (a) { b; break; }", ["while (a) { b; ; }"]),
    ("continue is dropped", "while (a) { continue; b; }", ["while (a) { ; b; }"]),
    ("one at the end of a loop stays", "while (a) { b; continue; }", []),
    ("space in advance changes nothing", "a.reserve(2 * b);", ["a.reserve(2 / b);"]),
    ("a value returned becomes the default", "return a.b(c);", ["return {};"]),
    ("a default value stays", "return nullptr;", []),
    ("also one with a name", "return Status::done();", []),
    ("so does the first of an enumeration", "return Kind::first;", []),
    ("but not the second", "return Kind::second;", ["return {};"]),
    ("true has its own mutant", "return true;", ["return false;"]),
    ("nothing returned stays", "return;", []),
]

# (what it shows, path, the source, the mutants as lines of the result)
SOURCES = [
    ("directives stay", "a.h", "#pragma once\n#if A == 1\n#include <b 2>\n#endif\n", []),
    ("attributes stay", "a.h", "[[nodiscard(1)]] int a();\n", []),
    ("template parameters stay", "a.h", "template <int a = 1>\nvoid f();\n", []),
    ("operators' names stay", "a.h", "bool operator < (A a, A b);\nbool operator==(A a);\n", []),
    ("abstract methods stay", "a.h", "virtual void f() const = 0;\n", []),
    ("a constant of a file", "a.cpp", "constexpr int a = 1;\n", ["constexpr int a = 2;"]),
]

VARIANTS_OF = "int f(int a) {return a + 1;}\nint b = 2;\n"
VARIANTS = """#include "tests/support/mutation_switch.h"
#line 1 "a.cpp"
int f(int a) { switch (::mutation::chosen(7)) {
case 3: {
#line 1 "mutant_3"
return a - 1;
} break;
default: {
#line 1 "a.cpp"
return a + 1;
}
}
#line 1 "a.cpp"
}
int b = 2;
"""

FUNCTIONS = [
    ("a function", "void f() { g(); }\n", 1),
    ("a method and a constructor", "struct A { A() : b(1) { f(); } int c() { return b; } };\n", 2),
    ("a lambda in a table", "const A a[] = {\n    {1, [](int b) { return b; }},\n};\n", 1),
    ("values in braces are no function", "const std::array a{f(b), C{1, 2}};\n", 0),
    ("an empty body has no mutants", "void f() {}\n", 0),
    ("the compiler's own functions stay", "consteval int f() { return 1; }\n", 0),
]

ERRORS = """FAILED: a.o
mutant_3:4:5: error: no match for 'operator-'
mutant_5:4:5: note: here
a.cpp:1:9: error: this function cannot be had in variants
"""


SAID = """[ RUN      ] A.b
[       OK ] A.b (1 ms)
[ RUN      ] A.c/0
[  FAILED  ] A.c/0, where GetParam() = 1 (2 ms)
[ RUN      ] A.d
[  SKIPPED ] A.d (0 ms)
"""


def of_statement(text):
    source = f"void f() {{\n{text}\n}}\n"
    return [mutant.after for mutant in mutants_of("a.cpp", source, {"Kind::first"})]


def differences():
    """Yields for each check what is wrong, or None."""
    for title, text, expected in STATEMENTS:
        yield unlike(title, sorted(expected), sorted(in_one_line(of_statement(text), text)))
    for title, path, source, expected in SOURCES:
        yield unlike(title, expected, [mutant.after for mutant in mutants_of(path, source)])
    for title, source, expected in FUNCTIONS:
        yield unlike(title, expected, len(list(functions_of_source(source))))
    mutant = next(iter(mutants_of("a.cpp", VARIANTS_OF)))
    file = File("a.cpp", VARIANTS_OF, dict(enumerate(functions_of_source(VARIANTS_OF), 7)))
    change = next(one.change for one in mutants_of("a.cpp", VARIANTS_OF) if one.change.text == "-")
    yield unlike("a mutant is told by its line", "a.cpp:1: int f(int a) {return a + 1;} -> "
                 "int f(int a) {return {};}", str(mutant))
    file.mutants[3] = change
    yield unlike("a function gets its variants", VARIANTS, file.with_variants())
    yield unlike("an error tells its mutant", {3}, refused_mutants(ERRORS))
    yield unlike("or its function", {"a.cpp": {7}}, refused_functions(ERRORS, {"a.cpp": file}))
    yield unlike("a refused function takes its mutants along", {3}, file.without(set(), {7}))
    yield unlike("the test that failed is told", "A.c/0", failed_test(SAID))
    yield unlike("or the one that did not end", "A.c/0", failed_test(SAID.split("[  FAILED")[0]))
    yield unlike("the first values of enumerations", {"A::b", "C::d"},
                 first_values_of("enum class A : int { b, c };\nenum C { d = 0, e };\n"
                                 "enum class F { g = 1 };\n"))


def in_one_line(mutated, text):
    """A mutant tells the lines it touches; the samples tell the whole statement."""
    lines = [" ".join(line.split()) for line in text.split("\n")]
    for one in mutated:
        untouched = [line for line in lines[1:] if len(lines) > 1 and line not in one]
        yield one if one == ";" else " ".join([one, *untouched])


def unlike(title, expected, found):
    return None if found == expected else f"{title}: expected {expected}, found {found}"


def run():
    """Checks every sample; prints what differs and 'N passed, N failed'."""
    found = list(differences())
    failed = [one for one in found if one]
    print(*failed, sep="\n", end="\n" if failed else "")
    print(f"{len(found) - len(failed)} passed, {len(failed)} failed")
    return 1 if failed else 0
