#ifndef IPC2581_HOSTS_IPC2581_TEXT_TEXT_H
#define IPC2581_HOSTS_IPC2581_TEXT_TEXT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace ipc2581::host {

// The text as one line that can be seen: names in a board and names of files may hold line feeds and the like.
std::string OneLine(std::string text);

// How many columns of a terminal the text takes: two for each character of Chinese, Japanese or Korean, none for an
// accent that stands by itself, and one for a byte that is none of UTF-8.
std::size_t Width(std::string_view text);

// With the letters of ASCII in lower case, whatever the locale.
std::string LowerCase(std::string text);

// A text of a board as it was meant: a model has &, <, > and " as entities.
std::string Shown(std::string_view text);

}  // namespace ipc2581::host

#endif
