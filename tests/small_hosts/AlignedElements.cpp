// Elements of the host's own may ask for an alignment of their own, in the lists of a model too.
#include <array>
#include <cstdint>
#include <memory>

#include "tests/small_hosts/Expect.h"

namespace {

bool IsAligned(const void * object)
{
    return reinterpret_cast<std::uintptr_t>(object) % 64 == 0;
}

struct alignas(64) Shape : CIPC2581_DrawObj {
    std::array<double, 16> vector = {};
    ~Shape() override { Expect(IsAligned(this), "it is where it was made"); }
};

// Final, since its class has virtual operations and no virtual destructor.
struct alignas(64) Point final : CPointD {
    std::array<double, 4> vector = {};
};

struct alignas(64) Net : CIPC2581_Ecad_CadData_Step_LogicalNet {
    std::array<double, 4> vector = {};
};

}  // namespace

int main()
{
    CIPC2581_DrawObjArray shapes;
    CIPC2581_Parser root;
    for (int i = 0; i < 100; ++i) {
        auto shape = std::make_unique<Shape>();
        Expect(IsAligned(shape.get()) && IsAligned(shape->vector.data()) == IsAligned(&shape->vector),
               "a shape is where it wants to be");
        shapes.Add(shape.release());
        Expect(IsAligned(std::make_unique<Point>().get()), "a point is where it wants to be");
        auto * const net = new Net;
        Expect(IsAligned(net), "a net is where it wants to be");
        root.m_Ecad.m_CadData.m_Step.LogicalNetArray.Add(net);
    }
    Expect(shapes.GetSize() == 100, "they stand in a list, which deletes them");
    const std::unique_ptr<CIPC2581_DrawObj> clone(shapes.GetAt(0)->clone());
    Expect(clone->GetDrawType() == 17, "a clone is a plain shape");
}
