#!/usr/bin/env python3
"""Collects a folder of boards in one SQLite database, on the workers of Dask.

Each board is read once, by whatever worker is free. One that cannot be read is listed with its error, and the others go
on. Run again, it takes up where it was: what is in the database is left alone, unless its file has changed.

The table many_boards of the database says what became of each file; all others are those of "ipc2581 sqlite". Workers on
other machines need the boards and the database under the same paths.
"""

import argparse
import os
import sqlite3
import sys
from contextlib import closing
from pathlib import Path

from distributed import Client, LocalCluster, as_completed

import ipc2581

ENDINGS = (".xml", ".cvg")
PACKED = (".gz", ".zst", ".xz", ".bz2", ".zip", ".7z", ".tar")
# How long to wait for others that write, in seconds.
PATIENCE = 600
# More than the workers can do at a time, and few enough to be kept by the scheduler.
AT_A_TIME = 1000


def is_board(path):
    suffixes = [suffix.lower() for suffix in path.suffixes[-2:]]
    return bool(suffixes) and (suffixes[-1] in ENDINGS or (suffixes[-1] in PACKED and suffixes[0] in ENDINGS))


def state_of(path):
    """What tells a file from one that has changed since."""
    status = os.stat(path)
    return status.st_size, status.st_mtime_ns


def read_board(path, state, database):
    """Runs on a worker. What is wrong with a board is given back; what is wrong with the database ends it all."""
    try:
        board = ipc2581.read(path)
    except (ipc2581.ReadError, OSError, MemoryError) as error:
        return path, state, str(error) or type(error).__name__
    board.to_sqlite(database)
    return path, state, None


class Record:
    """What became of each file."""

    def __init__(self, database):
        ipc2581.make_database(database)
        self._connection = sqlite3.connect(database, timeout=PATIENCE, isolation_level=None)
        self._connection.execute(
            "CREATE TABLE IF NOT EXISTS many_boards "
            "(file TEXT PRIMARY KEY, size INTEGER NOT NULL, changed_ns INTEGER NOT NULL, error TEXT)"
        )

    def close(self):
        self._connection.close()

    def add(self, path, state, error):
        self._connection.execute("REPLACE INTO many_boards VALUES (?, ?, ?, ?)", (path, *state, error))

    def states(self, with_errors):
        rows = self._connection.execute("SELECT file, size, changed_ns, error FROM many_boards")
        return {path: (size, changed) for path, size, changed, error in rows if with_errors or error is None}

    def errors(self):
        rows = self._connection.execute("SELECT file, error FROM many_boards WHERE error IS NOT NULL ORDER BY file")
        return dict(rows.fetchall())


def submit(client, path, state, database):
    return client.submit(read_board, path, state, database, pure=False, key=f"read {path}")


def outcome_of(future, path, state):
    """What the worker says. A board that has taken several workers with it is one that cannot be read."""
    if future.status == "error" and type(future.exception()).__name__ == "KilledWorker":
        return path, state, f"{path}: the workers that have read it came to their end"
    return future.result()


def read_all(client, todo, database, record):
    """Reads the files, a limited number of them being under way, and gives how many were read."""
    waiting = iter(todo.items())
    under_way = {}
    results = as_completed()

    def start_next():
        path, state = next(waiting, (None, None))
        if path is not None:
            future = submit(client, path, state, database)
            under_way[future.key] = (path, state)
            results.add(future)

    for _ in range(min(AT_A_TIME, len(todo))):
        start_next()
    count = 0
    for future in results:
        _, _, error = outcome = outcome_of(future, *under_way.pop(future.key))
        record.add(*outcome)
        count += error is None
        start_next()
    return count


def connect(options):
    if options.scheduler:
        return Client(options.scheduler)
    cluster = LocalCluster(n_workers=options.workers, threads_per_worker=1, dashboard_address=None)
    return Client(cluster)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("folder", type=Path, help="searched for boards, with all folders below")
    parser.add_argument("database", type=Path, help="the SQLite database; created if missing")
    parser.add_argument("--workers", type=int, default=os.cpu_count(), help="how many to start on this machine")
    parser.add_argument("--scheduler", metavar="ADDRESS", help="use the workers of a scheduler that runs already")
    parser.add_argument("--retry", action="store_true", help="read those again that could not be read")
    options = parser.parse_args()

    paths = sorted(path for path in options.folder.resolve().rglob("*") if path.is_file() and is_board(path))
    states = {str(path): state_of(path) for path in paths}
    database = str(options.database.resolve())
    with closing(Record(database)) as record:
        known = record.states(with_errors=not options.retry)
        todo = {path: state for path, state in states.items() if known.get(path) != state}
        count = 0
        if todo:
            with connect(options) as client:
                count = read_all(client, todo, database, record)
        errors = [error for path, error in record.errors().items() if path in states]
    print(f"{len(states)} boards, {count} read now, {len(errors)} cannot be read")
    for error in errors:
        print(error)
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main())
