#include <atomic>
#include <csignal>
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

// A handler of signals can reach nothing else.
std::atomic<bool> interrupted = false;

// The second time it ends the program at once.
void Interrupt(int signal) {
    interrupted = true;
    std::signal(signal, SIG_DFL);
}

const std::atomic<bool>& Listen() {
    struct sigaction before {};
    struct sigaction action {};
    action.sa_handler = Interrupt;
    // Who started the program may want it to go on.
    if (sigaction(SIGINT, nullptr, &before) == 0 && before.sa_handler != SIG_IGN)
        sigaction(SIGINT, &action, nullptr);
    return interrupted;
}

}  // namespace

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    korvane::cli::Streams streams{std::cin, std::cout, std::cerr, TerminalWidth(), Listen};
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return korvane::cli::RunCommandLine(arguments, streams);
}
