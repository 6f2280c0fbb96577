#include "ipc2581/content/Content.h"

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/content/DicDraw_Circle.h"
#include "ipc2581/document/Parser.h"
#include "ipc2581/document/XmlLiteReader.h"
#include "tests/support/Files.h"
#include "tests/support/Slots.h"
#include "tests/support/Text.h"

namespace {

using namespace ipc2581::tests;

using Content = CIPC2581_Content;
using Standard = CIPC2581_Content_DictionaryStandard;
using EntryStandard = CIPC2581_Content_DictionaryStandard_EntryStandard;
using User = CIPC2581_Content_DictionaryUser;
using EntryUser = CIPC2581_Content_DictionaryUser_EntryUser;
using Color = CIPC2581_Content_DictionaryColor;
using EntryColor = CIPC2581_Content_DictionaryColor_EntryColor;

Texts All(const CStringArray & list)
{
    Texts texts;
    for (std::int64_t i = 0; i < list.GetSize(); ++i) {
        texts.push_back(Str(list[i]));
    }
    return texts;
}

// The ids of the standard dictionary, each with the number of its shapes.
Texts Entries(const Content & content)
{
    Texts texts;
    const auto & entries = *content.DictionaryStandard->EntryArray;
    for (std::int64_t i = 0; i < entries.GetSize(); ++i) {
        const EntryStandard & entry = *entries.GetAt(i);
        texts.push_back(Str(entry.EntryStandardId) + ":" + std::to_string(entry.DrawArray->GetSize()));
    }
    return texts;
}

// The ids of the colour dictionary, each with its red.
Texts Colors(const Content & content)
{
    Texts texts;
    const auto & entries = *content.m_DictionaryColor->Entry;
    for (std::int64_t i = 0; i < entries.GetSize(); ++i) {
        texts.push_back(Str(entries.GetAt(i)->EntryColorId) + ":" + std::to_string(entries.GetAt(i)->Red));
    }
    return texts;
}

// A root whose Content section is read from given lines, which stand behind the opening line.
class Section {
public:
    Section() = default;
    explicit Section(std::initializer_list<std::string_view> lines) { Read(lines); }

