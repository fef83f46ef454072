// Where the parts of a strip's picture stand.
#pragma once

#include <vector>

#include "output/strip_svg.h"

namespace korvane {

struct Box {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;
};

struct StripLayout {
    std::vector<double> edges;  // where each block begins, and where the last one ends
    double blocksTop = 0;
    double blocksHeight = 0;
    double agesLine = 0;  // the base line of the ages
    double curvesTop = 0;
    double curvesHeight = 0;  // 0: there is no room for curves
    std::vector<Box> marks;   // squares, in the order of the strip's marks
};

// Lays a strip of one block at least out. No mark lies on another.
StripLayout LayOut(const LifeStrip& strip, const StripLook& look);

// Moves places apart, as little as that takes, until there is a gap between any two and all lie between the limits, if
// those leave the room. Places keep their order and may be given in any.
void MoveApart(std::vector<double>& places, double gap, double least, double most);

}  // namespace korvane
