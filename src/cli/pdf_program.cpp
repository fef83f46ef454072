#include "cli/pdf_program.h"

#include <array>
#include <cerrno>
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

void MakePdf(const fs::path& page) {
    auto program = ProgramToRun();
    auto argument = fs::absolute(page).string();
    const std::array<char*, 3> arguments = {program.data(), argument.data(), nullptr};
    pid_t process = 0;
    const int error = posix_spawnp(&process, program.c_str(), nullptr, nullptr, arguments.data(), environ);
    if (error == ENOENT)
        throw UsageError(Concat(kProgram, ", which makes PDF files, is neither beside this program nor on the PATH"));
    if (error != 0)
        throw UsageError(Concat(program, " can't be started: ", std::system_category().message(error)));
    if (const int status = ExitStatus(process); status != 0)
        throw UsageError(Concat(kProgram, " made no PDF file of ", argument, " (exit status ", status, ")"));
}

}  // namespace korvane::cli
