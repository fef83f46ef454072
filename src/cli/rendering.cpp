#include "cli/rendering.h"

#include "base/text.h"
#include "output/character_text.h"
#include "output/luck_line.h"
#include "play/naming.h"

namespace korvane::cli {

std::optional<std::string> NameFor(Session& session, const NameOrder& order, Format format,
                                   const std::string& otherwise) {
    if (order.given)
        return order.given;
    if (!order.rolled && format != Format::Html)
        return std::nullopt;
    auto name = play::NameOfCharacter(session);
    return name.empty() ? otherwise : name;
}

std::string Rendered(const Session& session, Format format, const DocumentLabels& labels) {
    if (format == Format::Json)
        return CharacterDocument(session, labels) + "\n";
    auto text = (labels.name ? *labels.name + "\n" : std::string()) + CharacterText(session);
    if (const auto luck = LuckLine(session.character.Luck); labels.luck && !luck.empty())
        AppendAll(text, luck, "\n");
    return text;
}

}  // namespace korvane::cli
