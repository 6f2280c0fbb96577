"""The model of IPC-2581 boards in C++. Written by tools/python-stubs; do not edit."""

import enum
import os
import typing as t

from ._frames import Columns
from ._report import ImportReport

if t.TYPE_CHECKING:
    import pandas

_Path = t.Union[str, os.PathLike[str]]
_Element = t.TypeVar("_Element", bound="Object")


def read(
    source: t.Union[bytes, str, os.PathLike[str]],
    *,
    exact: bool = False,
    step: t.Optional[str] = None,
    progress: t.Optional[t.Callable[[float], t.Optional[bool]]] = None,
    memory_limit: t.Optional[int] = None,
) -> Board:
    """Read a board from a file, or from bytes."""


def make_database(path: _Path) -> None:
    """Make a database for Board.to_sqlite, without a board, if there is none."""


class Board:
    """A board that was read."""

    @property
    def path(self) -> str: ...
    @property
    def name(self) -> str: ...
    @property
    def units(self) -> str: ...
    @property
    def exact(self) -> bool: ...
    @property
    def import_report(self) -> t.Optional[ImportReport]: ...
    @property
    def unwritten(self) -> dict[str, int]: ...
    @property
    def root(self) -> Parser: ...
    @property
    def content(self) -> Content: ...
    @property
    def steps(self) -> tuple[Step, ...]: ...
    @property
    def step(self) -> Step: ...
    @property
    def components(self) -> List[Component]: ...
    @property
    def nets(self) -> List[LogicalNet]: ...
    @property
    def packages(self) -> List[Package]: ...
    @property
    def layers(self) -> List[Layer]: ...
    @property
    def layer_features(self) -> List[LayerFeature]: ...
    @property
    def bom(self) -> List[BomItem]: ...
    @property
    def stackup(self) -> Stackup: ...
    @property
    def profile(self) -> Profile: ...
    def component(self, name: str) -> Component:
        """The component with this designator. Raises KeyError if there is none."""
    def net(self, name: str) -> LogicalNet:
        """The net of this name. Raises KeyError if there is none."""
    def package(self, name: str) -> Package:
        """The package of this name. Raises KeyError if there is none."""
    def layer(self, name: str) -> Layer:
        """The layer of this name. Raises KeyError if there is none."""
    def pads(self, *, units: t.Optional[str] = None) -> Columns:
        """Columns of all pads, as the program lists them."""
    def holes(self, *, units: t.Optional[str] = None) -> Columns:
        """Columns of all holes, as the program lists them."""
    def tracks(self, *, units: t.Optional[str] = None) -> Columns:
        """Columns of all strokes on copper layers, as the program lists them."""
    def points(self, *, units: t.Optional[str] = None) -> Columns:
        """Columns of the points of the physical nets."""
    def listing(self, name: str, *, units: t.Optional[str] = None) -> Columns:
        """Columns of any listing of the program."""
    def write(self, path: _Path, *, overwrite: bool = True) -> None:
        """Write the board as the library writes it."""
    def report(self, path: t.Optional[_Path] = None, *, overwrite: bool = True) -> str:
        """The library's text report of the board, also written to a path."""
    def to_sqlite(self, path: _Path) -> None:
        """Put the board into an SQLite database, as the command sqlite does."""
    def _columns(self, name: str, units: str) -> list[tuple[str, str, t.Any, t.Any]]: ...
    def _print_report(self, name: str) -> None: ...
    def _write_text(self, path: _Path, text: bytes, overwrite: bool) -> None: ...
    def _lost_count(self) -> int: ...
    def _remark_count(self) -> int: ...
    def _fact(self, index: int) -> tuple[str, t.Optional[int], int, dict[str, str]]: ...
    def _facts_at(self, path: str) -> list[tuple[str, t.Optional[int], int, dict[str, str]]]: ...
    def _lost_paths(self) -> dict[str, int]: ...
    def _notes(self) -> list[tuple[str, t.Optional[int], str]]: ...
    def _elements(self) -> dict[str, tuple[int, int]]: ...


