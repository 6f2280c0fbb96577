#ifndef IPC2581_CAD_LAYER_H
#define IPC2581_CAD_LAYER_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/base/platform/CString.h"

// A Layer element. The words of the file are kept as they stand.
class IPC2581_API CIPC2581_Ecad_CadData_Layer {
public:
    int m_nLayerId = 0;  // a host's own; no reader sets it
    CString name;
    CString layerFunction;
    CString side;
    CString polarity;  // "POSITIVE" in a new layer

    CIPC2581_Ecad_CadData_Layer();
    // For a reader: with its text in the same blocks.
    explicit CIPC2581_Ecad_CadData_Layer(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Ecad_CadData_Layer(const CIPC2581_Ecad_CadData_Layer & other);
    CIPC2581_Ecad_CadData_Layer & operator=(const CIPC2581_Ecad_CadData_Layer & other);
    virtual ~CIPC2581_Ecad_CadData_Layer();
    // Writes the layer as an opening and a closing line and gives 1.
    virtual int Export(CStdioFile & file, int level);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Layer> {
    using Object = CIPC2581_Ecad_CadData_Layer;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Layer";
    static constexpr auto Layer =
        Element<Object>("Layer", Text("name=", &Object::name), Text("layerFunction=", &Object::layerFunction),
                        Text("side=", &Object::side), Text("polarity=", &Object::polarity));
    static constexpr auto Elements = Pack{Layer};
    static constexpr auto Members = Pack{Member{"m_nLayerId", &Object::m_nLayerId}, Member{"name", &Object::name},
                                         Member{"layerFunction", &Object::layerFunction}, Member{"side", &Object::side},
                                         Member{"polarity", &Object::polarity}};
};

// The layers of the board, in file order; owned.
class IPC2581_API CIPC2581_Ecad_CadData_LayerArray
    : public CExPtrArray<CIPC2581_Ecad_CadData_Layer *, CIPC2581_Ecad_CadData_Layer *> {
public:
    CIPC2581_Ecad_CadData_LayerArray();
    ~CIPC2581_Ecad_CadData_LayerArray() override;

    virtual int Export(CStdioFile & file, int level);

    // The first layer with this m_nLayerId; null if there is none. Only hosts give the ids a meaning.
    CIPC2581_Ecad_CadData_Layer * FindLayer(int id) const;
};

#endif
