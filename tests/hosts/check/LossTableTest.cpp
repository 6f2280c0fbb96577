#include "hosts/ipc2581/check/LossTable.h"

#include <map>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include <ipc2581/ipc2581.h>

#include "hosts/ipc2581/board/LibraryMessages.h"
#include "hosts/ipc2581/check/ElementCounts.h"
#include "hosts/ipc2581/check/LineCheck.h"
#include "tests/support/Files.h"

namespace ipc2581::host {
namespace {

// All that the readers fill, as text.
class ModelText {
public:
    static std::string Of(const CIPC2581_Parser & root)
    {
        ModelText text;
        text.AddContent(root.m_Content);
        text.AddLogistics(root);
        text.AddData(root.m_Ecad.m_CadData);
        text.Add("ecad", root.m_Ecad.name, root.m_Ecad.m_CadHeader.units);
        text.AddStep(root.m_Ecad.m_CadData.m_Step);
        return text.m_out.str();
    }

private:
    static std::string Plain(const CString & text) { return Str(text); }
    template <typename Number>
    static Number Plain(Number number)
    {
        return number;
    }

    template <typename... Values>
    void Add(const char * name, const Values &... values)
    {
        m_out << name;
        ((m_out << ' ' << Plain(values)), ...);
        m_out << '\n';
    }

    void AddTexts(const char * name, const CStringArray & texts)
    {
        for (std::int64_t i = 0; i < texts.GetSize(); ++i) {
            Add(name, texts[i]);
        }
    }

    void AddPoint(const CPointD & point) { Add("at", point.GetX(), point.GetY()); }
    void AddPoint(const CIPC2581_Point & point) { Add("at", point.GetPoint_X(), point.GetPoint_Y()); }
    void AddLineDesc(const CIPC2581_LineDesc & desc) { Add("desc", desc.LineEnd, desc.LineWidth); }

    void AddContent(const CIPC2581_Content & content)
    {
        Add("content", content.FunctionMode, content.FunctionModeLevel, content.DictionaryStandard->Unit,
            content.DictionaryUser->Unit);
        AddTexts("step", content.StepRef);
        AddTexts("layer", content.LayerRef);
        AddTexts("bom", content.BomRef);
        for (const auto * const entry : Each(*content.DictionaryStandard->EntryArray)) {
            Add("entry", entry->EntryStandardId);
            AddShapes(*entry->DrawArray);
        }
        for (const auto * const entry : Each(*content.m_DictionaryColor->Entry)) {
            Add("color", entry->EntryColorId, entry->Red, entry->Green, entry->Blue, entry->ColorRefID);
        }
    }

    void AddLogistics(const CIPC2581_Parser & root)
    {
        const CIPC2581_HistoryRecord & history = root.m_HistoryRecord;
        Add("logistics", root.m_LogisticHeader.m_strRoleName, root.m_LogisticHeader.m_strPersonName);
        Add("history", history.number, history.origination, history.toolRef, history.lastChange);
        Add("bom", root.m_Bom.name, root.m_Bom.assembly);
        for (const auto * const item : Each(root.m_Bom.m_arrBomItem)) {
            Add("item", item->quantity, item->numberIO, item->category, item->internalPartNumber, item->description,
                item->packageRef);
            for (const auto * const refDes : Each(item->m_arrRefDes)) {
                Add("refDes", refDes->name, refDes->populate);
            }
        }
    }

    void AddData(const CIPC2581_Ecad_CadData & data)
    {
        for (const auto * const layer : Each(data.m_arrLayer)) {
            Add("layer", layer->name, layer->layerFunction, layer->side, layer->polarity);
        }
        const CIPC2581_Ecad_CadData_Stackup & stackup = data.m_Stackup;
        Add("stackup", stackup.overallThickness, stackup.tolPlus, stackup.tolMinus, stackup.whereMeasured);
        for (const auto * const group : Each(stackup.StackupGroupArray)) {
            Add("group", group->name, group->thickness, group->tolPlus, group->tolMinus);
            for (const auto * const layer : Each(group->StackupLayerArray)) {
                Add("layer", layer->layerOrGroupRef, layer->materialType, layer->thickness);
            }
        }
    }

