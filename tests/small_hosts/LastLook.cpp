// A part of the host's own that goes with its owner finds the owner to be still what it was.
#include <memory>

#include "tests/small_hosts/Expect.h"

namespace {

int g_looks = 0;

// A point that looks at the shape that deletes it.
template <typename Shape>
class LookingPoint : public CIPC2581_Point {
public:
    explicit LookingPoint(CIPC2581_DrawObj & owner) : m_owner(owner) {}
    ~LookingPoint() override
    {
        Expect(dynamic_cast<Shape *>(&m_owner) != nullptr, "the owner is of its class");
        CStdioFile closed;
        Expect(m_owner.Import(closed) == 1, "and reads as its class does");
        ++g_looks;
    }

private:
    CIPC2581_DrawObj & m_owner;
};

template <typename Shape>
void LookAt()
{
    const auto shape = std::make_unique<Shape>();
    delete shape->PolyBegin;
    shape->PolyBegin = new LookingPoint<Shape>(*shape);
}

template <typename Contour>
class LookingStep : public CIPC2581_Pt {
public:
    explicit LookingStep(CIPC2581_DictionaryDrawObj & owner) : m_owner(owner) {}
    ~LookingStep() override
    {
        Expect(dynamic_cast<Contour *>(&m_owner) != nullptr, "the owner is of its class");
        ++g_looks;
    }

private:
    CIPC2581_DictionaryDrawObj & m_owner;
};

template <typename Contour>
void LookAtList()
{
    const auto contour = std::make_unique<Contour>();
    contour->PtArray->Add(new LookingStep<Contour>(*contour));
}

}  // namespace

int main()
{
    LookAt<CIPC2581_Polygon>();
    LookAt<CIPC2581_PolyLine>();
    LookAt<CIPC2581_Cutout>();
    LookAtList<CIPC2581_DicDraw_Polygon>();
    LookAtList<CIPC2581_DicDraw_Cutout>();
    Expect(g_looks == 5, "all of them have looked");
}
