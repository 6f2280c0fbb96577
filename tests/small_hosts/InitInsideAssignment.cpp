// A primitive of the host's own may call Init in its assignment, since Init calls no operation of its own.
#include "tests/small_hosts/Expect.h"

namespace {

int g_assigned = 0;

template <typename Primitive>
class Own : public Primitive {
public:
    using Primitive::operator=;
    Primitive & operator=(const Primitive & other) override
    {
        ++g_assigned;
        this->Init();
        return Primitive::operator=(other);
    }
};

template <typename Primitive>
void AssignAndReset()
{
    Own<Primitive> own;
    Primitive & primitive = own;
    Primitive other;
    const int before = g_assigned;
    primitive = other;
    Expect(g_assigned == before + 1, "the assignment is the host's own");
    const int type = own.DrawType;
    own.DrawType = 99;
    primitive.Init();
    Expect(g_assigned == before + 1, "Init assigns nothing by it");
    Expect(own.DrawType == type, "Init sets the draw type");
}

}  // namespace

int main()
{
    AssignAndReset<CIPC2581_DicDraw_Oval>();
    AssignAndReset<CIPC2581_DicDraw_RectCenter>();
    AssignAndReset<CIPC2581_DicDraw_Circle>();
    AssignAndReset<CIPC2581_DicDraw_Donut>();
    AssignAndReset<CIPC2581_DicDraw_Thermal>();
    AssignAndReset<CIPC2581_DicDraw_RectCham>();
    AssignAndReset<CIPC2581_DicDraw_RectCorner>();
    AssignAndReset<CIPC2581_DicDraw_RectRound>();
}
