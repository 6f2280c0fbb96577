import os
import subprocess
from pathlib import Path

import pytest

import ipc2581

SOURCE = Path(os.environ["IPC2581_SOURCE_FOLDER"])
EXAMPLES = sorted((SOURCE / "examples/import").glob("*.xml")) + [SOURCE / "examples/board.cvg"]


@pytest.fixture
def path():
    """A small board with nets, pads, holes and a bill of materials."""
    return SOURCE / "examples/import/first-board.xml"


@pytest.fixture
def board(path):
    return ipc2581.read(path)


@pytest.fixture
def run_program():
    """Gives what the program prints."""

    def run(*arguments):
        done = subprocess.run(
            [os.environ["IPC2581_PROGRAM"], *map(str, arguments)], capture_output=True, check=True
        )
        return done.stdout

    return run
