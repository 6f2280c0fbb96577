#ifndef IPC2581_HOSTS_IPC2581_HTML_HTMLPAGE_H
#define IPC2581_HOSTS_IPC2581_HTML_HTMLPAGE_H

#include <ostream>
#include <string>
#include <string_view>

namespace ipc2581::host {

// By which a page of this program is known, in the first bytes of the file.
inline constexpr std::string_view HtmlMark = "<!doctype html><!-- Drawn by ipc2581 html -->";

// Writes one file that shows what PageDataOf has made, under this title.
void WritePage(std::ostream & out, std::string_view title, const std::string & data);

}  // namespace ipc2581::host

#endif
