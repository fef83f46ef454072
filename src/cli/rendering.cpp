#include "cli/rendering.h"

#include "base/text.h"
#include "output/character_text.h"
#include "output/luck_line.h"
#include "output/targets/targets.h"
#include "play/naming.h"

namespace korvane::cli {

std::optional<std::string> NameFor(Session& session, const NameOrder& order, Format format,
                                   const std::string& otherwise) {
    if (order.given)
        return order.given;
    if (!order.rolled && !NeedsName(format))
        return std::nullopt;
    auto name = play::NameOfCharacter(session);
    return name.empty() ? otherwise : name;
}

namespace {

std::string Text(const Session& session, const DocumentLabels& labels) {
    auto text = (labels.name ? *labels.name + "\n" : std::string()) + CharacterText(session);
    if (const auto luck = LuckLine(session.character.Luck); labels.luck && !luck.empty())
        AppendAll(text, luck, "\n");
    return text;
}

}  // namespace

std::string Rendered(const Session& session, Format format, DocumentLabels labels) {
    switch (format) {
        case Format::Json:
            labels.form = DocumentForm::Second;
            return CharacterDocument(session, labels) + "\n";
        case Format::FirstJson:
            return CharacterDocument(session, labels) + "\n";
        case Format::Markdown:
            return targets::Markdown(session, labels);
        case Format::Csv:
            return targets::TableRow(session, labels);
        case Format::TabletopJournal:
            return targets::JournalEntryPage(session, labels);
        case Format::TabletopActor:
            return targets::Actor(session, labels);
        default:
            return Text(session, labels);
    }
}

Frame FrameOf(Format format, std::string_view title) {
    Frame frame;
    if (format == Format::Text)
        frame.between = "\n";
    else if (format == Format::Markdown)
        frame.end = "\n";  // or the next one's front matter would make a heading of the last line
    else if (format == Format::Csv)
        frame.before = targets::TableHead();
    else if (format == Format::TabletopJournal)
        frame = {targets::JournalEntryHead(title), ",", targets::JournalEntryEnd(), {}};
    return frame;
}

std::string_view EndingOf(Format format) {
    switch (format) {
        case Format::Text:
            return ".txt";
        case Format::Markdown:
            return ".md";
        case Format::Csv:
            return ".csv";
        default:
            return ".json";
    }
}

bool NeedsName(Format format) {
    return format == Format::Html || format == Format::TabletopJournal || format == Format::TabletopActor;
}

}  // namespace korvane::cli
