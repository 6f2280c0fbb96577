import gzip
import os
import stat
import sqlite3
import threading

import pytest

import ipc2581
from conftest import EXAMPLES


@pytest.mark.parametrize("exact", [False, True])
@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.name)
def test_a_board_is_written_as_the_program_writes_it(path, exact, tmp_path, run_program):
    how = ["--exact"] if exact else []
    try:
        board = ipc2581.read(path, exact=exact)
    except ipc2581.ReadError:
        pytest.skip("a file that the exact reader does not take")
    run_program("convert", *how, path, tmp_path / "program.cvg")
    board.write(tmp_path / "module.cvg")
    assert (tmp_path / "module.cvg").read_bytes() == (tmp_path / "program.cvg").read_bytes()


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.name)
def test_the_report_is_that_of_the_program(path, tmp_path, run_program):
    run_program("report", path, "-o", tmp_path / "program.txt")
    expected = (tmp_path / "program.txt").read_bytes()
    board = ipc2581.read(path)
    assert board.report().encode("utf-8", "surrogateescape") == expected
    board.report(tmp_path / "module.txt")
    assert (tmp_path / "module.txt").read_bytes() == expected


def test_writing_changes_nothing_in_the_board(board, tmp_path):
    board.write(tmp_path / "first.cvg")
    board.write(tmp_path / "second.cvg")
    assert (tmp_path / "first.cvg").read_bytes() == (tmp_path / "second.cvg").read_bytes()


def test_what_was_changed_is_written(board, tmp_path):
    board.component("D1").x = 42.5
    board.components.append(ipc2581.Component(RefDes="D3", PackageRef="OLD", LayerRef="TOP"))
    del board.components[1]
    board.write(tmp_path / "board.cvg")
    again = ipc2581.read(tmp_path / "board.cvg")
    assert [component.RefDes for component in again.components] == ["D1", "D3"]
    assert again.component("D1").x == 42.5


def test_what_is_not_written_is_told(board):
    assert board.unwritten["items of the bill of materials"] == 1
    assert "pad stacks" in board.unwritten


def test_a_file_is_packed_as_its_name_says(board, tmp_path):
    board.write(tmp_path / "board.cvg")
    board.write(tmp_path / "board.cvg.gz")
    assert gzip.decompress((tmp_path / "board.cvg.gz").read_bytes()) == (tmp_path / "board.cvg").read_bytes()
    assert len(ipc2581.read(tmp_path / "board.cvg.gz").components) == 2
    with pytest.raises(ipc2581.WriteError):
        board.write(tmp_path / "board.zip")
    assert not (tmp_path / "board.zip").exists()


def test_a_file_that_is_there_can_be_kept(board, tmp_path):
    place = tmp_path / "board.cvg"
    place.write_text("mine")
    with pytest.raises(FileExistsError):
        board.write(place, overwrite=False)
    with pytest.raises(FileExistsError):
        board.report(place, overwrite=False)
    assert place.read_text() == "mine"
    board.write(place)
    assert place.read_text() != "mine"


def test_a_place_that_is_not_there_is_an_error_of_the_system(board, tmp_path):
    with pytest.raises(FileNotFoundError):
        board.write(tmp_path / "missing" / "board.cvg")
    with pytest.raises(IsADirectoryError):
        board.write(tmp_path)
    with pytest.raises(FileNotFoundError):
        board.report(tmp_path / "missing" / "board.txt")


@pytest.mark.skipif(not os.path.exists("/dev/full"), reason="no device that is always full")
def test_a_full_disk_is_told(board):
    with pytest.raises(ipc2581.WriteError) as caught:
        board.write("/dev/full")
    assert caught.value.path == "/dev/full"
    assert caught.value.cause.startswith("cannot be written")
    assert str(caught.value) == "/dev/full: " + caught.value.cause


def test_nothing_is_left_beside_a_file(board, tmp_path):
    board.write(tmp_path / "board.cvg")
    assert [entry.name for entry in tmp_path.iterdir()] == ["board.cvg"]
    assert stat.S_IMODE((tmp_path / "board.cvg").stat().st_mode) & 0o600 == 0o600


def test_boards_are_written_and_changed_in_several_threads(board, tmp_path):
    def write(name):
        for _ in range(20):
            board.write(tmp_path / name)

    threads = [threading.Thread(target=write, args=(f"board{i}.cvg",)) for i in range(3)]
    for thread in threads:
        thread.start()
    while any(thread.is_alive() for thread in threads):
        board.components.append(ipc2581.Component(RefDes="X"))
        board.components.pop()
        board.report()
    for thread in threads:
        thread.join()
    for place in tmp_path.iterdir():
        assert len(ipc2581.read(place).components) in (2, 3)


def test_a_board_goes_into_a_database(board, path, tmp_path):
    place = tmp_path / "boards.sqlite"
    board.to_sqlite(place)
    board.to_sqlite(place)
    with sqlite3.connect(place) as connection:
        assert connection.execute("SELECT file FROM boards").fetchall() == [(str(path),)]
        designators = connection.execute("SELECT designator FROM components ORDER BY id").fetchall()
    assert designators == [("D1",), ("D2",)]
    (tmp_path / "other").write_text("no database")
    with pytest.raises(ipc2581.WriteError):
        board.to_sqlite(tmp_path / "other")


def test_the_report_of_the_library_needs_its_own_folder(board, monkeypatch, tmp_path):
    folder = tmp_path / "a.cvg"
    folder.mkdir()
    monkeypatch.setattr("tempfile.tempdir", str(folder))
    with pytest.raises(ipc2581.Error, match="must not have"):
        board.report()
