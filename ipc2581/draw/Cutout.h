#ifndef IPC2581_DRAW_CUTOUT_H
#define IPC2581_DRAW_CUTOUT_H

#include "ipc2581/base/ExPtrArray.h"
#include "ipc2581/base/Export.h"
#include "ipc2581/base/FieldTable.h"
#include "ipc2581/draw/ContourShape.h"

// A closed contour that cuts a hole out of a shape: the Cutout element. Its begin point and steps are those of every
// contour.
class IPC2581_API CIPC2581_Cutout : public ipc2581::detail::ContourShape {
public:
    CIPC2581_Cutout();
    // For a reader: with its parts in the same blocks.
    explicit CIPC2581_Cutout(ipc2581::detail::ObjectBlocks & blocks);
    CIPC2581_Cutout(const CIPC2581_Cutout & other);
    ~CIPC2581_Cutout() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::Import;
    using CIPC2581_DrawObj::operator=;
    // Reads up to the line with "/Cutout" and gives 1. Steps are added to those that are there.
    int Import(CStdioFile & file) override;
    // Written also without steps.
    int Export(CStdioFile & file, int level) override;
    // A true copy with parts of its own.
    virtual CIPC2581_Cutout * clone();
    // Copies begin point and steps by value and leaves the draw type.
    virtual CIPC2581_Cutout & operator=(const CIPC2581_Cutout & other);

    // Empties the cutout. Unlike a polygon it gets a new begin point and a new list of steps: pointers to the old ones
    // are dead.
    void Init();
};

template <>
struct ipc2581::Fields<CIPC2581_Cutout> {
    using Object = CIPC2581_Cutout;
    static constexpr std::string_view Name = "CIPC2581_Cutout";
    static constexpr auto Elements = Pack<>{};
    static constexpr auto Members =
        Pack{Member{"DrawType", &Object::DrawType}, Member{"PolyBegin", &Object::PolyBegin, "PolyBegin"},
             Member{"PolyStepArray", &Object::PolyStepArray}};
};

// A list of cutouts, which it owns, that is a shape itself. No reader makes one, and as a shape it cannot be written:
// its Export gives 0. Its draw type is 24, and 17 for a copy.
class IPC2581_API CIPC2581_CutoutArray : public CIPC2581_DrawObj,
                                         public CExPtrArray<CIPC2581_Cutout *, CIPC2581_Cutout *> {
public:
    CIPC2581_CutoutArray();
    CIPC2581_CutoutArray(const CIPC2581_CutoutArray & other);
    ~CIPC2581_CutoutArray() override;
    using CIPC2581_DrawObj::clone;
    using CIPC2581_DrawObj::operator=;
    virtual CIPC2581_CutoutArray * clone();
    // Deletes the own cutouts and takes a true copy of each of the other's; the draw type stays.
    virtual CIPC2581_CutoutArray & operator=(const CIPC2581_CutoutArray & other);
};

#endif