    void Read(std::initializer_list<std::string_view> lines)
    {
        const std::string path = m_folder.Save("section.xml", Joined(lines));
        EXPECT_NE(m_reader.m_File.Open(path.c_str(), CStdioFile::modeReadWrite, nullptr), 0);
        m_reader.ContentProcess(m_root);
    }
    // The lines that the reader has left.
    Texts Rest()
    {
        Texts rest;
        CString line;
        while (m_reader.m_File.ReadString(line) != 0) {
            rest.push_back(Str(line));
        }
        return rest;
    }
    Content & operator*() { return m_root.m_Content; }
    Content * operator->() { return &m_root.m_Content; }

private:
    TempFolder m_folder;
    CIPC2581_Parser m_root;
    CIPC2581_XmlLiteReader m_reader;
};

// A root that was read from a whole file.
class Document {
public:
    int Open(std::initializer_list<std::string_view> lines)
    {
        CString path(m_folder.Save("document.cvg", Joined(lines)));
        return m_reader.OpenPath(path, m_root);
    }
    std::string WrittenAgain()
    {
        CString path(m_folder.Path("written.cvg"));
        EXPECT_EQ(CIPC2581_XmlLiteReader().WriteFilePath(path, m_root), 1);
        return WrittenText(Str(path));
    }
    Content & operator*() { return m_root.m_Content; }
    Content * operator->() { return &m_root.m_Content; }
    [[nodiscard]] Texts Log() const { return All(m_reader.m_arrSectionLog); }

private:
    TempFolder m_folder;
    CIPC2581_Parser m_root;
    CIPC2581_XmlLiteReader m_reader;
};

EntryStandard * NewEntry(const char * id)
{
    auto entry = std::make_unique<EntryStandard>();
    entry->EntryStandardId = id;
    entry->DrawArray->Add(new CIPC2581_DicDraw_Circle);
    return entry.release();
}

EntryColor * NewColor(const char * id, int red)
{
    auto entry = std::make_unique<EntryColor>();
    entry->EntryColorId = id;
    entry->Red = red;
    return entry.release();
}

EntryUser * NewUser(const char * id)
{
    auto entry = std::make_unique<EntryUser>();
    entry->ID = id;
    return entry.release();
}

// Puts something into every field.
void Fill(Content & content)
{
    content.FunctionMode = "ASSEMBLY";
    content.FunctionModeLevel = "2";
    content.FunctionModeComment = "comment";
    content.DictionaryStandard->Unit = "MM";
    content.DictionaryStandard->SetEntry(NewEntry("S"));
    content.DictionaryUser->Unit = "INCH";
    content.DictionaryUser->SetEntry(NewUser("U"));
    content.m_DictionaryColor->Entry->Add(NewColor("C", 7));
    for (CStringArray * list : {&content.StepRef, &content.LayerRef, &content.BomRef, &content.SpareRef}) {
        list->SetAtGrow(0, "ref");
    }
}

const std::string Empty = Below(R"(
   <Content>
      <FunctionMode mode="" level=""/>
      <DictionaryColor>
      </DictionaryColor>
   </Content>
)");

// One of the three lists of names with what fills it.
struct Reference {
    std::string tag;
    CStringArray Content::*list;
    void (Content::*read)(CString & token);
};

const std::vector<Reference> & References()
{
    static const std::vector<Reference> references = {
        {"StepRef", &Content::StepRef, &Content::ReadStepRef},
        {"LayerRef", &Content::LayerRef, &Content::ReadLayerRef},
        {"BomRef", &Content::BomRef, &Content::ReadBomRef},
    };
    return references;
}

TEST(Content, StartsEmptyWithItsThreeDictionaries)
{
    Content content;
    EXPECT_EQ(content.FunctionMode, "");
    EXPECT_EQ(content.FunctionModeLevel, "");
    EXPECT_EQ(content.FunctionModeComment, "");
    for (const CStringArray * list : {&content.StepRef, &content.LayerRef, &content.BomRef, &content.SpareRef}) {
        EXPECT_TRUE(list->IsEmpty());
    }
    ASSERT_NE(content.DictionaryStandard, nullptr);
    ASSERT_NE(content.DictionaryUser, nullptr);
    ASSERT_NE(content.m_DictionaryColor, nullptr);
    EXPECT_EQ(content.DictionaryStandard->Unit, "");
    EXPECT_EQ(Entries(content), Texts());
    EXPECT_EQ(content.DictionaryUser->Unit, "");
    EXPECT_TRUE(content.DictionaryUser->EntryArray->IsEmpty());
    EXPECT_EQ(Colors(content), Texts());
    EXPECT_TRUE((std::is_base_of_v<CIPC2581_XmlDataAdd_Function, Content>));
}

TEST(Content, HoldsItsFieldsInOrder)
{
    Content content;
    const void * before = &content;
    for (const void * field : std::initializer_list<const void *>{
             &content.FunctionMode, &content.FunctionModeLevel, &content.FunctionModeComment,
             &content.DictionaryStandard, &content.DictionaryUser, &content.StepRef, &content.LayerRef, &content.BomRef,
             &content.SpareRef, &content.m_DictionaryColor}) {
        EXPECT_LT(before, field);
        before = field;
    }
}

TEST(Content, HoldsItsOperationsInOrder)
{
    EXPECT_EQ(Slot(&Content::Export), 2U);
    EXPECT_EQ(Slot(&Content::Export_FunctionMode), 3U);
    EXPECT_EQ(Slot(&Content::Export_Dictionary), 4U);
}

TEST(Content, HasAccessorsOfItsTexts)
{
    Content content;
    content.SetFunctionMode("A");
    content.SetFunctionModeLevel("B");
    content.SetFunctionModeComment("C");
    EXPECT_EQ(content.FunctionMode, "A");
    EXPECT_EQ(content.FunctionModeLevel, "B");
    EXPECT_EQ(content.FunctionModeComment, "C");
    EXPECT_EQ(content.GetFunctionMode(), "A");
    EXPECT_EQ(content.GetFunctionModeLevel(), "B");
    EXPECT_EQ(content.GetFunctionModeComment(), "C");
}

TEST(Content, GivesItsOwnDictionaries)
{
    const Content content;
    EXPECT_EQ(content.GetDictionaryStandard(), content.DictionaryStandard);
    EXPECT_EQ(content.GetDictionaryUser(), content.DictionaryUser);
    EXPECT_EQ(content.DictionaryColor(), content.m_DictionaryColor);
}

TEST(Content, SettingTheStandardDictionaryCopiesIt)
{
    Content content;
    Fill(content);
    const Standard * const own = content.DictionaryStandard;
    Standard other;
    other.Unit = "INCH";
    other.SetEntry(NewEntry("T"));
    content.SetDictionaryStandard(&other);
    EXPECT_EQ(content.DictionaryStandard, own);
    EXPECT_EQ(own->Unit, "INCH");
    EXPECT_EQ(Entries(content), Texts({"T:1"}));
    EXPECT_NE(own->EntryArray->GetAt(0), other.EntryArray->GetAt(0));
    content.SetDictionaryStandard(content.DictionaryStandard);
    EXPECT_EQ(own->Unit, "INCH");
    EXPECT_EQ(Entries(content), Texts({"T:1"}));
}

// A user dictionary that counts its assignments.
class ListeningUser : public User {
public:
    using User::operator=;
    User & operator=(const User & other) override
    {
        ++assignments;
        return User::operator=(other);
    }
    int assignments = 0;
};

TEST(Content, SettingTheUserDictionaryAssignsItThroughItsOwnOperation)
{
    Content content;
    delete content.DictionaryUser;
    auto * const own = new ListeningUser;
    content.DictionaryUser = own;
    User other;
    other.Unit = "INCH";
    other.SetEntry(NewUser("V"));
    content.SetDictionaryUser(&other);
    EXPECT_EQ(content.DictionaryUser, own);
    EXPECT_EQ(own->assignments, 1);
    EXPECT_EQ(own->Unit, "INCH");
    ASSERT_EQ(own->EntryArray->GetSize(), 1);
    EXPECT_NE(own->EntryArray->GetAt(0), other.EntryArray->GetAt(0));
}

TEST(Content, SettingTheColourDictionaryCopiesItsEntries)
{
    Content content;
    Fill(content);
    const Color * const own = content.m_DictionaryColor;
    Color other;
    other.Entry->Add(NewColor("D", 9));
    content.DictionaryColor(&other);
    EXPECT_EQ(content.m_DictionaryColor, own);
    EXPECT_EQ(Colors(content), Texts({"D:9"}));
    EXPECT_NE(own->Entry->GetAt(0), other.Entry->GetAt(0));
    content.DictionaryColor(content.m_DictionaryColor);
    EXPECT_EQ(Colors(content), Texts({"D:9"}));
}

TEST(Content, DeletesItsDictionariesInOrder)
{
    static std::string deleted;
    class GoneStandard : public Standard {
    public:
        GoneStandard() = default;
        GoneStandard(const GoneStandard &) = delete;
        GoneStandard & operator=(const GoneStandard &) = delete;
        ~GoneStandard() override { deleted += "standard "; }
    };
    class GoneUser : public User {
    public:
        GoneUser() = default;
        GoneUser(const GoneUser &) = delete;
        GoneUser & operator=(const GoneUser &) = delete;
        ~GoneUser() override { deleted += "user "; }
    };
    class GoneColor : public Color {
    public:
        GoneColor() = default;
        GoneColor(const GoneColor &) = delete;
        GoneColor & operator=(const GoneColor &) = delete;
        ~GoneColor() override { deleted += "color "; }
    };
    {
        Content content;
        delete content.DictionaryStandard;
        delete content.DictionaryUser;
        delete content.m_DictionaryColor;
        content.DictionaryStandard = new GoneStandard;
        content.DictionaryUser = new GoneUser;
        content.m_DictionaryColor = new GoneColor;
    }
    EXPECT_EQ(deleted, "standard user color ");
}

TEST(Content, ACopyLeavesOutColoursAndReferences)
{
    Content source;
    Fill(source);
    const Content copy(source);
    EXPECT_EQ(copy.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(copy.FunctionModeLevel, "2");
    EXPECT_EQ(copy.FunctionModeComment, "comment");
    EXPECT_EQ(copy.DictionaryStandard->Unit, "MM");
    EXPECT_EQ(Entries(copy), Texts({"S:1"}));
    EXPECT_NE(copy.DictionaryStandard->EntryArray->GetAt(0), source.DictionaryStandard->EntryArray->GetAt(0));
    EXPECT_EQ(copy.DictionaryUser->Unit, "INCH");
    ASSERT_EQ(copy.DictionaryUser->EntryArray->GetSize(), 1);
    EXPECT_NE(copy.DictionaryUser->EntryArray->GetAt(0), source.DictionaryUser->EntryArray->GetAt(0));
    EXPECT_EQ(Colors(copy), Texts());
    for (const CStringArray * list : {&copy.StepRef, &copy.LayerRef, &copy.BomRef, &copy.SpareRef}) {
        EXPECT_TRUE(list->IsEmpty());
    }
}

TEST(Content, AssigningLeavesColoursAndReferencesOfTheTarget)
{
    Content target;
    Fill(target);
    target.DictionaryStandard->SetEntry(NewEntry("T"));
    Content source;
    source.FunctionMode = "TEST";
    source.DictionaryStandard->Unit = "MICRON";
    source.m_DictionaryColor->Entry->Add(NewColor("D", 9));
    source.StepRef.SetAtGrow(0, "other");
    target = source;
    EXPECT_EQ(target.FunctionMode, "TEST");
    EXPECT_EQ(target.FunctionModeLevel, "");
    EXPECT_EQ(target.FunctionModeComment, "");
    EXPECT_EQ(target.DictionaryStandard->Unit, "MICRON");
    EXPECT_EQ(Entries(target), Texts());
    EXPECT_EQ(target.DictionaryUser->Unit, "");
    EXPECT_TRUE(target.DictionaryUser->EntryArray->IsEmpty());
    EXPECT_EQ(Colors(target), Texts({"C:7"}));
    for (const CStringArray * list : {&target.StepRef, &target.LayerRef, &target.BomRef, &target.SpareRef}) {
        EXPECT_EQ(All(*list), Texts({"ref"}));
    }
}

TEST(Content, AssigningReachesTheUserDictionaryThroughItsOwnOperation)
{
    Content target;
    delete target.DictionaryUser;
    auto * const own = new ListeningUser;
    target.DictionaryUser = own;
    target = Content();
    EXPECT_EQ(own->assignments, 1);
}

TEST(Content, AssigningItselfChangesNothing)
{
    Content content;
    Fill(content);
    const Content & same = content;
    content = same;
    EXPECT_EQ(content.FunctionMode, "ASSEMBLY");
    EXPECT_EQ(Entries(content), Texts({"S:1"}));
    EXPECT_EQ(content.DictionaryUser->EntryArray->GetSize(), 1);
    EXPECT_EQ(Colors(content), Texts({"C:7"}));
}

TEST(Content, AssigningItselfDoesNotReachTheUserDictionary)
{
    Content content;
    delete content.DictionaryUser;
    auto * const own = new ListeningUser;
    content.DictionaryUser = own;
    const Content & same = content;
    content = same;
    EXPECT_EQ(own->assignments, 0);
}

TEST(Content, AssigningKeepsAStandardDictionaryThatBothSidesHold)
{
    Content source;
    Fill(source);
    Content target;
    const std::unique_ptr<Standard> own(target.DictionaryStandard);
    target.DictionaryStandard = source.DictionaryStandard;
    target = source;
    EXPECT_EQ(Entries(source), Texts({"S:1"}));
    EXPECT_EQ(target.FunctionMode, "ASSEMBLY");
    target.DictionaryStandard = nullptr;
}

TEST(Content, InitEmptiesEachDictionaryInItsOwnMannerAndKeepsTheReferences)
{
    Content content;
    Fill(content);
    const Standard * const standard = content.DictionaryStandard;
    const std::unique_ptr<CIPC2581_Content_DictionaryStandard_EntryStandardArray> abandoned(standard->EntryArray);
    const User * const user = content.DictionaryUser;
    const auto * const users = user->EntryArray;
    const Color * const color = content.m_DictionaryColor;
    const auto * const colors = color->Entry;
    content.Init();
    EXPECT_EQ(content.FunctionMode, "");
    EXPECT_EQ(content.FunctionModeLevel, "");
    EXPECT_EQ(content.FunctionModeComment, "");
    EXPECT_EQ(content.DictionaryStandard, standard);
    EXPECT_EQ(standard->Unit, "");
    EXPECT_NE(standard->EntryArray, abandoned.get());
    EXPECT_EQ(Entries(content), Texts());
    ASSERT_EQ(abandoned->GetSize(), 1);
    EXPECT_EQ(abandoned->GetAt(0)->EntryStandardId, "S");
    EXPECT_EQ(content.DictionaryUser, user);
    EXPECT_EQ(user->Unit, "");
    EXPECT_EQ(user->EntryArray, users);
    EXPECT_TRUE(users->IsEmpty());
    EXPECT_EQ(content.m_DictionaryColor, color);
    EXPECT_EQ(color->Entry, colors);
    EXPECT_TRUE(colors->IsEmpty());
    for (const CStringArray * list : {&content.StepRef, &content.LayerRef, &content.BomRef, &content.SpareRef}) {
        EXPECT_EQ(All(*list), Texts({"ref"}));
    }
}

TEST(Content, InitMakesMissingDictionaries)
{
    Content content;
    delete std::exchange(content.DictionaryStandard, nullptr);
    delete std::exchange(content.DictionaryUser, nullptr);
    delete std::exchange(content.m_DictionaryColor, nullptr);
    content.Init();
    ASSERT_NE(content.DictionaryStandard, nullptr);
    ASSERT_NE(content.DictionaryUser, nullptr);
    ASSERT_NE(content.m_DictionaryColor, nullptr);
    EXPECT_EQ(Written(content), Empty);
}

TEST(Content, ReadsUpToItsClosingLine)
{
    for (const char * end :
         {"</Content>", "   </Content>", "</Content >", "\t</Content>", "</Contents>", "x</Content>"}) {
        Section section({"<StepRef>A</StepRef>", end, "<StepRef>B</StepRef>"});
        EXPECT_EQ(All(section->StepRef), Texts({"A"})) << end;
        EXPECT_EQ(section.Rest(), Texts({"<StepRef>B</StepRef>"})) << end;
    }
}

TEST(Content, EndsQuietlyAtTheEndOfTheFile)
{
    Section section({"<StepRef>A</StepRef>"});
    EXPECT_EQ(All(section->StepRef), Texts({"A"}));
    Section empty({});
    EXPECT_EQ(Written(*empty), Empty);
}

TEST(Content, PassesOverOtherLines)
{
    Section section({"<Content>", R"(<functionMode mode="x"/>)", "<stepref>x</stepref>", "<STEPREF>x</STEPREF>",
                     "<x StepRef/>", R"(<Layer name="LayerRef"/>)", "< StepRef>x</StepRef>", "<dictionaryColor>",
                     "<Dictionary StepRef>", "<Net>StepREF</Net>", "x", "<", "   <", "no bracket", "\t", "</content>",
                     "<StepRef>A</StepRef>", "</Content>"});
    EXPECT_EQ(All(section->StepRef), Texts({"A"}));
    EXPECT_EQ(Written(*section), Empty);
}

// The text that a line appends to the list of the tag; NONE if it appends nothing.
std::string Appended(const Reference & reference, std::string line)
{
    for (std::size_t at = line.find('T'); at != std::string::npos; at = line.find('T', at + reference.tag.size())) {
        line.replace(at, 1, reference.tag);
    }
    Section section({line, "</Content>"});
    const Texts texts = All((*section).*reference.list);
    EXPECT_LE(texts.size(), 1U) << line;
    for (const Reference & other : References()) {
        if (other.tag != reference.tag) {
            EXPECT_TRUE(((*section).*other.list).IsEmpty()) << line;
        }
    }
    return texts.empty() ? "NONE" : texts[0];
}

TEST(Content, TakesTheNameOfATextFormWithoutBlanks)
{
    for (const Reference & reference : References()) {
        for (const char * line : {"<T>name</T>", "   <T>name</T>", "\t<T>name</T>", "x <T>name</T>", "x<T>name</T>",
                                  "<T>name</T>x", "<T>name</T", "<T>name</T><T>more</T>", "<xTx>name</xTx>"}) {
            EXPECT_EQ(Appended(reference, line), "name") << line;
        }
        EXPECT_EQ(Appended(reference, "<T>a>b</T>"), "a>b");
        EXPECT_EQ(Appended(reference, R"(<T>a/b&lt;"c"</T>)"), R"(a/b&lt;"c")");
        EXPECT_EQ(Appended(reference, "<T<x>"), " " + reference.tag);
        EXPECT_EQ(Appended(reference, "<T>a\tb</T>"), "a\tb");
    }
}

TEST(Content, AppendsAnEmptyTextForEveryOtherForm)
{
    for (const Reference & reference : References()) {
        for (const char * line :
             {"<T>my name</T>", "<T>name</T> ", "<T >name</T>", R"(<T name="L1"/>)", R"(   <T name="L1" >)", "<T/>",
              "<T></T>", "<T>", "</T>", "<T>name", "<T>name<", "xTx", "x>name</T>", "xT>namex"}) {
            EXPECT_EQ(Appended(reference, line), "") << line;
        }
    }
}

TEST(Content, TakesNoNameFromALineWhoseFirstTokenIsAnother)
{
    for (const Reference & reference : References()) {
        for (const char * line : {"T", "<x T>", R"(<x y="T"/>)", "< T>", "T>x"}) {
            EXPECT_EQ(Appended(reference, line), "NONE") << line;
        }
    }
}

TEST(Content, KeepsTheReferencesInFileOrder)
{
    Section section({"<LayerRef>L1</LayerRef>", "<StepRef>S1</StepRef>", R"(<LayerRef name="x"/>)",
                     "<BomRef>B1</BomRef>", "<LayerRef>L3</LayerRef>", "<StepRef>S2</StepRef>", "</Content>"});
    EXPECT_EQ(All(section->StepRef), Texts({"S1", "S2"}));
    EXPECT_EQ(All(section->LayerRef), Texts({"L1", "", "L3"}));
    EXPECT_EQ(All(section->BomRef), Texts({"B1"}));
    EXPECT_TRUE(section->SpareRef.IsEmpty());
}

TEST(Content, OverwritesTheEndsOfTheReferenceToken)
{
    for (const Reference & reference : References()) {
        Content content;
        const auto read = [&](const char * text) {
            CString token(text);
            (content.*reference.read)(token);
            return Str(token);
        };
        EXPECT_EQ(read("<T>name</T>"), " T>name</T ");
        EXPECT_EQ(read("a<b>c"), " <b> ");
        EXPECT_EQ(read("ab<cd"), " b<c ");
        EXPECT_EQ(read("x"), " ");
        EXPECT_EQ(All(content.*reference.list), Texts({"name", "", " b", ""}));
        CString none;
        EXPECT_THROW((content.*reference.read)(none), CInvalidArgException);
        EXPECT_EQ((content.*reference.list).GetSize(), 4);
    }
}

TEST(Content, TakesModeAndLevelOfTheFunctionMode)
{
    Section section({R"(   <FunctionMode mode="ASSEMBLY" level="2" comment="c"/>)", "</Content>"});
    EXPECT_EQ(section->FunctionMode, "ASSEMBLY");
    EXPECT_EQ(section->FunctionModeLevel, "2");
    EXPECT_EQ(section->FunctionModeComment, "");
}

// Mode and level that a line leaves in a content that holds "m" and "l".
std::pair<std::string, std::string> Modes(const char * line)
{
    Content content;
    content.FunctionMode = "m";
    content.FunctionModeLevel = "l";
    content.ReadFunctionMode(Tokens(line));
    EXPECT_EQ(content.FunctionModeComment, "");
    return {Str(content.FunctionMode), Str(content.FunctionModeLevel)};
}

TEST(Content, FindsModeAndLevelAnywhereInAToken)
{
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(Modes("<FunctionMode/>"), Pair("m", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode Mode="x" LEVEL="y" comment="z" />)"), Pair("m", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode level="y" mode="x"/>)"), Pair("x", "y"));
    EXPECT_EQ(Modes(R"(<FunctionMode mode="x" mode="y" />)"), Pair("y", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode amodeb="x" alevelb="y" />)"), Pair("x", "y"));
    EXPECT_EQ(Modes(R"(<FunctionMode a="mode" b="level" />)"), Pair("mode", "level"));
    EXPECT_EQ(Modes(R"(<FunctionMode level="mode" />)"), Pair("mode", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode mode="level" />)"), Pair("level", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode mode="" level=""/>)"), Pair("", ""));
    EXPECT_EQ(Modes(R"(<mode="x" level="y"/>)"), Pair("x", "y"));
}

TEST(Content, WalksOnBehindAValueThatRanOverSeveralTokens)
{
    using Pair = std::pair<std::string, std::string>;
    EXPECT_EQ(Modes(R"(<FunctionMode mode="two words" level="1"/>)"), Pair("two words", "1"));
    EXPECT_EQ(Modes(R"(<FunctionMode mode="x level=y z" />)"), Pair("x y z", "l"));
    EXPECT_EQ(Modes(R"(<FunctionMode comment="a mode b" />)"), Pair("mode b", "l"));
}

TEST(Content, ThrowsForAModeThatTheLineDoesNotClose)
{
    for (const char * line : {R"(<FunctionMode level="1" mode="x)", R"(<FunctionMode level="1" mode=x)",
                              R"(<FunctionMode level="1" x="mode)"}) {
        Section section;
        EXPECT_THROW(section.Read({"<StepRef>A</StepRef>", line}), CInvalidArgException) << line;
        EXPECT_EQ(All(section->StepRef), Texts({"A"}));
        EXPECT_EQ(section->FunctionMode, "");
        EXPECT_EQ(section->FunctionModeLevel, "1");
    }
    EXPECT_THROW(Section({"<FunctionMode>mode</FunctionMode>"}), CInvalidArgException);
}

