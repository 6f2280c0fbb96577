#include "import/Import.h"

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

#include "import/elements/LossRecorder.h"
#include "import/elements/Tree.h"
#include "import/sections/CadSection.h"
#include "import/sections/ContentSection.h"
#include "import/sections/Context.h"
#include "import/sections/FeatureSection.h"
#include "import/sections/LogisticsSection.h"
#include "import/sections/PadReader.h"
#include "import/sections/ShapeReader.h"
#include "import/sections/StepSection.h"
#include "import/xml/ByteSource.h"
#include "import/xml/WatchedParse.h"
#include "import/xml/Words.h"
#include "import/xml/XmlParser.h"

namespace ipc2581 {
namespace detail {
namespace {

// Where an element stands: the elements that are open while what is in them is read piece by piece.
enum class Place {
    Document,
    Root,
    Content,
    Standards,
    Users,
    LineDescs,
    FillDescs,
    Colors,
    Bom,
    Ecad,
    CadHeader,
    CadData,
    Step,
    PhyNetGroup,
    LayerFeature,
    Set,
    Unknown,  // in an element that nothing is known of: all of it is lost
    Skipped,  // in a step that is not imported, or in a remark of a set
    Piece     // none: the element is read in one piece, with all that stands in it
};
constexpr std::size_t PlaceCount = static_cast<std::size_t>(Place::Piece) + 1;

// What an element is, by where it stands; all others are unknown.
struct PlaceRow {
    Place outer;
    Word name;
    Place inner;
};
constexpr auto PlaceRows = std::to_array<PlaceRow>({
    {Place::Document, W("IPC-2581"), Place::Root},
    {Place::Root, W("Content"), Place::Content},
    {Place::Root, W("LogisticHeader"), Place::Piece},
    {Place::Root, W("HistoryRecord"), Place::Piece},
    {Place::Root, W("Bom"), Place::Bom},
    {Place::Root, W("Ecad"), Place::Ecad},
    {Place::Content, W("FunctionMode"), Place::Piece},
    {Place::Content, W("StepRef"), Place::Piece},
    {Place::Content, W("LayerRef"), Place::Piece},
    {Place::Content, W("BomRef"), Place::Piece},
    {Place::Content, W("DictionaryStandard"), Place::Standards},
    {Place::Content, W("DictionaryUser"), Place::Users},
    {Place::Content, W("DictionaryLineDesc"), Place::LineDescs},
    {Place::Content, W("DictionaryFillDesc"), Place::FillDescs},
    {Place::Content, W("DictionaryColor"), Place::Colors},
    {Place::Standards, W("EntryStandard"), Place::Piece},
    {Place::Users, W("EntryUser"), Place::Piece},
    {Place::LineDescs, W("EntryLineDesc"), Place::Piece},
    {Place::FillDescs, W("EntryFillDesc"), Place::Piece},
    {Place::Colors, W("EntryColor"), Place::Piece},
    {Place::Bom, W("BomHeader"), Place::Piece},
    {Place::Bom, W("BomItem"), Place::Piece},
    {Place::Ecad, W("CadHeader"), Place::CadHeader},
    {Place::Ecad, W("CadData"), Place::CadData},
    {Place::CadHeader, W("Spec"), Place::Piece},
    {Place::CadData, W("Layer"), Place::Piece},
    {Place::CadData, W("Stackup"), Place::Piece},
    {Place::CadData, W("Step"), Place::Step},
    {Place::Step, W("PadStack"), Place::Piece},
    {Place::Step, W("PadStackDef"), Place::Piece},
    {Place::Step, W("Datum"), Place::Piece},
    {Place::Step, W("Profile"), Place::Piece},
    {Place::Step, W("StepRepeat"), Place::Piece},
    {Place::Step, W("Package"), Place::Piece},
    {Place::Step, W("Component"), Place::Piece},
    {Place::Step, W("LogicalNet"), Place::Piece},
    {Place::Step, W("PhyNetGroup"), Place::PhyNetGroup},
    {Place::Step, W("LayerFeature"), Place::LayerFeature},
    {Place::PhyNetGroup, W("PhyNet"), Place::Piece},
    {Place::LayerFeature, W("Set"), Place::Set},
    {Place::Set, W("NonstandardAttribute"), Place::Skipped},
    {Place::Set, W("ColorRef"), Place::Piece},
    {Place::Set, W("Features"), Place::Piece},
    {Place::Set, W("Pad"), Place::Piece},
    {Place::Set, W("Hole"), Place::Piece},
    {Place::Set, W("SlotCavity"), Place::Piece},
    {Place::Set, W("Fiducial"), Place::Piece},
    {Place::Set, W("BadBoardMark"), Place::Piece},
    {Place::Set, W("GlobalFiducial"), Place::Piece},
    {Place::Set, W("GoodPanelMark"), Place::Piece},
    {Place::Set, W("LocalFiducial"), Place::Piece},
});

// A negative set takes away what others have drawn. The model has nothing like it, and as one more drawing it would be
// wrong: so all of it is lost.
bool IsNegative(std::span<const XmlAttribute> attributes)
{
    return std::any_of(attributes.begin(), attributes.end(), [](const XmlAttribute & attribute) {
        return attribute.name == W("polarity") && attribute.value == "NEGATIVE";
    });
}

using PlaceTable = std::array<std::array<Place, KnownWords.size()>, PlaceCount>;

consteval PlaceTable MakePlaceTable()
{
    PlaceTable table = {};
    for (auto & row : table) {
        row.fill(Place::Unknown);
    }
    table[static_cast<std::size_t>(Place::Skipped)].fill(Place::Skipped);
    for (const PlaceRow & row : PlaceRows) {
        table[static_cast<std::size_t>(row.outer)][row.name] = row.inner;
    }
    return table;
}
constexpr PlaceTable PlaceOfWord = MakePlaceTable();

// Ends a read in which the first step has no components and this one has: it is to be read instead.
struct OtherStep {
    std::size_t index;
};

std::string_view NameIn(std::span<const XmlAttribute> attributes)
{
    const auto own = std::find_if(attributes.begin(), attributes.end(),
                                  [](const XmlAttribute & attribute) { return attribute.name == W("name"); });
    return own == attributes.end() ? std::string_view() : own->value;
}

// Reads a document into a board, element by element. Of several steps it reads the one that the host asks for, or the
// one at a place, or the first.
class BoardListener final : public XmlListener {
public:
    BoardListener(CIPC2581_Parser & board, const ImportOptions & options, std::optional<std::size_t> stepIndex)
        : m_context{board, options, {}, {}, {}},
          m_figures(m_context),
          m_shapes(m_context, m_figures),
          m_pads(m_context, m_figures, m_shapes),
          m_content(m_context, m_figures, m_shapes),
          m_logistics(m_context),
          m_cad(m_context, m_shapes),
          m_step(m_context, m_cad, m_shapes, m_pads),
          m_features(m_context, m_cad, m_step, m_shapes, m_pads),
          m_stepIndex(stepIndex)
    {
        if (options.memoryLimit != 0) {
            m_context.blocks.SetBudget(options.memoryLimit);
        }
        m_open.push_back({Place::Document, 0, 0});
    }

