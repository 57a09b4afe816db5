"""The copy of the project in which mutants live: build/mutate. Each function that has mutants
is compiled once, with a variant for each of them; a process is told by its environment which
one to run. So a folder is built once for all its mutants, and the work tree stays as it is."""

import re
import shutil
import subprocess
from pathlib import Path

from cpp_text import line_of
from mutant_runs import run_command

INCLUDE = '#include "tests/support/mutation_switch.h"\n'
MOST_ROUNDS = 12


class BuildFailure(Exception):
    """The copy cannot be built, and not because of a mutant."""


class File:
    """A source with mutants: which of its functions have which."""

    def __init__(self, path, source, functions):
        self.path, self.source = path, source
        self.functions = functions  # number -> Function
        self.mutants = {}  # number -> Change, of those inside functions

    def function_at(self, change):
        """The number of the function that holds a change; None outside all of them."""
        for number, function in self.functions.items():
            if function.holds(change):
                return number
        return None

    def functions_on(self, line):
        for number, function in self.functions.items():
            first = line_of(self.source, function.opening)
            if first <= line <= line_of(self.source, function.closing):
                yield number

    def without(self, mutants, functions):
        """Takes out mutants, and functions with all theirs; returns which mutants went."""
        gone = mutants & set(self.mutants)
        for number in functions:
            function = self.functions.pop(number)
            gone |= {one for one, change in self.mutants.items() if function.holds(change)}
        for mutant in gone:
            del self.mutants[mutant]
        return gone

    def with_variants(self):
        """The source with every variant of its functions."""
        parts, end = [INCLUDE + self.line_mark(1)], 0
        for number, function in sorted(self.functions.items(), key=lambda one: one[1].opening):
            parts.append(self.source[end:function.opening + 1])
            parts.append(self.variants(number, function))
            end = function.closing
        return "".join(parts) + self.source[end:]

    def variants(self, number, function):
        start, end = function.opening + 1, function.closing
        text = f" switch (::mutation::chosen({number})) {{\n"
        for mutant, change in self.mutants.items():
            if function.holds(change):
                body = self.source[start:change.start] + change.text + self.source[change.end:end]
                text += f'case {mutant}: {{\n#line 1 "mutant_{mutant}"\n{body}\n}} break;\n'
        first, last = line_of(self.source, function.opening), line_of(self.source, end)
        body = self.source[start:end]
        text += f"default: {{\n{self.line_mark(first)}{body}\n}}\n}}\n{self.line_mark(last)}"
        return text

    def with_change(self, change):
        return self.source[:change.start] + change.text + self.source[change.end:]

    def line_mark(self, line):
        return f'#line {line} "{self.path}"\n'


class Tree:
    """The copy and its build folder."""

    def __init__(self, top, scratch, jobs):
        self.top, self.jobs = top, jobs
        self.sources, self.build_folder = scratch / "tree", scratch / "build"

    def fill(self, changed):
        """Makes the copy equal to the work tree, but for the given files."""
        listing = subprocess.run(
            ["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"],
            cwd=self.top, check=True, capture_output=True, text=True)
        wanted = {path for path in listing.stdout.split("\0") if (self.top / path).is_file()}
        for path in wanted - set(changed):
            copy_if_changed(self.top / path, self.sources / path)
        for path, text in changed.items():
            self.write(path, text)
        for path in list(self.sources.rglob("*")):
            if path.is_file() and path.relative_to(self.sources).as_posix() not in wanted:
                path.unlink()

    def write(self, path, text):
        place = self.sources / path
        if not place.exists() or place.read_text() != text:
            place.parent.mkdir(parents=True, exist_ok=True)
            place.write_text(text)

    def configure(self, programs):
        configured = self.build_folder / "mutate_configured"
        windows = "ON" if "test_window" in programs else "OFF"
        if configured.exists() and windows in ("OFF", configured.read_text()):
            return  # later changes are the build's to notice
        code, said = run_command(
            ["cmake", "--preset", "dev", "-S", self.sources, "-B", self.build_folder,
             f"-DCHENGHENG_WINDOWS={windows}", "-DCHENGHENG_STRICT=OFF",
             # In the place of the sanitizers that ./check builds with: a process that reads
             # beyond a container ends.
             "-DCMAKE_CXX_FLAGS=-w -D_GLIBCXX_ASSERTIONS",
             "-DCMAKE_CXX_FLAGS_DEBUG=-O1"], self.sources)
        if code:
            raise BuildFailure(f"the copy could not be configured:\n{said[-8000:]}")
        configured.write_text(windows)

    def reading(self, path):
        """What the compiler says to one file alone when it refuses it, else ''."""
        code, said = run_command(
            ["c++", "-std=c++20", "-fsyntax-only", "-w", "-I", self.sources, "-x", "c++", path],
            self.sources)
        return said if code else ""

    def build(self, programs):
        """Builds the programs; what the compiler said when it failed, else ''."""
        code, said = run_command(
            ["cmake", "--build", self.build_folder, "--parallel", str(self.jobs), "--target",
             *programs, "--", "-k", "0"], self.sources)
        return said if code else ""


def copy_if_changed(source, copy):
    if copy.exists() and copy.read_bytes() == source.read_bytes():
        return
    copy.parent.mkdir(parents=True, exist_ok=True)
    shutil.copy(source, copy)


def build_with_variants(tree, files, programs):
    """Writes and builds all variants. Returns the numbers of the mutants that do not compile."""
    tree.fill({path: file.with_variants() for path, file in files.items()})
    refused = set().union(*(refused_in_header(tree, file) for file in files.values()))
    for _ in range(MOST_ROUNDS):
        tree.fill({path: file.with_variants() for path, file in files.items()})
        tree.configure(programs)
        said = tree.build(programs)
        if not said:
            return refused
        found = refused_mutants(said)
        functions = {} if found else refused_functions(said, files)
        if not found and not functions:
            raise BuildFailure(f"the copy could not be built:\n{said[-8000:]}")
        for file in files.values():
            refused |= file.without(found, functions.get(file.path, ()))
    raise BuildFailure("one mutant after the other could not be compiled")


def refused_in_header(tree, file):
    """Takes what the compiler refuses out of a header by reading it alone: each round of a
    build would compile all that includes it."""
    refused = set()
    while file.path.endswith(".h") and file.mutants:
        tree.write(file.path, file.with_variants())
        said = tree.reading(file.path)
        gone = file.without(refused_mutants(said), ()) if said else set()
        if not gone:
            break
        refused |= gone
    return refused


def refused_mutants(said):
    """The mutants that the compiler's errors lie in; else those that led to an error."""
    found = re.findall(r"^mutant_(\d+):\d+:\d+: (?:fatal )?error:", said, re.MULTILINE)
    return {int(number) for number in found or re.findall(r"\bmutant_(\d+):\d+", said)}


def refused_functions(said, files):
    """The functions, by path, in which an error lies although it is no mutant's: the compiler
    does not take them in variants."""
    found = {}
    for path, line in re.findall(r"^(\S+?):(\d+):\d+: (?:fatal )?error:", said, re.MULTILINE):
        if path in files:
            found.setdefault(path, set()).update(files[path].functions_on(int(line)))
    return {path: numbers for path, numbers in found.items() if numbers}
