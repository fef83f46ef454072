// What shells complete of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace korvane::cli {

// The script by which a shell, "bash", "zsh" or "fish", asks the program itself for what fits.
std::string CompletionScript(const std::string& shell);

// What may stand in the place of the last of the words after the program's name: verbs, options and their values, and
// what the data folder has of races, careers, assignments and templates. Nothing where the shell knows better, as for
// files.
std::vector<std::string> Completions(const CLI::App& app, const std::vector<std::string>& words);

}  // namespace korvane::cli
