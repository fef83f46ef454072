#include "base/files.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <charconv>
#include <csignal>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

#include "base/checksum.h"
#include "base/descriptor.h"
#include "base/digest.h"
#include "base/encoding.h"
#include "base/error.h"
#include "base/text.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

std::string CannotRead(std::string_view role) {
    return Concat("can't be read as ", role);
}

std::string TooLarge(std::size_t most) {
    return Concat("it holds more than ", most >> 20U, " MB");
}

int Opened(const fs::path& path, int flags, mode_t mode = 0666) {
    return open(path.c_str(), flags | O_CLOEXEC, mode);
}

// Writes all of the bytes; false, with errno, when the system refuses.
bool WriteAll(int descriptor, std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
    }
    return true;
}

// Files that are no disk's, as pipes, can't be synced: that is no error.
bool SyncFile(int descriptor) {
    return fsync(descriptor) == 0 || errno == EINVAL || errno == ENOTSUP || errno == EROFS;
}

fs::path FolderOf(const fs::path& file) {
    return file.has_parent_path() ? file.parent_path() : fs::path(".");
}

// The file that a link leads to, in the end, be it there or not; the file itself when it is no link.
fs::path LinkTarget(fs::path file) {
    constexpr int kMostLinks = 40;
    std::error_code error;
    for (int i = 0; i < kMostLinks && fs::is_symlink(fs::symlink_status(file, error)); ++i) {
        const auto target = fs::read_symlink(file, error);
        file = target.is_absolute() ? target : file.parent_path() / target;
    }
    return file;
}

// What is written beside a file before it replaces it. The name is short, so that any name fits that the system takes,
// and says which process is at it, where processes have the same numbers, and that it is this run of it.
constexpr std::string_view kBesidePrefix = ".korvane-";
constexpr std::string_view kBesideEnding = ".new";

std::string Place() {
    std::array<char, 256> host{};
    gethostname(host.data(), host.size() - 1);
    std::error_code error;
    const auto numbers = fs::read_symlink("/proc/self/ns/pid", error).string();
    return Concat(Checksum(host.data(), Checksum(numbers)) % 1'000'000);
}

std::string ThisRun() {
    static const auto run = Concat(std::random_device()() % 1'000'000);
    return run;
}

fs::path Beside(const fs::path& file) {
    static std::atomic<unsigned> number = 0;  // two files at once are two files
    return FolderOf(file) / Concat(kBesidePrefix, Place(), "-", getpid(), "-", ThisRun(), "-", ++number, kBesideEnding);
}

// Whether a name is that of such a file, by a process that is no more. Of other places nothing is known.
bool IsStale(std::string_view name) {
    if (!name.starts_with(kBesidePrefix) || !name.ends_with(kBesideEnding))
        return false;
    const auto parts = SplitAll(name.substr(kBesidePrefix.size()), '-');
    pid_t process = 0;
    if (parts.size() != 4 || parts[0] != Place() ||
        std::from_chars(parts[1].data(), parts[1].data() + parts[1].size(), process).ec != std::errc() || process <= 0)
        return false;
    return process == getpid() ? parts[2] != ThisRun() : kill(process, 0) != 0 && errno == ESRCH;
}

void RemoveStale(const fs::path& folder) {
    std::error_code error;
    for (const auto& entry : fs::directory_iterator(folder, error))
        if (IsStale(entry.path().filename().string()))
            fs::remove(entry.path(), error);
}

void SyncDirectory(const fs::path& folder) {
    if (const Descriptor directory(Opened(folder, O_RDONLY | O_DIRECTORY)); directory)
        fsync(directory.number());
}

// Writes the content to a new file with the permissions of the one that it will replace. Returns the error number, or
// 0.
int WriteNew(const fs::path& file, const fs::path& like, std::string_view content, Sync sync) {
    Descriptor out(Opened(file, O_WRONLY | O_CREAT | O_EXCL));
    if (!out)
        return errno;
    struct stat old {};
    if (stat(like.c_str(), &old) == 0)
        fchmod(out.number(), old.st_mode & 07777U);
    const bool written = WriteAll(out.number(), content) && (sync == Sync::Later || SyncFile(out.number()));
    return written && out.Close() ? 0 : errno;
}

}  // namespace

bool FileExists(const HeldPath& path) {
    std::error_code error;
    return fs::is_regular_file(NativePath(path), error);
}