class List(t.Generic[_Element]):
    """A list of the model, which behaves as a list of Python."""

    @property
    def board(self) -> t.Optional[Board]: ...
    def __len__(self) -> int: ...
    @t.overload
    def __getitem__(self, index: int) -> _Element: ...
    @t.overload
    def __getitem__(self, index: slice) -> list[_Element]: ...
    @t.overload
    def __setitem__(self, index: int, object: _Element) -> None: ...
    @t.overload
    def __setitem__(self, index: slice, object: t.Iterable[_Element]) -> None: ...
    def __delitem__(self, index: t.Union[int, slice]) -> None: ...
    def __contains__(self, object: t.Any) -> bool: ...
    def __iter__(self) -> t.Iterator[_Element]: ...
    def __iadd__(self, objects: t.Iterable[_Element]) -> List[_Element]: ...
    def append(self, object: _Element) -> None:
        """Put a new object at the end. It must belong to nothing else."""
    def insert(self, index: int, object: _Element) -> None:
        """Put a new object before the one at the index."""
    def extend(self, objects: t.Iterable[_Element]) -> None:
        """Put new objects at the end."""
    def remove(self, object: _Element) -> None:
        """Delete the object."""
    def pop(self, index: int = -1) -> _Element:
        """Take an object out, which goes on without the list."""
    def clear(self) -> None:
        """Delete all objects."""
    def index(self, object: _Element) -> int:
        """The place of the object."""
    def count(self, object: t.Any) -> int:
        """1 for an object of the list, else 0."""
    def find(self, member: str, text: str) -> t.Optional[_Element]:
        """The first object with this text in the member; None if there is none."""
    def reverse(self) -> None:
        """Turn the order round."""
    def sort(self, *, key: t.Callable[[_Element], t.Any], reverse: bool = False) -> None:
        """Put the objects in the order of what key gives for each."""
    def to_pandas(self) -> "pandas.DataFrame":
        """A data frame with a row for each object."""
    def _members(self) -> list[tuple[str, str]]: ...


class Object:
    """What all objects of the model are."""

    @property
    def board(self) -> t.Optional[Board]: ...
    def __init__(self, **members: t.Any) -> None: ...
    def __copy__(self: _Element) -> _Element: ...
    def __deepcopy__(self: _Element, memo: t.Any) -> _Element: ...


def _describe() -> list[tuple[str, str, list[tuple[str, str, str, bool]]]]: ...


class DrawTypes(enum.IntEnum):
    """What a shape is."""

    Butterfly = 1
    Circle = 2
    Contour = 3
    Diamond = 4
    Donut = 5
    Ellipse = 6
    Hexagon = 7
    Moire = 8
    Octagon = 9
    Oval = 10
    RectCenter = 11
    RectCham = 12
    RectCorner = 13
    RectRound = 14
    Thermal = 15
    Triangle = 16
    Plain = 17
    Line = 18
    Outline = 19
    PolyLine = 20
    Polygon = 22
    Cutout = 23
    CutoutArray = 24


class DictionaryDrawTypes(enum.IntEnum):
    """What a shape of an older dictionary is."""

    Plain = 0
    Polygon = 1
    Cutout = 2


class SetKinds(enum.IntEnum):
    """Which of its parts a set is about, and writes."""

    Features = 0
    Pad = 1
    Hole = 2


class StepTypes(enum.IntEnum):
    """Whether a step of a contour is straight."""

    Segment = 0
    Curve = 1


class OuterForms(enum.IntEnum):
    """The outer form of a butterfly, a donut or a thermal."""

    Unknown = -1
    Round = 0
    Square = 1
    Hexagon = 2
    Octagon = 3


@t.final
class Parser(Object):
    """CIPC2581_Parser of the model."""

    @property
    def m_Content(self) -> Content:
        """element Content"""
    @property
    def m_LogisticHeader(self) -> LogisticHeader:
        """element LogisticHeader"""
    @property
    def m_HistoryRecord(self) -> HistoryRecord:
        """element HistoryRecord"""
    @property
    def m_Bom(self) -> Bom:
        """element Bom"""
    @property
    def m_Ecad(self) -> Ecad:
        """element Ecad"""


