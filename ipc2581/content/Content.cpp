#include "ipc2581/content/Content.h"

#include <utility>

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;

CIPC2581_Content::CIPC2581_Content() : CIPC2581_Content(WithoutParts())
{
    Init();
}

CIPC2581_Content::CIPC2581_Content(const CIPC2581_Content & other) : CIPC2581_Content()
{
    operator=(other);
}

CIPC2581_Content::~CIPC2581_Content()
{
    delete DictionaryStandard;
    delete DictionaryUser;
    delete m_DictionaryColor;
}

int CIPC2581_Content::Export(CStdioFile & file, int level)
{
    WriteLine(file, "%s<Content>\n", Indent(level + 1));
    if (Export_FunctionMode(file, level + 1) == 0 || Export_Dictionary(file, level + 1) == 0) {
        return 0;
    }
    WriteLine(file, "%s</Content>\n", Indent(level + 1));
    return 1;
}

int CIPC2581_Content::Export_FunctionMode(CStdioFile & file, int level)
{
    WriteLine(file, "%s<FunctionMode mode=\"%s\" level=\"%s\"/>\n", Indent(level + 1), FunctionMode, FunctionModeLevel);
    return 1;
}

int CIPC2581_Content::Export_Dictionary(CStdioFile & file, int level)
{
    return ExportParts(file, level, DictionaryStandard, m_DictionaryColor) ? 1 : 0;
}

CIPC2581_Content & CIPC2581_Content::operator=(const CIPC2581_Content & other)
{
    if (this != &other) {
        FunctionMode = other.FunctionMode;
        FunctionModeLevel = other.FunctionModeLevel;
        FunctionModeComment = other.FunctionModeComment;
        *DictionaryStandard = *other.DictionaryStandard;
        *DictionaryUser = *other.DictionaryUser;
    }
    return *this;
}

void CIPC2581_Content::Init()
{
    FunctionMode = "";
    FunctionModeLevel = "";
    FunctionModeComment = "";
    ResetOrCreate(DictionaryStandard);
    ResetOrCreate(DictionaryUser);
    ResetOrCreate(m_DictionaryColor);
}

void CIPC2581_Content::ReadFunctionMode(CArray<CString, CString> & tokens)
{
    ScanAttributes(tokens, {Text("mode", FunctionMode), Text("level", FunctionModeLevel)});
}

void CIPC2581_Content::ReadStepRef(CString & token)
{
    StepRef.Add(MidDataUse(token));
}

void CIPC2581_Content::ReadLayerRef(CString & token)
{
    LayerRef.Add(MidDataUse(token));
}

void CIPC2581_Content::ReadBomRef(CString & token)
{
    BomRef.Add(MidDataUse(token));
}

void CIPC2581_Content::ReadDictionaryStandard(CArray<CString, CString> & tokens, CStdioFile & file)
{
    ScanAttributes(tokens, {Text("units", DictionaryStandard->Unit)});
    LineCycle line(file, LineForm::Trimmed);
    while (line.Next()) {
        if (line.Opens("EntryStandard")) {
            auto entry = New<CIPC2581_Content_DictionaryStandard_EntryStandard>(file);
            ScanAttributes(line.Tokens(), {Text("id", entry->EntryStandardId)});
            entry->Import(file);
            Append(*DictionaryStandard->EntryArray, std::move(entry));
        }
        else if (line.Holds("/DictionaryStandard")) {
            return;
        }
    }
}

void CIPC2581_Content::ReadDictionaryUser(CArray<CString, CString> & tokens, CStdioFile & file)
{
    const TokenList list(tokens);
    for (int index = 0; index < list.Size(); ++index) {
        if (list[index].find("units") != std::string_view::npos) {
            DictionaryUser->Unit = list.Value(index);
        }
        // The token on which the value has ended: a slash in it closes the element on its opening line.
        if (list[index].find('/') != std::string_view::npos) {
            return;
        }
    }
    LineCycle line(file, LineForm::Trimmed);
    while (line.Next() && !line.Holds("/DictionaryUser")) {
    }
}

void CIPC2581_Content::ReadDictionaryColor(CArray<CString, CString> & tokens, CStdioFile & file)
{
    // The colour dictionary has no unit: hosts rely on finding it in the standard dictionary.
    ScanAttributes(tokens, {Text("units", DictionaryStandard->Unit)});
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("EntryColor")) {
            auto entry = New<CIPC2581_Content_DictionaryColor_EntryColor>(file);
            ScanAttributes(line.Tokens(), {Text("id", entry->EntryColorId)});
            entry->EntryColorAdd(file);
            Append(*m_DictionaryColor->Entry, std::move(entry));
        }
        else if (line.Holds("/DictionaryColor")) {
            return;
        }
    }
}
