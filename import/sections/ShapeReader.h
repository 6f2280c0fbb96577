#ifndef IPC2581_IMPORT_SECTIONS_SHAPEREADER_H
#define IPC2581_IMPORT_SECTIONS_SHAPEREADER_H

#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "import/elements/Tree.h"
#include "import/sections/Context.h"
#include "import/shapes/PlacedShape.h"
#include "import/shapes/Placement.h"
#include "ipc2581/ipc2581.h"

namespace ipc2581::detail {

// True if an element of the name is a shape or a reference to one.
bool IsShapeName(Word name);

// The line descriptions, the fills and the figures that a file has once and refers to.
class Figures {
public:
    explicit Figures(Context & context) : m_context(context) {}

    // DictionaryLineDesc and its entries, those of DictionaryFillDesc.
    void BeginLineDescs(std::string_view units);
    void AddLineDesc(const XmlElement & entry);
    void AddFillDesc(const XmlElement & entry);
    [[nodiscard]] const std::string & LineDescUnits() const { return m_lineDescUnits; }

    void AddUser(std::string_view id, CIPC2581_Content_DictionaryUser_EntryUser & entry);
    void AddStandard(std::string_view id, CIPC2581_Content_DictionaryStandard_EntryStandard & entry);

    // Null for an id that no entry has.
    [[nodiscard]] const CIPC2581_LineDesc * LineDesc(std::string_view id);
    [[nodiscard]] const std::string * Fill(std::string_view id);
    [[nodiscard]] CIPC2581_Content_DictionaryUser_EntryUser * User(std::string_view id) const;
    [[nodiscard]] CIPC2581_Content_DictionaryStandard_EntryStandard * Standard(std::string_view id) const;
    // True if all shapes of an entry are their own images in a mirror.
    [[nodiscard]] bool IsSymmetricStandard(std::string_view id);

    // False if something in the element refers to a line description or a fill that is not there.
    [[nodiscard]] bool KnowsReferencesIn(const XmlElement & element) const;

    // The line round a primitive of the standard dictionary that is hollow, in the unit of the dictionary.
    void AddHollow(std::string_view id, const CIPC2581_LineDesc & lineDesc);
    [[nodiscard]] const CIPC2581_LineDesc * Hollow(std::string_view id) const;

private:
    struct LineDescEntry {
        CIPC2581_LineDesc lineDesc;
        LossRecorder::Hold hold = 0;
    };
    struct FillEntry {
        std::string fill;
        LossRecorder::Hold hold = 0;
    };

    Context & m_context;
    std::string m_lineDescUnits;
    // From the unit of the dictionary in hand to that of the first one.
    double m_lineDescScale = 1.0;
    ByName<LineDescEntry> m_lineDescs;
    ByName<FillEntry> m_fills;
    ByName<CIPC2581_Content_DictionaryUser_EntryUser *> m_users;
    ByName<CIPC2581_Content_DictionaryStandard_EntryStandard *> m_standards;
    ByName<bool> m_areSymmetric;
    ByName<CIPC2581_LineDesc> m_hollows;
};

// Reads the shapes of the standard. What stands in another unit than the board is scaled on the way.
class ShapeReader {
public:
    ShapeReader(Context & context, Figures & figures) : m_context(context), m_figures(figures) {}

    // The unit of the lengths that are read from now on.
    void SetUnits(std::string_view units);
    [[nodiscard]] const std::string & Units() const { return m_units; }

    enum class Hollow {
        Strokes,  // a hollow shape becomes the lines around it
        Areas     // a hollow shape is an area all the same, and what says so is told as lost
    };

    // Reads a shape, a user special with all in it, or a reference to a figure. False, with nothing taken, for an
    // element that is none of them.
    bool Read(const XmlElement & element, const Placement & placement, Hollow hollow, Shapes & shapes);

    // What an outline is in an element that holds shapes.
    enum class Outlines {
        Shapes,  // one of them
        Areas    // the area in it, as of a slot
    };

