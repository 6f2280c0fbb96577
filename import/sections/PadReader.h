#ifndef IPC2581_IMPORT_SECTIONS_PADREADER_H
#define IPC2581_IMPORT_SECTIONS_PADREADER_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/elements/Tree.h"
#include "import/sections/Context.h"
#include "import/sections/ShapeReader.h"

namespace ipc2581::detail {

// Pads, and whatever else has its shape by reference to the standard dictionary: pins and points of nets. A shape that
// stands in place, comes from the user dictionary or is mirrored or scaled gets an entry of its own there.
class PadReader {
public:
    PadReader(Context & context, Figures & figures, ShapeReader & shapes)
        : m_context(context), m_figures(figures), m_shapes(shapes)
    {
    }

    // A PadStackDef, which the model has no member for; pads without a shape have it from there.
    void KeepPadStackDef(const Tree & tree, const XmlElement & definition);

    // What stands in a Pad or LayerPad; the attributes are the caller's. The layer is the one that it lies on.
    void Read(const XmlElement & element, std::string_view layer, CIPC2581_Ecad_CadData_Step_Pad & pad);

    // Sets the name of the shape, as it is without a transform.
    void TakeShape(const XmlElement & element, CString & id);

private:
    struct PadOfStack {
        std::string layer;
        Placement placement;
        std::uint32_t shape = 0;  // its place in the tree; 0 for none
    };
    struct Stack {
        Tree tree;
        std::vector<PadOfStack> pads;
    };

    void TakePlacedShape(const XmlElement & element, const Placement & placement, CIPC2581_Ecad_CadData_Step_Pad & pad);
    void TakeStandardRef(const XmlElement & element, const Placement & placement, CIPC2581_Ecad_CadData_Step_Pad & pad);
    void TakeFromStack(const XmlElement & element, std::string_view layer, const Placement & placement,
                       CIPC2581_Ecad_CadData_Step_Pad & pad);
    void TakePin(const XmlElement & element, CIPC2581_Ecad_CadData_Step_Pad & pad);
    void KeepReference(const XmlElement & element, CString & id);
    // An entry that was made of a shape, and which attributes of that were lost.
    struct Made {
        std::string name;
        std::vector<Word> lost;
    };

    void TakeAsMade(const XmlElement & element, const Made & made, CString & id);
    // The name of a new entry with these shapes, which are in the unit of the board.
    std::string MakeEntry(std::string_view base, Shapes shapes);

    Context & m_context;
    Figures & m_figures;
    ShapeReader & m_shapes;
    ByName<Stack> m_stacks;
    // By what they were made of.
    ByName<Made> m_made;
    std::size_t m_numbered = 0;
};

}  // namespace ipc2581::detail

#endif
