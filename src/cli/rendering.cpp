#include "cli/rendering.h"

#include "output/character_document.h"
#include "output/character_text.h"

namespace korvane::cli {

std::string Rendered(const Session& session, Format format) {
    return format == Format::Json ? CharacterDocument(session) + "\n" : CharacterText(session);
}

}  // namespace korvane::cli
