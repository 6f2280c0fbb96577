#!/usr/bin/env python3
"""What the viewer costs in headless Chromium with software rendering: bench/viewer.py VIEWER BOARD [--rounds N]

In each round a browser is begun anew and the board is dropped twice. Prints the times until it is drawn, and the most
memory of the page's process so far, over the size of the file.
"""

import argparse
import os
import re
import statistics
import sys
import time
from pathlib import Path

sys.path.insert(0, str(Path(__file__).resolve().parent.parent / "tests" / "support"))
from browser import drop, new_browser


def most_memory(begun_before):
    """In bytes, of the largest process that draws a page and was not there before."""
    most = 0
    for process in set(os.listdir("/proc")) - begun_before:
        try:
            if b"--type=renderer" in Path("/proc", process, "cmdline").read_bytes():
                status = Path("/proc", process, "status").read_text()
                most = max(most, int(re.search(r"VmHWM:\s+(\d+)", status)[1]) * 1024)
        except (OSError, TypeError):
            continue
    return most


def milliseconds_of_drop(browser, board):
    """Until another board than before is drawn."""
    browser.execute_script("window.before = viewer.app")
    start = time.perf_counter()
    drop(browser, board)
    while not browser.execute_script("return viewer.app && viewer.app !== window.before && viewer.app.view.frames > 0"):
        time.sleep(0.02)
    return (time.perf_counter() - start) * 1000


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("viewer", type=Path)
    parser.add_argument("board", type=Path)
    parser.add_argument("--rounds", type=int, default=5)
    options = parser.parse_args()
    board, size = options.board.resolve(), options.board.stat().st_size
    times, memory = {1: [], 2: []}, {1: [], 2: []}
    for _ in range(options.rounds):
        before = set(os.listdir("/proc"))
        browser = new_browser()
        try:
            browser.get(options.viewer.resolve().as_uri())
            while not browser.execute_script("return !!window.viewer"):
                time.sleep(0.02)
            for turn, own in times.items():
                own.append(milliseconds_of_drop(browser, board))
                memory[turn].append(most_memory(before) / size)
        finally:
            browser.quit()
    for turn, own in times.items():
        print(f"drop {turn}: {statistics.median(own):.0f} ms ({min(own):.0f} to {max(own):.0f}), most memory "
              f"{statistics.median(memory[turn]):.2f} of the file ({min(memory[turn]):.2f} to {max(memory[turn]):.2f})")


if __name__ == "__main__":
    main()