    void Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes) override;
    void Text(std::string_view text) override;
    void Close() override;

    ImportReport TakeReport(const WordTable & words);

private:
    struct Level {
        Place place;
        LossRecorder::Path path;
        std::size_t line;
        // Of what is unknown or in a step that is not read: how deep it stands in it, and whose it is.
        int depth = 0;
        std::size_t owner = 0;
    };

    [[nodiscard]] Place PlaceOf(Word name, std::size_t line, std::span<const XmlAttribute> attributes) const;
    void BeginPlace(Place place, const XmlElement & element);
    void EndPlace(const Level & level);
    void ReadPiece();
    void ReadInContent(Place outer, const XmlElement & element, std::size_t owner);
    [[nodiscard]] bool IsStepWanted(std::span<const XmlAttribute> attributes) const;
    void LeaveOutStep(std::size_t line, std::span<const XmlAttribute> attributes);
    void LookAtLeftOut(Word name, std::span<const XmlAttribute> attributes);
    void SkipElement(Word name, std::size_t line, std::span<const XmlAttribute> attributes);
    void LoseElement(Word name, std::size_t line, std::span<const XmlAttribute> attributes);
    static std::size_t CountIn(std::vector<std::size_t> & counts, Word name);
    std::size_t OwnerOf(Word name) { return CountIn(m_owners, name); }

