// Names for characters that nobody named.
#pragma once

#include <string>

#include "character/KVNDeclare.h"

namespace korvane::play {

// A name rolled for the session's character; it hangs on the character alone, so a life that is lived again gives the
// same. Empty when the data folder has no syllables. Throws FileError for malformed ones.
std::string NameOfCharacter(Session& session);

}  // namespace korvane::play
