#include "base/text_file.h"

#include <algorithm>
#include <functional>
#include <utility>

namespace korvane {

TextFile::TextFile(std::string name, std::string text, std::string digest)
    : name_(std::move(name)), text_(std::move(text)), digest_(std::move(digest)) {
    for (auto end = text_.find('\n'); end != std::string::npos; end = text_.find('\n', end + 1))
        ends_.push_back(static_cast<std::uint32_t>(end));
    if (!text_.empty() && text_.back() != '\n')
        ends_.push_back(static_cast<std::uint32_t>(text_.size()));
}

std::string_view TextFile::line(int number) const {
    const auto i = static_cast<std::size_t>(number - 1);
    const std::size_t begin = i == 0 ? 0 : ends_.at(i - 1) + std::size_t{1};
    const auto line = std::string_view(text_).substr(begin, ends_.at(i) - begin);
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

int TextFile::LineOf(std::string_view part) const {
    const std::less<> before;
    const auto* const begin = text_.data();
    if (part.data() == nullptr || before(part.data(), begin) || before(begin + text_.size(), part.data()))
        return 0;
    const auto place = static_cast<std::uint32_t>(part.data() - begin);
    const auto line = std::ranges::lower_bound(ends_, place);
    return line == ends_.end() ? 0 : static_cast<int>(line - ends_.begin()) + 1;
}

}  // namespace korvane
