#ifndef IPC2581_BASE_LINES_LINETEMPLATE_H
#define IPC2581_BASE_LINES_LINETEMPLATE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/LineFile.h"
#include "ipc2581/base/lines/LineFormat.h"
#include "ipc2581/base/platform/CStdioFile.h"

namespace ipc2581::detail {

// Three blanks, repeated; nothing for a count of 0 or less.
inline Blanks Indent(std::int64_t repeats)
{
    return {repeats * 3};
}

// A value as a file class of the host's own gets it: it takes lines by const char *, so a value ends at its zero byte.
inline std::string_view UpToZero(std::string_view value)
{
    return value.substr(0, value.find('\0'));
}
template <typename Value>
Value UpToZero(Value value) requires(!std::is_convertible_v<const Value &, std::string_view>)
{
    return value;
}

// Gives such a file a line. By value, so that nothing of a line to a plain file needs a place in memory for this.
template <typename Format, typename... Values>
[[gnu::noinline, gnu::cold]] void WriteHostLine(CStdioFile & file, Format format, Values... values)
{
    // The room is the file's; it is taken out meanwhile, since what the host does with a line may write another one.
    std::string line = std::exchange(file.Lines().HostLine(), {});
    line.resize(std::max(line.size(), FormattedBound(format, values...) + 1));
    *WriteFormatted(line.data(), format, values...) = '\0';
    file.WriteString(line.c_str());
    file.Lines().HostLine() = std::move(line);
}

// Writes one line by its template, whose first argument is the indent: WriteLine(file, "%s<Set net=\"%s\">\n",
// Indent(level + 1), Net). Numbers come out as %f and %d print them, texts as they stand, nothing is escaped.
template <typename... Arguments>
[[gnu::always_inline]] inline void WriteLine(CStdioFile & file, LineFormat<Arguments...> format,
                                             const Arguments &... arguments)
{
    if (!IsPlainFile(file)) {
        WriteHostLine(file, format, UpToZero(arguments)...);
        return;
    }
    char * const out = file.Lines().Reserve(FormattedBound(format, arguments...));
    file.Lines().Commit(WriteFormatted(out, format, arguments...));
}

// The words of a flag in a written file.
inline std::string_view TrueOrFalse(bool value)
{
    return value ? "TRUE" : "FALSE";
}

// Exports each element of an array at the same level. Stops with 0 at the first element that gives 0; an empty array
// gives 1.
template <typename Element>
int ExportElements(const CExPtrArray<Element *, Element *> & elements, CStdioFile & file, int level,
                   std::int64_t first = 0)
{
    for (std::int64_t i = first; i < elements.GetSize(); ++i) {
        if (elements.GetAt(i)->Export(file, level) == 0) {
            return 0;
        }
    }
    return 1;
}

// Exports the parts of an object in order, each at the same level, up to the first that gives 0. False if one did.
template <typename... Parts>
bool ExportParts(CStdioFile & file, int level, Parts &... parts)
{
    return (... && (PartOf(parts).Export(file, level) != 0));
}

// Writes an element without attributes: its opening line, its parts one level deeper, its closing line. Gives 1, or 0
// without the closing line as soon as a part gives 0.
template <typename... Parts>
int ExportElement(CStdioFile & file, int level, std::string_view tag, Parts &... parts)
{
    WriteLine(file, "%s<%s>\n", Indent(level + 1), tag);
    if (!ExportParts(file, level + 1, parts...)) {
        return 0;
    }
    WriteLine(file, "%s</%s>\n", Indent(level + 1), tag);
    return 1;
}

// The same for an element with one attribute, such as its name or id.
template <typename... Parts>
int ExportKeyedElement(CStdioFile & file, int level, std::string_view tag, std::string_view key, const CString & value,
                       Parts &... parts)
{
    WriteLine(file, "%s<%s %s=\"%s\">\n", Indent(level + 1), tag, key, value);
    if (!ExportParts(file, level + 1, parts...)) {
        return 0;
    }
    WriteLine(file, "%s</%s>\n", Indent(level + 1), tag);
    return 1;
}

}  // namespace ipc2581::detail

#endif