TEST(Content, TakesAnEarlierRowForATokenThatHoldsTwo)
{
    const Texts rows = {"FunctionMode",       "StepRef",        "LayerRef",        "BomRef",
                        "DictionaryStandard", "DictionaryUser", "DictionaryColor", "/Content"};
    for (std::size_t first = 0; first < rows.size(); ++first) {
        for (std::size_t second = first + 1; second < rows.size(); ++second) {
            const bool isUser = rows[first] == "DictionaryUser";
            for (const std::string & name : {rows[first] + rows[second], rows[second] + rows[first]}) {
                Section section({"<" + name + R"( mode="M" units="U">)", R"(<EntryStandard id="E">)",
                                 "</EntryStandard>", R"(<EntryColor id="C">)", "</EntryColor>",
                                 "</DictionaryStandard></DictionaryUser></DictionaryColor>"});
                Texts done;
                if (section->FunctionMode == "M") {
                    done.emplace_back("FunctionMode");
                }
                for (const Reference & reference : References()) {
                    if (!((*section).*reference.list).IsEmpty()) {
                        done.push_back(reference.tag);
                    }
                }
                if (!Entries(*section).empty()) {
                    done.emplace_back("DictionaryStandard");
                }
                if (section->DictionaryUser->Unit == "U") {
                    done.emplace_back("DictionaryUser");
                }
                if (!Colors(*section).empty()) {
                    done.emplace_back("DictionaryColor");
                }
                // With a slash in its first token a user dictionary ends before it has a unit.
                const bool isClosed = isUser && rows[second] == "/Content";
                EXPECT_EQ(done, isClosed ? Texts() : Texts({rows[first]})) << name;
            }
        }
    }
}

