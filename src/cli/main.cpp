#include <iostream>

#include "cli/commands.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    korvane::cli::Streams streams{std::cin, std::cout, std::cerr};
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    return korvane::cli::RunCommandLine(arguments, streams);
}
