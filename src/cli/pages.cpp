#include "cli/pages.h"

#include <cstdint>
#include <utility>

#include "base/encoding.h"
#include "base/error.h"
#include "base/files.h"
#include "base/text.h"
#include "character/summary.h"
#include "cli/pdf_program.h"
#include "output/character_document.h"
#include "output/names.h"

namespace korvane::cli {

namespace {

constexpr std::string_view kDefaultTemplate = "template.htm";

// A template: a bare name is one of the data folder, else of the working folder.
HeldPath TemplatePath(const HeldPath& location, const std::string& wanted) {
    const HeldPath path(wanted);
    if (path.text().find('\\') != std::string::npos)
        return path;
    if (FileExists(location + wanted))
        return location + wanted;
    if (FileExists(path))
        return path;
    auto message = Concat("unknown template ", Quoted(wanted), " (",
                          (NativePath(location) / std::filesystem::path(wanted)).string(), ": no such file)");
    const auto known = TemplateNames(location);
    for (const auto& name : known)
        AppendAll(message, &name == &known.front() ? "; there are: " : ", ", name);
    throw UsageError(message);
}

std::uint64_t Checksum(std::string_view text) {
    std::uint64_t sum = 0xCBF29CE484222325U;
    for (const char c : text)
        sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
    return sum;
}

// A text that shows as it is: what HTML would take for a mark is spelt out.
std::string Escaped(std::string_view text) {
    std::string escaped;
    for (const char c : DecodeWord(std::string(text))) {
        if (c == '&')
            escaped += "&amp;";
        else if (c == '<')
            escaped += "&lt;";
        else if (c == '>')
            escaped += "&gt;";
        else
            escaped += c;
    }
    return escaped;
}

std::string IndexRow(const Session& session, std::string_view name, const std::string& file) {
    const auto& character = session.character;
    const auto shown = IsBlank(name) ? std::string_view("Nameless") : name;
    const auto label = RankLabel(character, session.assignment);
    const auto rank = SplitFirst(label, ": ").second;
    return Concat(R"(<tr><th scope="row"><a href=")", file, R"(">)", Escaped(shown), "</a></th><td>",
                  Escaped(Concat(Trim(session.selection.career), ", ", Trim(session.selection.assignment))),
                  "</td><td>", character.Age, "</td><td>", character.TermsTotal, "</td><td>", Escaped(rank),
                  "</td></tr>\n");
}

constexpr std::string_view kIndexHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>Characters</title>
<style>
:root { color-scheme: light dark; }
body { font: 1rem/1.5 sans-serif; max-width: 60rem; margin: 2rem auto; padding: 0 1rem; }
table { border-collapse: collapse; width: 100%; }
th, td { border-bottom: 1px solid; padding: 0.3rem 0.6rem; text-align: left; }
</style>
</head>
<body>
<main>
<h1>Characters</h1>
)";

constexpr std::string_view kTableHead = R"(<table>
<thead>
<tr><th scope="col">Name</th><th scope="col">Career</th><th scope="col">Age</th><th scope="col">Terms</th>
<th scope="col">Rank</th></tr>
</thead>
<tbody>
)";

// Has a session roll other dice as long as it lives.
class DiceGuard {
  public:
    DiceGuard(Session& session, Dice& dice) : session_(session), before_(std::exchange(session.seams.dice, &dice)) {}
    ~DiceGuard() { session_.seams.dice = before_; }
    DiceGuard(const DiceGuard&) = delete;
    DiceGuard& operator=(const DiceGuard&) = delete;

  private:
    Session& session_;
    Dice* before_;
};

}  // namespace

PageWriter::PageWriter(Session& session, const PageOrder& order, std::filesystem::path folder)
    : session_(session),
      order_(order),
      folder_(std::move(folder)),
      template_(ReadTemplate(TemplatePath(
          session.data.location(), order.templateName.empty() ? std::string(kDefaultTemplate) : order.templateName))) {
    session.masterSkills = LoadMasterSkills(session.data.location());
}

// A rolled name hangs on the character alone, so that a journal's replay gives the same page.
std::string PageWriter::NameOf(std::string_view defaultName) {
    if (order_.name)
        return *order_.name;
    SeededDice dice(Checksum(CharacterDocument(session_)), 0);
    const DiceGuard guard(session_, dice);
    const auto name = RollNameOf(session_);
    return name.empty() ? std::string(defaultName) : name;
}

void PageWriter::WriteAs(std::string_view name, const std::string& stem, Sync sync) const {
    const auto file = folder_ / (stem + ".htm");
    ReplaceFile(file, Page(template_, session_, name), sync);
    if (order_.pdf)
        MakePdf(file);
}

void PageWriter::Write(std::string_view defaultName) {
    const auto name = NameOf(defaultName);
    WriteAs(name, LettersOnly(name), Sync::Now);
}

void PageWriter::WriteListed(std::string_view defaultName, const std::string& stem) {
    const auto name = NameOf(defaultName);
    WriteAs(name, stem, Sync::Later);
    rows_ += IndexRow(session_, name, stem + ".htm");
}

void PageWriter::WriteIndex() const {
    const auto list =
        rows_.empty() ? "<p>No character was finished.</p>\n" : Concat(kTableHead, rows_, "</tbody>\n</table>\n");
    ReplaceFile(folder_ / "index.htm", Concat(kIndexHead, list, "</main>\n</body>\n</html>\n"), Sync::Later);
    SyncFolder(folder_);
}

}  // namespace korvane::cli
