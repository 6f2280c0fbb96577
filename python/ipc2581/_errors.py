"""The exceptions of the package."""

from __future__ import annotations

from typing import Optional


class Error(Exception):
    """The base of all that this package raises of its own."""


class ReadError(Error):
    """A file that is no board, or not a whole one.

    A file that is not there, or must not be read, is an OSError as everywhere in Python.
    """

    path: str
    """The file, as it was named."""
    line: Optional[int]
    """Counted from 1; None where the cause has no place in the file."""
    column: Optional[int]
    cause: str

    def __init__(self, path: str, line: Optional[int], column: Optional[int], cause: str) -> None:
        super().__init__(path, line, column, cause)
        self.path = path
        self.line = line
        self.column = column
        self.cause = cause

    def __str__(self) -> str:
        places = [str(place) for place in (self.line, self.column) if place is not None]
        return ":".join([self.path, *places]) + ": " + self.cause


class StoppedError(ReadError):
    """The progress function has ended the read."""


class WriteError(Error):
    """A file that was not written. What stood there before is still there."""

    path: str
    cause: str

    def __init__(self, path: str, cause: str) -> None:
        super().__init__(path, cause)
        self.path = path
        self.cause = cause

    def __str__(self) -> str:
        return f"{self.path}: {self.cause}"


class DeletedError(Error):
    """An object is used that was deleted, or that stood in one that was deleted."""
