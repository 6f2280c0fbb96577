#ifndef IPC2581_HOSTS_IPC2581_LISTINGS_FEATURETABLES_H
#define IPC2581_HOSTS_IPC2581_LISTINGS_FEATURETABLES_H

#include "hosts/ipc2581/board/Lengths.h"
#include "hosts/ipc2581/table/Table.h"

// One row per thing on the layers: in the order of the file, or by net, N2 before N10. The board and the lengths must
// outlive the tables.
namespace ipc2581::host {

Table PadTable(Board & board, const Lengths & lengths, bool isSorted);
Table HoleTable(Board & board, const Lengths & lengths, bool isSorted);
// The straight and circular strokes on copper layers, one row for each step of a polyline.
Table TrackTable(Board & board, const Lengths & lengths, bool isSorted);

}  // namespace ipc2581::host

#endif
