// The file boundary: the one place that knows how files are found, read and replaced, and what the environment says.
// Paths are held as the configuration file holds them: "\" separates. They become native paths only here.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace korvane {

std::string EnsureTrailingBackslash(std::string_view path);

// The native path's form with "\", as paths are held.
std::string HeldPath(const std::filesystem::path& path);
// The native form of a held path ("/" is taken too). A name that exists only in another case is found in that case.
std::filesystem::path NativePath(std::string_view path);

bool FileExists(std::string_view path);
// The names of the files in a folder, in the order of their code points; none when there is no such folder.
std::vector<std::string> ListFiles(std::string_view folder);

// A text file that was read: its native name for messages, and its lines without their ends.
struct TextFile {
    std::string name;
    std::vector<std::string> lines;
};

// Reads a text file: UTF-8 or Windows-1252, lines ending in CR LF or LF. `role` says what was looked for, as "a race
// file". Throws FileError when there is no such file.
TextFile ReadTextFile(std::string_view path, std::string_view role);
// The bytes of a file, as they stand. Throws FileError as above.
std::string ReadBytes(const std::filesystem::path& path, std::string_view role);

// Replaces a file, given by its native path, whole: the content is written beside it and renamed, so an interruption
// leaves the old file. Throws FileError when it can't be written.
void ReplaceFile(const std::filesystem::path& file, std::string_view content);

// The value of the first variable whose entry begins with `name`, without regard to case, trimmed; "" when there is
// none. At most 1000 entries are looked at.
std::string GetEnvironmentValue(std::string_view name);

// The folder of the configuration file, ending in "\": the Windows folder where there is one, else the program's folder
// in the user's configuration folder.
std::string ConfigurationFolder();

// The user's profile folder, as a native path: what USERPROFILE says, else HOME; "" with neither.
std::string ProfileFolder();

}  // namespace korvane
