// The page that leads to several characters' pages.
#pragma once

#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane::cli {

// The row of the page of the session's character, a file beside the index.
std::string IndexRow(const Session& session, std::string_view name, const std::string& file);

class PageIndex {
  public:
    void Add(const std::string& row) { rows_ += row; }
    std::string Page() const;

  private:
    std::string rows_;
};

}  // namespace korvane::cli
