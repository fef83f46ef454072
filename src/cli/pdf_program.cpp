#include "cli/pdf_program.h"

#include <algorithm>
#include <cerrno>
#include <span>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

#include "base/error.h"
#include "base/text.h"

namespace korvane::cli {

namespace {

namespace fs = std::filesystem;

constexpr const char* kProgram = "korvane-pdf";

// A path, or the bare name that is looked for on the PATH.
std::string ProgramToRun() {
    std::error_code error;
    const auto beside = fs::read_symlink("/proc/self/exe", error).parent_path() / kProgram;
    return fs::is_regular_file(beside, error) ? beside.string() : kProgram;
}

// Waits for a process. Returns its exit status; -1 when it was stopped or can't be waited for.
int ExitStatus(pid_t process) {
    int status = 0;
    while (waitpid(process, &status, 0) < 0)
        if (errno != EINTR)
            return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace

namespace {

void RunOn(const std::string& program, std::span<const fs::path> pages) {
    std::vector<std::string> words = {program};
    words.reserve(pages.size() + 1);
    for (const auto& page : pages)
        words.push_back(fs::absolute(page).string());
    std::vector<char*> arguments;
    arguments.reserve(words.size() + 1);
    for (auto& word : words)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error == ENOENT)
        throw UsageError(Concat(kProgram, ", which makes PDF files, is neither beside this program nor on the PATH"));
    if (error != 0)
        throw UsageError(Concat(program, " can't be started: ", std::system_category().message(error)));
    if (const int status = ExitStatus(process); status != 0)
        throw UsageError(Concat(kProgram, " made no PDF file of ", words[1],
                                pages.size() > 1 ? " or a page after it" : "", " (exit status ", status, ")"));
}

}  // namespace

void MakePdfs(const std::vector<fs::path>& pages) {
    constexpr std::size_t kMostAtOnce = 200;
    const auto program = ProgramToRun();
    for (std::span<const fs::path> rest = pages; !rest.empty();) {
        const auto now = rest.first(std::min(rest.size(), kMostAtOnce));
        RunOn(program, now);
        rest = rest.subspan(now.size());
    }
}

}  // namespace korvane::cli
