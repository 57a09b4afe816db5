"""Runs the tests: once to learn which test reaches which function, then for each mutant those
that reach the function it is in, the quickest first, until one fails."""

import json
import os
import re
import shutil
import signal
import subprocess
import tempfile
import threading
from bisect import bisect_right
from concurrent.futures import ThreadPoolExecutor
from dataclasses import dataclass
from pathlib import Path

BATCH_SECONDS = (1, 5, 15, 45)  # of tests in one process; the last one again and again
MOST_TESTS_IN_A_BATCH = 400
SECONDS_FOR_OTHERS = 5  # of tests that do not reach a survivor, as they were run
LIMITS = "ulimit -c 0 -v 8388608 -f 4194304 2>/dev/null; exec \"$@\""
SECONDS_OF_RECORDING = 3600
MOST_KILLERS = 5
SECONDS_TO_END = 20

live_processes = set()


class RunFailure(Exception):
    """The tests cannot be run, and not because of a mutant."""


@dataclass(frozen=True)
class Program:
    path: str
    directory: str
    environment: tuple  # of 'name=value'


@dataclass(frozen=True)
class Test:
    seconds: float
    name: str
    program: Program


@dataclass
class Verdict:
    killed: bool
    why: str  # the test that failed, or what is odd about the survivor


def programs_of(build_folder, names):
    """The test programs as the build describes them."""
    listing = subprocess.run(
        ["ctest", "--test-dir", str(build_folder), "--show-only=json-v1"],
        check=True, capture_output=True, text=True)
    for test in json.loads(listing.stdout)["tests"]:
        properties = {one["name"]: one["value"] for one in test.get("properties", [])}
        if test.get("command") and Path(test["command"][0]).name in names:
            yield Program(
                test["command"][0], properties.get("WORKING_DIRECTORY", str(build_folder)),
                tuple(properties.get("ENVIRONMENT", ())))


def run_program(program, arguments, environment, output, seconds):
    """Runs it in a folder of its own for temporary files, until it ends or its time is over.
    Returns its exit code; None when it had to be ended."""
    with tempfile.TemporaryDirectory(prefix="mutate-", ignore_cleanup_errors=True) as folder:
        os.chmod(folder, 0o1777)  # some tests act as another user
        everything = dict(os.environ, TMPDIR=folder, GTEST_COLOR="no", QT_QPA_PLATFORM="offscreen")
        everything.update(one.split("=", 1) for one in program.environment)
        everything.update(environment)
        with open(output, "wb") as out:
            process = subprocess.Popen(
                ["/bin/sh", "-c", LIMITS, "sh", program.path, *arguments], cwd=program.directory,
                env=everything, stdin=subprocess.DEVNULL, stdout=out, stderr=subprocess.STDOUT,
                start_new_session=True)
        live_processes.add(process)
        try:
            return process.wait(seconds)
        except subprocess.TimeoutExpired:
            return None
        finally:
            end_group(process)
            process.wait()
            live_processes.discard(process)


def run_command(command, folder):
    """Runs it to its end: its exit code and what it said. Ends with this process, and so does
    all that it started."""
    process = subprocess.Popen(
        command, cwd=folder, text=True, errors="replace", stdin=subprocess.DEVNULL,
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT, start_new_session=True)
    live_processes.add(process)
    try:
        said, _ = process.communicate()
        return process.returncode, said
    except BaseException:
        end_group(process, signal.SIGTERM)  # a build ends its compilers itself
        process.wait(SECONDS_TO_END)
        raise
    finally:
        end_group(process)
        live_processes.discard(process)


def end_group(process, how=signal.SIGKILL):
    """Ends a program with all that it started."""
    try:
        os.killpg(process.pid, how)
    except (ProcessLookupError, PermissionError):
        pass


def end_all():
    for process in list(live_processes):
        end_group(process)


class Recording:
    """Which tests reach which function, as a run without mutants showed."""

    def __init__(self):
        self.tests = set()
        self.left_out = set()  # names of tests that fail without a mutant
        self.reaching = {}  # function -> tests
        self.reached_always = set()  # functions that run before any test

    def tests_of(self, functions):
        if self.reached_always & set(functions):
            return set(self.tests)
        return set().union(*(self.reaching.get(one, set()) for one in functions))


def record(programs, jobs, folder):
    recording = Recording()
    runs = [(program, shard) for program in programs for shard in range(jobs)]
    with ThreadPoolExecutor(jobs) as pool:
        futures = [pool.submit(record_shard, program, shard, jobs, folder)
                   for program, shard in runs]
        for (program, _), future in zip(runs, futures):
            add_shard(recording, program, *future.result())
    return recording