    void AddPad(const CIPC2581_Ecad_CadData_Step_Pad & pad)
    {
        Add("pad", pad.LayerRef, pad.Pin, pad.Rotation, pad.StandardPrimitiveRefId);
        AddPoint(pad.Location);
    }

    void AddHole(const CIPC2581_Ecad_CadData_Step_Hole & hole)
    {
        Add("hole", hole.Name, hole.Diameter, hole.PlatingStatus, hole.PlusTol, hole.MinusTol, hole.ToLayer,
            hole.FromLayer);
        AddPoint(hole.Location);
    }

    void AddStep(const CIPC2581_Ecad_CadData_Step & step)
    {
        Add("step", step.Name);
        AddPoint(step.Datum);
        for (const auto * const padStack : Each(step.PadStackArray)) {
            Add("padStack", padStack->NetName);
            AddHole(*padStack->LayerHole);
            for (const auto * const pad : Each(*padStack->LayerPadArray)) {
                AddPad(*pad);
            }
        }
        AddShape(*step.Profile.Polygon);
        AddShapes(*step.Profile.Cutouts);
        for (const auto * const package : Each(step.PackageArray)) {
            AddPackage(*package);
        }
        for (const auto * const component : Each(step.ComponentArray)) {
            Add("component", component->RefDes, component->PackageRef, component->Part, component->LayerRef,
                component->MountType, component->Height, component->Standoff, component->Xform->Rotation,
                component->Xform->Mirror);
            AddPoint(component->Location);
        }
        AddNets(step);
        AddFeatures(step);
    }

    void AddPackage(const CIPC2581_Ecad_CadData_Step_Package & package)
    {
        Add("package", package.name, package.type);
        AddShape(*package.Outline->Polygon);
        AddLineDesc(*package.Outline->LineDesc);
        Add("assembly");
        AddShape(*package.AssemblyDrawing.Outline->Polygon);
        AddLineDesc(*package.AssemblyDrawing.Outline->LineDesc);
        for (const auto * const pad : Each(package.LandPattern.PadArray)) {
            AddPad(*pad);
        }
        for (const auto * const target : Each(package.SilkScreen.TargetArray)) {
            Add("target");
            AddPoint(target->Location);
            AddShapes(*target->DrawObjArray);
        }
        for (const auto * const pin : Each(package.PinArray)) {
            Add("pin", pin->number, pin->name, pin->type, pin->electricalType, pin->StandardPrimitiveRef,
                pin->Xform->Rotation, pin->Xform->Mirror);
            AddPoint(pin->Location);
            AddShape(*pin->Outline.Polygon);
            AddLineDesc(*pin->Outline.LineDesc);
        }
    }

    void AddNets(const CIPC2581_Ecad_CadData_Step & step)
    {
        for (const auto * const net : Each(step.LogicalNetArray)) {
            Add("net", net->Name);
            for (const auto * const pin : Each(*net->LogicalNetPinArray)) {
                Add("pin", pin->ComponentRef, pin->Pin);
            }
        }
        Add("group", step.PhyNetGroup.Name);
        for (const auto * const net : Each(step.PhyNetGroup.PhyNetArray)) {
            Add("net", net->Name);
            for (const auto * const point : Each(net->PhyNetPointArray)) {
                Add("point", point->LayerRef, point->Exposure, point->NetNode, point->Via, point->Test,
                    point->StandardPrimitiveRefId);
                AddPoint(point->Location);
            }
        }
    }

