#include <iostream>
#include <sys/ioctl.h>
#include <unistd.h>

#include "cli/commands.h"

namespace {

int TerminalWidth() {
    winsize size{};
    const bool is_terminal = isatty(STDOUT_FILENO) != 0 && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
    return is_terminal ? size.ws_col : 0;
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    korvane::cli::Streams streams{std::cin, std::cout, std::cerr, TerminalWidth()};
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return korvane::cli::RunCommandLine(arguments, streams);
}
