import json
import signal
import sqlite3
import subprocess
import sys
import time

import pytest

from conftest import SOURCE

pytest.importorskip("distributed")

PROGRAM = SOURCE / "examples/many_boards.py"
COUNT = 200
BROKEN = 3


@pytest.fixture
def processes():
    """Starts processes, and ends those that are still there."""
    started = []

    def start(*arguments, **options):
        started.append(subprocess.Popen([sys.executable, *map(str, arguments)], **options))
        return started[-1]

    yield start
    for process in started:
        process.kill()
        process.wait()


@pytest.fixture
def scheduler(processes, tmp_path):
    """The address of a scheduler."""
    file = tmp_path / "scheduler.json"
    log = open(tmp_path / "scheduler.log", "w")
    processes("-m", "distributed.cli.dask_scheduler", "--host", "127.0.0.1", "--port", "0", "--no-dashboard",
              "--scheduler-file", file, stdout=log, stderr=log)
    wait_for(file.exists)
    wait_for(lambda: "address" in file.read_text())
    return json.loads(file.read_text())["address"]


@pytest.fixture
def start_worker(processes, scheduler, tmp_path):
    def start(name):
        log = open(tmp_path / f"{name}.log", "w")
        return processes("-m", "distributed.cli.dask_worker", scheduler, "--nthreads", "1", "--no-nanny", "--no-dashboard",
                         "--name", name, "--local-directory", tmp_path / name, stdout=log, stderr=log)

    return start


@pytest.fixture
def folder(tmp_path):
    """Boards, some of them broken, in two folders."""
    board = (SOURCE / "examples/import/first-board.xml").read_text()
    boards = tmp_path / "boards"
    (boards / "more").mkdir(parents=True)
    for i in range(COUNT - BROKEN):
        (boards / ("more" if i % 2 else "") / f"board{i}.xml").write_text(board)
    for i in range(BROKEN):
        (boards / f"broken{i}.xml").write_text("<IPC-2581>\n<Ecad\n")
    (boards / "notes.txt").write_text("no board")
    return boards


def wait_for(condition, seconds=120):
    end = time.monotonic() + seconds
    while not condition():
        assert time.monotonic() < end, "waited in vain"
        time.sleep(0.01)


def count_of(database, query):
    if not database.exists():
        return 0
    connection = sqlite3.connect(database, timeout=60)
    try:
        return connection.execute(query).fetchone()[0]
    except sqlite3.OperationalError:
        return 0
    finally:
        connection.close()


def ask(database, query):
    connection = sqlite3.connect(database, timeout=60)
    try:
        return connection.execute(query).fetchall()
    finally:
        connection.close()


def check_each_is_there_once(folder, database):
    files = [row[0] for row in ask(database, "SELECT file FROM boards")]
    assert sorted(files) == sorted(str(path) for path in folder.rglob("board*.xml"))
    parts = ask(database, "SELECT count(*) FROM components GROUP BY board_id")
    assert parts == [(2,)] * (COUNT - BROKEN)


def test_a_worker_may_be_killed(processes, scheduler, start_worker, folder, tmp_path):
    database = tmp_path / "boards.sqlite"
    workers = [start_worker("first"), start_worker("second")]
    run = processes(PROGRAM, folder, database, "--scheduler", scheduler, stdout=subprocess.PIPE, text=True)
    wait_for(lambda: count_of(database, "SELECT count(*) FROM boards") > 10)
    workers[0].send_signal(signal.SIGKILL)
    done = count_of(database, "SELECT count(*) FROM boards")
    out, _ = run.communicate(timeout=300)
    assert done < COUNT - BROKEN, "the worker was not killed midway"
    lines = out.splitlines()
    assert lines[0] == f"{COUNT} boards, {COUNT - BROKEN} read now, {BROKEN} cannot be read"
    assert [line.split(": ")[0] for line in lines[1:]] == [f"{folder}/broken{i}.xml:3:1" for i in range(BROKEN)]
    assert run.returncode == 1
    assert workers[1].poll() is None
    check_each_is_there_once(folder, database)


def test_a_run_goes_on_where_it_was_stopped(processes, scheduler, start_worker, folder, tmp_path):
    database = tmp_path / "boards.sqlite"
    start_worker("only")
    arguments = [PROGRAM, folder, database, "--scheduler", scheduler]
    run = processes(*arguments)
    wait_for(lambda: count_of(database, "SELECT count(*) FROM many_boards") > 10)
    run.kill()
    run.wait()
    before = count_of(database, "SELECT count(*) FROM many_boards")
    assert before < COUNT
    again = subprocess.run([sys.executable, *map(str, arguments)], capture_output=True, text=True, check=False)
    read_now = int(again.stdout.split(",")[1].split()[0])
    assert COUNT - BROKEN - before <= read_now < COUNT - BROKEN
    check_each_is_there_once(folder, database)

    changed = folder / "board0.xml"
    changed.write_text(changed.read_text().replace('refDes="D1"', 'refDes="D9"'))
    third = subprocess.run([sys.executable, *map(str, arguments)], capture_output=True, text=True, check=False)
    assert third.stdout.startswith(f"{COUNT} boards, 1 read now, {BROKEN} cannot be read\n")
    assert ask(database, "SELECT count(*) FROM components WHERE designator = 'D9'") == [(1,)]
    check_each_is_there_once(folder, database)


def test_it_starts_its_own_workers(folder, tmp_path):
    for path in folder.rglob("board*.xml"):
        if path.name not in ("board1.xml", "board2.xml"):
            path.unlink()
    arguments = [sys.executable, PROGRAM, folder, tmp_path / "boards.sqlite", "--workers", "2"]
    done = subprocess.run(list(map(str, arguments)), capture_output=True, text=True, check=False)
    assert done.stdout.startswith(f"{2 + BROKEN} boards, 2 read now, {BROKEN} cannot be read\n"), done.stderr
    (folder / "broken0.xml").unlink()
    (folder / "broken1.xml").write_text((folder / "board2.xml").read_text())
    again = subprocess.run([*map(str, arguments), "--retry"], capture_output=True, text=True, check=False)
    assert again.stdout.startswith(f"{1 + BROKEN} boards, 1 read now, "), again.stdout + again.stderr


def test_nothing_to_do_starts_no_worker(tmp_path):
    (tmp_path / "empty").mkdir()
    arguments = [sys.executable, PROGRAM, tmp_path / "empty", tmp_path / "boards.sqlite", "--scheduler", "tcp://127.0.0.1:1"]
    done = subprocess.run(list(map(str, arguments)), capture_output=True, text=True, timeout=60, check=False)
    assert done.stdout == "0 boards, 0 read now, 0 cannot be read\n"
    assert done.returncode == 0
