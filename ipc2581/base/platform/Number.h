#ifndef IPC2581_BASE_PLATFORM_NUMBER_H
#define IPC2581_BASE_PLATFORM_NUMBER_H

#include <cstddef>
#include <string_view>

#include "ipc2581/base/Export.h"

// Numbers as text. Nothing here asks the locale.
namespace ipc2581::detail {

// What strtod gives in the C locale: the longest prefix behind leading white space that is a number, else 0.
IPC2581_API double ParseDouble(std::string_view text);

// The same, faster, for a text with eight readable bytes in front of its end.
IPC2581_API double ParseDoubleAhead(std::string_view text);

// What atoi gives; a number beyond the range of int gives the nearest int.
IPC2581_API int ParseInteger(std::string_view text);

// Room that WriteFixed needs for any double, and WriteInteger for any int.
inline constexpr std::size_t FixedLength = 320;
inline constexpr std::size_t IntegerLength = 12;

// Writes what printf("%f") gives in the C locale, exact for every double, and returns the end.
IPC2581_API char * WriteFixed(char * out, double value);

// Writes what printf("%d") gives and returns the end.
IPC2581_API char * WriteInteger(char * out, int value);

}  // namespace ipc2581::detail

#endif
