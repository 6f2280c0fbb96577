"""Reading a board."""

from __future__ import annotations

import os
from typing import Callable, Optional, Union

from . import _ipc2581


def read(
    source: Union[bytes, str, os.PathLike[str]],
    *,
    exact: bool = False,
    step: Optional[str] = None,
    progress: Optional[Callable[[float], Optional[bool]]] = None,
    memory_limit: Optional[int] = None,
) -> _ipc2581.Board:
    """Read a board.

    source
        The path of a file, or bytes. It may be packed, as .gz, .zst, .xz, .bz2, .zip, .7z or .tar.
    exact
        Read as the library reads its own files, one element a line. Without it the file is imported, whatever its
        layout is.
    step
        The name of the step to read, instead of the first one with components.
    progress
        Is called now and then with how much is done, from 0.0 to 1.0. False ends the read, with StoppedError.
    memory_limit
        What the model may take, in bytes, instead of a third of what the process may have.

    Other threads run meanwhile. Raises ReadError for a file that is no board or not a whole one; it names file, line
    and cause. A file that cannot be opened raises OSError, as everywhere.
    """
    return _ipc2581.read(source, exact=exact, step=step, progress=progress, memory_limit=memory_limit)
