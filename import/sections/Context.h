#ifndef IPC2581_IMPORT_SECTIONS_CONTEXT_H
#define IPC2581_IMPORT_SECTIONS_CONTEXT_H

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

#include "import/Import.h"
#include "import/elements/LossRecorder.h"
#include "import/elements/TakeFields.h"
#include "import/elements/Tree.h"
#include "import/sections/Names.h"
#include "import/sections/References.h"
#include "import/shapes/AddTo.h"
#include "ipc2581/base/platform/ObjectBlocks.h"
#include "ipc2581/ipc2581.h"

namespace ipc2581::detail {

// Why the import ends in the middle of a well-formed file.
struct ImportFault : std::runtime_error {
    ImportFault(std::size_t lineOfFault, const std::string & cause) : std::runtime_error(cause), line(lineOfFault) {}

    std::size_t line;
};

// What a copied point takes: a step with its parts, each of them by itself.
inline constexpr std::size_t BytesOfPoint = sizeof(CIPC2581_PolyStep) + 2 * sizeof(CIPC2581_Point) +
                                            2 * sizeof(CPointD) + 5 * HeapOverhead + 2 * sizeof(void *);

// What the sections of one import share.
struct Context {
    CIPC2581_Parser & board;
    const ImportOptions & options;
    ObjectBlocks blocks;
    LossRecorder losses;

    References references;

    // Elements read so far, and points of shapes that were copied.
    std::size_t elements = 0;
    std::size_t copies = 0;

    // Makes an object of the model beside those that are there.
    template <typename Object>
    std::unique_ptr<Object> Make()
    {
        constexpr std::size_t placeInList = 2 * sizeof(Object *);
        blocks.Count(placeInList);
        return std::unique_ptr<Object>(MakeFrom<Object>(blocks));
    }

    void Note(NoteKind kind, std::size_t line, std::string text) { losses.AddNote(kind, line, std::move(text)); }
    // Tells of a reference that leads nowhere.
    void TellDangling(std::size_t line, std::string_view what, std::string_view name)
    {
        losses.AddDangling(line, what, name);
    }

    // Figures may refer to figures, each of them many times, and pads may scale a shape each in its own way. What comes
    // of that is bounded by what the file has.
    void CountCopies(std::size_t line, std::size_t points)
    {
        constexpr std::size_t freeCopies = 2'000'000;
        constexpr std::size_t copiesPerElement = 128;
        copies += points;
        if (copies > freeCopies + copiesPerElement * elements) {
            throw ImportFault(line, "its figures are drawn again too often");
        }
        blocks.Count(points * BytesOfPoint);
        CheckMemory();
    }

    void CheckMemory() const
    {
        if (blocks.IsSpent()) {
            throw ImportFault(0, "its model takes more than the " + std::to_string(options.memoryLimit) +
                                     " bytes that it may");
        }
    }
};

}  // namespace ipc2581::detail

#endif
