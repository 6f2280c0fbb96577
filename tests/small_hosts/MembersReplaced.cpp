// A host that gets a line, or is asked for one, may put another object in the place of a part; the object that stands
// there then is the one that is written or filled.
#include <functional>
#include <memory>
#include <utility>

#include "tests/small_hosts/Expect.h"

namespace {

// Does something at the first line that holds a word.
class WatchedFile : public CStdioFile {
public:
    WatchedFile(std::string word, std::function<void()> react) : m_word(std::move(word)), m_react(std::move(react)) {}

    void WriteString(const char * text) override
    {
        written += text;
        ReactTo(text);
    }
    int ReadString(CString & line) override
    {
        const std::size_t end = unread.find('\n');
        if (end == std::string::npos) {
            line = "";
            return 0;
        }
        line = CString(unread.substr(0, end).c_str());
        unread.erase(0, end + 1);
        ReactTo(line);
        return 1;
    }

    std::string written;
    std::string unread;

private:
    void ReactTo(const char * text)
    {
        if (std::string_view(text).find(m_word) != std::string_view::npos && m_react) {
            std::exchange(m_react, nullptr)();
        }
    }

    std::string m_word;
    std::function<void()> m_react;
};

bool Holds(const std::string & text, const char * word)
{
    return text.find(word) != std::string::npos;
}

void AddStep(CIPC2581_PolyStepArray & steps, double x)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->SetEndPointX(x);
    steps.Add(step.release());
}

void ReplaceWhileWriting()
{
    CIPC2581_Cutout cutout;
    AddStep(*cutout.PolyStepArray, 1.0);
    WatchedFile file("<Cutout>", [&] {
        cutout.Init();
        AddStep(*cutout.PolyStepArray, 2.0);
    });
    Expect(cutout.Export(file, 0) == 1 && Holds(file.written, R"(x="2.000000")") && !Holds(file.written, R"(x="1.0)"),
           "a cutout that is reset is written as it is then");

    CIPC2581_Ecad_CadData_Step_Profile profile;
    AddStep(*profile.Polygon->PolyStepArray, 1.0);
    WatchedFile outline("<Profile>", [&] {
        delete profile.Polygon;
        profile.Polygon = new CIPC2581_Polygon;
        AddStep(*profile.Polygon->PolyStepArray, 2.0);
    });
    Expect(profile.Export(outline, 0) == 1 && Holds(outline.written, R"(x="2.000000")"), "so is an outline");

    CIPC2581_Ecad_CadData_Step_LogicalNet net;
    WatchedFile pins("<LogicalNet ", [&] {
        delete net.LogicalNetPinArray;
        net.LogicalNetPinArray = new CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPinArray;
        net.LogicalNetPinArray->Add(new CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin);
    });
    Expect(net.Export(pins, 0) == 1 && Holds(pins.written, "<LogicalNetPin "), "so is a list of pins");

    CIPC2581_Content content;
    content.DictionaryStandard->EntryArray->Add(new CIPC2581_Content_DictionaryStandard_EntryStandard);
    WatchedFile colours("</DictionaryStandard>", [&] {
        delete content.m_DictionaryColor;
        content.m_DictionaryColor = new CIPC2581_Content_DictionaryColor;
        content.m_DictionaryColor->Entry->Add(new CIPC2581_Content_DictionaryColor_EntryColor);
    });
    Expect(content.Export(colours, 0) == 1 && Holds(colours.written, "<EntryColor "), "so is a dictionary");
}

void ReplaceWhileReading()
{
    CIPC2581_Cutout cutout;
    WatchedFile file("PolyStepSegment", [&] { cutout.Init(); });
    file.unread = "<PolyBegin x=\"1\" y=\"1\"/>\n<PolyStepSegment x=\"2\" y=\"2\"/>\n</Cutout>\n";
    Expect(cutout.Import(file) == 1 && cutout.PolyStepArray->GetSize() == 1 && cutout.PolyBegin->GetPoint_X() == 0.0,
           "steps go into the list that is there");

    CIPC2581_Content_DictionaryStandard_EntryStandard entry;
    CIPC2581_DrawObjArray * before = entry.DrawArray;
    WatchedFile shapes("</Contour>", [&] { entry.Init(); });
    shapes.unread = "<Contour>\n</Contour>\n</EntryStandard>\n";
    Expect(entry.Import(shapes) == 1 && before->IsEmpty() && entry.DrawArray->GetSize() == 1, "so do shapes");
    delete before;

    CIPC2581_Ecad_CadData_Step_Profile profile;
    WatchedFile cutouts("</Cutout>", [&] {
        delete profile.Cutouts;
        profile.Cutouts = new CIPC2581_DrawObjArray;
    });
    cutouts.unread = "<Cutout>\n</Cutout>\n</Profile>\n";
    profile.ReadProfile(cutouts);
    Expect(profile.Cutouts->GetSize() == 1, "and cutouts");

    CIPC2581_Outline outline;
    WatchedFile strokes("</Polygon>", [&] {
        delete outline.LineDesc;
        outline.LineDesc = new CIPC2581_LineDesc;
    });
    strokes.unread = "<Polygon>\n</Polygon>\n<LineDesc lineEnd=\"SQUARE\" lineWidth=\"1\"/>\n</Outline>\n";
    Expect(outline.Import(strokes) == 1 && outline.LineDesc->LineEnd == "SQUARE", "and the stroke of an outline");
}

}  // namespace

int main()
{
    ReplaceWhileWriting();
    ReplaceWhileReading();
}
