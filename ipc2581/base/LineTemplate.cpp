#include "ipc2581/base/LineTemplate.h"

#include <memory>
#include <typeinfo>

#include "ipc2581/base/LineFile.h"

namespace ipc2581::detail {

// A line to a plain file is formed in its buffer; a file class of the host's own gets it through its operation.
void WriteFormattedLine(CStdioFile & file, const FormatText & format, FormatArguments arguments)
{
    const std::size_t bound = FormattedBound(format, arguments);
    if (typeid(file) == typeid(CStdioFile)) {
        char * const out = file.Lines().Reserve(bound);
        file.Lines().Commit(WriteFormatted(out, format, arguments));
        return;
    }
    const std::unique_ptr<char[]> line(new char[bound + 1]);
    *WriteFormatted(line.get(), format, arguments) = '\0';
    file.WriteString(line.get());
}

}  // namespace ipc2581::detail