@t.final
class Arc(Object):
    """CIPC2581_Arc of the model."""

    DrawType: DrawTypes
    @property
    def StartPoint(self) -> Point: ...
    @property
    def EndPoint(self) -> Point: ...
    @property
    def CenterPoint(self) -> Point: ...
    Clockwise: bool
    """clockwise of Arc"""
    @property
    def LineDesc(self) -> LineDesc:
        """element LineDesc"""


@t.final
class Bom(Object):
    """CIPC2581_Bom of the model."""

    name: str
    """name of Bom"""
    assembly: str
    """assembly of BomHeader"""
    m_strHeaderText2: str
    """assembly of BomHeader"""
    m_strHeaderText3: str
    """assembly of BomHeader"""
    @property
    def m_arrBomItem(self) -> List[BomItem]:
        """element BomItem"""


@t.final
class BomItem(Object):
    """CIPC2581_Bom_BomItem of the model."""

    quantity: str
    """quantity of BomItem"""
    numberIO: str
    """numberIO of BomItem"""
    category: str
    """category of BomItem"""
    internalPartNumber: str
    """internalPartNumber of BomItem"""
    description: str
    """description of BomItem"""
    packageRef: str
    """packageRef of BomItem"""
    @property
    def m_arrRefDes(self) -> List[RefDes]:
        """element RefDes"""
    @property
    def designators(self) -> List[RefDes]:
        """The places where the item is fitted, or not."""


@t.final
class RefDes(Object):
    """CIPC2581_Bom_BomItem_RefDes of the model."""

    name: str
    """name of RefDes"""
    populate: bool
    """populate of RefDes"""


@t.final
class Content(Object):
    """CIPC2581_Content of the model."""

    FunctionMode: str
    """mode of FunctionMode"""
    FunctionModeLevel: str
    """level of FunctionMode"""
    FunctionModeComment: str
    @property
    def DictionaryStandard(self) -> DictionaryStandard:
        """element DictionaryStandard"""
    @property
    def DictionaryUser(self) -> DictionaryUser:
        """element DictionaryUser"""
    StepRef: tuple[str, ...]
    """element StepRef"""
    LayerRef: tuple[str, ...]
    """element LayerRef"""
    BomRef: tuple[str, ...]
    """element BomRef"""
    SpareRef: tuple[str, ...]
    @property
    def m_DictionaryColor(self) -> DictionaryColor:
        """element DictionaryColor"""


@t.final
class DictionaryColor(Object):
    """CIPC2581_Content_DictionaryColor of the model."""

    @property
    def Entry(self) -> List[EntryColor]:
        """element EntryColor"""


@t.final
class EntryColor(Object):
    """CIPC2581_Content_DictionaryColor_EntryColor of the model."""

    EntryColorId: str
    """id of EntryColor"""
    Red: int
    """r of Color"""
    Green: int
    """g of Color"""
    Blue: int
    """b of Color"""
    ColorRefID: str
    """id of Color"""


@t.final
class DictionaryStandard(Object):
    """CIPC2581_Content_DictionaryStandard of the model."""

    Unit: str
    """units of DictionaryStandard"""
    @property
    def EntryArray(self) -> List[EntryStandard]:
        """element EntryStandard"""


@t.final
class EntryStandard(Object):
    """CIPC2581_Content_DictionaryStandard_EntryStandard of the model."""

    EntryStandardId: str
    """id of EntryStandard"""
    @property
    def DrawArray(self) -> List[DrawObj]: ...


@t.final
class DictionaryUser(Object):
    """CIPC2581_Content_DictionaryUser of the model."""

    Unit: str
    """units of DictionaryUser"""
    @property
    def EntryArray(self) -> List[EntryUser]: ...


@t.final
class EntryUser(Object):
    """CIPC2581_Content_DictionaryUser_EntryUser of the model."""

    ID: str
    @property
    def DrawObjArray(self) -> List[DrawObj]: ...


@t.final
class Cutout(Object):
    """CIPC2581_Cutout of the model."""

    DrawType: DrawTypes
    @property
    def PolyBegin(self) -> Point:
        """element PolyBegin"""
    @property
    def PolyStepArray(self) -> List[PolyStep]: ...


@t.final
class Butterfly(Object):
    """CIPC2581_DicDraw_Butterfly of the model."""

    DrawType: DrawTypes
    Shape: OuterForms
    """shape of Butterfly"""
    Size: float
    """diameter of Butterfly"""


