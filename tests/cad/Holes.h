#ifndef IPC2581_TESTS_CAD_HOLES_H
#define IPC2581_TESTS_CAD_HOLES_H

#include <array>
#include <string>

#include <gtest/gtest.h>

#include "ipc2581/cad/Hole.h"
#include "tests/support/Files.h"

namespace ipc2581::tests {

// Name, diameter, plating status and the two tolerances.
using HoleTexts = std::array<std::string, 5>;

inline HoleTexts TextsOf(const CIPC2581_Ecad_CadData_Step_Hole & hole)
{
    return {Str(hole.Name), Str(hole.Diameter), Str(hole.PlatingStatus), Str(hole.PlusTol), Str(hole.MinusTol)};
}

inline void ExpectAt(const CIPC2581_Ecad_CadData_Step_Hole & hole, double x, double y)
{
    EXPECT_EQ(hole.Location.GetX(), x);
    EXPECT_EQ(hole.Location.GetY(), y);
}

}  // namespace ipc2581::tests

#endif