TEST(Content, GoesOnBehindALineThatHoldsItsClosingTagInAnEarlierRow)
{
    for (const char * line : {"</ContentStepRef>", "</ContentFunctionMode>", "</ContentDictionaryUser>"}) {
        Section section({line, "<LayerRef>A</LayerRef>", "</Content>"});
        EXPECT_EQ(All(section->LayerRef), Texts({"A"})) << line;
    }
}

TEST(Content, ThrowsForAnEmptyLine)
{
    Section section;
    EXPECT_THROW(section.Read({"<StepRef>A</StepRef>", "", "<StepRef>B</StepRef>"}), CInvalidArgException);
    EXPECT_EQ(All(section->StepRef), Texts({"A"}));
    EXPECT_EQ(section.Rest(), Texts({"<StepRef>B</StepRef>"}));
}

TEST(Content, ThrowsForALineOfBlanks)
{
    Section section;
    EXPECT_THROW(section.Read({"<StepRef>A</StepRef>", "  ", "<StepRef>B</StepRef>"}), CInvalidArgException);
    EXPECT_EQ(All(section->StepRef), Texts({"A"}));
    EXPECT_EQ(section.Rest(), Texts({"<StepRef>B</StepRef>"}));
}

TEST(Content, ReadsTheStandardDictionary)
{
    Section section({R"(<DictionaryStandard units="INCH">)", R"(   <EntryStandard id="A">)",
                     R"(      <Circle diameter="1"/>)", R"(      <Oval width="1" height="2"/>)", "   </EntryStandard>",
                     "\t<EntryStandard id=\"A\">", "</EntryStandard>", "</DictionaryStandard>", "<StepRef>S</StepRef>",
                     "</Content>", "<Next/>"});
    EXPECT_EQ(section->DictionaryStandard->Unit, "INCH");
    EXPECT_EQ(Entries(*section), Texts({"A:2", "A:0"}));
    EXPECT_EQ(All(section->StepRef), Texts({"S"}));
    EXPECT_EQ(section.Rest(), Texts({"<Next/>"}));
}

