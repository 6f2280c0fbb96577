#!/usr/bin/env python3
"""Measures the library against its goals, prints the table and writes bench/RESULTS.md.

Every run is a process of its own with its file in the page cache, and the programs of a group start in turn. A value is
the median over the rounds of the ratio within a round. Ends with 1 if a goal that bench/RESULTS.md of the last commit
shows as reached is missed by more than a tenth in two measurements.
"""

import argparse
import datetime
import filecmp
import os
import re
import signal
import statistics
import subprocess
import sys
import tempfile
from collections.abc import Callable
from dataclasses import dataclass
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
RESULTS = "bench/RESULTS.md"
PAGE_SECTION = "\n## The page\n"
BOARDS = ROOT.parent / "shared" / "boards"
TESTCASE1 = "testcase1-revc-full.xml"
TESTCASE3 = "testcase3-revc-full.xml"
KICAD = "kicad-board.xml"

TOLERATED_MISS = 1.1
# The walk follows elements and the library lines, which differ in corners of a foreign file.
TOLERATED_COUNT = 0.01


@dataclass(frozen=True)
class Goal:
    """One row of the table: what a round gives for the library, over what it gives for the reference."""

    name: str
    goal: float
    better: float | None
    group: str
    ours: Callable[[dict], float]
    theirs: Callable[[dict], float] | None = None
    units: tuple[str, str] = ("ms", "ms")

    def value(self, run):
        return self.ours(run) / (self.theirs(run) if self.theirs else 1)


def time_of(program, step="read"):
    return lambda run: run[program][step][0]


def memory_of(program, step="read"):
    return lambda run: run[program][step][1]


def of(key):
    return lambda run: run[key]


READ = time_of("library_read")
PEAK = memory_of("library_read")
WRITE = time_of("library_write", "write")
FPRINTF = time_of("fprintf_write", "write")

GOALS = [
    Goal("read testcase1 over typed walk", 0.28, 0.25, "testcase1", READ, time_of("typed_walk")),
    Goal("read testcase1 over load_file", 0.48, 0.42, "testcase1", READ, time_of("pugixml_load", "load")),
    Goal("read generated 50 MB over typed walk", 0.34, None, "generated", READ, time_of("typed_walk")),
    Goal("read kicad-board over typed walk, with start", 0.55, None, "kicad", time_of("library_read", "process"),
         time_of("typed_walk", "process")),
    Goal("instructions per line, testcase3", 650, 600, "instructions", of("millions"), of("million lines"),
         ("million", "million")),
    Goal("peak memory over file, testcase1", 1.15, None, "testcase1", PEAK, of("megabytes"), ("MB", "MB")),
    Goal("peak memory over file, generated 50 MB", 1.75, 1.35, "generated", PEAK, of("megabytes"), ("MB", "MB")),
    Goal("write testcase1 over fprintf, page cache", 0.13, None, "write", WRITE, FPRINTF),
    Goal("write testcase1 over fprintf, null device", 0.20, 0.17, "null", WRITE, FPRINTF),
    Goal("peak memory that writing adds, in MB", 1, None, "write", memory_of("library_write", "write"),
         units=("MB", "MB")),
    Goal("read generated 200 MB over 50 MB", 4.5, 4.2, "growth 200", time_of("large"), time_of("small")),
    Goal("read generated 1 GB over 200 MB", 5.6, 5.2, "growth 1000", time_of("large"), time_of("small")),
    Goal("import testcase1 over typed walk, elapsed", 0.95, None, "import", time_of("import_read", "elapsed"),
         time_of("typed_walk", "elapsed")),
    Goal("import testcase1 over typed walk, both threads", 0.95, None, "import", time_of("import_read"),
         time_of("typed_walk")),
    Goal("peak memory of the import over file, testcase1", 1.25, None, "import", memory_of("import_read"),
         of("megabytes"), ("MB", "MB")),
    Goal("import generated 1 GB over 200 MB", 6.5, None, "import growth", time_of("large"), time_of("small")),
    Goal("destroy the root over its read", 0.25, 0.15, "destroy", time_of("library_read", "destroy"), READ),
]


def output_of(*command):
    done = subprocess.run([str(part) for part in command], stdout=subprocess.PIPE, text=True, close_fds=False)
    if done.returncode != 0:
        sys.exit(f"failed with {done.returncode}: {' '.join(map(str, command))}")
    return done.stdout


def steps_of(*command):
    """The numbers of each line of output, by its first word."""
    lines = [line.split() for line in output_of(*command).splitlines()]
    return {words[0]: [float(word) for word in words[1:] if re.fullmatch(r"-?[0-9.]+", word)] for words in lines}


