#include <algorithm>
#include <cctype>

#include "base/error.h"
#include "base/nearest.h"
#include "base/text.h"
#include "check/folder.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "cli/terminal_player.h"
#include "output/json_writer.h"

namespace korvane::cli {

namespace {

using check::Finding;
using check::Severity;

std::string_view NameOf(Severity severity) {
    return severity == Severity::Error ? "error" : "warning";
}

// A file's name as a reference: what may not stand in one is spelt by its number.
std::string UriOf(std::string_view file) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string uri;
    for (const char c : file) {
        const auto code = static_cast<unsigned char>(c);
        const bool is_plain = std::isalnum(code) != 0 || c == '-' || c == '.' || c == '_' || c == '~';
        if (is_plain)
            uri += c;
        else
            AppendAll(uri, "%", kDigits.substr(code >> 4U, 1), kDigits.substr(code & 15U, 1));
    }
    return uri;
}

// The line, and a caret under the place.
std::string Snippet(const Finding& finding) {
    if (finding.text.empty())
        return {};
    constexpr std::size_t kMostShown = 100;
    const auto column = static_cast<std::size_t>(finding.column) - 1;
    const auto skipped = column < kMostShown - 20 ? 0 : column - 40;
    const auto shown = FirstCharacters(AfterCharacters(finding.text, skipped), kMostShown);
    return Concat("    ", shown, "\n    ", std::string(column - skipped, ' '), "^\n");
}

void PrintText(const std::vector<Finding>& findings, Streams& streams) {
    for (const auto& finding : findings) {
        streams.out << finding.file << ':' << finding.line << ':' << finding.column << ": "
                    << NameOf(finding.kind->severity) << ": " << finding.message << " [" << finding.kind->code << "]\n";
        if (streams.width > 0)
            streams.out << Snippet(finding);
    }
}

void PrintJson(const std::vector<Finding>& findings, std::ostream& out) {
    std::string text;
    JsonWriter json(text);
    json.BeginArray();
    for (const auto& finding : findings) {
        json.BeginObject();
        json.Key("file").Text(finding.file);
        json.Key("line").Number(finding.line);
        json.Key("column").Number(finding.column);
        json.Key("severity").Text(NameOf(finding.kind->severity));
        json.Key("code").Text(finding.kind->code);
        json.Key("message").Text(finding.message);
        json.EndObject();
    }
    json.EndArray();
    out << text << '\n';
}

void WriteMessage(JsonWriter& json, std::string_view key, std::string_view text) {
    json.Key(key).BeginObject();
    json.Key("text").Text(text);
    json.EndObject();
}

void WriteSarifRules(JsonWriter& json) {
    json.Key("rules").BeginArray();
    for (const auto& kind : check::Kinds()) {
        json.BeginObject();
        json.Key("id").Text(kind.code);
        WriteMessage(json, "fullDescription", kind.explanation);
        json.EndObject();
    }
    json.EndArray();
}

void WriteSarifResult(JsonWriter& json, const Finding& finding) {
    json.BeginObject();
    json.Key("ruleId").Text(finding.kind->code);
    json.Key("level").Text(NameOf(finding.kind->severity));
    WriteMessage(json, "message", finding.message);
    json.Key("locations").BeginArray();
    json.BeginObject();
    json.Key("physicalLocation").BeginObject();
    json.Key("artifactLocation").BeginObject();
    json.Key("uri").Text(UriOf(finding.file));
    json.EndObject();
    json.Key("region").BeginObject();
    json.Key("startLine").Number(finding.line);
    json.Key("startColumn").Number(finding.column);
    json.EndObject();
    json.EndObject();
    json.EndObject();
    json.EndArray();
    json.EndObject();
}

// What tools that show findings in editors and reviews read.
void PrintSarif(const std::vector<Finding>& findings, std::ostream& out) {
    std::string text;
    JsonWriter json(text);
    json.BeginObject();
    json.Key("$schema").Text("https://json.schemastore.org/sarif-2.1.0.json");
    json.Key("version").Text("2.1.0");
    json.Key("runs").BeginArray();
    json.BeginObject();
    json.Key("tool").BeginObject();
    json.Key("driver").BeginObject();
    json.Key("name").Text("korvane-cli check");
    json.Key("version").Text(KORVANE_VERSION);
    WriteSarifRules(json);
    json.EndObject();
    json.EndObject();
    json.Key("results").BeginArray();
    for (const auto& finding : findings)
        WriteSarifResult(json, finding);
    json.EndArray();
    json.EndObject();
    json.EndArray();
    json.EndObject();
    out << text << '\n';
}

int Explain(const std::string& code, Streams& streams) {
    std::vector<std::string_view> known;
    for (const auto& kind : check::Kinds())
        known.push_back(kind.code);
    const auto* const kind = check::KindNamed(code);
    if (kind == nullptr)
        throw UsageError(Concat("there is no kind of mistake ", code, DidYouMean(code, known)));
    WrappedOut out(streams.out, streams.width);
    out.Write(Concat(kind->code, " (", NameOf(kind->severity), "): ", kind->explanation, "\n"));
    return kSuccess;
}

}  // namespace

int Check(const CheckCommand& command, Streams& streams) {
    if (!command.explain.empty())
        return Explain(command.explain, streams);
    const auto findings =
        check::CheckFolder(command.folder.empty() ? ChooseDataLocation("") : HeldPath(command.folder));
    if (command.format == Format::Json)
        PrintJson(findings, streams.out);
    else if (command.format == Format::Sarif)
        PrintSarif(findings, streams.out);
    else
        PrintText(findings, streams);
    const auto fails = [&](const Finding& finding) {
        return command.strict || finding.kind->severity == Severity::Error;
    };
    return std::ranges::any_of(findings, fails) ? kFailure : kSuccess;
}

}  // namespace korvane::cli
