#ifndef IPC2581_CONTENT_ENTRYCOLOR_H
#define IPC2581_CONTENT_ENTRYCOLOR_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"

// An EntryColor element: a named colour. The components are plain numbers with no range check.
class IPC2581_API CIPC2581_Content_DictionaryColor_EntryColor : public CIPC2581_XmlDataAdd_Function {
public:
    CString EntryColorId;
    int Red = 0;
    int Green = 0;
    int Blue = 0;
    CString ColorRefID;  // an id on the Color line; read and never written

    CIPC2581_Content_DictionaryColor_EntryColor();
    CIPC2581_Content_DictionaryColor_EntryColor(const CIPC2581_Content_DictionaryColor_EntryColor & other);
    ~CIPC2581_Content_DictionaryColor_EntryColor() override;
    // Writes the entry with its Color line and gives 1.
    virtual int Export(CStdioFile & file, int level);

    CIPC2581_Content_DictionaryColor_EntryColor & operator=(const CIPC2581_Content_DictionaryColor_EntryColor & other);
    CIPC2581_Content_DictionaryColor_EntryColor * clone() const;
    void Init();
    // Reads up to the line with "/EntryColor"; of several Color lines the last one counts.
    void EntryColorAdd(CStdioFile & file);

    CString GetEntryColorId() const { return EntryColorId; }
    void SetEntryColorId(CString id) { EntryColorId = id; }
    CString GetColorRefID() const { return ColorRefID; }
    void SetColorRefID(CString id) { ColorRefID = id; }
    int GetRed() const { return Red; }
    void SetRed(int red) { Red = red; }
    int GetGreen() const { return Green; }
    void SetGreen(int green) { Green = green; }
    int GetBlue() const { return Blue; }
    void SetBlue(int blue) { Blue = blue; }
};

template <>
struct ipc2581::Fields<CIPC2581_Content_DictionaryColor_EntryColor> {
    using Object = CIPC2581_Content_DictionaryColor_EntryColor;
    static constexpr std::string_view Name = "CIPC2581_Content_DictionaryColor_EntryColor";
    static constexpr auto EntryColor = Element<Object>("EntryColor", Text("id", &Object::EntryColorId));
    static constexpr auto Color = Element<Object>("Color", Integer("r=", &Object::Red), Integer("g=", &Object::Green),
                                                  Integer("b=", &Object::Blue), Text("id=", &Object::ColorRefID));
    static constexpr auto Elements = Pack{EntryColor, Color};
    static constexpr auto Members =
        Pack{Member{"EntryColorId", &Object::EntryColorId}, Member{"Red", &Object::Red},
             Member{"Green", &Object::Green}, Member{"Blue", &Object::Blue}, Member{"ColorRefID", &Object::ColorRefID}};
};

// The entries of a colour dictionary, owned and copied one by one.
class IPC2581_API CIPC2581_Content_DictionaryColor_EntryColorArray
    : public CExPtrArray<CIPC2581_Content_DictionaryColor_EntryColor *, CIPC2581_Content_DictionaryColor_EntryColor *> {
public:
    CIPC2581_Content_DictionaryColor_EntryColorArray();
    CIPC2581_Content_DictionaryColor_EntryColorArray(const CIPC2581_Content_DictionaryColor_EntryColorArray & other);
    ~CIPC2581_Content_DictionaryColor_EntryColorArray() override;

    virtual int Export(CStdioFile & file, int level);

    CIPC2581_Content_DictionaryColor_EntryColorArray &
    operator=(const CIPC2581_Content_DictionaryColor_EntryColorArray & other);
    CIPC2581_Content_DictionaryColor_EntryColorArray * clone() const;
    // Deletes the entries.
    void Init();
};

#endif
