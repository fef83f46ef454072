#include "character/summary.h"

namespace korvane {

void ShowSummary(Session& session) {
    RecomputeCharacteristicDMs(session.character);
    session.seams.display->SummaryChanged();
}

}  // namespace korvane
