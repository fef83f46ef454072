// The program that makes PDF files of pages.
#pragma once

#include <filesystem>
#include <vector>

namespace korvane::cli {

// Runs "korvane-pdf", the one that stands beside this program or else the first on the PATH, on the pages and waits
// for it. Throws UsageError when there is none or it fails.
void MakePdfs(const std::vector<std::filesystem::path>& pages);

}  // namespace korvane::cli
