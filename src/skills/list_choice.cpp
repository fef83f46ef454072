#include "skills/list_choice.h"

#include <algorithm>

#include "base/text.h"
#include "skills/grant.h"

namespace korvane {

namespace {

ListMarks DrawItems(Session& session, int maximum, int minimum, const ListItems& items) {
    ListMarks marks;
    for (int counter = maximum; counter <= minimum; ++counter) {
        auto item = static_cast<std::size_t>(Roll(session, 1, items.size()) - 1);
        while (marks[item])
            item = static_cast<std::size_t>(Roll(session, 1, items.size()) - 1);
        marks.set(item);
    }
    return marks;
}

}  // namespace

ListItems::ListItems(std::span<const std::string_view> items) {
    for (const auto item : items)
        Add(item);
}

void ListItems::Add(std::string_view item) {
    if (count_ == kMost)
        throw RuleError(RuleError::Kind::Subscript, Concat("a list has more than ", kMost, " items"));
    const auto end = texts_.begin() + static_cast<std::ptrdiff_t>(count_++);
    // Lists mostly come sorted.
    const bool last = end == texts_.begin() || !LessIgnoringCase(item, *(end - 1));
    const auto place = last ? end : std::upper_bound(texts_.begin(), end, item, LessIgnoringCase);
    std::move_backward(place, end, end + 1);
    *place = item;
}

ListMarks AskForItems(Session& session, int maximum, int minimum, std::string_view prompt, const ListItems& items) {
    ListMarks marks;
    for (const int item :
         session.seams.player->Select({prompt, std::max(maximum, 1), std::max(minimum, 1), items.texts()}))
        marks.set(static_cast<std::size_t>(item - 1));
    return marks;
}

void SelectSkillsFromList(Session& session, int maximum, int minimum, std::string_view prompt, const ListItems& items) {
    // The marks are taken before the first grant, as a grant may put another question with a list of its own.
    const auto marks = session.Automatic() ? DrawItems(session, maximum, minimum, items)
                                           : AskForItems(session, maximum, minimum, prompt, items);
    for (std::size_t i = 0; i < items.texts().size(); ++i)
        if (marks[i]) {
            GrantSkill(session, items.texts()[i]);
            session.choice.LastSkillGranted = items.texts()[i];
        }
}

}  // namespace korvane