    Context m_context;
    Figures m_figures;
    ShapeReader m_shapes;
    PadReader m_pads;
    ContentSection m_content;
    LogisticsSection m_logistics;
    CadSection m_cad;
    StepSection m_step;
    FeatureSection m_features;
    std::vector<Level> m_open;
    Tree m_piece;
    // How many elements of each name there have been where they belong, and elsewhere.
    std::vector<std::size_t> m_owners;
    std::vector<std::size_t> m_strangers;

    std::optional<std::size_t> m_stepIndex;
    std::size_t m_steps = 0;
    bool m_hasStep = false;
};

void BoardListener::Open(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    ++m_context.elements;
    m_context.losses.CountStated(name);
    if (m_piece.IsOpen()) {
        m_piece.Open(name, line, attributes);
        return;
    }
    const Place place = PlaceOf(name, line, attributes);
    if (place == Place::Piece) {
        m_piece.Open(name, line, attributes);
        return;
    }
    if (place == Place::Skipped) {
        SkipElement(name, line, attributes);
        return;
    }
    if (place == Place::Unknown) {
        LoseElement(name, line, attributes);
        return;
    }
    m_piece.Open(name, line, attributes);
    m_piece.Close();
    BeginPlace(place, m_piece.Root());
    m_piece.ReportLost(m_context.losses, m_open.back().path, OwnerOf(name));
    m_piece.Clear();
    m_open.push_back({place, m_context.losses.PathOf(m_open.back().path, name), line});
}

void BoardListener::Text(std::string_view text)
{
    if (m_piece.IsOpen()) {
        m_piece.Text(text);
    }
    else if (m_open.back().place != Place::Skipped) {
        m_context.losses.BeginFact(m_open.back().path, m_open.back().line, m_open.back().owner);
        m_context.losses.AddText(text);
    }
}

void BoardListener::Close()
{
    if (!m_piece.IsOpen()) {
        const Level level = m_open.back();
        m_open.pop_back();
        EndPlace(level);
        return;
    }
    m_piece.Close();
    if (!m_piece.IsOpen()) {
        ReadPiece();
    }
}

Place BoardListener::PlaceOf(Word name, std::size_t line, std::span<const XmlAttribute> attributes) const
{
    const Place outer = m_open.back().place;
    if (outer == Place::Skipped) {
        return Place::Skipped;
    }
    const Place place = name < KnownWords.size() ? PlaceOfWord[static_cast<std::size_t>(outer)][name] : Place::Unknown;
    if (outer == Place::Document && place == Place::Unknown) {
        throw ImportFault(line, "the root element is not IPC-2581");
    }
    if (place == Place::Step && !IsStepWanted(attributes)) {
        return Place::Skipped;
    }
    return place == Place::Set && IsNegative(attributes) ? Place::Unknown : place;
}

bool BoardListener::IsStepWanted(std::span<const XmlAttribute> attributes) const
{
    if (m_hasStep) {
        return false;
    }
    if (!m_context.options.step.empty()) {
        return NameIn(attributes) == m_context.options.step;
    }
    return !m_stepIndex.has_value() || m_steps == *m_stepIndex;
}

// A remark of a set, or something of a step that is not read.
void BoardListener::SkipElement(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    const Level & outer = m_open.back();
    const int depth = outer.place == Place::CadData ? 0 : outer.depth + 1;
    if (outer.place == Place::Set) {
        m_context.losses.AddRemark();
    }
    else if (outer.place == Place::CadData) {
        LeaveOutStep(line, attributes);
    }
    else if (depth == 1) {
        LookAtLeftOut(name, attributes);
    }
    m_open.push_back({Place::Skipped, outer.path, line, depth});
}

void BoardListener::LeaveOutStep(std::size_t line, std::span<const XmlAttribute> attributes)
{
    const std::string name(NameIn(attributes));
    m_context.references.Declare(NameKind::Step, name);
    m_context.Note(NoteKind::StepLeftOut, line, "the step \"" + name + "\"");
    ++m_steps;
}

// What stands right in a step that is not read, if nothing tells more of which one is meant.
void BoardListener::LookAtLeftOut(Word name, std::span<const XmlAttribute> attributes)
{
    if (name == W("Package")) {
        m_context.references.Declare(NameKind::Package, NameIn(attributes));
    }
    const bool isChosen = m_stepIndex.has_value() || !m_context.options.step.empty();
    if (name == W("Component") && !isChosen && m_context.board.m_Ecad.m_CadData.m_Step.ComponentArray.IsEmpty()) {
        throw OtherStep{m_steps - 1};
    }
}

void BoardListener::LoseElement(Word name, std::size_t line, std::span<const XmlAttribute> attributes)
{
    // An unknown list belongs to nobody, so each of its elements is an owner, and what stands in that is its.
    const Level outer = m_open.back();
    const int depth = outer.place == Place::Unknown ? outer.depth + 1 : 0;
    const bool isStranger = outer.place == Place::Unknown || name != W("Set");
    const std::size_t owner = depth < 2 ? CountIn(isStranger ? m_strangers : m_owners, name) : outer.owner;
    const LossRecorder::Path path = m_context.losses.PathOf(outer.path, name);
    m_context.losses.BeginFact(path, line, owner);
    for (const XmlAttribute & attribute : attributes) {
        m_context.losses.AddAttribute(attribute.name, attribute.value);
    }
    m_open.push_back({Place::Unknown, path, line, depth, owner});
}

// How many elements of the name there were before this one.
std::size_t BoardListener::CountIn(std::vector<std::size_t> & counts, Word name)
{
    if (name >= counts.size()) {
        counts.resize(std::size_t(name) + 1, 0);
    }
    return counts[name]++;
}

void BoardListener::BeginPlace(Place place, const XmlElement & element)
{
    switch (place) {
    case Place::Standards:
        m_content.BeginStandard(element);
        break;
    case Place::Users:
        m_content.BeginUser(element);
        break;
    case Place::LineDescs:
        m_content.BeginLineDescs(element);
        break;
    case Place::Bom:
        m_logistics.BeginBom(element);
        break;
    case Place::Ecad:
        m_cad.BeginEcad(element);
        break;
    case Place::CadHeader:
        m_cad.BeginCadHeader(element);
        break;
    case Place::Step:
        m_hasStep = true;
        ++m_steps;
        m_context.references.Declare(NameKind::Step, element.Value(W("name")));
        m_step.Begin(element);
        break;
    case Place::PhyNetGroup:
        m_step.BeginPhyNetGroup(element);
        break;
    case Place::LayerFeature:
        m_features.BeginLayer(element);
        break;
    case Place::Set:
        m_features.BeginSet(element);
        break;
    default:
        element.Take();
        break;
    }
}

void BoardListener::EndPlace(const Level & level)
{
    switch (level.place) {
    case Place::Content:
        m_content.End();
        break;
    case Place::Step:
        m_features.EndStep(level.line);
        break;
    case Place::Set:
        m_features.EndSet();
        break;
    default:
        break;
    }
}

void BoardListener::ReadPiece()
{
    const XmlElement element = m_piece.Root();
    const Level outer = m_open.back();
    const std::size_t owner = OwnerOf(element.Name());
    switch (outer.place) {
    case Place::Root:
        element.Name() == W("HistoryRecord") ? m_logistics.ReadHistoryRecord(element)
                                             : m_logistics.ReadLogisticHeader(element);
        break;
    case Place::Content:
    case Place::Standards:
    case Place::Users:
    case Place::LineDescs:
    case Place::FillDescs:
    case Place::Colors:
        ReadInContent(outer.place, element, owner);
        break;
    case Place::Bom:
        m_logistics.ReadInBom(element);
        break;
    case Place::CadHeader:
        m_cad.ReadSpec(element);
        break;
    case Place::CadData:
        element.Name() == W("Layer") ? m_cad.ReadLayer(element) : m_cad.ReadStackup(element);
        break;
    case Place::Step:
        m_step.Read(m_piece, element);
        break;
    case Place::PhyNetGroup:
        m_step.ReadPhyNet(element);
        break;
    default:
        m_features.Read(element);
        break;
    }
    m_piece.ReportLost(m_context.losses, outer.path, owner);
    m_piece.Clear();
    m_context.CheckMemory();
}

void BoardListener::ReadInContent(Place outer, const XmlElement & element, std::size_t owner)
{
    switch (outer) {
    case Place::Standards:
        m_content.ReadStandard(m_piece, m_open.back().path, owner);
        break;
    case Place::Users:
        m_content.KeepUser(m_piece, m_open.back().path, owner);
        break;
    case Place::LineDescs:
        m_figures.AddLineDesc(element);
        break;
    case Place::FillDescs:
        m_figures.AddFillDesc(element);
        break;
    case Place::Colors:
        m_content.ReadColor(element);
        break;
    default:
        m_content.Read(element);
        break;
    }
}

ImportReport BoardListener::TakeReport(const WordTable & words)
{
    m_context.references.TellDangling(m_cad.HasEcad(), m_context.losses);
    return m_context.losses.Take(words);
}

// Tells a host how much of the source is behind, which never becomes less, and lets it stop.
class Progress {
public:
    Progress(std::size_t size, const ImportOptions & options) : m_size(size), m_options(options) {}

