#ifndef IPC2581_CAD_PLACEMENT_H
#define IPC2581_CAD_PLACEMENT_H

#include "ipc2581/base/PointD.h"
#include "ipc2581/base/platform/CStdioFile.h"

// The lines that many elements of a step have in common.
namespace ipc2581::detail {

// Writes the StandardPrimitiveRef line, also for an empty id.
void WriteStandardPrimitiveRef(CStdioFile & file, int level, const CString & id);

// Writes the Location line, indented by level + 1 steps. Targets and the datum have forms of their own.
void WriteLocation(CStdioFile & file, int level, const CPointD & location);

}  // namespace ipc2581::detail

#endif