// The unit that the opening line of a standard dictionary leaves where "u" stood.
std::string StandardUnit(const char * line)
{
    Content content;
    content.DictionaryStandard->Unit = "u";
    content.ReadDictionaryStandard(Tokens(line), Lines({"</DictionaryStandard>"}));
    return Str(content.DictionaryStandard->Unit);
}

TEST(Content, FindsTheUnitOfTheStandardDictionaryAnywhereInAToken)
{
    EXPECT_EQ(StandardUnit("<DictionaryStandard>"), "u");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard unit="MM" Units="MM">)"), "u");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard units="any word">)"), "any word");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard units="A" myunits="B">)"), "B");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard x="units">)"), "units");
    EXPECT_EQ(StandardUnit(R"(<units="MM" x="1">)"), "MM");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard x="units=a b">)"), "units=a b");
    EXPECT_EQ(StandardUnit(R"(<DictionaryStandard units="a units=b c">)"), "a b c");
    EXPECT_THROW(StandardUnit(R"(<DictionaryStandard units="MM)"), CInvalidArgException);
}

// The entries that these lines of a standard dictionary give.
Texts StandardEntries(std::initializer_list<std::string_view> lines, const Texts & rest = {})
{
    Content content;
    Lines file(lines);
    content.ReadDictionaryStandard(Tokens("<DictionaryStandard>"), file);
    EXPECT_EQ(file.Rest(), rest);
    return Entries(content);
}

TEST(Content, FindsTheIdOfAnEntryAnywhereInAToken)
{
    const auto id = [](const std::string & line) {
        return StandardEntries({line, "</EntryStandard>", "</DictionaryStandard>"});
    };
    EXPECT_EQ(id("<EntryStandard>"), Texts({":0"}));
    EXPECT_EQ(id(R"(<EntryStandard ID="A">)"), Texts({":0"}));
    EXPECT_EQ(id(R"(<EntryStandard id="A" id="B">)"), Texts({"B:0"}));
    EXPECT_EQ(id(R"(<EntryStandard id="A" width="3">)"), Texts({"3:0"}));
    EXPECT_EQ(id(R"(<EntryStandard x="id">)"), Texts({"id:0"}));
    EXPECT_EQ(id(R"(<EntryStandard id="a id=b c">)"), Texts({"a b c:0"}));
    EXPECT_EQ(id(R"(<EntryStandardid="A" x="1">)"), Texts({"A:0"}));
    EXPECT_EQ(id(R"(<MyEntryStandards id="A">)"), Texts({"A:0"}));
}

TEST(Content, OpensAnEntryByItsFirstTokenAlone)
{
    EXPECT_EQ(StandardEntries({"<EntryStandard/>", "</EntryStandard>", "<x EntryStandard>", "<entryStandard>",
                               R"(<EntryStandard/ id="A">)", "</DictionaryStandard>"}),
              Texts());
    EXPECT_EQ(
        StandardEntries({R"(<EntryStandard id="A"/>)", R"(<EntryStandard id="B">)", R"(<Circle diameter="1"/>)",
                         "</EntryStandard>", R"(<EntryStandard id="C">)", "</EntryStandard>", "</DictionaryStandard>"}),
        Texts({"A:1", "C:0"}));
}

TEST(Content, EndsTheStandardDictionaryAtItsClosingToken)
{
    for (const char * end : {"</DictionaryStandard>", "  </DictionaryStandard >", "\t</DictionaryStandard>\t",
                             "</DictionaryStandardEntryStandard>", "<x></DictionaryStandard>"}) {
        EXPECT_EQ(StandardEntries({end, "<Next/>"}, {"<Next/>"}), Texts()) << end;
    }
    EXPECT_EQ(StandardEntries({"<x /DictionaryStandard>", "</dictionaryStandard>", "</DictionaryUser>", "</Content>"}),
              Texts());
}

TEST(Content, PassesOverOtherLinesOfTheStandardDictionary)
{
    EXPECT_EQ(StandardEntries({"", "   ", "\t", " \t ", "<Circle/>", "<DictionaryStandard>",
                               R"(<EntryStandard id="A">)", "", "  ", "</EntryStandard>", "</DictionaryStandard>"}),
              Texts({"A:0"}));
}

