#include <cmath>
#include <iostream>

#include <ipc2581/ipc2581.h>

// The outline of a board, as the path of an SVG picture whose y axis points down.
int main(int argc, char ** argv)
{
    if (argc != 2) {
        return 2;
    }
    CString path(argv[1]);
    CIPC2581_Parser root;
    CIPC2581_XmlLiteReader().OpenPath(path, root);
    const CIPC2581_Polygon & outline = *root.m_Ecad.m_CadData.m_Step.Profile.Polygon;
    const CPointD & begin = *outline.PolyBegin->Point;
    std::cout << "M " << begin.X << " " << 0.0 - begin.Y << "\n";
    for (const auto * const step : ipc2581::Each(outline.PolyStepArray)) {
        const CPointD & end = *step->EndPoint->Point;
        if (step->Type == ipc2581::StepTypes::Segment) {
            std::cout << "L ";
        }
        else {
            const CPointD & center = *step->CenterPoint->Point;
            const double radius = std::hypot(end.X - center.X, end.Y - center.Y);
            // The model has the word of the file turned round: its 1 is a "FALSE". No curve here is more than half a
            // turn.
            std::cout << "A " << radius << " " << radius << " 0 0 " << (step->ClockWise == 1 ? 0 : 1) << " ";
        }
        std::cout << end.X << " " << 0.0 - end.Y << "\n";
    }
}
