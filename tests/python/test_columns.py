import json
import os
from pathlib import Path

import pytest

import ipc2581
from conftest import EXAMPLES

numpy = pytest.importorskip("numpy")
pandas = pytest.importorskip("pandas")

COMMANDS = {
    "bom": ["bom"],
    "components": ["components"],
    "nets": ["nets"],
    "points": ["nets", "--physical"],
    "layers": ["layers"],
    "stackup": ["stackup"],
    "packages": ["packages"],
    "pins": ["pins"],
    "pads": ["pads"],
    "holes": ["holes"],
    "tracks": ["tracks"],
}


def rows_of(printed):
    """The rows of a listing in JSON: those of its one list of objects."""
    document = json.loads(printed)
    return next(value for key, value in document.items() if isinstance(value, list) and key != "warnings")


def plain(value):
    """A value of a frame as JSON has it."""
    if isinstance(value, list):
        return value
    if value is None or value is pandas.NA or value != value:
        return None
    return value.item() if hasattr(value, "item") else value


@pytest.mark.parametrize("name", COMMANDS)
@pytest.mark.parametrize("path", EXAMPLES, ids=lambda path: path.name)
def test_columns_are_those_of_the_program(path, name, run_program):
    expected = rows_of(run_program(*COMMANDS[name], path, "--format", "json"))
    columns = ipc2581.read(path).listing(name)
    frame = columns.to_pandas()
    assert len(columns) == len(frame) == len(expected)
    assert list(frame.columns) == columns.names
    for key in columns.names:
        assert [plain(value) for value in frame[key]] == [row[key] for row in expected], key
        assert [plain(value) for value in columns[key].tolist()] == [row[key] for row in expected], key


def test_columns_go_by_their_names(board):
    holes = board.holes()
    assert holes.x.dtype == numpy.float64
    assert (holes["x"] == holes.x).all()
    assert "x" in holes
    assert list(holes) == holes.names
    assert "diameter" in dir(holes)
    assert repr(holes).startswith(f"<Columns of {len(holes)} rows: hole, diameter")
    with pytest.raises(AttributeError, match="there is no column colour"):
        holes.colour
    with pytest.raises(KeyError):
        holes["colour"]


def test_texts_come_as_codes(board):
    pads = board.pads()
    codes, texts = pads.codes("layer"), pads.texts("layer")
    assert codes.dtype == numpy.int32
    assert len(set(texts)) == len(texts)
    assert [texts[code] for code in codes] == list(pads.layer)
    with pytest.raises(ValueError, match="has no texts"):
        pads.codes("x")


def test_numbers_are_not_copied(board):
    pads = board.pads()
    assert pads.x is pads.x
    assert pads.x.base is not None
    x = pads.x
    del pads, board
    assert x.sum() == x.sum()


def test_flags_that_some_have_not_are_masked(board):
    plate = board.pads().plate
    assert isinstance(plate, numpy.ma.MaskedArray)
    assert 0 < plate.mask.sum() < len(plate)
    assert board.pads().to_pandas().plate.dtype == "boolean"


def test_layers_and_nets_are_categories(board):
    frame = board.pads().to_pandas()
    for name in ("layer", "net"):
        assert isinstance(frame[name].dtype, pandas.CategoricalDtype)
    assert frame.pin.dtype == object


def test_a_board_without_anything_has_columns_of_the_same_kinds():
    empty = ipc2581.read(b'<IPC-2581><Ecad name="a"><CadHeader units="INCH"/></Ecad></IPC-2581>')
    frame = empty.pads().to_pandas()
    assert len(frame) == 0
    assert frame.x.dtype == float
    assert frame.plate.dtype == "boolean"
    assert isinstance(frame.layer.dtype, pandas.CategoricalDtype)
    assert len(empty.components.to_pandas()) == 0


def test_lengths_come_in_any_unit(board):
    assert numpy.allclose(board.pads(units="um").x, board.pads().x * 1000)
    assert numpy.allclose(board.holes(units="inch").diameter * 25.4, board.holes().diameter, equal_nan=True, atol=1e-4)
    with pytest.raises(ValueError, match="units must be mm, inch, mil, um, not foot"):
        board.pads(units="foot")
    with pytest.raises(ValueError, match="name of a listing"):
        board.listing("nothing")


def test_a_board_without_units_has_none_to_convert():
    board = ipc2581.read(b'<IPC-2581><Ecad name="a"></Ecad></IPC-2581>')
    assert board.units == ""
    with pytest.raises(ValueError, match="does not tell its units"):
        board.pads(units="mm")


@pytest.mark.parametrize("name", ["components", "nets", "layers", "packages", "bom"])
def test_lists_of_a_board_are_frames_of_the_listings(board, name):
    assert getattr(board, name).to_pandas().equals(board.listing(name).to_pandas())


def test_any_list_is_a_frame_of_its_values(board):
    frame = board.nets[0].pins.to_pandas()
    assert list(frame.columns) == ["ComponentRef", "Pin", "Title"]
    assert list(frame.ComponentRef) == ["D1", "D2"]
    assert len(ipc2581.LogicalNet().pins.to_pandas()) == 0


def test_what_was_changed_is_in_the_columns(board):
    board.component("D1").x = 1.5
    board.components.append(ipc2581.Component(RefDes="D3"))
    frame = board.components.to_pandas()
    assert list(frame.designator) == ["D1", "D2", "D3"]
    assert frame.x[0] == 1.5


# Real boards, where the machine has some: IPC2581_BOARDS names their folder.
@pytest.mark.parametrize("name", ["pads", "holes", "tracks", "components", "nets", "bom"])
def test_columns_of_real_boards(name, run_program):
    folder = os.environ.get("IPC2581_BOARDS")
    if not folder:
        pytest.skip("IPC2581_BOARDS names no folder of boards")
    for path in sorted(Path(folder).glob("*.xml")):
        expected = rows_of(run_program(*COMMANDS[name], path, "--format", "json"))
        frame = ipc2581.read(path).listing(name).to_pandas()
        for key in frame.columns:
            assert [plain(value) for value in frame[key]] == [row[key] for row in expected], (path, key)
