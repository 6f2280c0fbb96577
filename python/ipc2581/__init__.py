"""IPC-2581 boards: read, ask, change, write.

    import ipc2581

    board = ipc2581.read("board.xml")
    for pin in board.net("GND").pins:
        print(pin.designator, pin.pin)
    board.components.to_pandas()

read gives a Board. The objects in it have the names of the model, which are those of the elements and attributes of a
file; what people look for first has a plain name too. Large columns come as arrays of NumPy, tables as data frames of
pandas; both are needed only where they are asked for.
"""

from ._errors import DeletedError, Error, ReadError, StoppedError, WriteError
from ._frames import Columns
from ._ipc2581 import *  # noqa: F403
from ._ipc2581 import Board, List
from ._read import read
from ._report import ElementCount, Fact, ImportReport, Note