    void AddFeatures(const CIPC2581_Ecad_CadData_Step & step)
    {
        for (const auto * const feature : Each(step.LayerFeatureArray)) {
            Add("layerFeature", feature->LayerRef, feature->ColorRefId);
            for (const auto * const set : Each(feature->SetArray)) {
                Add("set", set->Kind, set->Net, set->ColorRef, set->TestPoint, set->Plate, set->PadUsage);
                AddPoint(set->Features.Location);
                AddShapes(set->Features.DrawObjArray);
                AddPad(set->Pad);
                AddHole(set->Hole);
            }
        }
    }

    void AddShapes(const CIPC2581_DrawObjArray & shapes)
    {
        for (CIPC2581_DrawObj * const shape : Each(shapes)) {
            AddShape(*shape);
        }
    }

    void AddSteps(const CIPC2581_Point & begin, const CIPC2581_PolyStepArray & steps)
    {
        AddPoint(begin);
        for (const auto * const step : Each(steps)) {
            Add("step", step->Type, step->ClockWise);
            AddPoint(*step->EndPoint);
            AddPoint(*step->CenterPoint);
        }
    }

    template <typename Class, typename... Fields>
    bool AddFields(const CIPC2581_DrawObj & shape, Fields Class::*... fields)
    {
        const auto * const object = dynamic_cast<const Class *>(&shape);
        if (object != nullptr) {
            Add("fields", object->*fields...);
        }
        return object != nullptr;
    }

    template <typename Class>
    bool AddCorners(const CIPC2581_DrawObj & shape)
    {
        return AddFields(shape, &Class::UpperRight, &Class::UpperLeft, &Class::LowerLeft, &Class::LowerRight);
    }

    void AddShape(const CIPC2581_DrawObj & shape)
    {
        Add("shape", shape.DrawType);
        if (const auto * const contour = dynamic_cast<const CIPC2581_DicDraw_Contour *>(&shape)) {
            AddShapes(*contour->DicDrawObjArray);
        }
        else if (const auto * const polygon = dynamic_cast<const CIPC2581_Polygon *>(&shape)) {
            AddSteps(*polygon->PolyBegin, *polygon->PolyStepArray);
        }
        else if (const auto * const cutout = dynamic_cast<const CIPC2581_Cutout *>(&shape)) {
            AddSteps(*cutout->PolyBegin, *cutout->PolyStepArray);
        }
        else if (const auto * const polyline = dynamic_cast<const CIPC2581_PolyLine *>(&shape)) {
            AddSteps(*polyline->PolyBegin, *polyline->PolyStepArray);
            AddLineDesc(*polyline->LineDesc);
        }
        else if (const auto * const line = dynamic_cast<const CIPC2581_Line *>(&shape)) {
            AddPoint(*line->StartPoint);
            AddPoint(*line->EndPoint);
            AddLineDesc(*line->LineDesc);
        }
        else {
            AddPrimitive(shape);
        }
    }

