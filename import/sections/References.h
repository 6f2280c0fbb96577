#ifndef IPC2581_IMPORT_SECTIONS_REFERENCES_H
#define IPC2581_IMPORT_SECTIONS_REFERENCES_H

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "import/elements/LossRecorder.h"
#include "import/sections/Names.h"

namespace ipc2581::detail {

// What a file names in one place and refers to in another one that may stand in front of it.
enum class NameKind { Bom, Color, Figure, Layer, Package, StackupGroup, Step };

// The names of a file, and the references that are looked at only when all of it has been read.
class References {
public:
    void Declare(NameKind kind, std::string_view name);
    // True if something of the kind has had the name so far.
    [[nodiscard]] bool Has(NameKind kind, std::string_view name) const;
    // What is there already is not waited for, and nothing is to be found for an empty name.
    void Await(NameKind kind, std::string_view name, std::size_t line);
    // Of a layer or of a group of them.
    void AwaitLayerOrGroup(std::string_view name, std::size_t line);

    // Tells of those that lead nowhere. A file without a section for layers, steps and packages has them elsewhere.
    void TellDangling(bool hasEcad, LossRecorder & losses) const;

private:
    static constexpr std::size_t KindCount = static_cast<std::size_t>(NameKind::Step) + 1;

    struct Awaited {
        NameKind kind;
        bool mayBeGroup;
        std::string name;
        std::size_t line;
    };

    [[nodiscard]] bool IsThere(const Awaited & reference) const;

    std::array<Names, KindCount> m_names;
    std::vector<Awaited> m_awaited;
};

}  // namespace ipc2581::detail

#endif
