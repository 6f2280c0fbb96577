// The heap of a host may place objects whose size is no multiple of sixteen at any multiple of eight.
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>

#include "tests/small_hosts/Expect.h"
#include "tests/support/Sanitizers.h"

namespace {

constexpr std::uint64_t Guard = 0x5afe5afe5afe5afe;

// Sixteen bytes in front of the place of an object, or eight for one that may stand there, and a guard behind it.
std::size_t HeaderOf(std::size_t size)
{
    return size % 16 == 0 ? 16 : 8;
}

}  // namespace

void * operator new(std::size_t size)
{
    const std::size_t header = HeaderOf(size);
    char * const memory = static_cast<char *>(std::malloc(16 + size + 8 + sizeof(Guard)));
    if (memory == nullptr) {
        throw std::bad_alloc();
    }
    char * const object = memory + header;
    *reinterpret_cast<std::uint32_t *>(object - 8) = static_cast<std::uint32_t>(size);
    *reinterpret_cast<std::uint32_t *>(object - 4) = 0x600d600d;
    for (std::size_t i = 0; i < sizeof(Guard); ++i) {
        object[size + i] = static_cast<char>(Guard >> (8 * i));
    }
    return object;
}
void operator delete(void * object) noexcept
{
    if (object == nullptr) {
        return;
    }
    char * const bytes = static_cast<char *>(object);
    Expect(*reinterpret_cast<std::uint32_t *>(bytes - 4) == 0x600d600d, "what is deleted came from this heap");
    const std::size_t size = *reinterpret_cast<std::uint32_t *>(bytes - 8);
    for (std::size_t i = 0; i < sizeof(Guard); ++i) {
        Expect(bytes[size + i] == static_cast<char>(Guard >> (8 * i)), "nobody wrote behind an object");
    }
    *reinterpret_cast<std::uint32_t *>(bytes - 4) = 0xdead;
    std::free(bytes - HeaderOf(size));
}
void operator delete(void * object, std::size_t /*size*/) noexcept
{
    operator delete(object);
}

int main()
{
    if (ipc2581::tests::HasSanitizer) {
        std::puts("skipped: the Undefined sanitizer wants all that new gives at a multiple of sixteen");
        return Skipped;
    }
    const TempFile board(ExampleBoard());
    std::string before;
    {
        CIPC2581_Parser root;
        Read(board, root);
        before = Written(root);
        // Texts and points of the host's own among those of the reader.
        CIPC2581_Ecad_CadData_Step & step = root.m_Ecad.m_CadData.m_Step;
        for (std::int64_t i = 0; i < step.ComponentArray.GetSize(); ++i) {
            step.ComponentArray.GetAt(i)->Part = "a part number that is longer than a few bytes";
            step.ComponentArray.GetAt(i)->RefDes += "-1";
        }
        CIPC2581_Polygon * const polygon = step.Profile.Polygon;
        for (std::int64_t i = 0; i < polygon->PolyStepArray->GetSize(); ++i) {
            CIPC2581_Point * const end = polygon->PolyStepArray->GetAt(i)->EndPoint;
            ::operator delete(end->Point);
            end->Point = new CPointD(1.0, 2.0);
        }
        const std::unique_ptr<CIPC2581_Polygon> copy(polygon->clone());
        Expect(copy->PolyStepArray->GetSize() == polygon->PolyStepArray->GetSize(), "a polygon is copied");
    }
    CIPC2581_Parser again;
    Read(board, again);
    Expect(Written(again) == before, "nothing of the model was changed in silence");
}