def record_shard(program, shard, shards, folder):
    stem = Path(folder, f"{Path(program.path).name}-{shard}")
    output, log = stem.with_suffix(".out"), stem.with_suffix(".log")
    log.write_text("")
    code = run_program(
        program, [],
        {"GTEST_TOTAL_SHARDS": str(shards), "GTEST_SHARD_INDEX": str(shard),
         "CHENGHENG_MUTANT_LOG": str(log), "CHENGHENG_MUTANT_OUTPUT": str(output)},
        output, SECONDS_OF_RECORDING)
    said = output.read_bytes().decode("latin-1")  # so that a position counts bytes
    if code not in (0, 1):
        raise RunFailure(f"{program.path} ended with {code} without a mutant:\n{said[-2000:]}")
    return said, log.read_text()


def add_shard(recording, program, said, log):
    starts = [(one.end(), one[1]) for one in re.finditer(r"^\[ RUN      \] (\S+)\n", said, re.M)]
    positions = [position for position, _ in starts]
    ended = {}
    for one in re.finditer(r"^\[       OK \] (\S+) \((\d+) ms\)", said, re.M):
        ended[one[1]] = Test(int(one[2]) / 1000, one[1], program)
    recording.tests.update(ended.values())
    recording.left_out.update(
        re.findall(r"^\[  FAILED  \] ([^\s,]+).* \(\d+ ms\)", said, re.M))
    for line in log.splitlines():
        position, function = (int(number) for number in line.split())
        index = bisect_right(positions, position) - 1
        if index < 0:
            recording.reached_always.add(function)
        elif starts[index][1] in ended:
            recording.reaching.setdefault(function, set()).add(ended[starts[index][1]])


def batches(tests):
    """The tests in groups for one process each, the quickest first."""
    limits = list(BATCH_SECONDS)
    group, seconds = [], 0
    for test in sorted(tests, key=lambda one: (one.seconds, one.name)):
        if group and (seconds + test.seconds > limits[0] or len(group) == MOST_TESTS_IN_A_BATCH):
            yield from by_program(group)
            group, seconds = [], 0
            limits = limits[1:] or limits
        group.append(test)
        seconds += test.seconds
    yield from by_program(group)


def by_program(group):
    for program in dict.fromkeys(test.program for test in group):
        yield [test for test in group if test.program == program]


def quickest(tests, seconds):
    for test in sorted(tests, key=lambda one: (one.seconds, one.name)):
        seconds -= test.seconds
        if seconds < 0:
            return
        yield test


class Judge:
    """Judges one mutant after the other; may be asked by several threads."""

    def __init__(self, recording, folder, most_seconds):
        self.recording, self.folder, self.most_seconds = recording, folder, most_seconds
        self.killers = {}  # function -> tests that killed a mutant of it
        self.mutex = threading.Lock()

    def judge(self, mutant, functions):
        """`mutant` is its number, 0 when it is built in; `functions` those it shows in."""
        reaching = self.recording.tests_of(functions)
        key = tuple(functions)
        with self.mutex:
            first = list(self.killers.get(key, ()))
        chosen = set(quickest(reaching, self.most_seconds))
        others = set(quickest(self.recording.tests - reaching, SECONDS_FOR_OTHERS))
        plan = [*by_program(first), *batches(chosen - set(first)), *batches(others)]
        for group in plan:
            killer = self.failing_test(mutant, group)
            if killer:
                self.remember(key, killer, group)
                return Verdict(True, killer)
        if not reaching:
            return Verdict(False, "no test reaches it at run time")
        cut = len(reaching) - len(chosen)
        return Verdict(False, f"{cut} slow tests were left out" if cut else "")

    def remember(self, key, killer, group):
        with self.mutex:
            known = self.killers.setdefault(key, [])
            known += [test for test in group if test.name == killer and test not in known]
            del known[:-MOST_KILLERS]

    def failing_test(self, mutant, group):
        """The name of the test that fails; '' when all pass."""
        seconds = 10 + 5 * sum(test.seconds for test in group)
        names = ":".join(test.name for test in group)
        handle, output = tempfile.mkstemp(dir=self.folder)
        os.close(handle)
        code = run_program(
            group[0].program, [f"--gtest_filter={names}", "--gtest_fail_fast"],
            {"CHENGHENG_MUTANT": str(mutant)}, output, seconds)
        said = Path(output).read_text(errors="replace")
        Path(output).unlink()
        if code == 0:
            return ""
        return failed_test(said)


def failed_test(said):
    """The test that failed or during which the program ended. Those after it are named too."""
    failed = re.search(r"^\[  FAILED  \] ([^\s,]+)", said, re.M)
    started = re.findall(r"^\[ RUN      \] (\S+)", said, re.M)
    return failed[1] if failed else started[-1] if started else "the start of the program"


def scratch_folder(path):
    shutil.rmtree(path, ignore_errors=True)
    path.mkdir(parents=True)
    return path
