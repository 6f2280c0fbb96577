#ifndef IPC2581_TESTS_DOCUMENT_WHOLEBOARD_H
#define IPC2581_TESTS_DOCUMENT_WHOLEBOARD_H

#include <cstdint>
#include <initializer_list>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/ipc2581.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

// How many there are of each thing in a model.
using ModelSizes = std::map<std::string_view, std::int64_t>;

// A line of the board, with the words that its reader tests for without an equal sign.
struct BoardLine {
    std::string_view text;
    std::vector<std::string_view> words = {};
    bool isScanned = true;
};

// Every element that the library reads.
inline const std::vector<BoardLine> WholeBoard = {
    {R"(<?xml version="1.0" encoding="UTF-8"?>)", {}, false},
    {R"(<IPC-2581 revision="B">)", {}, false},
    {R"(<Content roleRef="Owner">)", {}, false},
    {R"(<FunctionMode mode="ASSEMBLY" level="1"/>)", {"mode", "level"}},
    {"<StepRef>board</StepRef>"},
    {"<LayerRef>TOP</LayerRef>"},
    {"<BomRef>parts</BomRef>"},
    {R"(<DictionaryStandard units="MM">)", {"units"}},
    {R"(<EntryStandard id="S 1">)", {"id"}},
    {R"(<Butterfly shape="ROUND" diameter="1"/>)", {"diameter"}},
    {R"(<Circle diameter="1"/>)", {"diameter"}},
    {"<Contour>"},
    {"<Polygon>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="TRUE"/>)"},
    {"</Polygon>"},
    {"<Cutout>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Cutout>"},
    {"</Contour>"},
    {R"(<Diamond width="1" height="2"/>)", {"width", "height"}},
    {R"(<Donut shape="SQUARE" outerDiameter="2" innerDiameter="1"/>)", {"outerDiameter", "innerDiameter"}},
    {R"(<Ellipse width="1" height="2"/>)", {"width", "height"}},
    {R"(<Hexagon length="1"/>)", {"length"}},
    {R"(<Moire diameter="1" ringWidth="2" ringGap="3" ringNumber="4" lineWidth="5" lineLength="6" lineAngle="7"/>)",
     {"diameter", "ringWidth", "ringGap", "ringNumber", "lineWidth", "lineLength", "lineAngle"}},
    {R"(<Octagon length="1"/>)", {"length"}},
    {R"(<Oval width="1" height="2"/>)", {"width", "height"}},
    {R"(<RectCenter width="1" height="2"/>)", {"width", "height"}},
    {R"(<RectCham width="1" height="2" chamfer="3" upperRight="TRUE" lowerLeft="TRUE"/>)",
     {"width", "height", "chamfer", "upperRight", "lowerLeft"}},
    {R"(<RectCorner lowerLeftX="1" lowerLeftY="2" upperRightX="3" upperRightY="4"/>)",
     {"lowerLeftX", "lowerLeftY", "upperRightX", "upperRightY"}},
    {R"(<RectRound width="1" height="2" radius="3" upperLeft="TRUE" lowerRight="TRUE"/>)",
     {"width", "height", "radius", "upperLeft", "lowerRight"}},
    {R"(<Thermal shape="OCTAGON" outerDiameter="2" innerDiameter="1" spokeCount="4" gap="3" spokeStartAngle="5"/>)",
     {"outerDiameter", "innerDiameter", "spokeCount", "gap", "spokeStartAngle"}},
    {R"(<Triangle base="1" height="2"/>)", {"base", "height"}},
    {"</EntryStandard>"},
    {"</DictionaryStandard>"},
    {R"(<DictionaryUser units="MM">)", {"units"}},
    {R"(<EntryUser id="U1">)", {}, false},
    {"</EntryUser>"},
    {"</DictionaryUser>"},
    {R"(<DictionaryColor units="INCH">)", {"units"}},
    {R"(<EntryColor id="red">)", {"id"}},
    {R"(<Color r="255" g="1" b="2" id="c"/>)"},
    {"</EntryColor>"},
    {"</DictionaryColor>"},
    {"</Content>"},
    {"<LogisticHeader>"},
    {R"(<Role name="Owner"/>)", {"name"}},
    {R"(<Person name="Ann Lee"/>)", {"name"}},
    {"</LogisticHeader>"},
    {R"(<HistoryRecord number="1" origination="o" toolRef="t" lastChange="two words">)"},
    {"</HistoryRecord>"},
    {R"(<Bom name="Rev A">)"},
    {R"(<BomHeader assembly="a">)", {"assembly"}},
    {"</BomHeader>"},
    {R"(<BomItem quantity="1" numberIO="2" category="c" internalPartNumber="p" description="d" packageRef="k">)",
     {"quantity", "numberIO", "category", "internalPartNumber", "description", "packageRef"}},
    {R"(<RefDes name="R1" populate="TRUE"/>)"},
    {"</BomItem>"},
    {"</Bom>"},
    {R"(<Ecad name="e">)"},
    {R"(<CadHeader units="MM">)"},
    {"</CadHeader>"},
    {"<CadData>"},
    {R"(<Layer name="TOP" layerFunction="SIGNAL" side="TOP" polarity="POSITIVE"/>)"},
    {R"(<Stackup overallThickness="1.6" tolPlus="0.1" tolMinus="0.1" whereMeasured="METAL">)"},
    {R"(<StackupGroup name="g" thickness="1" tolPlus="2" tolMinus="3">)"},
    {R"(<StackupLayer layerOrGroupRef="TOP" materialType="COPPER" thickness="4"/>)"},
    {"</StackupGroup>"},
    {"</Stackup>"},
    {R"(<Step name="board">)"},
    {R"(<PadStack net="GND">)"},
    {R"(<LayerHole name="h" diameter="1" platingStatus="VIA" plusTol="0" minusTol="0" x="1" y="2">)"},
    {R"(<Span fromLayer="TOP" toLayer="BOTTOM"/>)"},
    {"</LayerHole>"},
    {R"(<LayerPad layerRef="TOP" pin="1">)"},
    {R"(<Xform rotation="90"/>)"},
    {R"(<Location x="1" y="2"/>)"},
    {R"(<StandardPrimitiveRef id="S1"/>)"},
    {"</LayerPad>"},
    {"</PadStack>"},
    {R"(<Datum x="1" y="2"/>)"},
    {"<Profile>"},
    {"<Polygon>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {"<Cutout>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepCurve x="5" y="6" centerX="7" centerY="8" clockwise="FALSE"/>)"},
    {"</Cutout>"},
    {"</Profile>"},
    {R"(<Package name="P1" type="CHIP">)"},
    {"<Outline>"},
    {"<Polygon>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {R"(<LineDesc lineEnd="ROUND" lineWidth="1"/>)"},
    {"</Outline>"},
    {"<AssemblyDrawing>"},
    {"<Outline>"},
    {"<Polygon>"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {"</Outline>"},
    {"</AssemblyDrawing>"},
    {"<LandPattern>"},
    {R"(<Pad pin="1">)"},
    {R"(<Location x="1" y="2"/>)"},
    {"</Pad>"},
    {"</LandPattern>"},
    {"<SilkScreen>"},
    {"<Target>"},
    {"<Contour>"},
    {"<Polygon>"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {"</Contour>"},
    {R"(<Location x="1" y="2"/>)"},
    {"<Polyline>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {R"(<LineDesc lineEnd="ROUND" lineWidth="1"/>)"},
    {"</Polyline>"},
    {"</Target>"},
    {"</SilkScreen>"},
    {R"(<Pin number="1" name="A" type="THRU" electricalType="ELECTRICAL">)"},
    {R"(<Xform rotation="90" mirror="TRUE"/>)"},
    {R"(<Location x="1" y="2"/>)"},
    {R"(<StandardPrimitiveRef id="S1"/>)"},
    {"<Outline>"},
    {R"(<LineDesc lineEnd="SQUARE" lineWidth="1"/>)"},
    {"<Polygon>"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {"</Outline>"},
    {"</Pin>"},
    {"</Package>"},
    {R"(<Component refDes="R1" packageRef="P1" layerRef="TOP" part="two words" mountType="SMT" standoff="0.1" height="1.5">)"},
    {R"(<Xform rotation="90" mirror="TRUE"/>)"},
    {R"(<Location x="1" y="2"/>)"},
    {"</Component>"},
    {R"(<LogicalNet name="GND">)"},
    {R"(<LogicalNetPin componentRef="R1" pin="1"/>)"},
    {"</LogicalNet>"},
    {R"(<PhyNetGroup name="group">)"},
    {R"(<PhyNet name="GND">)"},
    {R"(<PhyNetPoint x="1" y="2" layerRef="TOP" netNode="END" exposure="EXPOSED" via="TRUE" test="TRUE">)"},
    {R"(<StandardPrimitiveRef id="S1"/>)"},
    {"</PhyNetPoint>"},
    {"</PhyNet>"},
    {"</PhyNetGroup>"},
    {R"(<LayerFeature layerRef="TOP">)"},
    {R"(<Set net="GND" testPoint="TRUE" plate="TRUE" padUsage="VIA">)"},
    {R"(<ColorRef id="red"/>)"},
    {"<Features>"},
    {R"(<Location x="1" y="2"/>)"},
    {"<Polyline>"},
    {R"(<PolyBegin x="1" y="2"/>)"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {R"(<LineDesc lineEnd="ROUND" lineWidth="1"/>)"},
    {"</Polyline>"},
    {R"(<Line startX="1" startY="2" endX="3" endY="4">)"},
    {R"(<LineDesc lineEnd="ROUND" lineWidth="1"/>)"},
    {"</Line>"},
    {"<Contour>"},
    {"<Polygon>"},
    {R"(<PolyStepSegment x="3" y="4"/>)"},
    {"</Polygon>"},
    {"</Contour>"},
    {R"(<Circle diameter="1"/>)", {"diameter"}},
    {"</Features>"},
    {"</Set>"},
    {"<Set>"},
    {R"(<Pad pin="1">)"},
    {R"(<Xform rotation="90"/>)"},
    {R"(<StandardPrimitiveRef id="S1"/>)"},
    {"</Pad>"},
    {"</Set>"},
    {"<Set>"},
    {R"(<Hole name="h" diameter="1" platingStatus="VIA" plusTol="0" minusTol="0" x="1" y="2"/>)"},
    {"</Set>"},
    {"</LayerFeature>"},
    {"</Step>"},
    {"</CadData>"},
    {"</Ecad>"},
    {"</IPC-2581>"},
};

// Counts what a model holds.
class ModelCounter {
public:
    explicit ModelCounter(const CIPC2581_Parser & root)
    {
        CountContent(root.m_Content);
        Texts({&root.m_LogisticHeader.m_strRoleName, &root.m_LogisticHeader.m_strPersonName});
        const CIPC2581_HistoryRecord & history = root.m_HistoryRecord;
        Texts({&history.origination, &history.toolRef, &history.lastChange});
        Number(history.number);
        CountBom(root.m_Bom);
        CountCad(root.m_Ecad);
        sizes["texts"] = m_texts;
        sizes["numbers"] = m_numbers;
    }

    ModelSizes sizes;

private:
    void Texts(std::initializer_list<const CString *> texts)
    {
        for (const CString * text : texts) {
            m_texts += text->IsEmpty() ? 0 : 1;
        }
    }
    void Number(double number) { m_numbers += number != 0 ? 1 : 0; }
    void Place(const CPointD & place)
    {
        Number(place.GetX());
        Number(place.GetY());
    }
    template <typename Element, typename Visit>
    void Each(const char * name, const CExPtrArray<Element *, Element *> & elements, Visit visit)
    {
        sizes[name] += elements.GetSize();
        for (std::int64_t i = 0; i < elements.GetSize(); ++i) {
            visit(*elements.GetAt(i));
        }
    }
    template <typename Contour>
    void Steps(const Contour & contour)
    {
        Place(*contour.GetPolyBegin()->GetPoint());
        Each("steps", *contour.GetPolyStepArray(), [this](const CIPC2581_PolyStep & step) {
            Place(*step.GetEndPoint()->GetPoint());
            Place(*step.GetCenterPoint()->GetPoint());
        });
    }
    void Shapes(const CIPC2581_DrawObjArray & shapes)
    {
        Each("shapes", shapes, [this](const CIPC2581_DrawObj & shape) {
            if (const auto * contour = dynamic_cast<const CIPC2581_DicDraw_Contour *>(&shape)) {
                Shapes(*contour->GetDicDrawObjArray());
            }
            else if (const auto * polygon = dynamic_cast<const CIPC2581_Polygon *>(&shape)) {
                Steps(*polygon);
            }
            else if (const auto * cutout = dynamic_cast<const CIPC2581_Cutout *>(&shape)) {
                Steps(*cutout);
            }
            else if (const auto * polyline = dynamic_cast<const CIPC2581_PolyLine *>(&shape)) {
                Steps(*polyline);
            }
            else if (const auto * line = dynamic_cast<const CIPC2581_Line *>(&shape)) {
                Place(*line->GetStartPoint()->GetPoint());
                Place(*line->GetEndPoint()->GetPoint());
                Number(line->GetLineDesc()->GetLineWidth());
            }
            else if (const auto * circle = dynamic_cast<const CIPC2581_DicDraw_Circle *>(&shape)) {
                Number(circle->GetDiameter());
            }
        });
    }
    void CountContent(const CIPC2581_Content & content)
    {
        Texts({&content.FunctionMode, &content.FunctionModeLevel});
        for (const CStringArray * list : {&content.StepRef, &content.LayerRef, &content.BomRef}) {
            sizes["references"] += list->GetSize();
            for (std::int64_t i = 0; i < list->GetSize(); ++i) {
                Texts({&list->GetAt(i)});
            }
        }
        Each("entries", *content.GetDictionaryStandard()->GetEntryArray(),
             [this](const CIPC2581_Content_DictionaryStandard_EntryStandard & entry) {
                 Texts({&entry.EntryStandardId});
                 Shapes(*entry.GetDrawArray());
             });
        Each("colours", *content.DictionaryColor()->GetEntry(),
             [this](const CIPC2581_Content_DictionaryColor_EntryColor & colour) {
                 Texts({&colour.EntryColorId, &colour.ColorRefID});
                 Number(colour.GetRed());
                 Number(colour.GetGreen());
                 Number(colour.GetBlue());
             });
    }
    void CountBom(const CIPC2581_Bom & bom)
    {
        Texts({&bom.name, &bom.assembly});
        Each("items", bom.m_arrBomItem, [this](const CIPC2581_Bom_BomItem & item) {
            Texts({&item.quantity, &item.numberIO, &item.category, &item.internalPartNumber, &item.description,
                   &item.packageRef});
            Each("designators", item.m_arrRefDes,
                 [this](const CIPC2581_Bom_BomItem_RefDes & refDes) { Texts({&refDes.name}); });
        });
    }
    void CountCad(const CIPC2581_Ecad & ecad)
    {
        Texts({&ecad.name, &ecad.m_CadHeader.units});
        Each("layers", ecad.m_CadData.m_arrLayer, [this](const CIPC2581_Ecad_CadData_Layer & layer) {
            Texts({&layer.name, &layer.layerFunction, &layer.side, &layer.polarity});
        });
        const CIPC2581_Ecad_CadData_Stackup & stackup = ecad.m_CadData.m_Stackup;
        Texts({&stackup.overallThickness, &stackup.tolPlus, &stackup.tolMinus, &stackup.whereMeasured});
        Each("groups", stackup.StackupGroupArray, [this](const CIPC2581_Ecad_CadData_Stackup_StackupGroup & group) {
            Texts({&group.name});
            Number(group.thickness);
            Number(group.tolPlus);
            Number(group.tolMinus);
            Each("stackup layers", group.StackupLayerArray,
                 [this](const CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer & layer) {
                     Texts({&layer.layerOrGroupRef, &layer.materialType});
                     Number(layer.thickness);
                 });
        });
        CountStep(ecad.m_CadData.m_Step);
    }
    void CountHole(const CIPC2581_Ecad_CadData_Step_Hole & hole)
    {
        Texts({&hole.Name, &hole.Diameter, &hole.PlatingStatus, &hole.PlusTol, &hole.MinusTol, &hole.ToLayer,
               &hole.FromLayer});
        Place(hole.Location);
    }
    void CountPad(const CIPC2581_Ecad_CadData_Step_Pad & pad)
    {
        Texts({&pad.LayerRef, &pad.Pin, &pad.StandardPrimitiveRefId});
        Number(pad.Rotation);
        Place(pad.Location);
    }
    void CountStep(const CIPC2581_Ecad_CadData_Step & step)
    {
        Texts({&step.Name, &step.PhyNetGroup.Name});
        Place(step.Datum);
        Steps(*step.Profile.Polygon);
        Shapes(*step.Profile.Cutouts);
        Each("pad stacks", step.PadStackArray, [this](const CIPC2581_Ecad_CadData_Step_PadStack & stack) {
            Texts({&stack.NetName});
            CountHole(*stack.LayerHole);
            Each("layer pads", *stack.LayerPadArray,
                 [this](const CIPC2581_Ecad_CadData_Step_Pad & pad) { CountPad(pad); });
        });
        Each("packages", step.PackageArray,
             [this](const CIPC2581_Ecad_CadData_Step_Package & package) { CountPackage(package); });
        Each("components", step.ComponentArray, [this](const CIPC2581_Ecad_CadData_Step_Component & part) {
            Texts({&part.RefDes, &part.PackageRef, &part.Part, &part.LayerRef, &part.MountType, &part.Standoff});
            Number(part.Height);
            Number(part.Xform->Rotation);
            Number(part.Xform->Mirror);
            Place(part.Location);
        });
        Each("logical nets", step.LogicalNetArray, [this](const CIPC2581_Ecad_CadData_Step_LogicalNet & net) {
            Texts({&net.Name});
            Each("net pins", *net.LogicalNetPinArray,
                 [this](const CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin & pin) {
                     Texts({&pin.ComponentRef, &pin.Pin});
                 });
        });
        Each("physical nets", step.PhyNetGroup.PhyNetArray,
             [this](const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet & net) {
                 Texts({&net.Name});
                 Each("points", net.PhyNetPointArray,
                      [this](const CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint & point) {
                          Texts({&point.LayerRef, &point.Exposure, &point.NetNode, &point.StandardPrimitiveRefId});
                          Number(point.Via);
                          Number(point.Test);
                          Place(point.Location);
                      });
             });
        Each("layer features", step.LayerFeatureArray, [this](const CIPC2581_Ecad_CadData_Step_LayerFeature & feature) {
            Texts({&feature.LayerRef, &feature.ColorRefId});
            Each("sets", feature.SetArray, [this](const CIPC2581_Ecad_CadData_Step_LayerFeature_Set & set) {
                Texts({&set.Net, &set.ColorRef, &set.PadUsage});
                Number(set.TestPoint ? 1 : 0);
                Number(set.Plate ? 1 : 0);
                Place(set.Features.Location);
                Shapes(set.Features.DrawObjArray);
                CountPad(set.Pad);
                CountHole(set.Hole);
            });
        });
    }
    void CountPackage(const CIPC2581_Ecad_CadData_Step_Package & package)
    {
        Texts({&package.name, &package.type});
        for (const CIPC2581_Outline * outline : {package.Outline, package.AssemblyDrawing.Outline}) {
            Steps(*outline->GetPolygon());
            Number(outline->GetLineDesc()->GetLineWidth());
        }
        Each("lands", package.LandPattern.PadArray,
             [this](const CIPC2581_Ecad_CadData_Step_Pad & pad) { CountPad(pad); });
        Each("targets", package.SilkScreen.TargetArray, [this](const CIPC2581_Ecad_CadData_Step_Target & target) {
            Place(target.Location);
            Shapes(*target.DrawObjArray);
        });
        Each("pins", package.PinArray, [this](const CIPC2581_Ecad_CadData_Step_Package_Pin & pin) {
            Texts({&pin.number, &pin.name, &pin.type, &pin.electricalType, &pin.StandardPrimitiveRef});
            Number(pin.Xform->Rotation);
            Place(pin.Location);
            Steps(*pin.Outline.GetPolygon());
            Number(pin.Outline.GetLineDesc()->GetLineWidth());
        });
    }

    std::int64_t m_texts = 0;
    std::int64_t m_numbers = 0;
};

// What a file leaves in a model.
struct Outcome {
    bool isCut = false;  // CInvalidArgException came out
    ModelSizes sizes = {};
};

// Reads files into fresh models.
class ModelFiles {
public:
    Outcome Read(std::string_view bytes)
    {
        CIPC2581_Parser root;
        CIPC2581_XmlLiteReader reader;
        CString path(m_folder.Save("board.xml", bytes));
        Outcome outcome;
        try {
            EXPECT_EQ(reader.OpenPath(path, root), 1);
        }
        catch (const CInvalidArgException &) {
            outcome.isCut = true;
        }
        outcome.sizes = ModelCounter(root).sizes;
        return outcome;
    }

private:
    TempFolder m_folder;
};

// The board as a file has it.
inline std::string WholeBoardBytes()
{
    std::string bytes;
    for (const BoardLine & line : WholeBoard) {
        bytes.append(line.text).append("\n");
    }
    return bytes;
}

// Says what shrank from one model to the next.
inline std::string Shrunk(const ModelSizes & before, const ModelSizes & after)
{
    std::string shrunk;
    for (const auto & [name, size] : before) {
        const auto found = after.find(name);
        if (found == after.end() || found->second < size) {
            shrunk.append(name).append(" ");
        }
    }
    return shrunk;
}

}  // namespace ipc2581::tests

#endif