class Bench:
    """The boards and the groups of runs. A group gives its rounds, or None where its board is not there."""

    def __init__(self, build, folder, rounds, quick):
        self.programs = build / "bin"
        self.folder = folder
        self.rounds = rounds
        self.quick = quick
        self.groups = {
            "testcase1": lambda: self.read(self.board(TESTCASE1), "pugixml_load"),
            "generated": lambda: self.read(self.generated(50)),
            "kicad": lambda: self.read(self.board(KICAD)),
            "instructions": lambda: self.instructions(self.board(TESTCASE3)),
            "write": lambda: self.write(self.board(TESTCASE1)),
            "null": lambda: self.write(self.board(TESTCASE1), Path(os.devnull)),
            "growth 200": lambda: self.growth(50, 200),
            "growth 1000": lambda: None if self.quick else self.growth(200, 1000),
            "import": lambda: self.import_read(self.board(TESTCASE1)),
            "import growth": lambda: None if self.quick else self.growth(200, 1000, "import_read"),
            "destroy": lambda: self.destroy(self.board(TESTCASE1) or self.generated(50)),
        }

    def board(self, name):
        packed = BOARDS / f"{name}.zst"
        path = self.folder / name
        if not path.exists() and packed.exists():
            output_of("zstd", "-dq", packed, "-o", path)
        return path if path.exists() else None

    def generated(self, megabytes):
        path = self.folder / f"generated-{megabytes}.xml"
        if not path.exists():
            output_of(self.programs / "ipc2581_generate", megabytes, 1, path)
        return path

    def in_turn(self, commands, outs=()):
        """Runs each command once a round, behind a round that brings files and programs into the page cache."""

        def round_of_all():
            # Emptying an old file would count as writing.
            for out in outs:
                out.unlink(missing_ok=True)
            return {name: steps_of(self.programs / command[0], *command[1:]) for name, command in commands.items()}

        round_of_all()
        return [round_of_all() for _ in range(self.rounds)]

    def read(self, board, *more):
        if board is None:
            return None
        self.compare_counts(board)
        rounds = self.in_turn({name: [name, board] for name in ("library_read", "typed_walk", *more)})
        return [run | {"megabytes": board.stat().st_size / 1e6} for run in rounds]

    def compare_counts(self, board):
        ours = output_of(self.programs / "library_read", board, "--counts").splitlines()[-1].split()
        theirs = output_of(self.programs / "typed_walk", board).splitlines()[-1].split()
        for name, our, their in zip(ours[1::2], ours[2::2], theirs[2::2], strict=True):
            if abs(int(our) - int(their)) > TOLERATED_COUNT * int(our):
                sys.exit(f"{board.name}: the library holds {our} {name}, the typed walk {their}")

    def instructions(self, board):
        if board is None:
            return None
        command = ["valgrind", "--tool=cachegrind", "--cache-sim=no", "--cachegrind-out-file=/dev/null",
                   self.programs / "library_read", board]
        done = subprocess.run(command, capture_output=True, text=True, check=True)
        count = re.search(r"I +refs: +([0-9,]+)", done.stderr).group(1).replace(",", "")
        return [{"millions": int(count) / 1e6, "million lines": board.read_bytes().count(b"\n") / 1e6}]

    def write(self, board, device=None):
        if board is None:
            return None
        outs = {name: device or self.folder / f"{name}.xml" for name in ("library_write", "fprintf_write")}
        commands = {
            "library_write": ["library_read", board, outs["library_write"]],
            "fprintf_write": ["fprintf_write", board, outs["fprintf_write"]],
        }
        rounds = self.in_turn(commands, () if device else outs.values())
        if device is None:
            if not filecmp.cmp(*outs.values(), shallow=False):
                sys.exit(f"{board.name}: the library and the program with fprintf write different bytes")
            for out in outs.values():
                out.unlink()
        return rounds

    def import_read(self, board):
        if board is None:
            return None
        rounds = self.in_turn({name: [name, board] for name in ("import_read", "typed_walk")})
        return [run | {"megabytes": board.stat().st_size / 1e6} for run in rounds]

    def growth(self, small, large, program="library_read"):
        boards = {"small": self.generated(small), "large": self.generated(large)}
        return self.in_turn({name: [program, board] for name, board in boards.items()})

    def destroy(self, board):
        return self.in_turn({"library_read": ["library_read", board, "--destroy"]})


class Measurements:
    """The rounds of the groups, each run when a row first asks."""

    def __init__(self, bench):
        self.bench = bench
        self.rounds = {}

    def of(self, goal):
        if goal.group not in self.rounds:
            print(f"measuring {goal.group}", file=sys.stderr)
            self.rounds[goal.group] = self.bench.groups[goal.group]()
        return self.rounds[goal.group]

    def ratios(self, goal):
        rounds = self.of(goal)
        return rounds and [goal.value(run) for run in rounds]