@t.final
class Circle(Object):
    """CIPC2581_DicDraw_Circle of the model."""

    DrawType: DrawTypes
    Diameter: float
    """diameter of Circle"""
    OffsetX: float
    OffsetY: float


@t.final
class Contour(Object):
    """CIPC2581_DicDraw_Contour of the model."""

    DrawType: DrawTypes
    @property
    def DicDrawObjArray(self) -> List[DrawObj]: ...


@t.final
class DicDrawCutout(Object):
    """CIPC2581_DicDraw_Cutout of the model."""

    DrawType: DictionaryDrawTypes
    @property
    def PtArray(self) -> List[Pt]: ...


@t.final
class Diamond(Object):
    """CIPC2581_DicDraw_Diamond of the model."""

    DrawType: DrawTypes
    Width: float
    """width of Diamond"""
    Height: float
    """height of Diamond"""


@t.final
class Donut(Object):
    """CIPC2581_DicDraw_Donut of the model."""

    DrawType: DrawTypes
    Shape: OuterForms
    """shape of Donut"""
    OuterDiameter: float
    """outerDiameter of Donut"""
    InnerDiameter: float
    """innerDiameter of Donut"""


@t.final
class Ellipse(Object):
    """CIPC2581_DicDraw_Ellipse of the model."""

    DrawType: DrawTypes
    Width: float
    """width of Ellipse"""
    Height: float
    """height of Ellipse"""


@t.final
class Hexagon(Object):
    """CIPC2581_DicDraw_Hexagon of the model."""

    DrawType: DrawTypes
    Length: float
    """length of Hexagon"""


@t.final
class Moire(Object):
    """CIPC2581_DicDraw_Moire of the model."""

    DrawType: DrawTypes
    Diameter: float
    """diameter of Moire"""
    RingWidth: float
    """ringWidth of Moire"""
    RingGap: float
    """ringGap of Moire"""
    RingNumber: int
    """ringNumber of Moire"""
    LineWidth: float
    """lineWidth of Moire"""
    LineLength: float
    """lineLength of Moire"""
    LineAngle: float
    """lineAngle of Moire"""


@t.final
class Octagon(Object):
    """CIPC2581_DicDraw_Octagon of the model."""

    DrawType: DrawTypes
    Length: float
    """length of Octagon"""


@t.final
class Oval(Object):
    """CIPC2581_DicDraw_Oval of the model."""

    DrawType: DrawTypes
    Width: float
    """width of Oval"""
    Height: float
    """height of Oval"""


@t.final
class DicDrawPolygon(Object):
    """CIPC2581_DicDraw_Polygon of the model."""

    DrawType: DictionaryDrawTypes
    @property
    def PtArray(self) -> List[Pt]: ...


@t.final
class RectCenter(Object):
    """CIPC2581_DicDraw_RectCenter of the model."""

    DrawType: DrawTypes
    Width: float
    """width of RectCenter"""
    Height: float
    """height of RectCenter"""


@t.final
class RectCham(Object):
    """CIPC2581_DicDraw_RectCham of the model."""

    DrawType: DrawTypes
    Width: float
    """width of RectCham"""
    Height: float
    """height of RectCham"""
    Chamfer: float
    """chamfer of RectCham"""
    UpperRight: bool
    """upperRight of RectCham"""
    UpperLeft: bool
    """upperLeft of RectCham"""
    LowerLeft: bool
    """lowerLeft of RectCham"""
    LowerRight: bool
    """lowerRight of RectCham"""


@t.final
class RectCorner(Object):
    """CIPC2581_DicDraw_RectCorner of the model."""

    DrawType: DrawTypes
    Lower_LeftX: float
    """lowerLeftX of RectCorner"""
    Lower_LeftY: float
    """lowerLeftY of RectCorner"""
    Upper_RightX: float
    """upperRightX of RectCorner"""
    Upper_RightY: float
    """upperRightY of RectCorner"""


