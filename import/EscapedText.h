#ifndef IPC2581_IMPORT_ESCAPEDTEXT_H
#define IPC2581_IMPORT_ESCAPEDTEXT_H

#include <string>
#include <string_view>

#include "ipc2581/base/Export.h"

namespace ipc2581 {

// A text as the model holds it: with entities for "&", "<", ">" and the double quote, so that what is written is
// well-formed. For hosts that set texts of a model.
IPC2581_API std::string EscapedText(std::string_view text);

}  // namespace ipc2581

#endif