def shown(value):
    if value is None:
        return ""
    return f"{value:.0f}" if value >= 100 else f"{value:.1f}" if value >= 10 else f"{value:.2f}"


def median_of(rounds, take, unit):
    return f"{shown(statistics.median(map(take, rounds)))} {unit}" if take else ""


def cells(goal, measurements):
    ratios = measurements.ratios(goal)
    if ratios is None:
        return [goal.name, shown(goal.goal), shown(goal.better), "skipped", "", "", "", ""]
    rounds = measurements.of(goal)
    return [goal.name, shown(goal.goal), shown(goal.better), shown(statistics.median(ratios)), shown(min(ratios)),
            median_of(rounds, goal.ours, goal.units[0]), median_of(rounds, goal.theirs, goal.units[1]),
            "missed" if statistics.median(ratios) > goal.goal else ""]


def table_of(measurements):
    titles = ["row", "goal", "better still", "reached (median)", "best", "library", "reference", ""]
    rows = [titles] + [cells(goal, measurements) for goal in GOALS]
    widths = [max(len(row[i]) for row in rows) for i in range(len(titles))]
    aligned = [[cell.ljust(width) if i == 0 else cell.rjust(width) for i, (cell, width) in enumerate(zip(row, widths))]
               for row in rows]
    rule = [("-" * width) if i == 0 else ("-" * (width - 1) + ":") for i, width in enumerate(widths)]
    return "\n".join(f"| {' | '.join(row)} |" for row in [aligned[0], rule, *aligned[1:]])


def earlier_values():
    """What the results of the last commit show as reached, by the name of the row."""
    command = ["git", "-C", str(ROOT), "show", f"HEAD:{RESULTS}"]
    try:
        done = subprocess.run(command, capture_output=True, text=True)
    except FileNotFoundError:
        return {}
    rows = [[cell.strip() for cell in line.split("|")[1:-1]] for line in done.stdout.splitlines() if line[:1] == "|"]
    return {row[0]: float(row[3]) for row in rows if len(row) >= 7 and re.fullmatch(r"[0-9.]+", row[3])}


def is_lost(goal, earlier, measurements):
    """True if the goal was reached before and is missed now, by more than what is tolerated."""
    ratios = measurements.ratios(goal)
    return (ratios is not None and earlier.get(goal.name, float("inf")) <= goal.goal
            and statistics.median(ratios) > goal.goal * TOLERATED_MISS)


def first_match(path, pattern, fallback="unknown"):
    match = re.search(pattern, Path(path).read_text(), re.MULTILINE) if Path(path).exists() else None
    return match.group(1).strip() if match else fallback


def machine_of(build):
    compiler = first_match(build / "CMakeCache.txt", r"^CMAKE_CXX_COMPILER:\w+=(.*)$", "c++")
    memory = int(first_match("/proc/meminfo", r"^MemTotal: +([0-9]+)", "0")) * 1024 / 1e9
    processor = first_match("/proc/cpuinfo", r"^model name\s*: (.*)$")
    return (f"{datetime.date.today().isoformat()}, {processor}, {os.cpu_count()} cores, {memory:.0f} GB, "
            f"{output_of(compiler, '--version').splitlines()[0]}, release build, static library")


def report(measurements, build, rounds):
    return (f"# Results\n\nWritten by `bench/run.sh`; `bench/README.md` tells what the rows mean.\n\n{machine_of(build)}; "
            f"{rounds} rounds.\n\n{table_of(measurements)}\n")


def section_of_page():
    """What bench/page.py has given stays as it is."""
    path = ROOT / RESULTS
    text = path.read_text() if path.exists() else ""
    return text[text.find(PAGE_SECTION):] if PAGE_SECTION in text else ""


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--quick", action="store_true", help="leave out the board of 1 GB")
    parser.add_argument("--rounds", type=int, default=11)
    parser.add_argument("build", type=Path)
    arguments = parser.parse_args()
    # An end by signal removes the temporary folder too.
    signal.signal(signal.SIGTERM, lambda number, frame: sys.exit(128 + number))
    with tempfile.TemporaryDirectory(prefix="ipc2581-bench-") as folder:
        bench = Bench(arguments.build, Path(folder), arguments.rounds, arguments.quick)
        measurements = Measurements(bench)
        text = report(measurements, arguments.build, arguments.rounds)
        print(text)
        (ROOT / RESULTS).write_text(text + section_of_page())
        earlier = earlier_values()
        suspects = [goal for goal in GOALS if is_lost(goal, earlier, measurements)]
        again = Measurements(bench)
        lost = [goal.name for goal in suspects if is_lost(goal, earlier, again)]
    for name in lost:
        print(f"was reached before and is missed by more than a tenth, twice: {name}", file=sys.stderr)
    sys.exit(1 if lost else 0)


if __name__ == "__main__":
    main()
