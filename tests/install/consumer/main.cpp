#include <cstdio>
#include <typeinfo>

#include <ipc2581/ipc2581.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/Step.h"
#include "ipc2581/each.h"
#include "ipc2581/version.h"

namespace {

// An exception of the library is caught by its type, and an object of the model known by its own, on this side of a
// shared library too.
bool TypesAreShared()
{
    CIPC2581_Line line;
    const CIPC2581_DrawObj & shape = line;
    if (typeid(shape) != typeid(CIPC2581_Line)) {
        return false;
    }
    try {
        AfxThrowInvalidArgException();
    }
    catch (const CInvalidArgException &) {
        return true;
    }
}

bool WritesWhatItRead(const char * boardPath, const char * writtenPath)
{
    CIPC2581_Parser root;
    CString board(boardPath);
    CIPC2581_XmlLiteReader().OpenPath(board, root);
    const CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
    if (ipc2581::Str(step.Name) != "installed" || !ipc2581::Each(step.ComponentArray).empty()) {
        return false;
    }
    CString written(writtenPath);
    return CIPC2581_XmlLiteReader().WriteFilePath(written, root) == 1;
}

}  // namespace

int main(int argc, char ** argv)
{
    if (argc != 3 || !TypesAreShared() || !WritesWhatItRead(argv[1], argv[2])) {
        return 1;
    }
    std::puts(ipc2581::Version);
    return 0;
}
