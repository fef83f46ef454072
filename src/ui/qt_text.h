// Between the rules' texts, which are UTF-8, and Qt's.
#pragma once

#include <QString>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::ui {

inline QString ToQt(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A text as a button's or a box's caption, where a single "&" would mark a key.
inline QString ToCaption(std::string_view text) {
    return ToQt(text).replace(QLatin1Char('&'), QLatin1String("&&"));
}

}  // namespace korvane::ui
