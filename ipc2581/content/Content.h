#ifndef IPC2581_CONTENT_CONTENT_H
#define IPC2581_CONTENT_CONTENT_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/WithoutParts.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CStringArray.h"
#include "ipc2581/content/DictionaryColor.h"
#include "ipc2581/content/DictionaryStandard.h"
#include "ipc2581/content/DictionaryUser.h"

// The Content element: function mode, names of steps, layers and bills of materials, and three dictionaries. Reading
// and writing it are not inverse: the reference lists, the user dictionary and the comment are never written.
class IPC2581_API CIPC2581_Content : public CIPC2581_XmlDataAdd_Function {
public:
    CString FunctionMode;
    CString FunctionModeLevel;    // kept as text
    CString FunctionModeComment;  // for hosts and the report: neither read nor written
    // The dictionaries are owned and never null.
    CIPC2581_Content_DictionaryStandard * DictionaryStandard = nullptr;
    CIPC2581_Content_DictionaryUser * DictionaryUser = nullptr;
    // One entry a line of the file; an empty one where the name did not stand in text form.
    CStringArray StepRef;
    CStringArray LayerRef;
    CStringArray BomRef;
    CStringArray SpareRef;  // nothing fills or reads it
    CIPC2581_Content_DictionaryColor * m_DictionaryColor = nullptr;

    CIPC2581_Content();
    CIPC2581_Content(const CIPC2581_Content & other);
    ~CIPC2581_Content() override;
    virtual int Export(CStdioFile & file, int level);
    virtual int Export_FunctionMode(CStdioFile & file, int level);
    // Writes the standard and the colour dictionary.
    virtual int Export_Dictionary(CStdioFile & file, int level);

    // Copies the three texts, the standard and the user dictionary. The colour dictionary and the lists of names stay
    // as they are: hosts rely on it.
    CIPC2581_Content & operator=(const CIPC2581_Content & other);
    // Empties texts and dictionaries, each in its own way, and leaves the lists of names.
    void Init();

    CString GetFunctionMode() const { return FunctionMode; }
    void SetFunctionMode(CString mode) { FunctionMode = mode; }
    CString GetFunctionModeLevel() const { return FunctionModeLevel; }
    void SetFunctionModeLevel(CString level) { FunctionModeLevel = level; }
    CString GetFunctionModeComment() const { return FunctionModeComment; }
    void SetFunctionModeComment(CString comment) { FunctionModeComment = comment; }
    // The getters give the owned dictionaries; the setters copy, and the argument stays the caller's.
    CIPC2581_Content_DictionaryStandard * GetDictionaryStandard() const { return DictionaryStandard; }
    void SetDictionaryStandard(CIPC2581_Content_DictionaryStandard * dictionary) { *DictionaryStandard = *dictionary; }
    CIPC2581_Content_DictionaryUser * GetDictionaryUser() const { return DictionaryUser; }
    void SetDictionaryUser(CIPC2581_Content_DictionaryUser * dictionary) { *DictionaryUser = *dictionary; }
    CIPC2581_Content_DictionaryColor * DictionaryColor() const { return m_DictionaryColor; }
    void DictionaryColor(CIPC2581_Content_DictionaryColor * dictionary) { *m_DictionaryColor = *dictionary; }

    // Takes mode and level from the token list of the FunctionMode line.
    void ReadFunctionMode(CArray<CString, CString> & tokens);
    // Append the text between the first ">" and the first "<" of the token, whose first and last character are
    // overwritten with blanks: the name of <StepRef>name</StepRef>, and the empty text for every other form.
    void ReadStepRef(CString & token);
    void ReadLayerRef(CString & token);
    void ReadBomRef(CString & token);
    // Take the unit from the token list of the opening line and read on up to the closing line.
    void ReadDictionaryStandard(CArray<CString, CString> & tokens, CStdioFile & file);
    // Keeps nothing but the unit. An opening line that closes itself ends it.
    void ReadDictionaryUser(CArray<CString, CString> & tokens, CStdioFile & file);
    // The unit goes to the standard dictionary.
    void ReadDictionaryColor(CArray<CString, CString> & tokens, CStdioFile & file);

private:
    explicit CIPC2581_Content(ipc2581::detail::WithoutParts /*tag*/) {}
};

template <>
struct ipc2581::Fields<CIPC2581_Content> {
    using Object = CIPC2581_Content;
    static constexpr std::string_view Name = "CIPC2581_Content";
    static constexpr auto FunctionMode =
        Element<Object>("FunctionMode", Text("mode", &Object::FunctionMode), Text("level", &Object::FunctionModeLevel));
    static constexpr auto Elements = Pack{FunctionMode};
    static constexpr auto Members =
        Pack{Member{"FunctionMode", &Object::FunctionMode},
             Member{"FunctionModeLevel", &Object::FunctionModeLevel},
             Member{"FunctionModeComment", &Object::FunctionModeComment},
             Member{"DictionaryStandard", &Object::DictionaryStandard, "DictionaryStandard"},
             Member{"DictionaryUser", &Object::DictionaryUser, "DictionaryUser"},
             Member{"StepRef", &Object::StepRef, "StepRef"},
             Member{"LayerRef", &Object::LayerRef, "LayerRef"},
             Member{"BomRef", &Object::BomRef, "BomRef"},
             Member{"SpareRef", &Object::SpareRef},
             Member{"m_DictionaryColor", &Object::m_DictionaryColor, "DictionaryColor"}};
};

#endif