    void AddPrimitive(const CIPC2581_DrawObj & shape)
    {
        using Butterfly = CIPC2581_DicDraw_Butterfly;
        using Circle = CIPC2581_DicDraw_Circle;
        using Diamond = CIPC2581_DicDraw_Diamond;
        using Donut = CIPC2581_DicDraw_Donut;
        using Ellipse = CIPC2581_DicDraw_Ellipse;
        using Hexagon = CIPC2581_DicDraw_Hexagon;
        using Moire = CIPC2581_DicDraw_Moire;
        using Octagon = CIPC2581_DicDraw_Octagon;
        using Oval = CIPC2581_DicDraw_Oval;
        using RectCenter = CIPC2581_DicDraw_RectCenter;
        using RectCham = CIPC2581_DicDraw_RectCham;
        using RectCorner = CIPC2581_DicDraw_RectCorner;
        using RectRound = CIPC2581_DicDraw_RectRound;
        using Thermal = CIPC2581_DicDraw_Thermal;
        using Triangle = CIPC2581_DicDraw_Triangle;
        const bool isKnown =
            AddFields(shape, &Butterfly::Shape, &Butterfly::Size) || AddFields(shape, &Circle::Diameter) ||
            AddFields(shape, &Diamond::Width, &Diamond::Height) ||
            AddFields(shape, &Donut::Shape, &Donut::OuterDiameter, &Donut::InnerDiameter) ||
            AddFields(shape, &Ellipse::Width, &Ellipse::Height) || AddFields(shape, &Hexagon::Length) ||
            AddFields(shape, &Moire::Diameter, &Moire::RingWidth, &Moire::RingGap, &Moire::RingNumber,
                      &Moire::LineWidth, &Moire::LineLength, &Moire::LineAngle) ||
            AddFields(shape, &Octagon::Length) || AddFields(shape, &Oval::Width, &Oval::Height) ||
            AddFields(shape, &RectCenter::Width, &RectCenter::Height) ||
            (AddFields(shape, &RectCham::Width, &RectCham::Height, &RectCham::Chamfer) &&
             AddCorners<RectCham>(shape)) ||
            AddFields(shape, &RectCorner::Lower_LeftX, &RectCorner::Lower_LeftY, &RectCorner::Upper_RightX,
                      &RectCorner::Upper_RightY) ||
            (AddFields(shape, &RectRound::Width, &RectRound::Height, &RectRound::Radius) &&
             AddCorners<RectRound>(shape)) ||
            AddFields(shape, &Thermal::Shape, &Thermal::OuterDiameter, &Thermal::InnerDiameter, &Thermal::SpokeCount,
                      &Thermal::Gap, &Thermal::SpokeStartAngle) ||
            AddFields(shape, &Triangle::Base, &Triangle::Height);
        EXPECT_TRUE(isKnown) << shape.DrawType;
    }

    std::ostringstream m_out;
};

using Path = std::vector<const ElementLoss *>;

std::string Str(const Path & path)
{
    std::string text;
    for (const ElementLoss * const element : path) {
        text += "/" + std::string(element->name);
    }
    return text;
}

std::vector<AttributeLoss> AttributesOf(const ElementLoss & element)
{
    std::vector<AttributeLoss> attributes = element.attributes;
    attributes.insert(attributes.end(), element.second.begin(), element.second.end());
    return attributes;
}

// A board with every element of the table once, seen from one of them: what shuts out others in the same place is
// there only if it is looked at.
class Sample {
public:
    Sample(Path focus, std::string attribute = "") : m_focus(std::move(focus)), m_attribute(std::move(attribute)) {}

    // Without the element that is looked at, or without its attribute.
    Sample & Leave()
    {
        m_isLeft = true;
        return *this;
    }
    // With another value of the attribute.
    Sample & With(std::string value)
    {
        m_value = std::move(value);
        m_hasValue = true;
        return *this;
    }
    // With one more attribute in each element, and one more element behind each opening line.
    Sample & WithStrangers()
    {
        m_hasStrangers = true;
        return *this;
    }

    std::string Text()
    {
        m_path.clear();
        return Inside(DocumentReader());
    }

    static std::string ValueOf(const std::string & place, Value value)
    {
        static std::map<std::string, std::size_t> numbers;
        const std::size_t number = numbers.try_emplace(place, numbers.size() + 100).first->second;
        switch (value) {
        case Value::Number:
            return std::to_string(number) + ".5";
        case Value::Word:
            return "SQUARE";
        case Value::Flag:
        case Value::Direction:
            return "TRUE";
        case Value::MisspeltFlag:
            return "TURE";
        case Value::ControlFlag:
            return "\x01";
        default:
            return "t" + std::to_string(number);
        }
    }

private:
    std::string Inside(const Reader & reader)
    {
        std::string lines;
        for (const ElementLoss & element : reader.elements) {
            m_path.push_back(&element);
            if (element.test != Test::None && !IsShutOut()) {
                lines += Lines(element);
            }
            m_path.pop_back();
        }
        return lines;
    }

    bool IsFocus() const { return m_path == m_focus; }

