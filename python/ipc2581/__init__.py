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

from ._errors import DeletedError as DeletedError
from ._errors import Error as Error
from ._errors import ReadError as ReadError
from ._errors import StoppedError as StoppedError
from ._errors import WriteError as WriteError
from ._frames import Columns as Columns
from ._ipc2581 import *  # noqa: F403
from ._read import read as read
from ._report import ElementCount as ElementCount
from ._report import Fact as Fact
from ._report import ImportReport as ImportReport
from ._report import Note as Note

# They are known by the package, in help and in messages, wherever their source stands.
for _own in (DeletedError, Error, ReadError, StoppedError, WriteError, Columns, read, ElementCount, Fact, ImportReport, Note):
    _own.__module__ = __name__