TEST(Content, KeepsAnEntryThatTheEndOfTheFileCutShort)
{
    EXPECT_EQ(StandardEntries({R"(<EntryStandard id="A">)", "<Circle/>"}), Texts({"A:1"}));
    EXPECT_EQ(StandardEntries({R"(<EntryStandard id="A">)"}), Texts({"A:0"}));
}

TEST(Content, LosesTheEntryInWhichAnExceptionPasses)
{
    for (const char * line : {R"(<EntryStandard id="B)", "<EntryStandard id=\"B\">\n<Circle diameter=\"1"}) {
        Section section;
        EXPECT_THROW(
            section.Read({R"(<DictionaryStandard units="MM">)", R"(<EntryStandard id="A">)", "</EntryStandard>", line}),
            CInvalidArgException);
        EXPECT_EQ(section->DictionaryStandard->Unit, "MM");
        EXPECT_EQ(Entries(*section), Texts({"A:0"}));
    }
}

TEST(Content, ReadsOnBehindAStandardDictionaryThatClosesItself)
{
    Section section({R"(<DictionaryStandard units="MM"/>)", "<StepRef>A</StepRef>", "</Content>",
                     R"(<EntryStandard id="B">)", "</EntryStandard>", "</DictionaryStandard>", "<StepRef>C</StepRef>",
                     "</Content>"});
    EXPECT_EQ(section->DictionaryStandard->Unit, "MM");
    EXPECT_EQ(Entries(*section), Texts({"B:0"}));
    EXPECT_EQ(All(section->StepRef), Texts({"C"}));
}

TEST(Content, KeepsNothingButTheUnitOfTheUserDictionary)
{
    Section section({R"(<DictionaryUser units="INCH">)", "", "   ", "\t", R"(<EntryUser id="A">)",
                     R"(<Circle diameter="1"/>)", "</EntryUser>", "<StepRef>A</StepRef>", "</Content>",
                     "<x /DictionaryUser>", "</DictionaryUser>", "<StepRef>B</StepRef>", "</Content>"});
    EXPECT_EQ(section->DictionaryUser->Unit, "INCH");
    EXPECT_TRUE(section->DictionaryUser->EntryArray->IsEmpty());
    EXPECT_EQ(section->DictionaryStandard->Unit, "");
    EXPECT_EQ(All(section->StepRef), Texts({"B"}));
}

struct UserLine {
    std::string unit;
    bool isClosed;
    bool operator==(const UserLine &) const = default;
};

void PrintTo(const UserLine & line, std::ostream * out)
{
    *out << line.unit << (line.isClosed ? " closed" : " open");
}

// The unit that the opening line of a user dictionary leaves where "u" stood, and whether the line ended it.
UserLine ReadUser(const char * line)
{
    Content content;
    content.DictionaryUser->Unit = "u";
    Lines file({"<Next/>", "  </DictionaryUser >", "<Last/>"});
    content.ReadDictionaryUser(Tokens(line), file);
    const Texts rest = file.Rest();
    EXPECT_TRUE(rest == Texts({"<Last/>"}) || rest.size() == 3) << line;
    return {Str(content.DictionaryUser->Unit), rest.size() == 3};
}

TEST(Content, EndsTheUserDictionaryAtTheFirstSlashThatItWalksOver)
{
    EXPECT_EQ(ReadUser("<DictionaryUser>"), (UserLine{"u", false}));
    EXPECT_EQ(ReadUser("<DictionaryUser/>"), (UserLine{"u", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="MM">)"), (UserLine{"MM", false}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="MM"/>)"), (UserLine{"MM", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="MM" />)"), (UserLine{"MM", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="A" myunits="B" Units="C">)"), (UserLine{"B", false}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser x="a/b" units="MM">)"), (UserLine{"u", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser/ units="MM">)"), (UserLine{"u", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="A/B" units="C">)"), (UserLine{"AB", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="a b"/>)"), (UserLine{"a b", true}));
    EXPECT_EQ(ReadUser(R"(<DictionaryUser units="a/ b">)"), (UserLine{"a b", false}));
    EXPECT_EQ(ReadUser(R"(<units="MM" x="1">)"), (UserLine{"MM", false}));
    EXPECT_THROW(ReadUser(R"(<DictionaryUser units="MM)"), CInvalidArgException);
}

TEST(Content, EndsTheUserDictionaryQuietlyAtTheEndOfTheFile)
{
    Section section({R"(<DictionaryUser units="MM">)", "<StepRef>A</StepRef>"});
    EXPECT_EQ(section->DictionaryUser->Unit, "MM");
    EXPECT_EQ(All(section->StepRef), Texts());
}

TEST(Content, ReadsTheColourDictionaryAndGivesItsUnitToTheStandardDictionary)
{
    Section section({R"(<DictionaryStandard units="INCH">)", "</DictionaryStandard>", R"(<DictionaryColor units="MM">)",
                     R"(   <EntryColor id="A">)", R"(      <Color r="1" g="2" b="3" />)", "   </EntryColor>",
                     R"(<EntryColor id="A">)", "</EntryColor>", "</DictionaryColor>", "<StepRef>S</StepRef>",
                     "</Content>"});
    EXPECT_EQ(section->DictionaryStandard->Unit, "MM");
    EXPECT_EQ(Colors(*section), Texts({"A:1", "A:0"}));
    EXPECT_EQ(All(section->StepRef), Texts({"S"}));
}

// The unit that the opening line of a colour dictionary leaves in the standard dictionary where "u" stood.
std::string ColorUnit(const char * line)
{
    Content content;
    content.DictionaryStandard->Unit = "u";
    content.ReadDictionaryColor(Tokens(line), Lines({"</DictionaryColor>"}));
    EXPECT_EQ(content.DictionaryUser->Unit, "");
    return Str(content.DictionaryStandard->Unit);
}

