// The page that leads to several characters' pages.
#pragma once

#include <string>
#include <string_view>

#include "character/KVNDeclare.h"

namespace korvane::cli {

class PageIndex {
  public:
    // Lists the page of the session's character, a file beside the index.
    void Add(const Session& session, std::string_view name, const std::string& file);
    std::string Page() const;

  private:
    std::string rows_;
};

}  // namespace korvane::cli
