// A folder that a test fills and that goes with it, and the lines of what stands in its files.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/paths.h"

namespace korvane::test {

// The lines of a text, without their ends.
std::vector<std::string> LinesOf(const std::string& text);

class TempFolder {
  public:
    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // The folder as paths are held, ending in "\".
    HeldPath held() const;
    // Writes the bytes to a file of the folder. Returns its native path.
    std::filesystem::path Write(const std::string& name, std::string_view bytes) const;
    std::string Read(const std::string& name) const;
    // Copies the shipped rule data here.
    void CopyRules() const;

  private:
    std::filesystem::path path_;
};

}  // namespace korvane::test