TEST(Content, FindsTheUnitOfTheColourDictionaryAnywhereInAToken)
{
    EXPECT_EQ(ColorUnit("<DictionaryColor>"), "u");
    EXPECT_EQ(ColorUnit(R"(<DictionaryColor Units="MM">)"), "u");
    EXPECT_EQ(ColorUnit(R"(<DictionaryColor units="A" myunits="B">)"), "B");
    EXPECT_EQ(ColorUnit(R"(<units="MM" x="units">)"), "units");
    EXPECT_EQ(ColorUnit(R"(<DictionaryColor units="a units=b c">)"), "a b c");
    EXPECT_THROW(ColorUnit(R"(<DictionaryColor units="MM)"), CInvalidArgException);
}

// The colours that these lines of a colour dictionary give.
Texts ColorEntries(std::initializer_list<std::string_view> lines, const Texts & rest = {})
{
    Content content;
    Lines file(lines);
    content.ReadDictionaryColor(Tokens("<DictionaryColor>"), file);
    EXPECT_EQ(file.Rest(), rest);
    return Colors(content);
}

TEST(Content, FindsTheIdOfAColourAnywhereInAToken)
{
    const auto id = [](const std::string & line) {
        return ColorEntries({line, R"(<Color r="5"/>)", "</EntryColor>", "</DictionaryColor>"});
    };
    EXPECT_EQ(id("<EntryColor>"), Texts({":5"}));
    EXPECT_EQ(id(R"(<EntryColor ID="A">)"), Texts({":5"}));
    EXPECT_EQ(id(R"(<EntryColor id="A" id="B" />)"), Texts({"B:5"}));
    EXPECT_EQ(id(R"(<EntryColor id="A" width="3">)"), Texts({"3:5"}));
    EXPECT_EQ(id(R"(<EntryColor x="id" r="9">)"), Texts({"id:5"}));
    EXPECT_EQ(id(R"(<EntryColor id="a id=b c">)"), Texts({"a b c:5"}));
    EXPECT_EQ(id(R"(  <MyEntryColors id="A">)"), Texts({"A:5"}));
}

TEST(Content, OpensAColourByItsFirstTokenAlone)
{
    EXPECT_EQ(ColorEntries({"<EntryColor/>", "</EntryColor>", "<x EntryColor>", "<entryColor>", R"(<Color r="5"/>)",
                            R"(<EntryColor/ id="A">)", "</DictionaryColor>"}),
              Texts());
}

TEST(Content, EndsTheColourDictionaryAtItsClosingToken)
{
    for (const char * end : {"</DictionaryColor>", "  </DictionaryColor >", "\t</DictionaryColor>",
                             "</DictionaryColorEntryColor>", "<x></DictionaryColor>"}) {
        EXPECT_EQ(ColorEntries({end, "<Next/>"}, {"<Next/>"}), Texts()) << end;
    }
    EXPECT_EQ(ColorEntries({"<x /DictionaryColor>", "</dictionaryColor>", "</DictionaryUser>", "</Content>"}), Texts());
}

TEST(Content, PassesOverAnEmptyLineOfTheColourDictionaryButNotOverBlanks)
{
    EXPECT_EQ(ColorEntries({"", "\t", R"(<EntryColor id="A">)", "", "</EntryColor>", "</DictionaryColor>"}),
              Texts({"A:0"}));
    Section section;
    EXPECT_THROW(section.Read({"<DictionaryColor>", R"(<EntryColor id="A">)", "</EntryColor>", "  "}),
                 CInvalidArgException);
    EXPECT_EQ(Colors(*section), Texts({"A:0"}));
}

TEST(Content, LosesTheColourInWhichAnExceptionPasses)
{
    for (const char * line :
         {R"(<EntryColor id="B)", "<EntryColor id=\"B\">\n  ", "<EntryColor id=\"B\">\n<Color r=\"1"}) {
        Section section;
        EXPECT_THROW(section.Read({"<DictionaryColor>", R"(<EntryColor id="A">)", "</EntryColor>", line}),
                     CInvalidArgException);
        EXPECT_EQ(Colors(*section), Texts({"A:0"}));
    }
}

TEST(Content, KeepsAColourThatTheEndOfTheFileCutShort)
{
    EXPECT_EQ(ColorEntries({R"(<EntryColor id="A">)", R"(<Color r="4"/>)"}), Texts({"A:4"}));
    EXPECT_EQ(ColorEntries({}), Texts());
}

TEST(Content, ReadsOnBehindAColourDictionaryThatClosesItself)
{
    Section section({R"(<DictionaryColor units="MM"/>)", "<StepRef>A</StepRef>", "</Content>", R"(<EntryColor id="B">)",
                     "</EntryColor>", "</DictionaryColor>", "</Content>", "<Next/>"});
    EXPECT_EQ(Colors(*section), Texts({"B:0"}));
    EXPECT_EQ(All(section->StepRef), Texts());
    EXPECT_EQ(section.Rest(), Texts({"<Next/>"}));
}