    // The last of features, pad and hole decides what a set is.
    bool IsShutOut() const
    {
        if (m_path.size() < 2 || m_path[m_path.size() - 2]->name != "Set") {
            return false;
        }
        const std::string_view name = m_path.back()->name;
        if (name != "Features" && name != "Pad" && name != "Hole") {
            return false;
        }
        return name != ChosenKind();
    }

    std::string_view ChosenKind() const
    {
        const std::size_t depth = m_path.size() - 1;
        const bool isInside = m_focus.size() >= depth && std::equal(m_path.begin(), m_path.end() - 1, m_focus.begin());
        if (isInside && m_focus.size() > depth && m_focus[depth]->name != "ColorRef" &&
            m_focus[depth]->name != "Xform") {
            return m_focus[depth]->name;
        }
        return isInside && m_focus.size() == depth && !m_attribute.empty() ? "Pad" : "Features";
    }

    std::string Lines(const ElementLoss & element)
    {
        if (IsFocus() && m_isLeft && m_attribute.empty()) {
            return "";
        }
        const std::string name(element.name);
        std::string lines = "<" + name;
        for (const AttributeLoss & attribute : AttributesOf(element)) {
            if (!IsAttributeShutOut(element, attribute)) {
                lines += " " + std::string(attribute.name) + "=\"" + ValueIn(element, attribute) + "\"";
            }
        }
        lines += m_hasStrangers ? " zz=\"1\"" : "";
        if (name.ends_with("Ref") && element.attributes.empty()) {
            const std::string text = m_hasStrangers ? "<" + name : lines;
            return text + ">t</" + name + ">\n";
        }
        if (element.inner == nullptr) {
            return lines + (element.test == Test::Skips ? " rotation=\"90\"" : "") + " />\n";
        }
        lines += ">\n";
        const bool isDrawing = name == "AssemblyDrawing";
        lines += isDrawing ? "<Outline>\n" : "";
        lines += m_hasStrangers ? "<Stranger a=\"1\">\n<Odd/>\n</Stranger>\n" : "";
        lines += Inside(*element.inner);
        lines += isDrawing ? "</Outline>\n" : "";
        return lines + "</" + name + ">\n";
    }

    bool IsAttributeShutOut(const ElementLoss & element, const AttributeLoss & attribute) const
    {
        if (IsFocus() && attribute.name == m_attribute) {
            return m_isLeft;
        }
        // Two names of one field, and a unit that is kept in the place of another.
        if (element.name == "Butterfly") {
            const bool isRound = IsFocus() && m_attribute == "diameter";
            return attribute.name == (isRound ? "side" : "diameter");
        }
        return element.name == "DictionaryColor";
    }

    std::string ValueIn(const ElementLoss & element, const AttributeLoss & attribute) const
    {
        if (m_hasValue && IsFocus() && attribute.name == m_attribute) {
            return m_value;
        }
        if (element.name == "Butterfly" && attribute.name == "shape" && IsFocus() && m_attribute == "diameter") {
            return "ROUND";
        }
        return ValueOf(Str(m_path) + "@" + std::string(attribute.name), attribute.value);
    }

    Path m_focus;
    std::string m_attribute;
    bool m_isLeft = false;
    bool m_hasStrangers = false;
    bool m_hasValue = false;
    std::string m_value;
    Path m_path;
};

// What comes of a board: its model and the file that is written from it.
struct Outcome {
    std::string model;
    std::string written;
};

class LossTable : public testing::Test {
protected:
    Outcome Read(const std::string & text)
    {
        CIPC2581_Parser root;
        CString path(m_folder.Save("board.cvg", text).c_str());
        CIPC2581_XmlLiteReader().OpenPath(path, root);
        CString written(m_folder.Path("written.cvg").c_str());
        CIPC2581_XmlLiteReader().WriteFilePath(written, root);
        return {ModelText::Of(root), tests::Bytes(m_folder.Path("written.cvg"))};
    }

