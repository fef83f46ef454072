#include "cli/page_index.h"

#include "base/encoding.h"
#include "base/text.h"
#include "output/summary_texts.h"
#include "output/svg_text.h"

namespace korvane::cli {

namespace {

// A text that shows as it is.
std::string Shown(std::string_view text) {
    return Escaped(DecodeWord(std::string(text)));
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

}  // namespace

std::string IndexRow(const Session& session, std::string_view name, const std::string& file) {
    const auto& character = session.character;
    const auto shown = IsBlank(name) ? std::string_view("Nameless") : name;
    const auto rank = RankText(character, session.assignment);
    std::string row;
    AppendAll(row, R"(<tr><th scope="row"><a href=")", file, R"(">)", Shown(shown), "</a></th><td>",
              Shown(Concat(Trim(session.selection.career), ", ", Trim(session.selection.assignment))), "</td><td>",
              character.Age, "</td><td>", character.TermsTotal, "</td><td>", Shown(rank), "</td></tr>\n");
    return row;
}

std::string PageIndex::Page() const {
    const auto list =
        rows_.empty() ? "<p>No character was finished.</p>\n" : Concat(kTableHead, rows_, "</tbody>\n</table>\n");
    return Concat(kIndexHead, list, "</main>\n</body>\n</html>\n");
}

}  // namespace korvane::cli
