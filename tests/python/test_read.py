import gzip
import os
import signal
import subprocess
import sys
import threading
import zipfile

import pytest

import ipc2581
from conftest import EXAMPLES, SOURCE


def a_large_board(path):
    """More than one megabyte, so that its progress is told more than once."""
    layers = "".join(f'<Layer name="L{i}" layerFunction="SIGNAL" side="TOP" polarity="POSITIVE"/>\n' for i in range(60000))
    path.write_text(
        '<?xml version="1.0"?>\n<IPC-2581>\n<Ecad name="large">\n<CadHeader units="INCH"/>\n<CadData>\n'
        f"{layers}</CadData>\n</Ecad>\n</IPC-2581>\n"
    )
    return path


@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.name)
def test_reads_each_example(path):
    board = ipc2581.read(path)
    assert board.path == str(path)
    assert not board.exact


def test_reads_a_path_a_text_and_bytes(path):
    names = [c.RefDes for c in ipc2581.read(path).components]
    assert names == ["D1", "D2"]
    assert [c.RefDes for c in ipc2581.read(str(path)).components] == names
    assert [c.RefDes for c in ipc2581.read(path.read_bytes()).components] == names


def test_reads_packed_files(path, tmp_path):
    packed = tmp_path / "board.xml.gz"
    packed.write_bytes(gzip.compress(path.read_bytes()))
    archive = tmp_path / "board.zip"
    with zipfile.ZipFile(archive, "w") as file:
        file.write(path, "board.xml")
    for source in (packed, archive, packed.read_bytes(), archive.read_bytes()):
        assert len(ipc2581.read(source).components) == 2


def test_the_exact_reader_is_the_one_of_the_core():
    board = ipc2581.read(SOURCE / "examples/board.cvg", exact=True)
    assert board.exact
    assert board.import_report is None
    assert len(board.components) > 0


def test_the_exact_reader_takes_no_step():
    with pytest.raises(ValueError, match="none can be chosen"):
        ipc2581.read(SOURCE / "examples/board.cvg", exact=True, step="board")


def test_a_step_can_be_chosen(path):
    assert ipc2581.read(path, step="first").step.Name == "first"
    with pytest.raises(ipc2581.ReadError, match='has no step "other"'):
        ipc2581.read(path, step="other")


def test_a_missing_file_is_an_error_of_the_system(tmp_path):
    with pytest.raises(FileNotFoundError) as caught:
        ipc2581.read(tmp_path / "missing.xml")
    assert caught.value.filename == str(tmp_path / "missing.xml")
    with pytest.raises(IsADirectoryError):
        ipc2581.read(tmp_path)


def test_a_broken_file_is_told_with_its_place(tmp_path):
    broken = tmp_path / "broken.xml"
    broken.write_text("<IPC-2581>\n<Ecad\n")
    with pytest.raises(ipc2581.ReadError) as caught:
        ipc2581.read(broken)
    error = caught.value
    assert error.path == str(broken)
    assert error.line == 3
    assert error.column >= 1
    assert error.cause != ""
    assert str(error) == f"{broken}:3:{error.column}: {error.cause}"
    assert isinstance(error, ipc2581.Error)


def test_a_cause_without_a_place_has_none(tmp_path):
    other = tmp_path / "other.xml"
    other.write_text("<html/>\n")
    with pytest.raises(ipc2581.ReadError) as caught:
        ipc2581.read(other)
    assert caught.value.line is None or caught.value.line >= 1
    with pytest.raises(ipc2581.ReadError):
        ipc2581.read(b"")


def test_a_line_that_stops_the_exact_reader_is_told(tmp_path):
    stopped = tmp_path / "stopped.cvg"
    stopped.write_text('<IPC-2581>\n<Ecad name="a">\n   \n</Ecad>\n</IPC-2581>\n')
    with pytest.raises(ipc2581.ReadError) as caught:
        ipc2581.read(stopped, exact=True)
    assert caught.value.line == 3


@pytest.mark.parametrize("exact", [False, True])
def test_the_memory_of_a_board_can_be_limited(tmp_path, exact):
    with pytest.raises(ipc2581.ReadError):
        ipc2581.read(a_large_board(tmp_path / "large.xml"), exact=exact, memory_limit=100000)


def test_progress_runs_to_its_end(tmp_path):
    parts = []
    ipc2581.read(a_large_board(tmp_path / "large.xml"), progress=parts.append)
    assert len(parts) > 1
    assert parts == sorted(parts)
    assert parts[-1] == 1.0


@pytest.mark.parametrize("exact", [False, True])
def test_progress_ends_a_read(tmp_path, exact):
    with pytest.raises(ipc2581.StoppedError):
        ipc2581.read(a_large_board(tmp_path / "large.xml"), exact=exact, progress=lambda part: False)


@pytest.mark.parametrize("exact", [False, True])
def test_what_progress_raises_comes_out(tmp_path, exact):
    def fail(part):
        raise KeyError("mine")

    with pytest.raises(KeyError, match="mine"):
        ipc2581.read(a_large_board(tmp_path / "large.xml"), exact=exact, progress=fail)


def test_the_keyboard_ends_a_read(tmp_path):
    path = a_large_board(tmp_path / "large.xml")

    def press(part):
        os.kill(os.getpid(), signal.SIGINT)

    with pytest.raises(KeyboardInterrupt):
        ipc2581.read(path, progress=press)


def test_a_read_gives_way_to_other_threads(tmp_path):
    path = a_large_board(tmp_path / "large.xml")
    ran = threading.Event()
    waited = []

    def wait(part):
        threading.Thread(target=ran.set).start()
        waited.append(ran.wait(20))

    ipc2581.read(path, progress=wait)
    assert waited and all(waited)


@pytest.mark.parametrize("exact", [False, True])
def test_boards_are_read_in_several_threads(exact):
    path = SOURCE / "examples/board.cvg"
    counts = []
    threads = [
        threading.Thread(target=lambda: counts.append(len(ipc2581.read(path, exact=exact).components)))
        for _ in range(8)
    ]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    assert len(counts) == 8
    assert len(set(counts)) == 1


def test_the_package_needs_neither_numpy_nor_pandas(path):
    program = (
        "import sys\n"
        "for name in ('numpy', 'pandas', 'matplotlib'):\n"
        "    sys.modules[name] = None\n"
        "import ipc2581\n"
        f"board = ipc2581.read({str(path)!r})\n"
        "print(board.component('D1').x)\n"
        "for ask in (board.pads, board.components.to_pandas):\n"
        "    try:\n"
        "        ask()\n"
        "    except ImportError as error:\n"
        "        print(error)\n"
    )
    done = subprocess.run([sys.executable, "-c", program], capture_output=True, text=True, check=True)
    assert done.stdout.splitlines() == [
        "9.0",
        "numpy is needed for columns; Debian has it as python3-numpy",
        "pandas is needed for data frames; Debian has it as python3-pandas",
    ]
