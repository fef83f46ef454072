// What shells complete of the command line.
#pragma once

#include <CLI/CLI.hpp>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace korvane::cli {

inline constexpr std::array<std::string_view, 3> kShells = {"bash", "zsh", "fish"};

// The script by which one of the shells asks the program itself for what fits.
std::string CompletionScript(const std::string& shell);

// What may stand in the place of the last of the words after the program's name: verbs, options and their values, and
// what the data folder has of races, careers, assignments and templates. Nothing where the shell knows better, as for
// files. `typed`: the words are as somebody types them, with quotes and backslashes, and with "=" as a word.
std::vector<std::string> Completions(const CLI::App& app, const std::vector<std::string>& words, bool typed);

}  // namespace korvane::cli