TEST(Content, ReadingAgainAddsToListsAndEntries)
{
    Section section;
    for (const char * unit : {"INCH", "MM"}) {
        const std::string line = std::string(R"( units=")") + unit + R"(">)";
        section.Read({R"(<FunctionMode mode=")" + std::string(unit) + R"("/>)", "<StepRef>S</StepRef>",
                      "<DictionaryStandard" + line, R"(<EntryStandard id="E">)", "</EntryStandard>",
                      "</DictionaryStandard>", "<DictionaryUser" + line, "</DictionaryUser>", "<DictionaryColor>",
                      R"(<EntryColor id="C">)", "</EntryColor>", "</DictionaryColor>", "</Content>"});
    }
    EXPECT_EQ(section->FunctionMode, "MM");
    EXPECT_EQ(All(section->StepRef), Texts({"S", "S"}));
    EXPECT_EQ(section->DictionaryStandard->Unit, "MM");
    EXPECT_EQ(Entries(*section), Texts({"E:0", "E:0"}));
    EXPECT_EQ(section->DictionaryUser->Unit, "MM");
    EXPECT_EQ(Colors(*section), Texts({"C:0", "C:0"}));
}

TEST(Content, WritesAFreshObjectWithoutAStandardDictionary)
{
    Content content;
    EXPECT_EQ(Exported(content), (Export{1, Empty}));
    EXPECT_EQ(Written(content, 1), Below(R"(
      <Content>
         <FunctionMode mode="" level=""/>
         <DictionaryColor>
         </DictionaryColor>
      </Content>
)"));
}

TEST(Content, WritesModeAndTheStandardAndColourDictionaries)
{
    Content content;
    Fill(content);
    EXPECT_EQ(Exported(content), (Export{1, Below(R"(
   <Content>
      <FunctionMode mode="ASSEMBLY" level="2"/>
      <DictionaryStandard units="MM">
         <EntryStandard id="S">
            <Circle diameter="0.000000" />
         </EntryStandard>
      </DictionaryStandard>
      <DictionaryColor>
         <EntryColor id="C">
            <Color r="7" g="0" b="0" />
         </EntryColor>
      </DictionaryColor>
   </Content>
)")}));
}

// What a single operation writes.
template <int (Content::*Operation)(CStdioFile &, int)>
struct Only {
    Content & content;
    int Export(CStdioFile & file, int level) { return (content.*Operation)(file, level); }
};

TEST(Content, WritesTheFunctionModeAlone)
{
    Content content;
    content.FunctionMode = "A";
    content.FunctionModeLevel = "1";
    content.FunctionModeComment = "c";
    Only<&Content::Export_FunctionMode> mode{content};
    EXPECT_EQ(Exported(mode), (Export{1, Joined({R"(   <FunctionMode mode="A" level="1"/>)"})}));
    EXPECT_EQ(Exported(mode, 2), (Export{1, Joined({R"(         <FunctionMode mode="A" level="1"/>)"})}));
}

TEST(Content, WritesTheDictionariesAlone)
{
    Content content;
    content.DictionaryStandard->SetEntry(new EntryStandard);
    Only<&Content::Export_Dictionary> dictionaries{content};
    EXPECT_EQ(Exported(dictionaries, 1), (Export{1, Below(R"(
      <DictionaryStandard units="">
         <EntryStandard id="">
         </EntryStandard>
      </DictionaryStandard>
      <DictionaryColor>
      </DictionaryColor>
)")}));
}

TEST(Content, StopsAtAStandardDictionaryThatCannotBeWritten)
{
    Content content;
    content.DictionaryStandard->SetEntry(NewEntry("A"));
    content.DictionaryStandard->EntryArray->GetAt(0)->DrawArray->Add(new CIPC2581_DrawObj);
    const std::string dictionary = Below(R"(
      <DictionaryStandard units="">
         <EntryStandard id="A">
            <Circle diameter="0.000000" />
)");
    EXPECT_EQ(Exported(content),
              (Export{0, Joined({"   <Content>", R"(      <FunctionMode mode="" level=""/>)"}) + dictionary}));
    Only<&Content::Export_Dictionary> dictionaries{content};
    EXPECT_EQ(Exported(dictionaries, 1), (Export{0, dictionary}));
}

TEST(Content, StopsAtAColourThatCannotBeWritten)
{
    class Unwritable : public EntryColor {
    public:
        int Export(CStdioFile & /*file*/, int /*level*/) override { return 0; }
    };
    Content content;
    content.m_DictionaryColor->Entry->Add(new Unwritable);
    EXPECT_EQ(Exported(content), (Export{0, Below(R"(
   <Content>
      <FunctionMode mode="" level=""/>
      <DictionaryColor>
)")}));
}

// A content whose parts write what they were called with and give what they are told.
class Replaced : public Content {
public:
    Replaced(int mode, int dictionary) : m_mode(mode), m_dictionary(dictionary) {}
    int Export_FunctionMode(CStdioFile & file, int level) override
    {
        file.WriteString(("mode " + std::to_string(level) + "\n").c_str());
        return m_mode;
    }
    int Export_Dictionary(CStdioFile & file, int level) override
    {
        file.WriteString(("dictionary " + std::to_string(level) + "\n").c_str());
        return m_dictionary;
    }

private:
    int m_mode;
    int m_dictionary;
};

TEST(Content, WritesItsPartsThroughTheirSlots)
{
    Replaced good(1, 1);
    EXPECT_EQ(Exported(good, 4), (Export{1, "               <Content>\nmode 5\ndictionary 5\n"
                                            "               </Content>\n"}));
    Replaced badMode(0, 1);
    EXPECT_EQ(Exported(badMode), (Export{0, "   <Content>\nmode 1\n"}));
    Replaced badDictionary(1, 0);
    EXPECT_EQ(Exported(badDictionary), (Export{0, "   <Content>\nmode 1\ndictionary 1\n"}));
}

TEST(Content, IsReadFromADocument)
{
    Document document;
    EXPECT_EQ(document.Open({R"(<?xml version="1.0"?>)", "<IPC-2581>", R"(  <Content roleRef="mode" units="MM">)",
                             R"(    <FunctionMode mode="TEST" level="3"/>)", "    <StepRef>board</StepRef>",
                             "    <LayerRef>TOP</LayerRef>", "    <BomRef>bom</BomRef>",
                             R"(    <DictionaryUser units="INCH"/>)", R"(    <DictionaryStandard units="MM">)",
                             R"(      <EntryStandard id="A">)", R"(        <Donut shape="ROUND" outerDiameter="2"/>)",
                             "      </EntryStandard>", "    </DictionaryStandard>", "  </Content>",
                             "  <StepRef>late</StepRef>", "</IPC-2581>"}),
              1);
    EXPECT_EQ(document->FunctionMode, "TEST");
    EXPECT_EQ(document->FunctionModeLevel, "3");
    EXPECT_EQ(All(document->StepRef), Texts({"board"}));
    EXPECT_EQ(All(document->LayerRef), Texts({"TOP"}));
    EXPECT_EQ(All(document->BomRef), Texts({"bom"}));
    EXPECT_EQ(document->DictionaryUser->Unit, "INCH");
    EXPECT_EQ(document->DictionaryStandard->Unit, "MM");
    EXPECT_EQ(Entries(*document), Texts({"A:1"}));
    EXPECT_EQ(document.Log(), Texts({"[Content]_Start\n", "[Content]_End\n"}));
}

TEST(Content, LosesOnAReadAndAWriteWhatItDoesNotWrite)
{
    Document document;
    document.Open({"<Content>",
                   R"(<DictionaryColor units="MM">)",
                   R"(<EntryColor id="C">)",
                   R"(<Color id="X" r="12" g="34" b="56"/>)",
                   "</EntryColor>",
                   "</DictionaryColor>",
                   R"(<DictionaryUser units="INCH">)",
                   R"(<EntryUser id="U">)",
                   "</EntryUser>",
                   "</DictionaryUser>",
                   "<StepRef>board</StepRef>",
                   "<LayerRef>TOP</LayerRef>",
                   "<BomRef>bom</BomRef>",
                   "<DictionaryStandard>",
                   R"(<EntryStandard id="A">)",
                   R"(<Oval width="1" height="2"/>)",
                   "</EntryStandard>",
                   "</DictionaryStandard>",
                   R"(<FunctionMode mode="TEST" comment="c"/>)",
                   "</Content>"});
    document->FunctionModeComment = "comment";
    const std::string content = Below(R"(
   <Content>
      <FunctionMode mode="TEST" level=""/>
      <DictionaryStandard units="MM">
         <EntryStandard id="A">
            <Oval width="1.000000" height="2.000000" />
         </EntryStandard>
      </DictionaryStandard>
      <DictionaryColor>
         <EntryColor id="C">
            <Color r="12" g="34" b="56" />
         </EntryColor>
      </DictionaryColor>
   </Content>
)");
    EXPECT_EQ(Written(*document), content);
    const std::string written = document.WrittenAgain();
    EXPECT_NE(written.find("\n" + content + "   <Ecad"), std::string::npos) << written;
}

TEST(Content, LetsAnExceptionLeaveTheDocument)
{
    for (const char * line : {"", "   "}) {
        Document document;
        EXPECT_THROW(document.Open({"<Content>", "<StepRef>board</StepRef>", line, "</Content>"}),
                     CInvalidArgException);
        EXPECT_EQ(All(document->StepRef), Texts({"board"}));
        EXPECT_EQ(document.Log(), Texts({"[Content]_Start\n"}));
    }
}

TEST(Content, AddsASecondFileToTheFirst)
{
    Document document;
    document.Open({"<Content>", "<StepRef>A</StepRef>", "</Content>"});
    document.Open({"<Content>", "<StepRef>B</StepRef>", "</Content>"});
    EXPECT_EQ(All(document->StepRef), Texts({"A", "B"}));
}

}  // namespace
