#include "play/verify.h"

#include <algorithm>

#include "base/encoding.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/data_choice.h"
#include "output/json_writer.h"
#include "play/kept_journal.h"

namespace korvane::cli {

namespace {

using play::Proof;
using play::Verdict;

int StatusOf(Verdict verdict, bool demandsProof) {
    return verdict == Verdict::Proved || (verdict == Verdict::Consistent && !demandsProof) ? kSuccess : kDivergence;
}

std::string OriginText(const journal::Start& start) {
    if (!start.dice || !start.dice->seed)
        return {};
    return Concat("seed ", Printable(start.dice->seed->given(), 80), ", character ", start.dice->number);
}

std::string TextOf(const journal::Journal& journal, const Proof& proof) {
    auto text = Concat(Printable(journal.name, 300), ": ", NameOf(proof.verdict));
    if (proof.line)
        AppendAll(text, " (line ", *proof.line, ")");
    if (!proof.why.empty())
        AppendAll(text, ": ", proof.why);
    if (proof.verdict == Verdict::Proved)
        AppendAll(text, ": ", OriginText(journal.tape.start));
    if (journal.tape.backs > 0)
        AppendAll(text, "; went back ", journal.tape.backs, journal.tape.backs == 1 ? " time" : " times");
    return text + "\n";
}

std::string JsonOf(const journal::Journal& journal, const Proof& proof) {
    std::string text;
    JsonWriter json(text);
    json.BeginObject();
    json.Key("journal").Text(journal.name);
    json.Key("verdict").Text(NameOf(proof.verdict));
    if (proof.line)
        json.Key("line").Number(*proof.line);
    if (!proof.why.empty())
        json.Key("why").Text(proof.why);
    json.Key("files").TextArray(proof.files);
    if (const auto& dice = journal.tape.start.dice; dice && dice->seed) {
        json.Key("seed").Given(*dice->seed);
        json.Key("number").Unsigned(dice->number);
    }
    json.Key("backs").Number(journal.tape.backs);
    json.EndObject();
    return text + "\n";
}

int VerifyOne(Session& session, const VerifyCommand& command, const std::string& path, Streams& streams) {
    try {
        const auto journal = play::ReadJournalFile(path);
        const auto proof = play::Verify(session, journal, command.seed);
        streams.out << (command.format == Format::Json ? JsonOf(journal, proof) : TextOf(journal, proof));
        return StatusOf(proof.verdict, command.seed.has_value());
    } catch (const FileError& error) {
        streams.err << "korvane-cli: file error: " << error.what() << '\n';
        return kFailure;
    }
}

}  // namespace

int Verify(const VerifyCommand& command, Streams& streams) {
    Display display;
    Session session(DataFolder(ChooseDataLocation(command.data), DataFolder::Reading::Once),
                    {nullptr, nullptr, &display});
    bool failed = false;
    int status = kSuccess;
    for (const auto& path : command.journals) {
        const int one = VerifyOne(session, command, path, streams);
        failed |= one == kFailure;
        status = std::max(status, one);
    }
    return failed ? kFailure : status;
}

}  // namespace korvane::cli
