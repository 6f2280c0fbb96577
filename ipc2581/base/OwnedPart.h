#ifndef IPC2581_BASE_OWNEDPART_H
#define IPC2581_BASE_OWNEDPART_H

// The parts that an object owns by pointer.
namespace ipc2581::detail {

// A part that is held by value, or the one that an owned pointer points to at this moment: a host that gets a line, or
// is asked for one, may put another object in its place.
template <typename Part>
Part & PartOf(Part & part)
{
    return part;
}
template <typename Part>
Part & PartOf(Part *& part)
{
    return *part;
}

// What Init does with them. A part that exists is reset in place, so that pointers to it stay good; a missing one is
// made. The reset of polygons and outlines is spelled InIt, beside which the shapes inherit an Init.
template <typename Part>
void ResetOrCreate(Part *& part)
{
    if (part == nullptr) {
        part = new Part();
    }
    else if constexpr (requires { part->InIt(); }) {
        part->InIt();
    }
    else {
        part->Init();
    }
}

// A list that exists loses its elements; a missing one is made.
template <typename List>
void EmptyOrCreate(List *& list)
{
    if (list == nullptr) {
        list = new List();
    }
    else {
        list->DeleteAll();
    }
}

}  // namespace ipc2581::detail

#endif