@t.final
class RectRound(Object):
    """CIPC2581_DicDraw_RectRound of the model."""

    DrawType: DrawTypes
    Width: float
    """width of RectRound"""
    Height: float
    """height of RectRound"""
    Radius: float
    """radius of RectRound"""
    UpperRight: bool
    """upperRight of RectRound"""
    UpperLeft: bool
    """upperLeft of RectRound"""
    LowerLeft: bool
    """lowerLeft of RectRound"""
    LowerRight: bool
    """lowerRight of RectRound"""


@t.final
class Thermal(Object):
    """CIPC2581_DicDraw_Thermal of the model."""

    DrawType: DrawTypes
    Shape: OuterForms
    """shape of Thermal"""
    OuterDiameter: float
    """outerDiameter of Thermal"""
    InnerDiameter: float
    """innerDiameter of Thermal"""
    SpokeCount: int
    """spokeCount of Thermal"""
    Gap: float
    """gap of Thermal"""
    SpokeStartAngle: float
    """spokeStartAngle of Thermal"""


@t.final
class Triangle(Object):
    """CIPC2581_DicDraw_Triangle of the model."""

    DrawType: DrawTypes
    Base: float
    """base of Triangle"""
    Height: float
    """height of Triangle"""


@t.final
class DictionaryDrawObj(Object):
    """CIPC2581_DictionaryDrawObj of the model."""

    DrawType: DictionaryDrawTypes


@t.final
class DrawObj(Object):
    """CIPC2581_DrawObj of the model."""

    DrawType: DrawTypes


@t.final
class Ecad(Object):
    """CIPC2581_Ecad of the model."""

    name: str
    """name of Ecad"""
    @property
    def m_CadHeader(self) -> CadHeader:
        """element CadHeader"""
    @property
    def m_CadData(self) -> CadData:
        """element CadData"""


@t.final
class CadData(Object):
    """CIPC2581_Ecad_CadData of the model."""

    @property
    def m_arrLayer(self) -> List[Layer]:
        """element Layer"""
    @property
    def m_Stackup(self) -> Stackup:
        """element Stackup"""
    @property
    def m_Step(self) -> Step:
        """element Step"""


@t.final
class Layer(Object):
    """CIPC2581_Ecad_CadData_Layer of the model."""

    m_nLayerId: int
    name: str
    """name of Layer"""
    layerFunction: str
    """layerFunction of Layer"""
    side: str
    """side of Layer"""
    polarity: str
    """polarity of Layer"""


@t.final
class Stackup(Object):
    """CIPC2581_Ecad_CadData_Stackup of the model."""

    overallThickness: str
    """overallThickness of Stackup"""
    tolPlus: str
    """tolPlus of Stackup"""
    tolMinus: str
    """tolMinus of Stackup"""
    whereMeasured: str
    """whereMeasured of Stackup"""
    @property
    def StackupGroupArray(self) -> List[StackupGroup]:
        """element StackupGroup"""


@t.final
class StackupGroup(Object):
    """CIPC2581_Ecad_CadData_Stackup_StackupGroup of the model."""

    name: str
    """name of StackupGroup"""
    thickness: float
    """thickness of StackupGroup"""
    tolPlus: float
    """tolPlus of StackupGroup"""
    tolMinus: float
    """tolMinus of StackupGroup"""
    @property
    def StackupLayerArray(self) -> List[StackupLayer]:
        """element StackupLayer"""


@t.final
class StackupLayer(Object):
    """CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer of the model."""

    layerOrGroupRef: str
    """layerOrGroupRef of StackupLayer"""
    materialType: str
    """materialType of StackupLayer"""
    thickness: float
    """thickness of StackupLayer"""


@t.final
class Step(Object):
    """CIPC2581_Ecad_CadData_Step of the model."""

    Name: str
    """name of Step"""
    @property
    def PadStackArray(self) -> List[PadStack]:
        """element PadStack"""
    Datum: PointD
    @property
    def Profile(self) -> Profile:
        """element Profile"""
    @property
    def PackageArray(self) -> List[Package]:
        """element Package"""
    @property
    def ComponentArray(self) -> List[Component]:
        """element Component"""
    @property
    def LogicalNetArray(self) -> List[LogicalNet]:
        """element LogicalNet"""
    @property
    def PhyNetGroup(self) -> PhyNetGroup:
        """element PhyNetGroup"""
    @property
    def LayerFeatureArray(self) -> List[LayerFeature]:
        """element LayerFeature"""


