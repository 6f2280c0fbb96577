#!/usr/bin/env python3
"""Measures the Python module against its goals: python_goals.py [--rounds N] BUILD-FOLDER BOARD

BUILD-FOLDER is one of the preset bench, configured with -DIPC2581_BUILD_PYTHON=ON, with ipc2581_python and import_read
built. Every run is a process of its own with its file in the page cache, and the programs take turns. A ratio is the
median over the rounds of the ratio within a round. Ends with 1 if a goal is missed.
"""

import argparse
import os
import statistics
import subprocess
import sys
from pathlib import Path

GOAL_OF_READ = 1.1
GOAL_OF_FRAMES = 300.0
READER = Path(__file__).resolve().parent / "python_read.py"
PYTHON = "/usr/bin/python3" if Path("/usr/bin/python3").exists() else sys.executable


def milliseconds_of(environment, *command):
    """What stands before "ms" in each line of output, by its first word."""
    done = subprocess.run([str(part) for part in command], capture_output=True, text=True, check=True, env=environment)
    lines = [line.split() for line in done.stdout.splitlines()]
    return {words[0]: float(words[words.index("ms") - 1]) for words in lines if "ms" in words}


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rounds", type=int, default=11)
    parser.add_argument("build", type=Path)
    parser.add_argument("board", type=Path)
    options = parser.parse_args()
    environment = os.environ | {"PYTHONPATH": str(options.build / "python"), "PYTHONDONTWRITEBYTECODE": "1"}

    def round_of_all():
        theirs = milliseconds_of(environment, options.build / "bin/import_read", options.board)
        return theirs, milliseconds_of(environment, PYTHON, READER, options.board)

    round_of_all()
    rounds = [round_of_all() for _ in range(options.rounds)]
    ratios = {key: statistics.median(ours[key] / theirs[key] for theirs, ours in rounds) for key in ("read", "elapsed")}
    frames = statistics.median(ours["frames"] for _, ours in rounds)
    print(f"read in Python over import, processor time: {ratios['read']:.2f}, goal {GOAL_OF_READ}")
    print(f"read in Python over import, elapsed:        {ratios['elapsed']:.2f}, goal {GOAL_OF_READ}")
    print(f"data frames of pads, tracks and holes:      {frames:.0f} ms, goal {GOAL_OF_FRAMES:.0f} ms")
    return 1 if max(ratios.values()) > GOAL_OF_READ or frames > GOAL_OF_FRAMES else 0


if __name__ == "__main__":
    sys.exit(main())
