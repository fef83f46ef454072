// Which row of a rule file is being carried out, for the errors of the rules.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "base/error.h"
#include "base/text_file.h"

namespace korvane {

// Runs `rule`, which carries out a row, a text of `file`: an error of the rules that comes of it names the row's place,
// where none inside it did already. The file stays, as a rule may load another in its place.
template <typename Rule>
decltype(auto) CarryOutRow(std::shared_ptr<const TextFile> file, std::string_view row, const Rule& rule) {
    const auto source = std::move(file);
    try {
        return rule();
    } catch (RuleError& error) {
        if (source != nullptr)
            error.AddPlace(source->name(), source->LineOf(row), row);
        throw;
    }
}

}  // namespace korvane
