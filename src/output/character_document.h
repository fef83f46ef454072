// The character document: a finished character as one JSON object.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "character/KVNDeclare.h"
#include "character/seed.h"

namespace korvane {

// The first form is the one whose digest a journal tells, and stays as it is; the second tells more, and its version.
enum class DocumentForm { First, Second };

// What a document says of its character that the character doesn't know.
struct DocumentLabels {
    std::optional<std::string> name;
    std::optional<std::uint64_t> number;  // of the character in its run
    std::optional<Origin> dice;
    std::optional<std::int64_t> backs;  // how often the player went back
    bool luck = false;                  // whether it tells how the checks were rolled
    DocumentForm form = DocumentForm::First;
};

// The document of the session's character, on one line, without a line end; the labels there are come first.
std::string CharacterDocument(const Session& session, const DocumentLabels& labels = {});

}  // namespace korvane
