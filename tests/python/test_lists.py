import collections.abc
import copy
import gc

import pytest

import ipc2581


@pytest.fixture
def components(board):
    """Five components: D1, D2, C0, C1, C2."""
    board.components.extend(ipc2581.Component(RefDes=f"C{i}", Height=i) for i in range(3))
    return board.components


def names(components):
    return [component.RefDes for component in components]


def test_a_list_is_one_of_python(components):
    assert isinstance(components, collections.abc.MutableSequence)
    assert len(components) == 5
    assert names(components) == ["D1", "D2", "C0", "C1", "C2"]
    assert names(reversed(components)) == ["C2", "C1", "C0", "D2", "D1"]
    assert components[-1].RefDes == "C2"
    assert names(components[1:4]) == ["D2", "C0", "C1"]
    assert names(components[::-2]) == ["C2", "C0", "D1"]
    assert components[2] in components
    assert ipc2581.Component() not in components
    assert "C0" not in components
    assert components.index(components[3]) == 3
    assert components.count(components[3]) == 1
    assert components.find("RefDes", "C1") is components[3]
    assert components.find("RefDes", "C9") is None
    assert bool(components)


@pytest.mark.parametrize("index", [5, -6, 2**62])
def test_a_place_outside_is_an_error(components, index):
    with pytest.raises(IndexError):
        components[index]
    with pytest.raises(IndexError):
        del components[index]
    with pytest.raises(IndexError):
        components.pop(index)
    with pytest.raises(IndexError):
        components[index] = ipc2581.Component()


def test_objects_are_put_into_it(components):
    components.insert(0, ipc2581.Component(RefDes="A"))
    components.insert(-1, ipc2581.Component(RefDes="B"))
    components.insert(99, ipc2581.Component(RefDes="Z"))
    assert names(components) == ["A", "D1", "D2", "C0", "C1", "B", "C2", "Z"]
    components += [ipc2581.Component(RefDes="Y")]
    assert components[-1].RefDes == "Y"
    assert components[-1].board is components.board


def test_objects_are_taken_out(components):
    last = components[-1]
    assert components.pop() is last
    assert last.RefDes == "C2"
    assert last.board is None
    assert components.pop(0).RefDes == "D1"
    assert names(components) == ["D2", "C0", "C1"]
    components.append(last)
    assert last.board is components.board
    assert names(components)[-1] == "C2"


def test_a_deleted_object_is_of_no_more_use(components):
    component = components[0]
    location, transform = component.Location, component.Xform
    del components[0]
    for use in (
        lambda: component.RefDes,
        lambda: component.Location,
        lambda: component.package,
        lambda: component.rotation,
        lambda: component.board,
        lambda: location.X,
        lambda: tuple(location),
        lambda: transform.Rotation,
        lambda: copy.copy(component),
        lambda: setattr(component, "RefDes", "x"),
        lambda: setattr(component, "rotation", 1),
        lambda: components.append(component),
    ):
        with pytest.raises(ipc2581.DeletedError):
            use()
    assert component not in components
    assert repr(component) == "<Component, deleted>"
    assert len(location) == 2


def test_what_is_below_a_deleted_object_is_deleted_too(board):
    net = board.nets[0]
    pins, pin = net.pins, net.pins[0]
    package = board.packages[0]
    outline = package.Outline.Polygon.PolyStepArray
    board.nets.remove(net)
    board.packages.clear()
    for use in (
        lambda: len(pins),
        lambda: pins[0],
        lambda: list(pins),
        lambda: pin.Pin,
        lambda: pins.append(ipc2581.LogicalNetPin()),
        lambda: pins.find("Pin", "1"),
        lambda: pins.board,
        lambda: pins.clear(),
        lambda: pins.pop(),
        lambda: pins.reverse(),
        lambda: pins.to_pandas(),
        lambda: outline[0],
    ):
        with pytest.raises(ipc2581.DeletedError):
            use()
    assert repr(pins) == "<list, deleted>"


def test_slices_are_deleted(components):
    gone = components[0]
    del components[::2]
    assert names(components) == ["D2", "C1"]
    assert repr(gone) == "<Component, deleted>"
    del components[:]
    assert len(components) == 0
    assert not components


