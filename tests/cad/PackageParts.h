#ifndef IPC2581_TESTS_CAD_PACKAGEPARTS_H
#define IPC2581_TESTS_CAD_PACKAGEPARTS_H

#include <cstdint>
#include <memory>

#include <gtest/gtest.h>

#include "ipc2581/base/platform/Afx.h"
#include "ipc2581/cad/LandPattern.h"
#include "ipc2581/cad/Package.h"
#include "ipc2581/cad/PackageOutline.h"
#include "ipc2581/cad/SilkScreen.h"
#include "ipc2581/cad/SilkScreenTarget.h"
#include "ipc2581/cad/Target.h"
#include "ipc2581/draw/Outline.h"
#include "ipc2581/draw/PolyStep.h"
#include "tests/support/Files.h"
#include "tests/support/Models.h"
#include "tests/support/Text.h"

namespace ipc2581::tests {

using LandPattern = CIPC2581_Ecad_CadData_Step_Package_LandPattern;
using Package = CIPC2581_Ecad_CadData_Step_Package;
using PackageOutline = CIPC2581_Ecad_CadData_Step_Package_Outline;
using SilkScreen = CIPC2581_Ecad_CadData_Step_Package_SilkScreen;
using SilkScreenTarget = CIPC2581_Ecad_CadData_Step_Package_SilkScreen_Target;
using Target = CIPC2581_Ecad_CadData_Step_Target;

inline Texts Read(PackageOutline & outline, LineList lines)
{
    Lines file(lines);
    EXPECT_EQ(outline.Import(file), 1);
    return file.Rest();
}

inline Texts Read(Package & package, LineList lines)
{
    Lines file(lines);
    package.PackageAdd(file);
    return file.Rest();
}

inline Texts Read(LandPattern & pattern, LineList lines)
{
    Lines file(lines);
    pattern.LandPatternAdd(file);
    return file.Rest();
}

inline Texts Read(SilkScreen & silkScreen, LineList lines)
{
    Lines file(lines);
    silkScreen.SilkScreenAdd(file);
    return file.Rest();
}

inline Texts Read(SilkScreenTarget & target, LineList lines)
{
    Lines file(lines);
    target.TargetAdd(file);
    return file.Rest();
}

template <typename Holder>
std::int64_t Steps(const Holder & holder)
{
    return holder.Polygon->PolyStepArray->GetSize();
}

inline void AddStep(const CIPC2581_Outline & outline, double x, double y)
{
    auto step = std::make_unique<CIPC2581_PolyStep>();
    step->SetEndPointX(x);
    step->SetEndPointY(y);
    outline.Polygon->PolyStepArray->Add(step.release());
}

// A target that gives 0 behind its first lines: a plain shape cannot be written.
inline Target * TargetThatStops()
{
    auto target = std::make_unique<Target>();
    target->DrawObjArray->Add(new CIPC2581_DrawObj);
    return target.release();
}

inline const char * const kTarget = Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
   </Target>
)");

inline const char * const kStoppedTarget = Below(R"(
   <Target>
      <Location x="0.000000" y="0.000000" />
)");

}  // namespace ipc2581::tests

#endif
