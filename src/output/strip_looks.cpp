#include "output/strip_svg.h"

namespace korvane {

namespace {

constexpr auto* kDarkOnBlock = "#14202B";
constexpr auto* kLightOnBlock = "#FFFFFF";

// What the looks share. The fills were chosen by machine so that any two of them, and the prison's grey, lie as far
// apart as can be for each kind of colour-blindness, and show on white and on near black.
StripLook CommonLook() {
    StripLook look;
    look.blocks = {{"#1E57AB", kLightOnBlock}, {"#DEBE5E", kDarkOnBlock}, {"#8EDDA3", kDarkOnBlock},
                   {"#DC6861", kDarkOnBlock},  {"#6F93EF", kDarkOnBlock}, {"#7F6291", kLightOnBlock},
                   {"#973A4A", kLightOnBlock}, {"#795213", kLightOnBlock}};
    look.prison = {"#B4BAC1", kDarkOnBlock};
    look.fontFamily = "'DejaVu Sans', Verdana, Arial, sans-serif";
    return look;
}

}  // namespace

StripLook LightLook() {
    auto look = CommonLook();
    look.ground = "#FFFFFF";
    look.text = {"#1B2430"};
    look.dim = {"#55606C"};
    look.line = {"#C3CCD5"};
    look.marks = {"#1E57AB", "#B3261E", "#4A545F", "#4A545F", "#1B7A43", "#8A2F8F"};
    return look;
}

StripLook DarkLook() {
    auto look = CommonLook();
    look.ground = "#13171C";
    look.text = {"#E2E7EC"};
    look.dim = {"#A8B2BD"};
    look.line = {"#46525F"};
    look.marks = {"#8AB8F0", "#F2938A", "#C3CCD5", "#C3CCD5", "#7FD0A0", "#DDA3E2"};
    return look;
}

StripLook PageLook() {
    auto look = CommonLook();
    look.height = 170;
    look.scales = true;
    look.text = {"currentColor"};
    look.dim = {"currentColor", 0.8};
    look.line = {"currentColor", 0.3};
    // At 3 to 1 at least on white and on near black alike.
    look.marks = {"#3B7DD0", "#D6483C", "#7C8691", "#7C8691", "#2B9759", "#B35FC2"};
    return look;
}

}  // namespace korvane
