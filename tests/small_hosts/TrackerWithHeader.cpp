// A host may track what is alive by a header of eight bytes in front of each allocation.
#include <cstdint>
#include <cstdlib>
#include <new>

#include "tests/small_hosts/Expect.h"
#include "tests/support/Sanitizers.h"

namespace {

std::int64_t g_alive = 0;

}  // namespace

void * operator new(std::size_t size)
{
    auto * const header = static_cast<std::uint64_t *>(std::malloc(sizeof(std::uint64_t) + size));
    if (header == nullptr) {
        throw std::bad_alloc();
    }
    *header = 0x600d600d600d600d;
    ++g_alive;
    return header + 1;
}
void operator delete(void * object) noexcept
{
    if (object == nullptr) {
        return;
    }
    auto * const header = static_cast<std::uint64_t *>(object) - 1;
    Expect(*header == 0x600d600d600d600d, "what is deleted came from this heap");
    *header = 0;
    --g_alive;
    std::free(header);
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
    const std::int64_t before = g_alive;
    {
        CIPC2581_Parser root;
        Read(board, root);
        const std::string written = Written(root);
        Expect(written.size() > 1000, "the board is written");
        CString text("a text that is longer than a few bytes");
        text += text;
        CIPC2581_Ecad_CadData_Step_LayerFeature * const feature =
            root.m_Ecad.m_CadData.m_Step.LayerFeatureArray.GetAt(0);
        feature->LayerRef = text;
        const CIPC2581_Ecad_CadData_Step_LayerFeature_Set copy(*feature->SetArray.GetAt(0));
        Expect(copy.Net == feature->SetArray.GetAt(0)->Net, "a set is copied");
    }
    Expect(g_alive == before, "nothing is left behind");
}
