#include "support/temp_folder.h"

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "base/files.h"

namespace korvane::test {

namespace fs = std::filesystem;

std::vector<std::string> LinesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

TempFolder::TempFolder() {
    auto pattern = (fs::temp_directory_path() / "korvane-test-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    path_ = pattern;
}

TempFolder::~TempFolder() {
    std::error_code error;
    fs::remove_all(path_, error);
}

HeldPath TempFolder::held() const {
    return EnsureTrailingBackslash(Held(path_));
}

fs::path TempFolder::Write(const std::string& name, std::string_view bytes) const {
    const auto file = path_ / name;
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file;
}

std::string TempFolder::Read(const std::string& name) const {
    std::ifstream file(path_ / name, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

void TempFolder::CopyRules() const {
    fs::copy(KORVANE_RULES, path_, fs::copy_options::recursive);
}

}  // namespace korvane::test
