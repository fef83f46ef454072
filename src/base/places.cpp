#include "base/places.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <system_error>
#include <unistd.h>

#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"

// The environment is walked by index, as the variable's beginning decides.
extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace korvane {

namespace fs = std::filesystem;

namespace {

// The entry of `folder` that is `name` in another case; nothing when there is none.
std::optional<fs::path> FindInOtherCase(const fs::path& folder, const std::string& name) {
    std::error_code error;
    std::optional<fs::path> found;
    for (const auto& entry : fs::directory_iterator(folder.empty() ? fs::path(".") : folder, error)) {
        const auto candidate = entry.path().filename();
        if (EqualsIgnoringCase(candidate.string(), name) && (!found || candidate < *found))
            found = candidate;
    }
    return found;
}

std::string ExactEnvironmentValue(const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): there is one thread
    return value == nullptr ? std::string() : std::string(value);
}

// Returns whether all of the content could be written.
bool WriteBytes(const fs::path& path, std::string_view content) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    file.close();
    return !file.fail();
}

}  // namespace

std::string EnsureTrailingBackslash(std::string_view path) {
    std::string whole(path);
    if (!whole.ends_with('\\'))
        whole += '\\';
    return whole;
}

std::string HeldPath(const fs::path& path) {
    auto held = path.string();
    std::ranges::replace(held, '/', '\\');
    return held;
}

fs::path NativePath(std::string_view path) {
    std::string text(path);
    std::ranges::replace(text, '\\', '/');
    fs::path wanted = fs::path(text).lexically_normal();
    std::error_code error;
    if (wanted.empty() || fs::exists(wanted, error))
        return wanted;
    fs::path found;
    for (const auto& part : wanted) {
        auto next = found / part;
        if (!part.empty() && !fs::exists(next, error))
            if (const auto other = FindInOtherCase(found, part.string()))
                next = found / *other;
        found = next;
    }
    return found;
}

bool FileExists(std::string_view path) {
    std::error_code error;
    return fs::is_regular_file(NativePath(path), error);
}

std::vector<std::string> ListFiles(std::string_view folder) {
    std::vector<std::string> names;
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(NativePath(folder), error)) {
        std::error_code ignored;
        if (entry.is_regular_file(ignored))
            names.push_back(entry.path().filename().string());
    }
    std::ranges::sort(names);
    return names;
}

std::string ReadBytes(const fs::path& path, std::string_view role) {
    std::error_code error;
    std::ifstream file(path, std::ios::binary);
    if (!fs::is_regular_file(path, error) || !file)
        throw FileError(path.string(), 1, role,
                        fs::exists(path, error) ? "something that can't be read" : "no such file");
    std::ostringstream bytes;
    bytes << file.rdbuf();
    if (file.bad())
        throw FileError(path.string(), 1, role, "something that can't be read to its end");
    return bytes.str();
}

TextFile ReadTextFile(std::string_view path, std::string_view role) {
    const auto native = NativePath(path);
    const auto text = DecodeText(ReadBytes(native, role));
    TextFile file{native.string(), {}};
    for (const auto line : SplitAll(text, '\n'))
        file.lines.emplace_back(line.ends_with('\r') ? line.substr(0, line.size() - 1) : line);
    if (file.lines.back().empty())
        file.lines.pop_back();  // what follows the last line end is no line
    return file;
}

void ReplaceFile(const fs::path& file, std::string_view content) {
    std::error_code error;
    const auto target = fs::is_symlink(file, error) ? fs::canonical(file, error) : file;
    auto beside = target;
    beside += "." + std::to_string(getpid()) + ".new";
    if (target.has_parent_path())
        fs::create_directories(target.parent_path(), error);
    if (!WriteBytes(beside, content)) {
        fs::remove(beside, error);
        throw FileError(target.string(), 1, "a file that can be written", "a disk or folder that refuses it");
    }
    fs::rename(beside, target, error);
    if (error) {
        const auto reason = error.message();
        fs::remove(beside, error);
        throw FileError(target.string(), 1, "a file that can be replaced", reason);
    }
}

std::string GetEnvironmentValue(std::string_view name) {
    constexpr int kMostEntries = 1000;
    for (int i = 0; i < kMostEntries && environ[i] != nullptr; ++i) {
        const std::string_view entry = environ[i];
        if (entry.empty())
            break;
        if (BeginsIgnoringCase(entry, name))
            return std::string(Trim(SplitFirst(entry, "=").second));
    }
    return {};
}

std::string ConfigurationFolder() {
    const auto windows = GetEnvironmentValue("WINDIR");
    if (!windows.empty())
        return EnsureTrailingBackslash(HeldPath(windows));
    fs::path folder = ExactEnvironmentValue("XDG_CONFIG_HOME");
    if (folder.empty())
        folder = fs::path(ExactEnvironmentValue("HOME")) / ".config";
    return EnsureTrailingBackslash(HeldPath(folder / "korvane"));
}

std::string ProfileFolder() {
    const auto profile = GetEnvironmentValue("USERPROFILE");
    return profile.empty() ? ExactEnvironmentValue("HOME") : profile;
}

}  // namespace korvane
