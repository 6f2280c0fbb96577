// A class of the host's own may have a second base that brings an operator new with it.
#include <cstddef>
#include <cstdlib>
#include <memory>

#include "tests/small_hosts/Expect.h"

namespace {

int g_alive = 0;

class Pooled {
public:
    static void * operator new(std::size_t size)
    {
        ++g_alive;
        return ::operator new(size);
    }
    static void operator delete(void * object)
    {
        --g_alive;
        ::operator delete(object);
    }
};

class Shape : public CIPC2581_DrawObj, public Pooled {};
class Stroke : public CIPC2581_Line, public Pooled {};
class Names : public CStringArray, public Pooled {};
class Part : public CIPC2581_Ecad_CadData_Step_Component, public Pooled {};

}  // namespace

int main()
{
    {
        CIPC2581_DrawObjArray shapes;
        shapes.Add(new Shape);
        shapes.Add(new Stroke);
        CIPC2581_Ecad_CadData_Step_ComponentArray parts;
        parts.Add(new Part);
        const std::unique_ptr<CObject> names(new Names);
        Expect(g_alive == 4, "the second base makes them");
    }
    Expect(g_alive == 0, "and deletes them, through their first base too");
}