@t.final
class Component(Object):
    """CIPC2581_Ecad_CadData_Step_Component of the model."""

    RefDes: str
    """refDes of Component"""
    PackageRef: str
    """packageRef of Component"""
    Part: str
    """part of Component"""
    LayerRef: str
    """layerRef of Component"""
    MountType: str
    """mountType of Component"""
    Spare: int
    Height: float
    """height of Component"""
    Standoff: str
    """standoff of Component"""
    @property
    def Xform(self) -> Xform:
        """element Xform"""
    Location: PointD
    designator: str
    """The reference designator: "U1"."""
    x: float
    """In the units of the board."""
    y: float
    """In the units of the board."""
    rotation: float
    """In degrees, counterclockwise."""
    mirror: bool
    """Whether it is turned over."""
    @property
    def package(self) -> t.Optional[Package]:
        """Its package; None if the board has none of the name."""
    @property
    def layer(self) -> t.Optional[Layer]:
        """Its layer; None if the board has none of the name."""


@t.final
class Hole(Object):
    """CIPC2581_Ecad_CadData_Step_Hole of the model."""

    Name: str
    """name of Hole"""
    Diameter: str
    """diameter of Hole"""
    PlatingStatus: str
    """platingStatus of Hole"""
    PlusTol: str
    """plusTol of Hole"""
    MinusTol: str
    """minusTol of Hole"""
    Location: PointD
    ToLayer: str
    """toLayer of Span"""
    FromLayer: str
    """fromLayer of Span"""
    x: float
    """In the units of the board."""
    y: float
    """In the units of the board."""


@t.final
class LayerFeature(Object):
    """CIPC2581_Ecad_CadData_Step_LayerFeature of the model."""

    LayerRef: str
    """layerRef of LayerFeature"""
    ColorRefId: str
    @property
    def SetArray(self) -> List[Set]:
        """element Set"""
    @property
    def sets(self) -> List[Set]:
        """What lies on the layer."""
    @property
    def layer(self) -> t.Optional[Layer]:
        """Its layer; None if the board has none of the name."""


@t.final
class Set(Object):
    """CIPC2581_Ecad_CadData_Step_LayerFeature_Set of the model."""

    Kind: SetKinds
    Net: str
    """net of Set"""
    ColorRef: str
    """id of ColorRef"""
    TestPoint: bool
    """testPoint of Set"""
    Plate: bool
    """plate of Set"""
    PadUsage: str
    """padUsage of Set"""
    @property
    def Features(self) -> Features:
        """element Features"""
    @property
    def Pad(self) -> Pad:
        """element Pad"""
    @property
    def Hole(self) -> Hole:
        """element Hole"""


@t.final
class Features(Object):
    """CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features of the model."""

    Location: PointD
    @property
    def DrawObjArray(self) -> List[DrawObj]: ...


@t.final
class LogicalNet(Object):
    """CIPC2581_Ecad_CadData_Step_LogicalNet of the model."""

    Name: str
    """name of LogicalNet"""
    NetClass: int
    @property
    def LogicalNetPinArray(self) -> List[LogicalNetPin]:
        """element LogicalNetPin"""
    name: str
    """The name of the net."""
    @property
    def pins(self) -> List[LogicalNetPin]:
        """The pins that it connects."""


@t.final
class LogicalNetPin(Object):
    """CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin of the model."""

    ComponentRef: str
    """componentRef of LogicalNetPin"""
    Pin: str
    """pin of LogicalNetPin"""
    Title: str
    pin: str
    """The number of the pin: "1"."""
    designator: str
    """The designator of the component: "U1"."""
    @property
    def component(self) -> t.Optional[Component]:
        """Its component; None if the board has none of the designator."""


@t.final
class Package(Object):
    """CIPC2581_Ecad_CadData_Step_Package of the model."""

    name: str
    """name of Package"""
    type: str
    """type of Package"""
    TypeCode: int
    @property
    def Outline(self) -> Outline:
        """element Outline"""
    @property
    def LandPattern(self) -> LandPattern:
        """element LandPattern"""
    @property
    def SilkScreen(self) -> SilkScreen:
        """element SilkScreen"""
    @property
    def AssemblyDrawing(self) -> AssemblyDrawing:
        """element AssemblyDrawing"""
    @property
    def PinArray(self) -> List[Pin]:
        """element Pin"""
    @property
    def pins(self) -> List[Pin]:
        """The pins of the package."""