std::vector<std::string> ListFiles(const HeldPath& folder) {
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

namespace {

// All that a file has, which is expected to be so much. `name` is for messages.
std::string ReadAll(const fs::path& path, const std::string& name, std::string_view role, std::size_t most,
                    std::size_t expected) {
    const Descriptor file(Opened(path, O_RDONLY));
    if (!file)
        throw IoError(name, CannotRead(role), errno);
    std::string bytes;
    for (;;) {
        const auto before = bytes.size();
        bytes.resize(before + expected + 1);
        const auto got = read(file.number(), bytes.data() + before, expected + 1);
        const int reason = errno;
        bytes.resize(before + static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
        if (got < 0 && reason != EINTR)
            throw IoError(name, CannotRead(role), reason);
        if (bytes.size() > most)
            throw IoError(name, CannotRead(role), TooLarge(most));
        if (got == 0)
            return bytes;
    }
}

}  // namespace

std::string ReadBytes(const fs::path& path, std::string_view role, std::size_t most) {
    // Whether it is a file is asked before it is opened: opening a pipe would wait for a writer.
    std::error_code error;
    const auto status = fs::status(path, error);
    if (error)
        throw IoError(path.string(), CannotRead(role), error.value());
    if (!fs::is_regular_file(status))
        throw IoError(path.string(), CannotRead(role), fs::is_directory(status) ? "it is a folder" : "it is no file");
    const auto size = fs::file_size(path, error);
    if (!error && size > most)
        throw IoError(path.string(), CannotRead(role), TooLarge(most));
    return ReadAll(path, path.string(), role, most, error ? 0 : static_cast<std::size_t>(size));
}

TextFile ReadTextFile(const HeldPath& path, std::string_view role) {
    const auto native = NativePath(path);
    auto bytes = ReadBytes(native, role);
    auto digest = Sha256Text(bytes);
    return {native.string(), DecodeText(std::move(bytes)), std::move(digest)};
}

std::string ReadStream(const fs::path& path, std::string_view role, std::size_t most) {
    std::error_code error;
    const bool is_input = path == "-";
    const auto status = fs::status(path, error);
    if (!is_input && !fs::is_fifo(status) && !fs::is_character_file(status))
        return ReadBytes(path, role, most);
    constexpr std::size_t kPiece = 65536;
    return is_input ? ReadAll("/dev/stdin", "standard input", role, most, kPiece)
                    : ReadAll(path, path.string(), role, most, kPiece);
}

void ReplaceFile(const fs::path& file, std::string_view content, Sync sync) {
    const auto target = LinkTarget(file);
    const auto folder = FolderOf(target);
    std::error_code error;
    if (target == file)
        fs::create_directories(folder, error);  // what can't be made shows when the file is written
    if (fs::is_directory(target, error))
        throw IoError(file.string(), "can't be written", EISDIR);
    if (sync == Sync::Now)
        RemoveStale(folder);
    const auto beside = Beside(target);
    if (const int reason = WriteNew(beside, target, content, sync); reason != 0) {
        fs::remove(beside, error);
        throw IoError(file.string(), "can't be written", reason);
    }
    fs::rename(beside, target, error);
    if (error) {
        const int reason = error.value();
        fs::remove(beside, error);
        throw IoError(file.string(), "can't be written", reason);
    }
    if (sync == Sync::Now)
        SyncDirectory(folder);
}

void SyncFolder(const fs::path& folder) {
    RemoveStale(folder);
    if (const Descriptor directory(Opened(folder, O_RDONLY | O_DIRECTORY)); directory)
        syncfs(directory.number());
}

LineFile::LineFile(fs::path path, Sync sync, bool goesOn) : path_(std::move(path)), sync_(sync) {
    std::error_code error;
    fs::create_directories(FolderOf(path_), error);
    if (const auto kind = fs::status(path_, error).type(); kind == fs::file_type::fifo || kind == fs::file_type::socket)
        throw IoError(path_.string(), "can't be written", "it is no file");  // opening it would wait for a reader
    descriptor_ = open(path_.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
    if (descriptor_ < 0)
        throw IoError(path_.string(), "can't be written", errno);
    struct stat status {};
    const bool is_file = fstat(descriptor_, &status) == 0 && S_ISREG(status.st_mode);
    if (is_file && !goesOn && status.st_size > 0) {
        close(descriptor_);
        throw IoError(path_.string(), "can't be written", "it holds something already; name another file");
    }
    if (is_file)
        size_ = static_cast<std::size_t>(status.st_size);
    if (sync_ == Sync::Now)
        SyncDirectory(FolderOf(path_));
}

LineFile::~LineFile() {
    close(descriptor_);
}

void LineFile::Write(std::string_view line) {
    Write(std::vector{std::string(line)});
}

void LineFile::Write(const std::vector<std::string>& lines) {
    std::string text;
    for (const auto& line : lines)
        AppendAll(text, line, "\n");
    if (!WriteAll(descriptor_, text) || (sync_ == Sync::Now && !SyncFile(descriptor_)))
        throw IoError(path_.string(), "can't be written", errno);
    size_ += text.size();
}

void LineFile::CutTo(std::size_t size) {
    // What isn't a file on a disk keeps what was written.
    if (ftruncate(descriptor_, static_cast<off_t>(size)) != 0 && errno != EINVAL)
        throw IoError(path_.string(), "can't be written", errno);
    size_ = size;
}

}  // namespace korvane
