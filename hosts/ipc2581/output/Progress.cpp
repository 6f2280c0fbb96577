#include "hosts/ipc2581/output/Progress.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <utility>

#include <unistd.h>

namespace ipc2581::host {
namespace {

constexpr int BarLength = 25;

// A bar needs escapes, which some terminals have not and some people do not want.
bool TakesEscapes()
{
    const char * const terminal = std::getenv("TERM");
    const char * const noColor = std::getenv("NO_COLOR");
    const bool isDumb = terminal == nullptr || std::string_view(terminal) == "dumb";
    return isatty(STDERR_FILENO) == 1 && !isDumb && (noColor == nullptr || *noColor == '\0');
}

}  // namespace

Progress::Progress(std::string label) : m_label(std::move(label)), m_isShown(TakesEscapes())
{
    if (m_isShown) {
        Draw();
    }
}

Progress::~Progress()
{
    if (m_isShown) {
        static_cast<void>(std::fputs("\r\x1b[K", stderr));
    }
}

int Progress::SetPos(int position)
{
    const int before = CProgressCtrl::SetPos(position);
    // Most positions come once for each object of a board.
    if (m_isShown && position != before) {
        Draw();
    }
    return before;
}

void Progress::Draw()
{
    const int position = std::clamp(GetPos(), 0, 100);
    const std::string bar(static_cast<std::size_t>(position * BarLength / 100), '#');
    static_cast<void>(
        std::fprintf(stderr, "\r\x1b[K%s [%-*s] %3d%%", m_label.c_str(), BarLength, bar.c_str(), position));
}

}  // namespace ipc2581::host
