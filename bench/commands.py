#!/usr/bin/env python3
"""How long the commands of the program take over the import alone: commands.py [--rounds N] PROGRAM IMPORT_READ BOARD

Every run is a process of its own with its file in the page cache, and the commands take turns. A ratio is the median
over the rounds of the ratio within a round; that of diff is over two imports.
"""

import argparse
import statistics
import subprocess
import tempfile
import time
from pathlib import Path

LISTINGS = ("info", "bom", "components", "nets", "layers", "stackup", "packages", "pins", "pads", "holes", "tracks")


def commands_of(program, board, folder):
    commands = {name: [program, name, board] for name in LISTINGS}
    commands["check"] = [program, "check", board]
    commands["report"] = [program, "report", board, "-o", "-"]
    commands["convert"] = [program, "convert", "--force", board, folder / "written.cvg"]
    commands["svg"] = [program, "svg", "--force", board, "-o", folder / "pictures"]
    commands["html"] = [program, "html", "--force", board, "-o", folder / "page.html"]
    commands["diff"] = [program, "diff", board, board]
    return commands


def milliseconds_of(command):
    start = time.perf_counter()
    # Some commands end with a status of their own where a board has losses.
    subprocess.run(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    return (time.perf_counter() - start) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=7)
    parser.add_argument("program", type=Path)
    parser.add_argument("import_read", type=Path)
    parser.add_argument("board", type=Path)
    options = parser.parse_args()
    with tempfile.TemporaryDirectory() as folder:
        commands = commands_of(options.program, options.board, Path(folder))
        imports, times = [], {name: [] for name in commands}
        for _ in range(options.rounds):
            imports.append(milliseconds_of([options.import_read, options.board]))
            for name, command in commands.items():
                times[name].append(milliseconds_of(command))
    print(f"import      {statistics.median(imports):7.0f} ms")
    for name, own in times.items():
        imported = 2 if name == "diff" else 1
        ratio = statistics.median(time / (imported * one) for time, one in zip(own, imports))
        print(f"{name:11} {statistics.median(own):7.0f} ms {ratio:6.2f}")


if __name__ == "__main__":
    main()