    tests::TempFolder m_folder;
};

// Calls for each element of the table, in each place where it stands.
template <typename Call>
void ForEachElement(const Reader & reader, Path & path, const Call & call)
{
    for (const ElementLoss & element : reader.elements) {
        if (element.test == Test::None) {
            continue;
        }
        path.push_back(&element);
        call(path);
        if (element.inner != nullptr) {
            ForEachElement(*element.inner, path, call);
        }
        path.pop_back();
    }
}

template <typename Call>
void ForEachElement(const Call & call)
{
    Path path;
    ForEachElement(DocumentReader(), path, call);
}

template <typename Call>
void ForEachAttribute(const Call & call)
{
    ForEachElement([&](const Path & path) {
        for (const AttributeLoss & attribute : AttributesOf(*path.back())) {
            call(path, attribute);
        }
    });
}

std::size_t CountOf(const std::string & text, std::string_view piece)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(piece); at != std::string::npos; at = text.find(piece, at + 1)) {
        ++count;
    }
    return count;
}

std::size_t CountElement(const std::string & text, std::string_view name)
{
    const std::string tag = "<" + std::string(name);
    return CountOf(text, tag + " ") + CountOf(text, tag + ">");
}

// The tags of an element that hold a piece of text.
std::size_t CountInTags(const std::string & text, std::string_view element, const std::string & piece)
{
    std::istringstream lines(text);
    std::size_t count = 0;
    for (std::string line; std::getline(lines, line);) {
        if (CountElement(line, element) != 0 && line.find(piece) != std::string::npos) {
            ++count;
        }
    }
    return count;
}

// The tags of an element that have the attribute with the value, in one of the forms that a number is written in.
std::size_t CountValue(const std::string & text, std::string_view element, std::string_view name,
                       const std::string & value)
{
    const std::string start = " " + std::string(name) + "=\"";
    const std::string whole = value.substr(0, value.find('.'));
    std::size_t count = CountInTags(text, element, start + value + "\"");
    if (value.ends_with(".5")) {
        count +=
            CountInTags(text, element, start + value + "00000\"") + CountInTags(text, element, start + whole + "\"");
    }
    return count;
}

TEST_F(LossTable, TellsWhichElementsAreReadAndWritten)
{
    ForEachElement([&](const Path & path) {
        SCOPED_TRACE(Str(path));
        const ElementLoss & element = *path.back();
        const Outcome with = Read(Sample(path).Text());
        const Outcome without = Read(Sample(path).Leave().Text());
        const std::size_t countWith = CountElement(with.written, element.name);
        const std::size_t countWithout = CountElement(without.written, element.name);
        EXPECT_EQ(with.model != without.model, element.test != host::Test::Skips);
        switch (element.written) {
        case Written::Never:
            EXPECT_EQ(with.written, without.written);
            break;
        case Written::Kept:
            EXPECT_GT(countWith, countWithout);
            break;
        case Written::Changed:
            EXPECT_NE(with.written, without.written);
            EXPECT_EQ(countWith, countWithout);
            break;
        case Written::Always:
            EXPECT_EQ(countWith != 0, countWithout != 0);
            EXPECT_GT(countWithout, 0U);
            break;
        }
    });
}

TEST_F(LossTable, TellsWhichAttributesAreReadAndWritten)
{
    ForEachAttribute([&](const Path & path, const AttributeLoss & attribute) {
        const std::string name(attribute.name);
        const std::string place = Str(path) + "@" + name;
        SCOPED_TRACE(place);
        const ElementLoss & element = *path.back();
        const std::string value = Sample::ValueOf(place, attribute.value);
        // What a designator is without its word is what the word TRUE makes of it.
        Sample left = Sample(path, name);
        if (name == "populate") {
            left.With("FALSE");
        }
        else {
            left.Leave();
        }
        const Outcome with = Read(Sample(path, name).Text());
        const Outcome without = Read(left.Text());
        const std::size_t countWith = CountValue(with.written, element.name, name, value);
        const std::size_t countWithout = CountValue(without.written, element.name, name, value);
        EXPECT_NE(with.model, without.model);
        switch (attribute.written) {
        case Written::Never:
            EXPECT_EQ(with.written, without.written);
            if (element.written != Written::Never) {
                EXPECT_EQ(CountInTags(with.written, element.name, " " + name + "="), 0U);
            }
            break;
        case Written::Kept:
            EXPECT_GT(countWith, countWithout);
            break;
        case Written::Changed:
            EXPECT_NE(with.written, without.written);
            EXPECT_LE(countWith, countWithout);
            break;
        case Written::Always:
            EXPECT_EQ(with.written, without.written);
            EXPECT_GT(CountInTags(with.written, element.name, " " + name + "="), 0U);
            break;
        }
    });
}

