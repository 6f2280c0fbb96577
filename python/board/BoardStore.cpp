#include "python/board/BoardStore.h"

#include "python/objects/Lookups.h"
#include "python/objects/Objects.h"
#include "python/objects/Values.h"

namespace ipc2581::python {

namespace py = pybind11;

Found BoardStore::Root() const
{
    static const ClassRow * const row = FindClass(Fields<CIPC2581_Parser>::Name);
    return {&m_board->Root(), row};
}

py::object BoardStore::AsPython()
{
    return py::cast(std::static_pointer_cast<BoardStore>(shared_from_this()));
}

py::object BoardStore::At(std::string_view path)
{
    const Place place = PlaceAt(Root(), path);
    return WrapMember(shared_from_this(), *place.member, place.address);
}

py::object BoardStore::Named(std::string_view path, std::string_view key, const char * what, py::handle name)
{
    const Found found = FindElement(PlaceAt(Root(), path), key, ModelText(name));
    if (found.object == nullptr) {
        throw py::key_error(py::str("the board has no {} {!r}").format(what, name).cast<std::string>());
    }
    return WrapObject(shared_from_this(), found);
}

}  // namespace ipc2581::python
