#ifndef IPC2581_HOSTS_IPC2581_BOARD_BOARDFEATURES_H
#define IPC2581_HOSTS_IPC2581_BOARD_BOARDFEATURES_H

#include <vector>

#include <import/shapes/Path.h>

#include "hosts/ipc2581/board/Board.h"

// What lies on the layers of a board and goes through them, in the order of the model, which everything here points
// into.
namespace ipc2581::host {

using FeatureSet = CIPC2581_Ecad_CadData_Step_LayerFeature_Set;

struct PadPlace {
    const CIPC2581_Ecad_CadData_Step_Pad * pad;
    const CString * layer;
    const CString * net;
    const FeatureSet * set;  // null for a pad of a pad stack
};
std::vector<PadPlace> PadsOf(Board & board);

struct HolePlace {
    const CIPC2581_Ecad_CadData_Step_Hole * hole;
    const CString * layer;  // null for a hole of a pad stack
    const CString * net;
};
// A hole that a pad stack and a layer both tell is the one of the layer.
std::vector<HolePlace> HolesOf(Board & board);

// A straight or circular stroke on a copper layer.
struct Track {
    const CString * layer;
    const CString * net;
    const CIPC2581_LineDesc * line;
    Vertex from;
    Vertex to;
    Vertex center = {};  // of an arc
    bool isArc = false;
    bool isClockwise = false;
};
std::vector<Track> TracksOf(Board & board);
double LengthOf(const Track & track);

}  // namespace ipc2581::host

#endif
