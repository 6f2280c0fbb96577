// Objects are made by every form of new that a host has: a tracker by macro, an arena, an alignment, a place, nothrow.
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "tests/small_hosts/Expect.h"

namespace {

int g_tracked = 0;

class Arena {
public:
    void * Take(std::size_t size)
    {
        void * const room = m_bytes.data() + m_used;
        m_used += (size + 15) / 16 * 16;
        Expect(m_used <= m_bytes.size(), "the arena is large enough");
        return room;
    }
    bool Has(const void * object) const
    {
        const auto * const byte = static_cast<const std::byte *>(object);
        return byte >= m_bytes.data() && byte < m_bytes.data() + m_used;
    }

private:
    alignas(16) std::array<std::byte, 65536> m_bytes = {};
    std::size_t m_used = 0;
};

}  // namespace

void * operator new(std::size_t size, const char * /*file*/, int /*line*/)
{
    ++g_tracked;
    return ::operator new(size);
}
void operator delete(void * object, const char * /*file*/, int /*line*/) noexcept
{
    ::operator delete(object);
}
void * operator new(std::size_t size, Arena & arena)
{
    return arena.Take(size);
}
void operator delete(void * /*object*/, Arena & /*arena*/) noexcept {}

namespace {

template <typename Object>
void MakeInEveryWay()
{
    const std::unique_ptr<Object> tracked(new (__FILE__, __LINE__) Object);
    const std::unique_ptr<Object> plain(new Object);
    const std::unique_ptr<Object> silent(new (std::nothrow) Object);
    const auto shared = std::make_shared<Object>();
    Expect(silent != nullptr && shared != nullptr, "they are there");

    Arena arena;
    Object * const inArena = new (arena) Object;
    Expect(arena.Has(inArena), "it stands in the arena");
    inArena->~Object();

    Object * const aligned = new (std::align_val_t(64)) Object;
    Expect(reinterpret_cast<std::uintptr_t>(aligned) % 64 == 0, "it stands at the alignment");
    aligned->~Object();
    ::operator delete(aligned, std::align_val_t(64));

    alignas(Object) std::array<std::byte, sizeof(Object)> place;
    (new (place.data()) Object)->~Object();

    Object * const global = ::new Object;
    ::delete global;
    delete[] new Object[3];
}

// Final, since the class has virtual operations and no virtual destructor.
class Coordinates final : public CPointD {};

}  // namespace

int main()
{
    Arena arena;
    const CPointD * const point = new (arena) CPointD(1.0, 2.0);
    Expect(arena.Has(point) && point->GetY() == 2.0, "a point stands in the arena");
    MakeInEveryWay<Coordinates>();
    MakeInEveryWay<CIPC2581_Line>();
    MakeInEveryWay<CIPC2581_DrawObj>();
    MakeInEveryWay<CIPC2581_Point>();
    MakeInEveryWay<CIPC2581_PolyStep>();
    MakeInEveryWay<CIPC2581_LineDesc>();
    MakeInEveryWay<CIPC2581_XmlDataAdd_Function>();
    MakeInEveryWay<CIPC2581_Bom_BomItem>();
    MakeInEveryWay<CIPC2581_Bom_BomItem_RefDes>();
    MakeInEveryWay<CIPC2581_Ecad_CadData_Layer>();
    MakeInEveryWay<CIPC2581_Ecad_CadData_Stackup_StackupGroup_StackupLayer>();
    MakeInEveryWay<CIPC2581_Ecad_CadData_Step_Component>();
    MakeInEveryWay<CIPC2581_Ecad_CadData_Step_LogicalNet_LogicalNetPin>();
    MakeInEveryWay<CIPC2581_Ecad_CadData_Step_Package>();
    MakeInEveryWay<CIPC2581_DrawObjArray>();
    MakeInEveryWay<CStringArray>();
    MakeInEveryWay<CIPC2581_Parser>();
    Expect(g_tracked == 17, "the tracker has seen each");
}
