#ifndef IPC2581_IMPORT_XML_WORDS_H
#define IPC2581_IMPORT_XML_WORDS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace ipc2581::detail {

// The name of an element or an attribute as a number, so that comparing it costs nothing and a switch goes over it.
// Names that the import does not know get numbers too, document by document, behind those that it knows.
using Word = std::uint16_t;

// The names that the import knows: none, and then in the order of the alphabet, upper case first.
inline constexpr auto KnownWords = std::to_array<std::string_view>({
    "",
    "Arc",
    "AssemblyDrawing",
    "BadBoardMark",
    "Bom",
    "BomHeader",
    "BomItem",
    "BomRef",
    "BoundingBox",
    "Butterfly",
    "CadData",
    "CadHeader",
    "Circle",
    "Color",
    "ColorRef",
    "Component",
    "Content",
    "Contour",
    "Cutout",
    "Datum",
    "Diamond",
    "DictionaryColor",
    "DictionaryFillDesc",
    "DictionaryLineDesc",
    "DictionaryStandard",
    "DictionaryUser",
    "Donut",
    "Ecad",
    "Ellipse",
    "EntryColor",
    "EntryFillDesc",
    "EntryLineDesc",
    "EntryStandard",
    "EntryUser",
    "Features",
    "Fiducial",
    "FillDesc",
    "FillDescRef",
    "FontRef",
    "FunctionMode",
    "General",
    "GlobalFiducial",
    "GoodPanelMark",
    "Hexagon",
    "HistoryRecord",
    "Hole",
    "IPC-2581",
    "LandPattern",
    "Layer",
    "LayerFeature",
    "LayerHole",
    "LayerPad",
    "LayerRef",
    "Line",
    "LineDesc",
    "LineDescRef",
    "LocalFiducial",
    "Location",
    "LogicalNet",
    "LogicalNetPin",
    "LogisticHeader",
    "Marking",
    "Moire",
    "NonstandardAttribute",
    "OEMDesignNumberRef",
    "Octagon",
    "Outline",
    "Oval",
    "Package",
    "Pad",
    "PadStack",
    "PadStackDef",
    "PadstackPadDef",
    "Person",
    "PhyNet",
    "PhyNetGroup",
    "PhyNetPoint",
    "Pin",
    "PinRef",
    "PolyBegin",
    "PolyStepCurve",
    "PolyStepSegment",
    "Polygon",
    "Polyline",
    "Profile",
    "Property",
    "RectCenter",
    "RectCham",
    "RectCorner",
    "RectRound",
    "RefDes",
    "Role",
    "Set",
    "SilkScreen",
    "SlotCavity",
    "Span",
    "Spec",
    "SpecRef",
    "Stackup",
    "StackupGroup",
    "StackupLayer",
    "StandardPrimitiveRef",
    "Step",
    "StepRef",
    "StepRepeat",
    "Target",
    "Text",
    "Thermal",
    "Triangle",
    "UserPrimitiveRef",
    "UserSpecial",
    "Xform",
    "assembly",
    "b",
    "base",
    "category",
    "centerX",
    "centerY",
    "chamfer",
    "clockwise",
    "comment",
    "componentRef",
    "description",
    "diameter",
    "electricalType",
    "endX",
    "endY",
    "exposure",
    "fillProperty",
    "fontSize",
    "fromLayer",
    "g",
    "gap",
    "height",
    "id",
    "innerDiameter",
    "internalPartNumber",
    "lastChange",
    "layerFunction",
    "layerOrGroupRef",
    "layerRef",
    "length",
    "level",
    "lineAngle",
    "lineEnd",
    "lineLength",
    "lineWidth",
    "lowerLeft",
    "lowerLeftX",
    "lowerLeftY",
    "lowerRight",
    "materialType",
    "minusTol",
    "mirror",
    "mode",
    "mountType",
    "name",
    "net",
    "netNode",
    "number",
    "numberIO",
    "origination",
    "outerDiameter",
    "overallThickness",
    "packageRef",
    "padUsage",
    "padUse",
    "padstackDefRef",
    "part",
    "pin",
    "pinCount",
    "plate",
    "platingStatus",
    "plusTol",
    "polarity",
    "populate",
    "quantity",
    "r",
    "radius",
    "refDes",
    "ringGap",
    "ringNumber",
    "ringWidth",
    "rotation",
    "scale",
    "shape",
    "side",
    "spokeCount",
    "spokeStartAngle",
    "standoff",
    "startX",
    "startY",
    "stepRef",
    "test",
    "testPoint",
    "text",
    "textString",
    "thickness",
    "title",
    "toLayer",
    "tolMinus",
    "tolPlus",
    "toolRef",
    "type",
    "units",
    "upperLeft",
    "upperRight",
    "upperRightX",
    "upperRightY",
    "via",
    "whereMeasured",
    "width",
    "x",
    "xOffset",
    "y",
    "yOffset",
});

// The number of a name that the import knows; a name that stands not in the list does not compile.
consteval Word W(std::string_view name)
{
    for (std::size_t i = 0; i < KnownWords.size(); ++i) {
        if (KnownWords[i] == name) {
            return static_cast<Word>(i);
        }
    }
    throw "not a word that the import knows";
}

// The names of one document. A parser gives each name of a document as one and the same piece of memory, by which it
// is found again.
class WordTable {
public:
    WordTable();

    // The number of the name that stands there, up to a zero byte. One of another namespace is none that the import
    // knows, whatever it is. Throws std::length_error for more different names than any document of the standard has.
    Word Of(const char * name, bool isForeign)
    {
        const Slot & slot = m_slots[PlaceOf(name, isForeign)];
        return slot.name != nullptr ? slot.word : Add(name, isForeign);
    }

    // In the order of their numbers. One of more than a hundred bytes is cut.
    [[nodiscard]] const std::vector<std::string> & Names() const { return m_names; }

private:
    struct Slot {
        const char * name = nullptr;
        bool isForeign = false;
        Word word = 0;
    };

    // The slot of the name, or the empty one where it belongs. The number of slots is a power of two, and there is
    // always an empty one.
    [[nodiscard]] std::size_t PlaceOf(const char * name, bool isForeign) const
    {
        const std::size_t mask = m_slots.size() - 1;
        const auto address = reinterpret_cast<std::uintptr_t>(name);
        std::size_t place = (address ^ (address >> 10U)) & mask;
        while (m_slots[place].name != nullptr &&
               (m_slots[place].name != name || m_slots[place].isForeign != isForeign)) {
            place = (place + 1) & mask;
        }
        return place;
    }
    Word Add(const char * name, bool isForeign);
    void Grow();

    std::vector<Slot> m_slots;
    std::size_t m_filled = 0;
    std::vector<std::string> m_names;
};

}  // namespace ipc2581::detail

#endif
