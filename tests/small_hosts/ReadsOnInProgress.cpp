// A host may read on in the file when it gets a position; the names of the line in hand are not lost by that.
#include <vector>

#include "tests/small_hosts/Expect.h"

namespace {

// Together longer than the buffer of a file.
constexpr int LinesForTheHost = 4000;

std::string ForTheHost()
{
    std::string lines;
    for (int i = 0; i < LinesForTheHost; ++i) {
        lines += "a line for the host, which is longer than the one in hand name=\"other\"\n";
    }
    return lines;
}

class ReadingProgress : public CProgressCtrl {
public:
    explicit ReadingProgress(CStdioFile & file) : m_file(file) {}
    int SetPos(int position) override
    {
        positions.push_back(position);
        CString line;
        for (int i = 0; (position == 8 || position == 30) && i < LinesForTheHost; ++i) {
            taken += m_file.ReadString(line);
        }
        return CProgressCtrl::SetPos(position);
    }

    std::vector<int> positions;
    int taken = 0;

private:
    CStdioFile & m_file;
};

}  // namespace

int main()
{
    const TempFile board("<Ecad name=\"board one\">\n" + ForTheHost() + "<CadData>\n<Step name=\"step one\">\n" +
                         ForTheHost() + "</Step>\n</CadData>\n</Ecad>\n</IPC-2581>\n");
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    ReadingProgress progress(reader.m_File);
    reader.m_pProgressCtrl = &progress;
    CString path = board.Name();
    reader.OpenPath(path, root);
    Expect(progress.taken == 2 * LinesForTheHost, "the host has read on");
    Expect(root.m_Ecad.name == "board one", "the section has its name");
    Expect(root.m_Ecad.m_CadData.m_Step.Name == "step one", "the step has its name");
    Expect(progress.positions == std::vector<int>({8, 20, 30, 100}), "the positions go out in their order");
}
