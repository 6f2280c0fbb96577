#ifndef IPC2581_CAD_FEATURES_H
#define IPC2581_CAD_FEATURES_H

#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/base/PointD.h"
#include "ipc2581/base/XmlDataAdd_Function.h"
#include "ipc2581/base/platform/CStdioFile.h"
#include "ipc2581/draw/DrawObj.h"

// A Features element: a location and the shapes drawn there, in file order.
class IPC2581_API CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features : public CIPC2581_XmlDataAdd_Function {
public:
    CPointD Location;
    CIPC2581_DrawObjArray DrawObjArray;

    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features();
    // The shapes of a copy are those of a copied list of shapes.
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features(
        const CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features & other);
    CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features &
    operator=(const CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features & other);
    ~CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features() override;
    virtual int Export(CStdioFile & file, int level);

    // Reads polylines, lines, contours and circles up to the line with "/Features". Lines of other elements meet the
    // same tests: a LineDesc outside a shape makes a line.
    void FeaturesAdd(CStdioFile & file);
};

template <>
struct ipc2581::Fields<CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features> {
    using Object = CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features;
    static constexpr std::string_view Name = "CIPC2581_Ecad_CadData_Step_LayerFeature_Set_Features";
    static constexpr auto Location = PointElement("Location", &Object::Location);
    static constexpr auto Elements = Pack{Location};
    static constexpr auto Members =
        Pack{Member{"Location", &Object::Location}, Member{"DrawObjArray", &Object::DrawObjArray}};
};

#endif
