#ifndef IPC2581_TESTS_LOGISTICS_BOMS_H
#define IPC2581_TESTS_LOGISTICS_BOMS_H

#include <string_view>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "ipc2581/logistics/Bom.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

// A root that was read from a file, and its bill of materials.
class BomDocument {
public:
    int Open(std::string_view bytes)
    {
        CString path(folder.Save("board.xml", bytes));
        return reader.OpenPath(path, root);
    }

    TempFolder folder;
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader reader;
    CIPC2581_Bom & bom = root.m_Bom;
};

}  // namespace ipc2581::tests

#endif