@t.final
class AssemblyDrawing(Object):
    """CIPC2581_Ecad_CadData_Step_Package_AssemblyDrawing of the model."""

    @property
    def Outline(self) -> Outline: ...
    @property
    def Text(self) -> Text: ...
    @property
    def TargetArray(self) -> List[StepTarget]: ...


@t.final
class LandPattern(Object):
    """CIPC2581_Ecad_CadData_Step_Package_LandPattern of the model."""

    @property
    def PadArray(self) -> List[Pad]:
        """element Pad"""
    @property
    def TargetArray(self) -> List[StepTarget]: ...


@t.final
class PackageOutline(Object):
    """CIPC2581_Ecad_CadData_Step_Package_Outline of the model."""

    @property
    def LineDesc(self) -> LineDesc:
        """element LineDesc"""
    @property
    def Polygon(self) -> Polygon:
        """element Polygon"""


@t.final
class Pin(Object):
    """CIPC2581_Ecad_CadData_Step_Package_Pin of the model."""

    number: str
    """number of Pin"""
    name: str
    """name of Pin"""
    type: str
    """type of Pin"""
    electricalType: str
    """electricalType of Pin"""
    SpareText: str
    @property
    def Xform(self) -> Xform:
        """element Xform"""
    Location: PointD
    StandardPrimitiveRef: str
    """id of StandardPrimitiveRef"""
    @property
    def Outline(self) -> PackageOutline:
        """element Outline"""
    x: float
    """From the origin of the package."""
    y: float
    """From the origin of the package."""
    rotation: float
    """In degrees, counterclockwise."""


@t.final
class SilkScreen(Object):
    """CIPC2581_Ecad_CadData_Step_Package_SilkScreen of the model."""

    @property
    def Outline(self) -> Outline: ...
    @property
    def Text(self) -> Text: ...
    @property
    def TargetArray(self) -> List[StepTarget]:
        """element Target"""


@t.final
class SilkScreenTarget(Object):
    """CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target of the model."""

    Location: PointD
    @property
    def DrawObjArray(self) -> List[DrawObj]: ...


@t.final
class Pad(Object):
    """CIPC2581_Ecad_CadData_Step_Pad of the model."""

    UsePinPrefix: int
    LayerRef: str
    """layerRef of LayerPad"""
    Pin: str
    """pin of LayerPad"""
    PinPrefix: str
    Rotation: float
    """rotation of Xform"""
    Location: PointD
    StandardPrimitiveRefId: str
    """id of StandardPrimitiveRef"""
    x: float
    """In the units of the board."""
    y: float
    """In the units of the board."""
    rotation: float
    """In degrees, counterclockwise."""


@t.final
class PadStack(Object):
    """CIPC2581_Ecad_CadData_Step_PadStack of the model."""

    NetName: str
    """net of PadStack"""
    @property
    def LayerPadArray(self) -> List[Pad]:
        """element LayerPad"""
    @property
    def LayerHole(self) -> Hole:
        """element LayerHole"""


@t.final
class PhyNetGroup(Object):
    """CIPC2581_Ecad_CadData_Step_PhyNetGroup of the model."""

    Name: str
    """name of PhyNetGroup"""
    @property
    def PhyNetArray(self) -> List[PhyNet]:
        """element PhyNet"""


@t.final
class PhyNet(Object):
    """CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet of the model."""

    Name: str
    """name of PhyNet"""
    @property
    def PhyNetPointArray(self) -> List[PhyNetPoint]:
        """element PhyNetPoint"""


@t.final
class PhyNetPoint(Object):
    """CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint of the model."""

    Location: PointD
    LayerRef: str
    """layerRef of PhyNetPoint"""
    Exposure: str
    """exposure of PhyNetPoint"""
    NetNode: str
    """netNode of PhyNetPoint"""
    Via: bool
    """via of PhyNetPoint"""
    Test: bool
    """test of PhyNetPoint"""
    StandardPrimitiveRefId: str
    """id of StandardPrimitiveRef"""


