// The program that makes a PDF file of a page.
#pragma once

#include <filesystem>

namespace korvane::cli {

// Runs "korvane-pdf", the one that stands beside this program or else the first on the PATH, on a page and waits for
// it. Throws UsageError when there is none or it fails.
void MakePdf(const std::filesystem::path& page);

}  // namespace korvane::cli
