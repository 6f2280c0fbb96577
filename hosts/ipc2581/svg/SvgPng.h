#ifndef IPC2581_HOSTS_IPC2581_SVG_SVGPNG_H
#define IPC2581_HOSTS_IPC2581_SVG_SVGPNG_H

#include <string>
#include <string_view>

namespace ipc2581::host {

// The bytes of a PNG file of so many pixels in width that shows the picture. They begin with PngMark, behind the first
// chunk. Throws std::runtime_error for a picture that is too large.
std::string PngOf(std::string_view svg, int width);

// By which a PNG file of this program is known, as SvgMark is in an SVG file.
inline constexpr std::string_view PngMark = "Drawn by ipc2581 svg";

}  // namespace ipc2581::host

#endif
