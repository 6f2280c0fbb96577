#include "ipc2581/content/PrimitiveRows.h"

#include <array>
#include <span>

namespace ipc2581::detail {
namespace {

constexpr std::array<std::string_view, 4> ShapeWords = {"ROUND", "SQUARE", "HEXAGON", "OCTAGON"};

void StoreShape(const AttributeHit & hit, void * field, std::size_t knownWords)
{
    for (std::size_t code = 0; code < knownWords; ++code) {
        if (hit.TokenHolds(ShapeWords[code])) {
            *static_cast<int *>(field) = static_cast<int>(code);
            return;
        }
    }
}

}  // namespace

Attribute ShapeWord(Word word, int & shape)
{
    return {word, [](AttributeHit & hit, void * field) { StoreShape(hit, field, ShapeWords.size()); }, &shape};
}

Attribute RoundOrSquareWord(Word word, int & shape)
{
    return {word, [](AttributeHit & hit, void * field) { StoreShape(hit, field, 2); }, &shape};
}

Attribute CornerFlag(Word word, int & flag)
{
    return {word,
            [](AttributeHit & hit, void * field) {
                if (hit.Take().find("TURE") != std::string_view::npos) {
                    *static_cast<int *>(field) = 1;
                }
            },
            &flag};
}

}  // namespace ipc2581::detail