    struct Stopped {};

    void Begin() { m_next = 0; }
    void Tell(std::size_t read)
    {
        constexpr std::size_t bytesBetween = 1 << 20;
        if (!m_options.progress || (read < m_next && read != m_size)) {
            return;
        }
        m_next = read + bytesBetween;
        const double part = m_size == 0 ? 0.0 : static_cast<double>(read) / static_cast<double>(m_size);
        m_told = std::max(m_told, std::min(1.0, part));
        if (!m_options.progress(m_told)) {
            throw Stopped();
        }
    }

private:
    std::size_t m_size;
    const ImportOptions & m_options;
    std::size_t m_next = 0;
    double m_told = 0.0;
};

// A thread is worth it for a file that is not small, or of which it is not known.
Threads ThreadsFor(const ByteSource & source, const ImportOptions & options)
{
    constexpr std::size_t small = std::size_t(1) << 20;
    const bool isSmall = source.Size() != 0 && source.Size() < small;
    return options.inOneThread || isSmall || std::thread::hardware_concurrency() < 2 ? Threads::One : Threads::Two;
}

Imported ImportOnce(ByteSource & source, const ImportOptions & options, Progress & progress,
                    std::optional<std::size_t> stepIndex)
{
    WordTable words;
    Imported imported;
    imported.board = std::make_unique<CIPC2581_Parser>();
    BoardListener listener(*imported.board, options, stepIndex);
    progress.Begin();
    ParseWatched(
        source, words, listener, [&](std::size_t read) { progress.Tell(read); }, ThreadsFor(source, options));
    imported.report = listener.TakeReport(words);
    return imported;
}

// Reads a file again where only what stands behind its first step has shown that another one is meant.
Imported ImportFrom(ByteSource & source, const ImportOptions & options)
{
    Progress progress(source.Size(), options);
    try {
        return ImportOnce(source, options, progress, std::nullopt);
    }
    catch (const OtherStep & other) {
        source.Rewind();
        return ImportOnce(source, options, progress, other.index);
    }
}

// Does the import, and names the file in what goes wrong.
template <typename Run>
Imported Named(const std::string & file, Run run)
{
    try {
        return run();
    }
    catch (const XmlFault & fault) {
        throw ImportError(file, fault.line, fault.column, fault.what());
    }
    catch (const ImportFault & fault) {
        throw ImportError(file, fault.line, 0, fault.what());
    }
    catch (const std::system_error & error) {
        throw ImportError(file, 0, 0, error.code().message());
    }
    catch (const std::length_error & error) {
        throw ImportError(file, 0, 0, error.what());
    }
    catch (const Progress::Stopped &) {
        throw ImportStopped(file);
    }
}

}  // namespace
}  // namespace detail

Imported Import(const std::filesystem::path & path, const ImportOptions & options)
{
    return detail::Named(path.string(), [&] {
        detail::FileSource source(path);
        return detail::ImportFrom(source, options);
    });
}

Imported Import(std::span<const std::byte> bytes, const ImportOptions & options)
{
    return detail::Named("", [&] {
        detail::MemorySource source(bytes);
        return detail::ImportFrom(source, options);
    });
}

}  // namespace ipc2581