@t.final
class Profile(Object):
    """CIPC2581_Ecad_CadData_Step_Profile of the model."""

    @property
    def Polygon(self) -> Polygon:
        """element Polygon"""
    @property
    def Cutouts(self) -> List[DrawObj]:
        """element Cutout"""


@t.final
class StepTarget(Object):
    """CIPC2581_Ecad_CadData_Step_Target of the model."""

    @property
    def Xform(self) -> Xform: ...
    Location: PointD
    ID: str
    @property
    def DrawObjArray(self) -> List[DrawObj]: ...


@t.final
class CadHeader(Object):
    """CIPC2581_Ecad_CadHeader of the model."""

    units: str
    """units of CadHeader"""


@t.final
class HistoryRecord(Object):
    """CIPC2581_HistoryRecord of the model."""

    number: int
    """number of HistoryRecord"""
    origination: str
    """origination of HistoryRecord"""
    toolRef: str
    """toolRef of HistoryRecord"""
    lastChange: str
    """lastChange of HistoryRecord"""


@t.final
class Line(Object):
    """CIPC2581_Line of the model."""

    DrawType: DrawTypes
    @property
    def StartPoint(self) -> Point: ...
    @property
    def EndPoint(self) -> Point: ...
    @property
    def LineDesc(self) -> LineDesc:
        """element LineDesc"""


@t.final
class LineDesc(Object):
    """CIPC2581_LineDesc of the model."""

    Shape: int
    LineWidth: float
    """lineWidth of LineDesc"""
    LineEnd: str
    """lineEnd of LineDesc"""


@t.final
class LogisticHeader(Object):
    """CIPC2581_LogisticHeader of the model."""

    m_strRoleName: str
    """name of Role"""
    m_strPersonName: str
    """name of Person"""


@t.final
class Outline(Object):
    """CIPC2581_Outline of the model."""

    DrawType: DrawTypes
    @property
    def Polygon(self) -> Polygon:
        """element Polygon"""
    @property
    def LineDesc(self) -> LineDesc:
        """element LineDesc"""


@t.final
class Point(Object):
    """CIPC2581_Point of the model."""

    Point: PointD


@t.final
class PolyLine(Object):
    """CIPC2581_PolyLine of the model."""

    DrawType: DrawTypes
    @property
    def PolyBegin(self) -> Point:
        """element PolyBegin"""
    @property
    def PolyStepArray(self) -> List[PolyStep]: ...
    @property
    def LineDesc(self) -> LineDesc:
        """element LineDesc"""


@t.final
class PolyStep(Object):
    """CIPC2581_PolyStep of the model."""

    Type: StepTypes
    @property
    def EndPoint(self) -> Point: ...
    @property
    def CenterPoint(self) -> Point: ...
    ClockWise: int
    """clockwise of PolyStepCurve"""


@t.final
class Polygon(Object):
    """CIPC2581_Polygon of the model."""

    DrawType: DrawTypes
    @property
    def PolyBegin(self) -> Point:
        """element PolyBegin"""
    @property
    def PolyStepArray(self) -> List[PolyStep]: ...


@t.final
class Pt(Object):
    """CIPC2581_Pt of the model."""

    Type: StepTypes
    EndPoint: PointD
    CenterPoint: PointD
    ClockWise: int


@t.final
class Text(Object):
    """CIPC2581_Text of the model."""

    DrawType: DrawTypes
    TextString: str
    FontSize: float
    @property
    def Xform(self) -> Xform: ...
    BoundingBox_LowLeftX: float
    BoundingBox_LowLeftY: float
    BoundingBox_UppRightX: float
    BoundingBox_UppRightY: float
    FontRefID: str
    ColorGroupID: str


@t.final
class Xform(Object):
    """CIPC2581_Xform of the model."""

    XOffset: float
    YOffset: float
    Rotation: float
    """rotation of Xform"""
    Mirror: bool
    """mirror of Xform"""
    Scale: float


@t.final
class PointD(Object):
    """CPointD of the model."""

    X: float
    Y: float
    def __len__(self) -> int: ...
    def __getitem__(self, index: int) -> float: ...
    def __iter__(self) -> t.Iterator[float]: ...
