#ifndef IPC2581_IMPORT_SECTIONS_CONTENTSECTION_H
#define IPC2581_IMPORT_SECTIONS_CONTENTSECTION_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "import/elements/Tree.h"
#include "import/sections/Context.h"
#include "import/sections/ShapeReader.h"

namespace ipc2581::detail {

// The Content element: what the file is for, and its dictionaries.
class ContentSection {
public:
    ContentSection(Context & context, Figures & figures, ShapeReader & shapes)
        : m_context(context), m_figures(figures), m_shapes(shapes)
    {
    }

    // What stands right in Content.
    void Read(const XmlElement & element);

    void BeginStandard(const XmlElement & dictionary);
    // Keeps the shapes of an entry up to the end of Content if they refer to what is not there yet.
    void ReadStandard(Tree & entry, LossRecorder::Path path, std::size_t owner);
    void BeginUser(const XmlElement & dictionary);
    // Keeps the entry up to the end of Content, since the line descriptions and the figures that it refers to may come
    // behind it.
    void KeepUser(Tree & entry, LossRecorder::Path path, std::size_t owner);
    void BeginLineDescs(const XmlElement & dictionary);
    void ReadColor(const XmlElement & entry);

    void End();

private:
    using StandardEntry = CIPC2581_Content_DictionaryStandard_EntryStandard;
    using UserEntry = CIPC2581_Content_DictionaryUser_EntryUser;

    // An entry that has its place in the model, but not its shapes yet: it belongs to one of the dictionaries.
    struct KeptEntry {
        Tree tree;
        LossRecorder::Path path;
        std::size_t owner;
        std::size_t place;
        std::string units;
        StandardEntry * standard;
        UserEntry * user;
    };

    // The unit of a dictionary that begins. One more of a kind may have another one than the first.
    void TakeUnits(const XmlElement & dictionary, CString & unit);
    // Tells of a unit that nobody knows.
    void CheckUnits(const XmlElement & dictionary);
    void Keep(Tree & entry, LossRecorder::Path path, std::size_t owner, StandardEntry * standard, UserEntry * user);
    // Reads the shapes of an entry that are in these units.
    void FillStandard(const XmlElement & element, const std::string & units, StandardEntry & entry);
    void FillUser(const XmlElement & element, const std::string & units, UserEntry & entry);
    void FillUsers();

    Context & m_context;
    Figures & m_figures;
    ShapeReader & m_shapes;
    // The unit of the dictionary in hand.
    std::string m_units;
    std::vector<KeptEntry> m_kept;
};

}  // namespace ipc2581::detail

#endif
