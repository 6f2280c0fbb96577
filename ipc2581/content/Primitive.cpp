#include "ipc2581/content/Primitive.h"

namespace ipc2581::detail {

int Primitive::Import(CStdioFile & file)
{
    CString line;
    file.ReadString(line);
    CArray<CString, CString> tokens;
    if (line.Find(' ') == -1) {
        tokens.Add(line);
    }
    else {
        Tokenize(line, &tokens);
    }
    Import(tokens);
    return 1;
}

}  // namespace ipc2581::detail
