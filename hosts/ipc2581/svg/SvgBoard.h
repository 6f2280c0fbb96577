#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGBOARD_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGBOARD_H

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/Board.h"
#include "hosts/ipc2581/svg/SvgWriter.h"

namespace ipc2581::host {

// What a layer is for, by the word of the file.
enum class LayerRole { Copper, Mask, Paste, Legend, Drill, Assembly, Document, Other };
LayerRole LayerRoleOf(std::string_view layerFunction);

enum class Side { Top, Bottom, Inside, Both, Other };

// A hole, wherever the file tells of it.
struct DrillHole {
    CPointD center;
    double diameter;
    std::string_view fromLayer;  // empty for one that goes through all layers
    std::string_view toLayer;
};

// A layer with all that lies on it.
struct BoardLayer {
    std::string_view name;
    std::string_view function;
    Side side = Side::Other;
    bool isNegative = false;
    std::vector<const CIPC2581_Ecad_CadData_Step_LayerFeature *> features = {};
    std::vector<const CIPC2581_Ecad_CadData_Step_Pad *> pads = {};  // of pad stacks
};

// A board by what pictures ask for. It points into the model, which must outlive it.
class SvgBoard {
public:
    explicit SvgBoard(Board & board);

    [[nodiscard]] const SvgUnit & Unit() const { return m_unit; }
    [[nodiscard]] const CIPC2581_Ecad_CadData_Step & Step() const { return m_step; }
    // Those of the file in its order, and behind them those that it only refers to.
    [[nodiscard]] const std::vector<BoardLayer> & Layers() const { return m_layers; }
    [[nodiscard]] const std::vector<DrillHole> & Holes() const { return m_holes; }

    [[nodiscard]] bool IsDrilled(const BoardLayer & layer, const DrillHole & hole) const;
    // That of the dictionary, or else one that suits the layer.
    [[nodiscard]] std::string ColorOf(const BoardLayer & layer) const;
    [[nodiscard]] Side SideOf(const CIPC2581_Ecad_CadData_Step_Component & component) const;
    // Null if there is none.
    [[nodiscard]] const CIPC2581_Ecad_CadData_Step_Package * PackageOf(const CString & name) const;
    [[nodiscard]] const CIPC2581_Content_DictionaryStandard_EntryStandard * ShapeOf(const CString & id) const;
    // From the unit of the dictionary to that of the board.
    [[nodiscard]] double ShapeScale() const { return m_shapeScale; }

private:
    BoardLayer & LayerOf(const CString & name);
    void AddLayers(Board & board);
    void AddPads();
    void AddHoles();

    const CIPC2581_Ecad_CadData_Step & m_step;
    SvgUnit m_unit;
    double m_shapeScale = 1.0;
    std::vector<BoardLayer> m_layers;
    std::vector<DrillHole> m_holes;
    std::unordered_map<std::string_view, std::size_t> m_layerIndex;
    std::unordered_map<std::string_view, const CIPC2581_Ecad_CadData_Step_Package *> m_packages;
    std::unordered_map<std::string_view, const CIPC2581_Content_DictionaryStandard_EntryStandard *> m_shapes;
    std::unordered_map<std::string_view, const CIPC2581_Content_DictionaryColor_EntryColor *> m_colors;
};

}  // namespace ipc2581::host

#endif
