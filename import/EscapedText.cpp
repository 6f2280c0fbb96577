#include "import/EscapedText.h"

namespace ipc2581 {

std::string EscapedText(std::string_view text)
{
    std::string escaped;
    for (const char own : text) {
        switch (own) {
        case '&':
            escaped.append("&amp;");
            break;
        case '<':
            escaped.append("&lt;");
            break;
        case '>':
            escaped.append("&gt;");
            break;
        case '"':
            escaped.append("&quot;");
            break;
        default:
            escaped.push_back(own);
            break;
        }
    }
    return escaped;
}

}  // namespace ipc2581
