"""The report of an import, and the library's text report."""

from __future__ import annotations

import os
import tempfile
from typing import Dict, Iterator, List, NamedTuple, Optional, Union

from . import _ipc2581
from ._errors import Error


class Fact(NamedTuple):
    """What a file states and the model has no member for: an element, or some attributes of one."""

    path: str
    """Its elements from the root down, without the root: "Bom/BomItem"."""
    line: Optional[int]
    """Of the opening tag; None if it is not known."""
    owner: int
    """Which of several it belongs to, counted from 0 in the order of the file."""
    attributes: Dict[str, str]
    """By their names; the text of an element stands under an empty name."""

    @property
    def element(self) -> str:
        """The last name of the path."""
        return self.path.rpartition("/")[2]


class Note(NamedTuple):
    """What an import did otherwise than to take a fact to its member."""

    kind: str
    line: Optional[int]
    text: str


class ElementCount(NamedTuple):
    """How often an element stands in a file, and how often something of it was lost."""

    stated: int
    lost: int


class ImportReport:
    """What came of the facts of a file: all that is not here has arrived in the model."""

    def __init__(self, board: _ipc2581.Board) -> None:
        self._board = board

    @property
    def lost_count(self) -> int:
        """The number of facts that the model has no member for."""
        return self._board._lost_count()

    @property
    def remark_count(self) -> int:
        """Remarks of sets, which are counted instead of listed."""
        return self._board._remark_count()

    @property
    def lost_paths(self) -> Dict[str, int]:
        """Each path that has lost something, with the number of its facts."""
        return self._board._lost_paths()

    @property
    def notes(self) -> List[Note]:
        """What was done otherwise than to take a fact to its member, in the order of the file."""
        return [Note(*note) for note in self._board._notes()]

    @property
    def elements(self) -> Dict[str, ElementCount]:
        """By the name of the element."""
        return {name: ElementCount(*count) for name, count in self._board._elements().items()}

    def facts(self, path: Optional[str] = None) -> Iterator[Fact]:
        """The facts in the order of the file, all of them or those at a path."""
        if path is not None:
            return iter([Fact(*fact) for fact in self._board._facts_at(path)])
        return (Fact(*self._board._fact(index)) for index in range(self.lost_count))

    def __repr__(self) -> str:
        return f"<ImportReport: {self.lost_count} facts lost, {len(self.notes)} notes>"


def report_of(board: _ipc2581.Board) -> Optional[ImportReport]:
    return None if board.exact else ImportReport(board)


def text_of(board: _ipc2581.Board, path: Union[None, str, os.PathLike[str]], overwrite: bool) -> str:
    # The library chooses the name of the report: all up to the first ".cvg" of what it is given.
    with tempfile.TemporaryDirectory(prefix="ipc2581-") as folder:
        if ".cvg" in folder:
            raise Error('the folder for temporary files must not have ".cvg" in its name')
        board._print_report(os.path.join(folder, "report.cvg"))
        with open(os.path.join(folder, "report.txt"), "rb") as file:
            text = file.read()
    if path is not None:
        board._write_text(path, text, overwrite)
    return text.decode("utf-8", "surrogateescape")
