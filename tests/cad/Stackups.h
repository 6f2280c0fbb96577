#ifndef IPC2581_TESTS_CAD_STACKUPS_H
#define IPC2581_TESTS_CAD_STACKUPS_H

#include <string>
#include <string_view>

#include <gtest/gtest.h>

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/cad/Stackup.h"
#include "ipc2581/cad/StackupGroup.h"
#include "ipc2581/cad/StackupLayer.h"
#include "tests/support/Files.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

using Stackup = CIPC2581_Ecad_CadData_Stackup;
using Group = CIPC2581_Ecad_CadData_Stackup_StackupGroup;
using StackLayer = CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer;

inline Texts FieldsOf(const Stackup & stackup)
{
    return {Str(stackup.overallThickness), Str(stackup.tolPlus), Str(stackup.tolMinus), Str(stackup.whereMeasured)};
}

struct GroupFields {
    std::string name;
    double thickness;
    double tolPlus;
    double tolMinus;
    bool operator==(const GroupFields &) const = default;
};

struct LayerFields {
    std::string layerOrGroupRef;
    std::string materialType;
    double thickness;
    bool operator==(const LayerFields &) const = default;
};

inline GroupFields FieldsOf(const Group & group)
{
    return {Str(group.name), group.thickness, group.tolPlus, group.tolMinus};
}

inline LayerFields FieldsOf(const StackLayer & layer)
{
    return {Str(layer.layerOrGroupRef), Str(layer.materialType), layer.thickness};
}

// What ReadStackUp makes of the Stackup line and of the lines behind it.
class ReadStackup {
public:
    explicit ReadStackup(std::string_view opening, std::string_view behind = "") : m_lines(behind)
    {
        Tokens tokens(opening);
        stackup.ReadStackUp(tokens, m_lines.File());
    }

    const Group & GroupAt(std::int64_t index) { return *stackup.StackupGroupArray.GetAt(index); }
    // The names of the groups, each with the references of its layers.
    Texts Groups()
    {
        Texts groups;
        for (std::int64_t i = 0; i < stackup.StackupGroupArray.GetSize(); ++i) {
            std::string text = Str(GroupAt(i).name) + ":";
            for (std::int64_t j = 0; j < GroupAt(i).StackupLayerArray.GetSize(); ++j) {
                text += " " + Str(GroupAt(i).StackupLayerArray.GetAt(j)->layerOrGroupRef);
            }
            groups.push_back(text);
        }
        return groups;
    }
    Texts Rest() { return m_lines.Rest(); }

    Stackup stackup;

private:
    Lines m_lines;
};

}  // namespace ipc2581::tests

#endif
