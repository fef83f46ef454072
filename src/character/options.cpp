#include "character/options.h"

#include <algorithm>

#include "base/text.h"

namespace korvane {

std::string_view CaptionOf(Option option) {
    return kOptionCaptions.at(static_cast<std::size_t>(option));
}

std::optional<Option> OptionOfCaption(std::string_view caption) {
    const auto place = std::ranges::find(kOptionCaptions, caption);
    if (place == kOptionCaptions.end())
        return std::nullopt;
    return static_cast<Option>(place - kOptionCaptions.begin());
}

std::string_view CaptionOf(RollingMethod method) {
    return kMethodCaptions.at(static_cast<std::size_t>(method));
}

std::optional<RollingMethod> MethodOfCaption(std::string_view caption) {
    for (const auto method : {RollingMethod::Roll3Drop1, RollingMethod::True2D})
        if (Trim(CaptionOf(method)) == Trim(caption))
            return method;
    return std::nullopt;
}

}  // namespace korvane
