"""Columns of listings as arrays of NumPy, and as data frames of pandas."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, Dict, Iterator, List, Optional, Tuple

from . import _ipc2581

if TYPE_CHECKING:
    import numpy
    import pandas

# Texts that come again and again on a board. They are categories in a data frame.
CATEGORIES = frozenset(
    "layer from_layer to_layer net side mount kind line_end plating usage primitive origin package exposure node "
    "category class function polarity material group type".split()
)
# The lists of a board that the program has a listing of.
LISTINGS = ("components", "nets", "layers", "packages", "bom")


def _needed(module: str, purpose: str) -> Any:
    try:
        return __import__(module)
    except ImportError as error:
        raise ImportError(f"{module} is needed for {purpose}; Debian has it as python3-{module}") from error


class Columns:
    """The columns of a listing, as arrays of NumPy.

    A column is an attribute, or goes by its name: columns.x, columns["x"]. Columns of numbers are arrays of float, NaN
    for nothing; those of yes or no are arrays of bool, masked where some have neither; those of texts are arrays of
    str, None for nothing. codes and texts give a column of texts without an object for each of them.
    """

    _columns: Dict[str, Tuple[str, Any, Any]]

    def __init__(self, columns: List[Tuple[str, str, Any, Any]]) -> None:
        self._columns = {key: (kind, values, more) for key, kind, values, more in columns}

    @property
    def names(self) -> List[str]:
        """The names of the columns, which are those of the listing in JSON."""
        return list(self._columns)

    def __len__(self) -> int:
        return len(next(iter(self._columns.values()))[1])

    def __iter__(self) -> Iterator[str]:
        return iter(self._columns)

    def __contains__(self, name: object) -> bool:
        return name in self._columns

    def __getitem__(self, name: str) -> "numpy.ndarray[Any, Any]":
        import numpy

        kind, values, more = self._columns[name]
        column: "numpy.ndarray[Any, Any]" = values
        if kind == "text":
            column = numpy.array([*more, None], dtype=object)[values]
        elif kind == "list":
            column = numpy.empty(len(values), dtype=object)
            column[:] = values
        elif kind == "flag" and more.any():
            masked: Any = numpy.ma.MaskedArray
            column = masked(values, mask=more)
        return column

    def __getattr__(self, name: str) -> "numpy.ndarray[Any, Any]":
        try:
            return self[name]
        except KeyError:
            raise AttributeError(f"there is no column {name}") from None

    def __dir__(self) -> List[str]:
        return [*super().__dir__(), *self._columns]

    def codes(self, name: str) -> "numpy.ndarray[Any, Any]":
        """The places of the texts of a column in texts; -1 for nothing."""
        codes: "numpy.ndarray[Any, Any]" = self._texts(name)[0]
        return codes

    def texts(self, name: str) -> List[str]:
        """The texts of a column, each once, in the order in which they come."""
        return list(self._texts(name)[1])

    def _texts(self, name: str) -> Tuple[Any, List[str]]:
        kind, values, more = self._columns[name]
        if kind != "text":
            raise ValueError(f"the column {name} has no texts")
        return values, more

    def to_pandas(self) -> "pandas.DataFrame":
        """A data frame with the same columns. Layers, nets and the like are categories."""
        pandas = _needed("pandas", "data frames")
        return pandas.DataFrame({name: self._series(pandas, name) for name in self._columns})

    def _series(self, pandas: Any, name: str) -> Any:
        kind, values, more = self._columns[name]
        if kind == "text" and name in CATEGORIES:
            return pandas.Categorical.from_codes(values, more)
        if kind == "flag":
            return pandas.arrays.BooleanArray(values, more)
        return self[name]

    def __repr__(self) -> str:
        return f"<Columns of {len(self)} rows: {', '.join(self._columns)}>"


def columns_of(board: _ipc2581.Board, name: str, units: Optional[str]) -> Columns:
    _needed("numpy", "columns")
    return Columns(board._columns(name, units or ""))


def frame_of_list(objects: "_ipc2581.List[Any]") -> "pandas.DataFrame":
    pandas = _needed("pandas", "data frames")
    board = objects.board
    for name in LISTINGS:
        if board is not None and getattr(board, name) is objects:
            return columns_of(board, name, None).to_pandas()
    names = [name for name, kind in objects._members() if kind in ("str", "float", "int", "bool")]
    return pandas.DataFrame({name: [getattr(item, name) for item in objects] for name in names}, columns=names)
