// How the program looks where the toolkit's defaults don't read well.
#pragma once

#include <QPalette>

namespace korvane::ui {

// Makes tick boxes and radio buttons stand out on a dark ground.
void MendPalette();

}  // namespace korvane::ui
