#ifndef IPC2581_TESTS_CAD_PHYNETS_H
#define IPC2581_TESTS_CAD_PHYNETS_H

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/cad/PhyNet.h"
#include "ipc2581/cad/PhyNetPoint.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

using Net = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet;
using Point = CIPC2581_Ecad_CadData_Step_PhyNetGroup_PhyNet_PhyNetPoint;

struct PointFields {
    double x = 0;
    double y = 0;
    std::string layerRef;
    std::string netNode;
    std::string exposure;
    int via = 0;
    int test = 0;
    std::string primitive;
    bool operator==(const PointFields &) const = default;
};

inline PointFields FieldsOf(const Point & point)
{
    return {point.Location.GetX(),
            point.Location.GetY(),
            Str(point.LayerRef),
            Str(point.NetNode),
            Str(point.Exposure),
            point.Via,
            point.Test,
            Str(point.StandardPrimitiveRefId)};
}

// The points of a net by the layer that each has.
inline Texts PointsOf(const Net & net)
{
    Texts points;
    for (std::int64_t i = 0; i < net.PhyNetPointArray.GetSize(); ++i) {
        points.push_back(Str(net.PhyNetPointArray.GetAt(i)->LayerRef));
    }
    return points;
}

// A group, a net or a point, with what its reader makes of these lines.
template <typename Model, void (Model::*Add)(CStdioFile &)>
class ReadPart {
public:
    explicit ReadPart(std::string_view bytes) : m_lines(bytes) { (model.*Add)(m_lines.File()); }

    Texts Rest() { return m_lines.Rest(); }

    Model model;

private:
    Lines m_lines;
};

}  // namespace ipc2581::tests

#endif
