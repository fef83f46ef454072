#include "support/every_code_data.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <vector>

#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "engine/codes/chains.h"

namespace korvane::test {

namespace {

namespace fs = std::filesystem;

// The lines of a career file that hold its mishaps and its events that can be rolled, counted from 0, as its reader
// takes them.
constexpr std::size_t kFirstMishap = 48;
constexpr std::size_t kLastMishap = 53;
constexpr std::size_t kFirstEvent = 56;
constexpr std::size_t kLastEvent = 66;

using Careers = std::map<fs::path, std::vector<std::string>>;

// The lines between the two given, of all careers, in turn.
std::vector<std::string*> Entries(Careers& careers, std::size_t first, std::size_t last) {
    std::vector<std::string*> entries;
    for (auto& [path, lines] : careers)
        for (std::size_t i = first; i <= last && i < lines.size(); ++i)
            entries.push_back(&lines[i]);
    return entries;
}

// Gives the entries new codes: the chain's, dealt in turn until each entry has at least one and each code was dealt.
void Deal(const codes::Chain& chain, const std::vector<std::string*>& entries) {
    const auto& rows = chain.rows();
    for (auto* const entry : entries)
        *entry = Concat(SplitFirst(*entry, "/").first, "/");
    for (std::size_t i = 0; i < std::max(rows.size(), entries.size()); ++i)
        AppendAll(*entries[i % entries.size()], rows[i % rows.size()].code, " ");
}

std::vector<std::string> LinesOf(const TextFile& file) {
    std::vector<std::string> lines;
    for (int i = 1; i <= file.lines(); ++i)
        lines.emplace_back(file.line(i));
    return lines;
}

}  // namespace

void WriteEveryCodeData(const std::string& from, const std::string& to) {
    Careers careers;
    for (const auto& name : ListFiles(HeldPath(from))) {
        fs::copy_file(fs::path(from) / name, fs::path(to) / name);
        if (EndsIgnoringCase(name, ".ecf"))
            careers[fs::path(to) / name] = LinesOf(ReadTextFile(Held(fs::path(to) / name), "a career file"));
    }
    if (careers.empty())
        throw IoError((fs::path(from) / "*.ecf").string(), "can't be read as a career file", "no such file");
    Deal(codes::MishapChain(), Entries(careers, kFirstMishap, kLastMishap));
    Deal(codes::EventChain(), Entries(careers, kFirstEvent, kLastEvent));
    for (const auto& [path, lines] : careers) {
        std::string text;
        for (const auto& line : lines)
            AppendAll(text, line, "\n");
        ReplaceFile(path, text, Sync::Later);
    }
}

}  // namespace korvane::test
