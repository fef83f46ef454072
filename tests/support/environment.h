// The process's environment, as a test wants it.
#pragma once

#include <string>
#include <unistd.h>
#include <vector>

namespace korvane::test {

// While it lives, the process's environment consists of the given entries.
class Environment {
  public:
    explicit Environment(std::vector<std::string> entries) : entries_(std::move(entries)), before_(environ) {
        for (auto& entry : entries_)
            pointers_.push_back(entry.data());
        pointers_.push_back(nullptr);
        environ = pointers_.data();
    }
    ~Environment() { environ = before_; }
    Environment(const Environment&) = delete;
    Environment& operator=(const Environment&) = delete;

  private:
    std::vector<std::string> entries_;
    std::vector<char*> pointers_;
    char** before_;
};

// What `read` gives in such an environment.
template <typename Read>
auto InEnvironment(const std::vector<std::string>& entries, const Read& read) {
    const Environment environment(entries);
    return read();
}

}  // namespace korvane::test
