// The life in one picture, drawn: an SVG of a strip, for windows and pages, plain enough for small renderers.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "output/life_strip.h"

namespace korvane {

// A colour as SVG has it, "#1E57AB" or "currentColor", and how much of it.
struct Ink {
    std::string colour;
    double opacity = 1;
};

struct BlockColours {
    std::string fill;
    std::string text;  // reads on the fill
};

struct StripLook {
    double width = 680;  // in CSS pixels, as all measures
    double height = 180;
    bool scales = false;  // as wide as there is room, in place of the pixels
    std::string ground;   // behind it all; empty for none
    Ink text;
    Ink dim;                           // ages and the values that the curves begin with
    Ink line;                          // ticks and what goes on from them
    std::vector<BlockColours> blocks;  // one career after the other takes the next; at least one
    BlockColours prison;
    std::array<std::string, kMarkKinds> marks;  // a colour for each kind
    std::string fontFamily;
    double fontSize = 11;
};

// Ready looks: for light windows, for dark ones, and for pages, which may be paper or dark and have their own text
// colour.
StripLook LightLook();
StripLook DarkLook();
StripLook PageLook();

// Where in the picture something of the history is.
struct StripSpot {
    double x = 0;
    double y = 0;
    double w = 0;
    double h = 0;
    std::size_t line = 0;  // its place in the history
    std::string words;
};

struct StripPicture {
    std::string svg;               // all on one line
    std::vector<StripSpot> spots;  // of the blocks and the marks; none lies on another
};

// Draws a strip: marks above, the terms with their ages, the curves below where there is height for them. Any size
// does; it looks well from 300 pixels by 120 on.
StripPicture DrawStrip(const LifeStrip& strip, const StripLook& look);

// One mark alone as a whole SVG of this size and colour.
std::string MarkSvg(MarkKind kind, int size, std::string_view colour);

}  // namespace korvane
