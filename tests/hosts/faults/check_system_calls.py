#!/usr/bin/env python3
"""Lets each call of the program to the system fail once: check_system_calls.py [--all] PROGRAM BOARD [COMMAND...]

A failed call is either told, in lines that name a file and a cause, with a status that is not 0, or it changes nothing:
what is written and printed is what is written and printed without it. A file that stood in the place of an output is
there as it was if nothing took its place, and nothing else is left behind. strace does it; where it may not, the end
is 77. Prints each fault that went otherwise, and ends with 1 if there is one.
"""

import re
import shutil
import subprocess
import sys
import tempfile
from dataclasses import dataclass, field
from pathlib import Path

# What each call may fail with. A call that is interrupted may be made again.
FAILURES = {
    "openat": ("EMFILE", "EACCES", "EINTR"),
    "read": ("EIO", "EINTR"),
    "pread64": ("EIO",),
    "write": ("EIO", "ENOSPC", "EINTR"),
    "writev": ("EIO", "ENOSPC"),
    "pwrite64": ("EIO", "ENOSPC"),
    "lseek": ("EIO",),
    "close": ("EIO",),
    "fsync": ("EIO", "ENOSPC"),
    "fdatasync": ("EIO",),
    "ftruncate": ("EIO",),
    "fchmod": ("EPERM",),
    "linkat": ("EIO", "ENOSPC", "EPERM"),
    "rename": ("EIO", "ENOSPC"),
    "renameat2": ("EINVAL",),
    "unlink": ("EIO",),
    "mkdir": ("ENOSPC",),
    "newfstatat": ("EACCES", "EIO"),
    "statfs": ("EIO",),
    "getdents64": ("EIO",),
    "fcntl": ("EINTR",),
    "pipe2": ("EMFILE",),
}
# What asks the system for memory fails once, or from then on. One of them tells of no error, but gives the end of the
# memory as it is.
MEMORY = {"mmap": "error=ENOMEM", "brk": "retval=0"}
# What they tell stands in these: the name of the program, that of a file or stream, and why.
TOLD = re.compile(r"^ipc2581: (.+: .+|out of memory)$")
SANITIZER = re.compile(r"Sanitizer|runtime error")
OLD = "what stood here before\n"
# Where the log says that a call was made to fail.
INJECTED = "(INJECTED)"


@dataclass
class Command:
    """How the program is called in an empty folder with the board in it, and what it leaves there."""

    name: str
    arguments: list
    outputs: list = field(default_factory=list)
    # Files that stand in the places of outputs.
    before: list = field(default_factory=list)
    is_piped: bool = False
    # Whether the libraries behind it outlive a lack of memory.
    outlives_no_memory: bool = True
    # One that goes the way of another one is left out where time is short.
    is_like_another: bool = False


def commands_of():
    like_info = ["bom", "components", "nets", "layers", "stackup", "packages", "pins", "pads", "holes", "tracks"]
    commands = [Command(name, [name, "board.cvg"], is_like_another=True) for name in like_info]
    commands += [
        Command("info", ["info", "board.cvg"]),
        Command("json", ["info", "board.cvg", "--format", "json"]),
        Command("exact", ["nets", "board.cvg", "--exact"]),
        Command("piped", ["info", "-"], is_piped=True),
        Command("unpacked", ["info", "board.cvg.gz"]),
        Command("listing-file", ["bom", "board.cvg", "--format", "csv", "-o", "bom.csv"], ["bom.csv"]),
        Command("check", ["check", "board.cvg"]),
        Command("diff", ["diff", "board.cvg", "board.cvg.gz"]),
        Command("report", ["report", "board.cvg"], ["board.txt"]),
        Command("convert", ["convert", "board.cvg", "new.cvg"], ["new.cvg"]),
        Command("convert-over", ["convert", "--force", "board.cvg", "new.cvg"], ["new.cvg"], ["new.cvg"]),
        Command("convert-exact", ["convert", "--exact", "board.cvg", "new.cvg"], ["new.cvg"]),
        Command("convert-packed", ["convert", "board.cvg", "new.cvg.gz"], ["new.cvg.gz"]),
        Command("svg", ["svg", "board.cvg", "-o", "pictures"], ["pictures"]),
        Command("png", ["svg", "board.cvg", "-o", "pictures", "--png", "--width", "50", "--layers", "TOP"], ["pictures"],
                outlives_no_memory=False),
        Command("html-over", ["html", "--force", "board.cvg", "-o", "page.html"], ["page.html"], ["page.html"]),
        Command("sqlite", ["sqlite", "board.cvg", "-o", "boards.sqlite"], ["boards.sqlite"]),
    ]
    return {command.name: command for command in commands}


