import inspect
import io
import os
import shutil
import subprocess
import sys
from contextlib import redirect_stdout

import pytest

import ipc2581
from conftest import SOURCE

PACKAGE = str(SOURCE / "python")

needs_mypy = pytest.mark.skipif(shutil.which("mypy") is None, reason="mypy is missing (Debian package mypy)")


def help_on(what):
    with redirect_stdout(io.StringIO()) as out:
        help(what)
    return out.getvalue()


def test_help_on_the_package_shows_how_it_is_used():
    text = help_on(ipc2581)
    assert 'board = ipc2581.read("board.xml")' in text
    assert "IPC-2581 boards: read, ask, change, write." in text
    for name in ("class Board(", "class Component(", "class List(", "class ReadError(", "class Columns(", "read(source:"):
        assert name in text, name


def test_help_shows_how_things_are_called():
    assert "read(source:" in help_on(ipc2581.read)
    assert "net(self, name)" in help_on(ipc2581.Board)
    assert "pop(self, index=-1)" in help_on(ipc2581.List)
    assert "Component(**members)" in help_on(ipc2581.Component)
    assert "str. refDes of Component" in help_on(ipc2581.Component)
    for kind in (ipc2581.Board, ipc2581.List):
        assert "self: ipc2581" not in help_on(kind)


@pytest.mark.parametrize("kind", [ipc2581.Board, ipc2581.List, ipc2581.Columns, ipc2581.ImportReport, ipc2581.read])
def test_all_that_is_public_says_what_it_is(kind):
    assert inspect.getdoc(kind)
    for name, value in vars(kind).items() if inspect.isclass(kind) else ():
        if not name.startswith("_"):
            assert inspect.getdoc(value), name


def test_lines_of_help_fit_on_a_terminal():
    for kind in (ipc2581.Board, ipc2581.List, ipc2581.Columns, ipc2581.ImportReport):
        for line in help_on(kind).splitlines():
            assert len(line) <= 120, line


def test_the_stubs_are_those_of_the_module():
    done = subprocess.run(
        [sys.executable, SOURCE / "tools/python-stubs", "--check", ipc2581.__path__[0] + "/.."],
        capture_output=True, text=True, check=False,
    )
    assert done.returncode == 0, done.stdout + done.stderr


def without_sanitizer(monkeypatch):
    """mypy is compiled, and takes a minute where it is watched."""
    monkeypatch.delenv("LD_PRELOAD", raising=False)
    monkeypatch.delenv("PYTHONMALLOC", raising=False)


@needs_mypy
def test_the_package_has_right_types(monkeypatch, tmp_path):
    without_sanitizer(monkeypatch)
    monkeypatch.chdir(PACKAGE)
    done = subprocess.run(
        ["mypy", "--strict", "--ignore-missing-imports", "--cache-dir", tmp_path, "ipc2581"],
        capture_output=True, text=True, check=False,
    )
    assert done.returncode == 0, done.stdout


@needs_mypy
def test_types_of_a_program_are_known(monkeypatch, tmp_path):
    without_sanitizer(monkeypatch)
    monkeypatch.setenv("MYPYPATH", PACKAGE)
    program = tmp_path / "program.py"
    program.write_text(
        "import ipc2581\n"
        "board = ipc2581.read('board.xml')\n"
        "reveal_type(board.component('U1').Xform.Rotation)\n"
        "errors: list[type[ipc2581.Error]] = [ipc2581.ReadError]\n"
        "columns: ipc2581.Columns = board.pads()\n"
        "reveal_type(board.net('GND').pins[0].component)\n"
        "reveal_type([shape.Kind for shape in board.layer_features[0].sets])\n"
        "board.component(1)\n"
    )
    done = subprocess.run(
        ["mypy", "--strict", "--ignore-missing-imports", "--cache-dir", tmp_path, program],
        capture_output=True, text=True, check=False,
    )
    assert 'Revealed type is "builtins.float"' in done.stdout
    assert 'Revealed type is "Union[ipc2581._ipc2581.Component, None]"' in done.stdout
    assert 'Revealed type is "builtins.list[ipc2581._ipc2581.SetKinds]"' in done.stdout
    assert 'incompatible type "int"; expected "str"' in done.stdout
    assert done.stdout.count("error:") == 1, done.stdout


@pytest.mark.skipif(shutil.which("stubtest") is None, reason="stubtest is missing (Debian package mypy)")
def test_the_stubs_fit_the_module(monkeypatch, tmp_path):
    if "LD_PRELOAD" in os.environ:
        pytest.skip("a module that is watched by a sanitizer is not loaded by another interpreter")
    monkeypatch.setenv("PYTHONPATH", ipc2581.__path__[0] + "/..")
    config = tmp_path / "mypy.ini"
    config.write_text("[mypy]\nignore_missing_imports = True\n")
    # What only the way in which the classes are made brings about, and no program sees.
    allowed = tmp_path / "allowed"
    allowed.write_text(
        "ipc2581._ipc2581.(Board|List)\n"
        "ipc2581._ipc2581.(Board|List|Object).__init__\n"
        "ipc2581._ipc2581.List.__class_getitem__\n"
        "ipc2581._ipc2581.PointD.__iter__\n"
    )
    done = subprocess.run(
        ["stubtest", "--mypy-config-file", config, "--allowlist", allowed, "ipc2581._ipc2581"],
        cwd=tmp_path, capture_output=True, text=True, check=False,
    )
    assert done.returncode == 0, done.stdout + done.stderr
