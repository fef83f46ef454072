// What the commands of the command line take: their options, and what these must hold.
#pragma once

#include <CLI/CLI.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "cli/commands.h"

namespace korvane::cli {

// What the options of the command line say before they are checked against what there is.
struct RawOptions {
    std::string method;
    std::vector<std::string> options;
    std::optional<std::string> player;
    std::string format = "text";
};

// Each tells the library what a command takes.
void AddGenerate(CLI::App& app, GenerateCommand& command, RawOptions& raw);
void AddPlay(CLI::App& app, PlayCommand& command, RawOptions& raw);
void AddReplay(CLI::App& app, ReplayCommand& command, RawOptions& raw);
void AddVerify(CLI::App& app, VerifyCommand& command, RawOptions& raw);
void AddCheck(CLI::App& app, CheckCommand& command, RawOptions& raw);
void AddBalance(CLI::App& app, BalanceCommand& command, RawOptions& raw);
void AddOdds(CLI::App& app, OddsCommand& command, RawOptions& raw);
void AddNames(CLI::App& app, ListCommand& command);
void AddWorlds(CLI::App& app, ListCommand& command);
void AddCompletion(CLI::App& app, CompletionCommand& command);
void AddNewCareer(CLI::App& app, NewCareerCommand& command);
void AddCodes(CLI::App& app, CodesCommand& command);

// Each completes a command by what was said raw, after the parsing, as the texts list what there is. Throws UsageError.
void Settle(GenerateCommand& command, const RawOptions& raw);
void Settle(PlayCommand& command, const RawOptions& raw);
void Settle(ReplayCommand& command, const RawOptions& raw);
void Settle(VerifyCommand& command, const RawOptions& raw);
void Settle(CheckCommand& command, const RawOptions& raw);
void Settle(BalanceCommand& command, const RawOptions& raw);
void Settle(OddsCommand& command, const RawOptions& raw);

}  // namespace korvane::cli
