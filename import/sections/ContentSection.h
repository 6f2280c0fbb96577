#ifndef IPC2581_IMPORT_SECTIONS_CONTENTSECTION_H
#define IPC2581_IMPORT_SECTIONS_CONTENTSECTION_H

#include <string_view>
#include <utility>
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
    // Keeps an entry up to the end of Content if it refers to what is not there yet.
    void ReadStandard(Tree & entry, LossRecorder::Path path);
    void BeginUser(const XmlElement & dictionary);
    // Keeps the entry up to the end of Content, since the line descriptions that it refers to come behind it.
    void KeepUser(Tree & entry, LossRecorder::Path path);
    void BeginLineDescs(const XmlElement & dictionary);
    void ReadColor(const XmlElement & entry);

    void End();

private:
    struct KeptEntry {
        Tree tree;
        LossRecorder::Path path;
    };

    // Tells of a unit that nobody knows.
    void CheckUnits(const XmlElement & dictionary);
    void ReadStandardEntry(const XmlElement & entry);
    void ReadUserEntry(const XmlElement & entry);
    void Keep(std::vector<KeptEntry> & entries, Tree & entry, LossRecorder::Path path);

    Context & m_context;
    Figures & m_figures;
    ShapeReader & m_shapes;
    std::vector<KeptEntry> m_standards;
    std::vector<KeptEntry> m_users;
};

}  // namespace ipc2581::detail

#endif