def test_objects_take_the_place_of_a_slice(components):
    gone = components[1]
    after = names(components)[2:]
    components[1:2] = [ipc2581.Component(RefDes="N1"), ipc2581.Component(RefDes="N2")]
    assert names(components)[1:] == ["N1", "N2"] + after
    assert repr(gone) == "<Component, deleted>"
    components[0:0] = (ipc2581.Component(RefDes=name) for name in ("M1", "M2"))
    assert names(components)[:2] == ["M1", "M2"]
    components[:2] = []
    size = len(components)
    components[::2] = [ipc2581.Component(RefDes=f"E{i}") for i in range((size + 1) // 2)]
    assert names(components)[::2] == [f"E{i}" for i in range((size + 1) // 2)]
    assert len(components) == size


def test_a_slice_that_cannot_be_replaced_stays(components):
    before = names(components)
    new = ipc2581.Component(RefDes="N1")
    for objects in ([new, new], [new, components[0]]):
        with pytest.raises(ValueError):
            components[:] = objects
    with pytest.raises(TypeError):
        components[:] = [new, ipc2581.Layer()]
    with pytest.raises(ValueError, match="extended slice"):
        components[::2] = [new]
    assert names(components) == before
    components.append(new)


def test_an_object_takes_the_place_of_another(components):
    before = components[1]
    components[1] = ipc2581.Component(RefDes="N")
    assert names(components) == ["D1", "N", "C0", "C1", "C2"]
    assert repr(before) == "<Component, deleted>"
    components[1] = components[1]
    assert components[1].RefDes == "N"


def test_an_object_stands_in_one_place(board, path, components):
    component = components[0]
    other = ipc2581.read(path)
    for add in (components.append, other.components.append, lambda item: components.insert(0, item)):
        with pytest.raises(ValueError, match="belongs to another one already"):
            add(component)
    with pytest.raises(ValueError, match="belongs to another one already"):
        components[1] = component
    fresh = ipc2581.Component()
    components.append(fresh)
    with pytest.raises(ValueError):
        components.append(fresh)
    assert len(components) == 6
    other.components.append(components.pop())
    assert fresh.board is other


def test_an_object_does_not_stand_in_itself():
    shape = ipc2581.Contour()
    with pytest.raises(ValueError, match="cannot stand in itself"):
        shape.DicDrawObjArray.append(shape)


def test_only_objects_of_its_class_stand_in_a_list(components):
    for wrong in (ipc2581.Layer(), "C9", None, 1, components):
        with pytest.raises(TypeError, match="a Component is wanted"):
            components.append(wrong)
    with pytest.raises(TypeError):
        components["0"]
    with pytest.raises(ValueError, match="has no text Height"):
        components.find("Height", "1")


def test_shapes_come_as_what_they_are():
    entry = ipc2581.EntryStandard(EntryStandardId="C1")
    entry.DrawArray.append(ipc2581.Circle(Diameter=2))
    entry.DrawArray.append(ipc2581.RectCenter(Width=1, Height=2))
    entry.DrawArray.append(ipc2581.PolyLine())
    assert [type(shape).__name__ for shape in entry.DrawArray] == ["Circle", "RectCenter", "PolyLine"]
    assert entry.DrawArray[0].Diameter == 2.0
    with pytest.raises(TypeError, match="a DrawObj is wanted, not Component"):
        entry.DrawArray.append(ipc2581.Component())
    with pytest.raises(TypeError):
        entry.DrawArray.append(ipc2581.DicDrawPolygon())
    shape = entry.DrawArray.pop(1)
    assert shape.Width == 1.0
    assert shape in ipc2581.EntryStandard().DrawArray or shape.board is None


def test_parts_of_a_new_object_go_with_it(board):
    component = ipc2581.Component()
    transform, location = component.Xform, component.Location
    board.components.append(component)
    transform.Rotation = 30
    location.X = 7
    del component
    gc.collect()
    assert board.components[-1].rotation == 30.0
    assert board.components[-1].Xform is transform
    assert transform.board is board
    taken = board.components.pop()
    assert transform.board is None
    assert taken.Location is location
    del taken
    gc.collect()
    assert location.X == 7.0


def test_a_list_may_change_while_somebody_goes_through_it(components):
    seen = []
    for component in components:
        seen.append(component.RefDes)
        components.remove(component)
    assert seen == ["D1", "C0", "C2"]
    assert names(components) == ["D2", "C1"]
    for component in components:
        components.clear()
    assert len(components) == 0


def test_iteration_over_a_deleted_list_is_an_error(board):
    pins = iter(board.nets[0].pins)
    next(pins)
    del board.nets[0]
    with pytest.raises(ipc2581.DeletedError):
        next(pins)


def test_a_list_is_put_into_an_order(components):
    before = list(components)
    components.reverse()
    assert names(components) == ["C2", "C1", "C0", "D2", "D1"]
    components.sort(key=lambda component: component.RefDes)
    assert names(components) == ["C0", "C1", "C2", "D1", "D2"]
    components.sort(key=lambda component: component.Height, reverse=True)
    assert components[0].RefDes == "D1"
    assert set(before) == set(components)
    with pytest.raises(ValueError, match="changed while it was sorted"):
        components.sort(key=lambda component: len(components) and components.pop().Height)


def test_what_cannot_be_compared_leaves_the_order(components):
    before = names(components)
    with pytest.raises(ZeroDivisionError):
        components.sort(key=lambda component: 1 / 0)
    assert names(components) == before


def test_objects_outlive_what_they_were_taken_from(path):
    component = ipc2581.read(path).components.pop()
    gc.collect()
    assert component.RefDes == "D2"
    assert component.Xform.Rotation is not None