@dataclass
class Outcome:
    status: int
    out: bytes
    err: str
    files: dict
    log: list


class Runner:
    def __init__(self, program, board, folder):
        self.program = str(Path(program).resolve())
        self.board = Path(board).read_bytes()
        self.folder = Path(folder)

    def run(self, command, *injections):
        place = self.folder / "place"
        shutil.rmtree(place, ignore_errors=True)
        (place / "tmp").mkdir(parents=True)
        (place / "board.cvg").write_bytes(self.board)
        subprocess.run(["gzip", "-kn", str(place / "board.cvg")], check=True)
        for name in command.before:
            (place / name).write_text(OLD)
        log = self.folder / "log"
        trace = ["strace", "-f", "-qq", "-y", "-o", str(log), "-e", "trace=" + ",".join([*FAILURES, *MEMORY]), "-e", "signal=none"]
        for injection in injections:
            trace += ["-e", "inject=" + injection]
        with (self.folder / "out").open("wb") as out, (place / "board.cvg").open("rb") as board:
            done = subprocess.run([*trace, self.program, *command.arguments], cwd=place, stdout=out,
                                  stdin=board if command.is_piped else subprocess.DEVNULL, stderr=subprocess.PIPE,
                                  env={"PATH": "/usr/bin:/bin", "TMPDIR": str(place / "tmp"), "LC_ALL": "C.UTF-8",
                                       "ASAN_OPTIONS": "detect_leaks=0"}, timeout=120)
        files = {str(path.relative_to(place)): path.read_bytes() for path in sorted(place.rglob("*")) if path.is_file()}
        return Outcome(done.returncode, (self.folder / "out").read_bytes(), done.stderr.decode(errors="replace"), files,
                       log.read_text(errors="replace").splitlines())


CALL = re.compile(r"^(\d+) +(\w+)\(")


def own_calls(outcome):
    """The calls of the first thread behind those that load the program, with their numbers among all of their name."""
    main = CALL.match(outcome.log[0]).group(1)
    calls, counts, begun = [], {}, False
    for line in outcome.log:
        match = CALL.match(line)
        if match is None or match.group(1) != main:
            continue
        name = match.group(2)
        counts[name] = counts.get(name, 0) + 1
        begun = begun or "board.cvg" in line
        if begun:
            calls.append((name, counts[name], line.split(None, 1)[1]))
    return calls


def without_time(name, content):
    """A packed file and a database tell when they were made."""
    return content[:4] + content[8:] if name.endswith(".gz") else content


def kept(files):
    return {name: without_time(name, content) for name, content in files.items()}


NAME_OF_OPEN = re.compile(r"^\w+\((\d+<[^>]*>)")


def is_last_chance(calls, place):
    """Whether this call ends the writing of a file, so that nobody hears of a failure who does not hear of this one."""
    name, _, line = calls[place]
    match = NAME_OF_OPEN.match(line)
    if name not in ("close", "fsync", "fdatasync") or match is None or "/place/" not in line or "/place/tmp/" in line:
        return False
    earlier = [own for own, _, row in calls[:place] if row.startswith(own + "(" + match.group(1))]
    written = [at for at, own in enumerate(earlier) if own in ("write", "writev", "pwrite64")]
    return bool(written) and not {"fsync", "fdatasync"} & set(earlier[written[-1]:])


