#include "ipc2581/content/Content.h"

#include <utility>

#include "ipc2581/base/OwnedPart.h"
#include "ipc2581/base/lines/AttributeScan.h"
#include "ipc2581/base/lines/LineCycle.h"
#include "ipc2581/base/lines/LineTemplate.h"

using namespace ipc2581::detail;
using ipc2581::Fields;

namespace {

constexpr const AttributeRow & Units = RowsOf<Fields<CIPC2581_Content_DictionaryUser>::DictionaryUser>[0];

// Takes the unit; true if the line closes the element as well.
bool ReadOpeningLine(const TokenList & tokens, CIPC2581_Content_DictionaryUser & dictionary)
{
    bool isClosed = false;
    TakeOrPassOver(tokens, [&] {
        for (int index = 0; index < tokens.Size() && !isClosed; ++index) {
            if (Units.word.IsIn(tokens[index])) {
                TellTaken(tokens, Units, index);
                dictionary.Unit = tokens.Value(index);
            }
            // The token on which the value has ended.
            isClosed = HoldsText(tokens[index], "/");
        }
    });
    return isClosed;
}

}  // namespace

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
    ScanAttributes<Fields<CIPC2581_Content>::FunctionMode>(tokens, *this);
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
    ScanAttributes<Fields<CIPC2581_Content_DictionaryStandard>::DictionaryStandard>(tokens, *DictionaryStandard);
    LineCycle line(file, LineForm::Trimmed);
    while (line.Next()) {
        if (line.Opens("EntryStandard")) {
            auto entry = NewFrom<Fields<CIPC2581_Content_DictionaryStandard_EntryStandard>::EntryStandard>(line, file);
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
    if (ReadOpeningLine(tokens, *DictionaryUser)) {
        return;
    }
    LineCycle line(file, LineForm::Trimmed);
    while (line.Next() && !line.Holds("/DictionaryUser")) {
    }
}

void CIPC2581_Content::ReadDictionaryColor(CArray<CString, CString> & tokens, CStdioFile & file)
{
    // The colour dictionary has no unit: hosts rely on finding it in the standard dictionary.
    ScanAttributes<Fields<CIPC2581_Content_DictionaryStandard>::DictionaryColor>(tokens, *DictionaryStandard);
    LineCycle line(file);
    while (line.Next()) {
        if (line.Opens("EntryColor")) {
            auto entry = NewFrom<Fields<CIPC2581_Content_DictionaryColor_EntryColor>::EntryColor>(line, file);
            entry->EntryColorAdd(file);
            Append(*m_DictionaryColor->Entry, std::move(entry));
        }
        else if (line.Holds("/DictionaryColor")) {
            return;
        }
    }
}
