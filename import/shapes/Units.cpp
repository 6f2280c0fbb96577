#include "import/shapes/Units.h"

namespace ipc2581 {

double MillimetresOf(std::string_view units)
{
    return units == "MILLIMETER" ? 1.0
           : units == "INCH"     ? 25.4
           : units == "MICRON"   ? 0.001
           : units == "MIL"      ? 0.0254
                                 : 0.0;
}

double UnitScale(std::string_view from, std::string_view to)
{
    const double own = MillimetresOf(from);
    const double other = MillimetresOf(to);
    return from == to || own == 0.0 || other == 0.0 ? 1.0 : own / other;
}

}  // namespace ipc2581