def judge(command, clean, faulty, line, is_last):
    """What is wrong with how a fault went; empty if nothing is."""
    told = faulty.err.splitlines()
    is_of_errors = line.startswith(("write(2", "writev(2"))
    if faulty.status < 0 or faulty.status > 3 or SANITIZER.search(faulty.err):
        return f"ended with {faulty.status}"
    own = {name: content for name, content in faulty.files.items() if not name.startswith("board.cvg")}
    expected = {name: content for name, content in clean.files.items() if not name.startswith("board.cvg")}
    if faulty.files.get("board.cvg") != clean.files["board.cvg"]:
        return "the board was changed"
    if line.startswith("unlink"):
        # What cannot be removed stays.
        own = {name: content for name, content in own.items() if not name.startswith("tmp/")}
    is_same = faulty.status == clean.status and faulty.out == clean.out and kept(own) == kept(expected)
    if is_same:
        return "what ends the writing of a file has failed in silence" if is_last else ""
    if faulty.status == 0:
        return "wrong in silence: status 0"
    if not is_of_errors and (not told or not TOLD.match(told[-1])):
        return "not told: " + repr(told[-1:])
    left = {name for name in own if not name.startswith(tuple(command.outputs) or ("\n",))}
    if left:
        return f"left behind: {sorted(left)}"
    for name in command.before:
        if own.get(name) not in (OLD.encode(), expected.get(name)):
            return f"{name} is neither the old file nor the new one"
    for name, content in own.items():
        is_whole = without_time(name, content) == without_time(name, expected.get(name, b""))
        if name not in command.before and not is_whole and not name.endswith((".sqlite", ".sqlite-journal")):
            return f"{name} is not whole"
    return ""


def faults_of(command, calls):
    """What to inject, and the place of the call that is the first to fail."""
    for place, (name, number, _) in enumerate(calls):
        for failure in FAILURES.get(name, ()):
            yield place, failure, [f"{name}:error={failure}:when={number}"]
        if name in MEMORY and command.outlives_no_memory:
            yield place, "ENOMEM", [f"{name}:{MEMORY[name]}:when={number}"]
            nexts = [next((own[1] for own in calls[place:] if own[0] == kind), None) for kind in MEMORY]
            yield place, "lasting ENOMEM", [f"{kind}:{MEMORY[kind]}:when={own}+"
                                            for kind, own in zip(MEMORY, nexts) if own is not None]


def check(runner, command):
    clean = runner.run(command)
    if clean.status not in (0, 1):
        return [f"{command.name}: ends with {clean.status}: {clean.err}"], 0
    count, found = 0, []
    calls = own_calls(clean)
    for place, failure, injections in faults_of(command, calls):
        faulty = runner.run(command, *injections)
        if not any(INJECTED in row for row in faulty.log):
            continue
        count += 1
        line = calls[place][2]
        wrong = judge(command, clean, faulty, line, is_last_chance(calls, place))
        if wrong:
            found.append(f"{command.name}: {failure} of {line[:120]}: {wrong}")
    return found, count


def may_trace():
    if shutil.which("strace") is None:
        return False
    return subprocess.run(["strace", "-qq", "-o", "/dev/null", "true"], capture_output=True, check=False).returncode == 0


def main():
    arguments = [argument for argument in sys.argv[1:] if argument != "--all"]
    program, board, *names = arguments
    if not may_trace():
        print("strace is not there, or may not trace here")
        return 77
    commands = commands_of()
    names = names or [name for name, own in commands.items() if "--all" in sys.argv or not own.is_like_another]
    found, faults = [], 0
    with tempfile.TemporaryDirectory(prefix="ipc2581-faults-") as folder:
        runner = Runner(program, board, folder)
        for name in names:
            own, count = check(runner, commands[name])
            found += own
            faults += count
    print("\n".join(found))
    print(f"{faults} faults in {len(names)} commands, {len(found)} findings")
    return 1 if found or faults == 0 else 0


if __name__ == "__main__":
    sys.exit(main())