TEST_F(LossTable, LeavesOutNothingThatIsRead)
{
    const Outcome plain = Read(Sample({}).Text());
    const Outcome withStrangers = Read(Sample({}).WithStrangers().Text());
    EXPECT_EQ(withStrangers.model, plain.model);
    EXPECT_EQ(withStrangers.written, plain.written);
}

TEST_F(LossTable, TellsWhichWordsSetAFlag)
{
    std::size_t count = 0;
    ForEachAttribute([&](const Path & path, const AttributeLoss & attribute) {
        if (attribute.value != Value::Flag && attribute.value != Value::MisspeltFlag &&
            attribute.value != Value::ControlFlag) {
            return;
        }
        ++count;
        const std::string name(attribute.name);
        const std::string notSet = Read(Sample(path, name).With("no").Text()).model;
        for (const char * const word : {"TRUE", "true", "True", "1", "FALSE", "false", "TURE", "turE", "\x01"}) {
            SCOPED_TRACE(Str(path) + "@" + name + "=" + word);
            EXPECT_EQ(Read(Sample(path, name).With(word).Text()).model != notSet, ReadsAsSet(attribute.value, word));
        }
    });
    EXPECT_EQ(count, 15U);
}

TEST_F(LossTable, TellsThatDirectionsAreTurnedRound)
{
    ForEachAttribute([&](const Path & path, const AttributeLoss & attribute) {
        if (attribute.value == Value::Direction && attribute.written == Written::Changed) {
            SCOPED_TRACE(Str(path));
            const Outcome clockwise = Read(Sample(path, "clockwise").With("TRUE").Text());
            const Outcome other = Read(Sample(path, "clockwise").With("FALSE").Text());
            EXPECT_EQ(CountOf(clockwise.written, "clockwise=\"TRUE\"") + 1,
                      CountOf(other.written, "clockwise=\"TRUE\""));
        }
    });
}

TEST_F(LossTable, TellsWhatMeansSet)
{
    for (const char * const word : {"TRUE", "true", "True", "1"}) {
        EXPECT_TRUE(MeansSet(word)) << word;
    }
    for (const char * const word : {"FALSE", "false", "0", "", "TURE", "truer", "tru"}) {
        EXPECT_FALSE(MeansSet(word)) << word;
    }
}

// The walk through the lines takes the same objects as the library.
TEST_F(LossTable, CountsTheObjectsOfTheModel)
{
    ForEachElement([&](const Path & path) {
        SCOPED_TRACE(Str(path));
        const std::string board = m_folder.Save("board.cvg", Sample(path).Text());
        CIPC2581_Parser root;
        CString boardPath(board.c_str());
        CIPC2581_XmlLiteReader().OpenPath(boardPath, root);
        const LineFindings found = CheckLines(board, 10);
        for (const auto & [name, count] : CountModel(root)) {
            const auto taken = found.taken.find(name);
            EXPECT_EQ(taken == found.taken.end() ? 0 : taken->second, count) << name;
        }
        EXPECT_TRUE(found.stops.All().empty());
        EXPECT_TRUE(found.swallows.All().empty());
    });
}

}  // namespace
}  // namespace ipc2581::host