    // Reads an element that holds shapes, its transform and its location into a list of the model. The location stays
    // apart, the transform is done to the shapes.
    void ReadPlaced(const XmlElement & element, Hollow hollow, Outlines outlines, CPointD & location,
                    CIPC2581_DrawObjArray & list);

    // The line round a shape that says that it is hollow, of which nothing is taken.
    [[nodiscard]] std::optional<CIPC2581_LineDesc> HollowLineOf(const XmlElement & element);

    // Polygon and stroke of an outline.
    void ReadOutline(const XmlElement & element, CIPC2581_Polygon & polygon, CIPC2581_LineDesc & lineDesc);
    // Polygons and cutouts.
    void ReadPolygon(const XmlElement & element, CIPC2581_Polygon & polygon);
    void ReadCutout(const XmlElement & element, CIPC2581_Cutout & cutout);

    // A transform, which is taken.
    [[nodiscard]] Placement ReadXform(const XmlElement & element);

private:
    std::unique_ptr<CIPC2581_DrawObj> ReadOutlineArea(const XmlElement & element);

    // What stands in a shape beside its form.
    struct Style {
        std::optional<XmlElement> lineDesc;
        std::optional<XmlElement> fill;
        Placement placement;
        bool hasPlacement = false;
    };

    void AddStyle(const XmlElement & child, Style & style);
    Style StyleOf(const XmlElement & element);
    void TakeLineDesc(const XmlElement & element, CIPC2581_LineDesc & lineDesc);
    [[nodiscard]] bool IsVoid(const XmlElement & element);
    [[nodiscard]] CIPC2581_LineDesc LineDescOf(const XmlElement & element);
    [[nodiscard]] std::string_view FillWord(const XmlElement & element);
    void TakeFill(const std::optional<XmlElement> & element, std::string_view wanted);

    Style ReadSteps(const XmlElement & element, CIPC2581_Point & begin, CIPC2581_PolyStepArray & steps);
    template <typename Shape>
    std::unique_ptr<CIPC2581_DrawObj> ReadContourShape(const XmlElement & element, Style & style);
    template <typename Shape, const auto & table>
    std::unique_ptr<CIPC2581_DrawObj> ReadPrimitive(const XmlElement & element);
    template <typename Shape, const auto & table>
    std::unique_ptr<CIPC2581_DrawObj> ReadCornered(const XmlElement & element);
    std::unique_ptr<CIPC2581_DrawObj> ReadButterfly(const XmlElement & element);
    std::unique_ptr<CIPC2581_DrawObj> MakePrimitive(const XmlElement & element);

    void Finish(std::unique_ptr<CIPC2581_DrawObj> shape, Style & style, const Placement & placement, Hollow hollow,
                Shapes & shapes);
    void ReadContour(const XmlElement & element, const Placement & placement, Hollow hollow, Shapes & shapes);
    void ReadLine(const XmlElement & element, const Placement & placement, Shapes & shapes);
    void ReadArc(const XmlElement & element, const Placement & placement, Shapes & shapes);
    void ReadPolyline(const XmlElement & element, const Placement & placement, Shapes & shapes);
    void ReadText(const XmlElement & element, const Placement & placement, Shapes & shapes);
    void ReadUserSpecial(const XmlElement & element, const Placement & placement, Hollow hollow, Shapes & shapes);
    void TellNoFigure(std::size_t line, std::string_view id);
    void ReadUserRef(const XmlElement & element, const Placement & placement, Shapes & shapes);
    void ReadStandardRef(const XmlElement & element, const Placement & placement, Shapes & shapes);
    // Copies of what a dictionary holds, to which the element refers.
    void AddCopies(const XmlElement & element, const CIPC2581_DrawObjArray & list, const Placement & placed,
                   Shapes & shapes);

    Context & m_context;
    Figures & m_figures;
    std::string m_units;
    double m_lineDescScale = 1.0;
    // Shapes on their way into a list; empty between two elements.
    Shapes m_placed;
};

}  // namespace ipc2581::detail

#endif
