#!/usr/bin/env python3
"""Reads a board in Python and makes data frames of what there is most of on it: python_read.py FILE

It prints what import_read prints of the same file, and the seconds of the frames. PYTHONPATH names the folder of the
built package.
"""

import os
import sys
import time

import numpy  # noqa: F401  the arrays are filled by the module; loading NumPy is no part of it
import pandas  # noqa: F401

import ipc2581


def milliseconds(clock, since):
    return (clock() - since) * 1000


def main():
    path = sys.argv[1]
    cpu, elapsed = time.process_time(), time.perf_counter()
    board = ipc2581.read(path)
    print(f"read {milliseconds(time.process_time, cpu):.3f} ms")
    print(f"elapsed {milliseconds(time.perf_counter, elapsed):.3f} ms")
    rows, begin = 0, time.perf_counter()
    for name in ("pads", "tracks", "holes"):
        since = time.perf_counter()
        frame = board.listing(name).to_pandas()
        rows += len(frame)
        print(f"{name} {len(frame)} rows {milliseconds(time.perf_counter, since):.3f} ms")
    print(f"frames {rows} rows {milliseconds(time.perf_counter, begin):.3f} ms")
    # Left to the system, as import_read does.
    sys.stdout.flush()
    os._exit(0)


main()
