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

    # The program has the library of a sanitizer in itself, and takes no other one.
    environment = {name: value for name, value in os.environ.items() if name != "LD_PRELOAD"}

    def run(*arguments):
        done = subprocess.run(
            [os.environ["IPC2581_PROGRAM"], *map(str, arguments)], capture_output=True, check=True, env=environment
        )
        return done.stdout

    return run
