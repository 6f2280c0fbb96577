// A file class of the host's own gets one text a line, empty texts where there is none, and values up to a zero byte.
#include <vector>

#include "tests/small_hosts/Expect.h"

namespace {

class Recorder : public CStdioFile {
public:
    void WriteString(const char * text) override { texts.emplace_back(text); }
    std::vector<std::string> texts;
};

// Writes a comment in front of each line, through the library too.
class Commenter : public CStdioFile {
public:
    void WriteString(const char * text) override
    {
        if (!m_isInside) {
            m_isInside = true;
            CIPC2581_Xform mark;
            mark.Export(*this, 0);
            m_isInside = false;
        }
        written += text;
    }
    std::string written;

private:
    bool m_isInside = false;
};

// Primitives without accessors are changed through what they read.
CIPC2581_DicDraw_Butterfly Butterfly(const char * shape)
{
    CIPC2581_DicDraw_Butterfly butterfly;
    CArray<CString, CString> tokens;
    tokens.Add(CString(R"(shape=")") + shape + R"(")");
    butterfly.Import(tokens);
    return butterfly;
}

}  // namespace

int main()
{
    using Texts = std::vector<std::string>;
    Recorder recorder;
    CIPC2581_Pt step;
    step.Type = 2;
    Expect(step.Export(recorder, 0) == 1 && recorder.texts == Texts{""}, "an unknown step is an empty text");
    recorder.texts.clear();
    CIPC2581_DicDraw_Butterfly octagon = Butterfly("OCTAGON");
    Expect(octagon.Export(recorder, 0) == 1 && recorder.texts == Texts{""}, "an unknown butterfly is an empty text");
    recorder.texts.clear();
    CIPC2581_DicDraw_Butterfly round = Butterfly("ROUND");
    round.Export(recorder, 0);
    Expect(recorder.texts == Texts{"   <Butterfly Shape=\"ROUND\" diameter=\"0.000000\" />\n"},
           "a known one is a line");
    recorder.texts.clear();

    CIPC2581_Ecad_CadData_Layer layer;
    layer.name = std::string_view("TO\0P", 4);
    layer.side = std::string_view("\0TOP", 4);
    layer.Export(recorder, 0);
    Expect(recorder.texts ==
               Texts{"   <Layer name=\"TO\" layerFunction=\"\" side=\"\" polarity=\"POSITIVE\">\n", "   </Layer>\n"},
           "a value ends at its zero byte and the rest of the line follows");

    const TempFile plain;
    CStdioFile file;
    file.Open(plain.Path().c_str(), CStdioFile::modeReadWrite, nullptr);
    layer.Export(file, 0);
    file.Close();
    const std::string zero(1, '\0');
    Expect(plain.Bytes() == R"(   <Layer name="TO)" + zero + R"(P" layerFunction="" side=")" + zero +
                                "TOP\" polarity=\"POSITIVE\">\n   </Layer>\n",
           "a plain file keeps the byte");

    CIPC2581_Parser root;
    root.m_Content.FunctionMode = std::string_view("A\0B", 3);
    root.m_Content.StepRef.Add(CString(std::string_view("s\0t", 3)));
    const TempFile report;
    CString path = report.Name();
    CIPC2581_DataPrint().DataPrint(path, root);
    std::ifstream in(path.GetString(), std::ios::binary);
    const std::string printed{std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    Expect(printed == "A" + zero + "B \n\nSetpRef: s" + zero + "t\nDictionaryStandard Units: \n", "so does the report");

    Commenter commenter;
    CIPC2581_Ecad_CadData_Layer top;
    top.name = "TOP";
    top.Export(commenter, 0);
    Expect(commenter.written == "   <Xform rotation=\"0.000000\"/>\n"
                                "   <Layer name=\"TOP\" layerFunction=\"\" side=\"\" polarity=\"POSITIVE\">\n"
                                "   <Xform rotation=\"0.000000\"/>\n"
                                "   </Layer>\n",
           "what is written while a line is written disturbs neither");
}
