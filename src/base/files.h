// The file boundary: the one place that knows how files are found, read and written.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/paths.h"
#include "base/text_file.h"

namespace korvane {

bool FileExists(const HeldPath& path);
// The names of the files in a folder, in the order of their code points; none when there is no such folder.
std::vector<std::string> ListFiles(const HeldPath& folder);

// What a file may hold at most, in bytes.
inline constexpr std::size_t kMostRuleFile = std::size_t{16} << 20U;
inline constexpr std::size_t kMostJournal = std::size_t{64} << 20U;

// The bytes of a file, as they stand. `role` says what was looked for, as "a race file". Only a regular file is read:
// IoError for anything else, for one that is larger than `most`, and for what the system refuses.
std::string ReadBytes(const std::filesystem::path& path, std::string_view role, std::size_t most = kMostRuleFile);
// The text of a file: UTF-8 or Windows-1252. Throws as above.
TextFile ReadTextFile(const HeldPath& path, std::string_view role);
// The same for a file that may be a pipe too, which is read to its end; "-" is standard input.
std::string ReadStream(const std::filesystem::path& path, std::string_view role, std::size_t most);

// Whether what is written is on the disk when the call returns, or later: many files are brought there at once by
// `SyncFolder`.
enum class Sync { Now, Later };

// Replaces a file, given by its native path, whole: the content is written beside it and renamed, so an interruption
// leaves the old file. A link is followed; what stood there keeps its permissions; the folder is made where there is
// none. Throws IoError when it can't be written.
void ReplaceFile(const std::filesystem::path& file, std::string_view content, Sync sync = Sync::Now);
// Brings all files of a folder to the disk, and removes what replacements by processes that died have left there. Does
// nothing where the system can't.
void SyncFolder(const std::filesystem::path& folder);

// A file that grows line by line. Each line stands in the file when `Write` returns, and, with `Sync::Now`, on the
// disk.
class LineFile {
  public:
    // Makes the file, with its folder; an empty one that is there is taken. Throws IoError for one that holds something
    // already, and for what the system refuses. With `goesOn` what a file holds is left as it is, to be cut or gone on
    // with.
    LineFile(std::filesystem::path path, Sync sync, bool goesOn = false);
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    const std::filesystem::path& path() const { return path_; }
    // Each throws IoError when the system refuses it. `line` comes without its end.
    void Write(std::string_view line);
    void Write(const std::vector<std::string>& lines);
    // Drops all but so many bytes.
    void CutTo(std::size_t size);
    // What has been written, in bytes.
    std::size_t size() const { return size_; }

  private:
    std::filesystem::path path_;
    Sync sync_;
    std::size_t size_ = 0;
    int descriptor_ = -1;
};

}  // namespace korvane
