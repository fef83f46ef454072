// The command line, run in this process.
#pragma once

#include <sstream>
#include <string>
#include <vector>

#include "cli/commands.h"

namespace korvane::cli {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

inline Outcome RunCli(const std::vector<std::string>& arguments, const std::string& input = "") {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    Streams streams{in, out, err};
    const int status = RunCommandLine(arguments, streams);
    return {status, out.str(), err.str()};
}

}  // namespace korvane::cli
