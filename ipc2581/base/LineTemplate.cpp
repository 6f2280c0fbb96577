#include "ipc2581/base/LineTemplate.h"

namespace ipc2581::detail {

char * BeginHostLine(CStdioFile & file, std::size_t bound)
{
    std::string & line = file.Lines().HostLine();
    line.resize(bound + 1);
    return line.data();
}

void EndHostLine(CStdioFile & file, char * end)
{
    *end = '\0';
    file.WriteString(file.Lines().HostLine().c_str());
}

}  // namespace ipc2581::detail
