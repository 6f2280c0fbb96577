// A read of a file that was made to take memory ends at the limit that the host has set, with what it had finished.
#include <cstdint>
#include <vector>

#include "tests/small_hosts/Expect.h"

namespace {

std::string Repeated(std::string_view text, int count)
{
    std::string repeated;
    for (int i = 0; i < count; ++i) {
        repeated += text;
    }
    return repeated;
}

std::string InStep(const std::string & lines)
{
    return "<Ecad name=\"e\">\n<CadData>\n<Step name=\"s\">\n" + lines + "</Step>\n</CadData>\n</Ecad>\n";
}

// What the read says where it ends, or nothing.
std::string Ending(const std::string & bytes, std::uint64_t limit, CIPC2581_Parser & root)
{
    const TempFile board(bytes);
    CIPC2581_XmlLiteReader reader;
    reader.SetMemoryLimit(limit);
    CString path = board.Name();
    try {
        reader.OpenPath(path, root);
    }
    catch (const CFileException & failure) {
        Expect(std::string_view(failure.what()).find(board.Path()) != std::string_view::npos, "the file is named");
        return failure.what();
    }
    return {};
}

}  // namespace

int main()
{
    constexpr std::uint64_t limit = 1 << 20;
    const std::vector<std::string> made = {
        InStep(Repeated("<Package>\n</Package>\n", 20000)),
        InStep("<Package name=\"p\">\n" + Repeated("<Pin>\n</Pin>\n", 20000)),
        InStep("<LayerFeature>\n" + Repeated("<Set>\n</Set>\n", 20000)),
        InStep("<Profile>\n<Polygon>\n" + Repeated("<PolyStepCurve/>\n", 20000)),
        Repeated("<HistoryRecord/>\n", 50000),
        "<Content>\n" + Repeated("<StepRef>a_name_of_some_length</StepRef>\n", 50000),
        "<Ecad>\n<CadData>\n" + Repeated("<Layer >\n", 20000),
        "<Bom>\n" + Repeated(R"(<BomItem description=")" + std::string(3000, 'x') + "\">\n</BomItem>\n", 500),
        InStep(R"(<Package name=")" + std::string(2 << 20, 'x') + "\">\n"),
        InStep(R"(<Component refDes=")" + Repeated("a ", 1 << 20) + "\">\n"),
    };
    for (const std::string & bytes : made) {
        CIPC2581_Parser root;
        Expect(Ending(bytes, limit, root).find("bytes that it may") != std::string::npos, "the read ends at the limit");
        CIPC2581_Parser whole;
        Expect(Ending(bytes, UINT64_MAX, whole).empty(), "and at the end of the file without one");
    }
    CIPC2581_Parser root;
    Ending(made[0], limit, root);
    const std::int64_t kept = root.m_Ecad.m_CadData.m_Step.PackageArray.GetSize();
    Expect(kept > 100 && kept < 20000, "what was finished is kept");

    // A reader that has met its limit finds a missing file missing.
    const TempFile large(made[0]);
    CIPC2581_XmlLiteReader spent;
    spent.SetMemoryLimit(limit);
    CString name = large.Name();
    Expect(Throws<CFileException>([&] { spent.OpenPath(name, root); }), "the read ends at the limit");
    AfxSetMessageBoxHandler([](const char *, unsigned, unsigned) { return 1; });
    name += ".missing";
    Expect(spent.OpenPath(name, root) == 1, "and the next one with its message");

    // The limit is that of one read, not of all that a reader has read.
    const TempFile board(ExampleBoard());
    CIPC2581_XmlLiteReader reader;
    reader.SetMemoryLimit(limit);
    for (int i = 0; i < 50; ++i) {
        CIPC2581_Parser fresh;
        CString path = board.Name();
        reader.OpenPath(path, fresh);
    }
}
