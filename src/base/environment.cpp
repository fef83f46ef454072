#include "base/environment.h"

#include <cstdlib>
#include <unistd.h>

#include "base/text.h"

// The environment is walked by index, as the variable's beginning decides.
extern char** environ;  // NOLINT(readability-redundant-declaration)

namespace korvane {

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

std::string ExactEnvironmentValue(const char* name) {
    const char* value = std::getenv(name);  // NOLINT(concurrency-mt-unsafe): nothing changes the environment
    return value == nullptr ? std::string() : std::string(value);
}

}  // namespace korvane
