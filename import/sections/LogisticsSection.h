#ifndef IPC2581_IMPORT_SECTIONS_LOGISTICSSECTION_H
#define IPC2581_IMPORT_SECTIONS_LOGISTICSSECTION_H

#include "import/elements/Tree.h"
#include "import/sections/Context.h"

namespace ipc2581::detail {

// Who made the file and when, and what the board is made of: LogisticHeader, HistoryRecord and Bom.
class LogisticsSection {
public:
    explicit LogisticsSection(Context & context) : m_context(context) {}

    void ReadLogisticHeader(const XmlElement & header);
    void ReadHistoryRecord(const XmlElement & record);
    // A second bill adds its items to those of the first.
    void BeginBom(const XmlElement & bom);
    // A BomHeader or a BomItem.
    void ReadInBom(const XmlElement & element);

private:
    void ReadBomItem(const XmlElement & element);

    Context & m_context;
    // Of several sections of a kind the first is taken, and the others are lost.
    bool m_hasHeader = false;
    bool m_hasHistory = false;
    bool m_hasBom = false;
    bool m_hasBomHeader = false;
};

}  // namespace ipc2581::detail

#endif
