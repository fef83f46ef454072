#include "play/wish.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <functional>
#include <span>
#include <utility>

#include "base/nearest.h"
#include "base/text.h"
#include "data/known_names.h"
#include "engine/prison.h"

namespace korvane::play {

namespace {

using Test = std::function<bool(const Session&)>;
using Value = std::function<std::int64_t(const Session&)>;

struct NumberField {
    std::string_view name;
    std::int64_t (*of)(const CharacterRecord& character);
};
constexpr std::array<NumberField, 16> kNumbers = {
    {{"age", [](const CharacterRecord& c) -> std::int64_t { return c.Age; }},
     {"termsTotal", [](const CharacterRecord& c) -> std::int64_t { return c.TermsTotal; }},
     {"termsInCareer", [](const CharacterRecord& c) -> std::int64_t { return c.TermsInCareer; }},
     {"rank", [](const CharacterRecord& c) -> std::int64_t { return c.Rank; }},
     {"graduated", [](const CharacterRecord& c) -> std::int64_t { return c.Graduated; }},
     {"commissioned", [](const CharacterRecord& c) -> std::int64_t { return c.Commissioned; }},
     {"musterRolls", [](const CharacterRecord& c) -> std::int64_t { return c.MusterRolls; }},
     {"musterBonusCount", [](const CharacterRecord& c) -> std::int64_t { return c.MusterBonusCount; }},
     {"allies", [](const CharacterRecord& c) -> std::int64_t { return c.Allies; }},
     {"enemies", [](const CharacterRecord& c) -> std::int64_t { return c.Enemies; }},
     {"contacts", [](const CharacterRecord& c) -> std::int64_t { return c.Contacts; }},
     {"rivals", [](const CharacterRecord& c) -> std::int64_t { return c.Rivals; }},
     {"paroleThreshold", [](const CharacterRecord& c) -> std::int64_t { return c.ParoleThreshold; }},
     {"cash", [](const CharacterRecord& c) -> std::int64_t { return c.Cash; }},
     {"pension", [](const CharacterRecord& c) -> std::int64_t { return c.Pension; }},
     {"medicalDebt", [](const CharacterRecord& c) -> std::int64_t { return std::llrint(std::ceil(c.MedicalDebt)); }}}};

bool HoldsText(std::span<const std::string> lines, std::string_view text) {
    return std::ranges::any_of(lines, [text](const std::string& line) { return EqualsIgnoringCase(line, text); });
}

// Whether a career was served, also one that isn't recorded as such: prison and drifting.
bool Was(const Session& session, std::string_view career) {
    if (HoldsText(session.character.CareersServed.lines(), career) ||
        EqualsIgnoringCase(session.selection.career, career))
        return true;
    const bool is_prison = EqualsIgnoringCase(career, kPrisoner);
    if (!is_prison && !EqualsIgnoringCase(career, kDrifter))
        return false;
    // Nobody is rejected by either.
    return std::ranges::any_of(session.character.History.lines(), [is_prison](std::string_view line) {
        return is_prison ? line.starts_with(kImprisoned)
                         : line.starts_with("Enlist Drifter") || line.starts_with("Transfer to Drifter");
    });
}

struct TextField {
    std::string_view name;
    bool (*is)(const Session& session, std::string_view text);
    std::vector<std::string> Vocabulary::*known;  // null: anything may be asked for
};
constexpr std::array<TextField, 6> kTexts = {
    {{"race", [](const Session& s, std::string_view t) { return EqualsIgnoringCase(s.selection.race, t); },
      &Vocabulary::races},
     {"career", [](const Session& s, std::string_view t) { return EqualsIgnoringCase(s.selection.career, t); },
      &Vocabulary::careers},
     {"assignment", [](const Session& s, std::string_view t) { return EqualsIgnoringCase(s.selection.assignment, t); },
      &Vocabulary::assignments},
     {"was", Was, &Vocabulary::careers},
     {"benefit", [](const Session& s, std::string_view t) { return HoldsText(s.character.Benefits.lines(), t); },
      nullptr},
     {"education", [](const Session& s, std::string_view t) { return EqualsIgnoringCase(s.character.Education, t); },
      nullptr}}};

// A piece of an expression, and where it stands.
struct Token {
    enum class Kind { Word, Quoted, Operator, Open, Close, End };
    Kind kind = Kind::End;
    std::string_view text;
    std::size_t place = 0;
};

bool IsWord(const Token& token, std::string_view word) {
    return token.kind == Token::Kind::Word && EqualsIgnoringCase(token.text, word);
}

bool IsAnyWord(const Token& token) {
    return token.kind == Token::Kind::Word && !IsWord(token, "and") && !IsWord(token, "or") && !IsWord(token, "not");
}

class Reader {
  public:
    Reader(std::string_view text, const Vocabulary& known) : text_(text), known_(known) { Next(); }

    Test All() {
        auto test = Or();
        if (token_.kind != Token::Kind::End)
            Fail(token_.place, Concat(R"("and" or "or" is missing before ")", token_.text, "\""));
        return test;
    }

  private:
    [[noreturn]] void Fail(std::size_t place, const std::string& what) const {
        const auto before = CharacterCount(text_.substr(0, place));
        throw UsageError(Concat("a wish is wrong: ", what, "\n    ", text_, "\n    ", std::string(before, ' '), "^"));
    }

    void Next() {
        const auto start = text_.find_first_not_of(kBlanks, next_);
        if (start == std::string_view::npos) {
            token_ = {Token::Kind::End, {}, text_.size()};
            next_ = text_.size();
            return;
        }
        token_ = At(start);
        next_ = start + token_.text.size() + (token_.kind == Token::Kind::Quoted ? 2 : 0);
    }
    Token At(std::size_t start) const {
        constexpr std::string_view kOperators = "<>=!";
        const auto rest = text_.substr(start);
        if (rest.front() == '"') {
            const auto end = rest.find('"', 1);
            if (end == std::string_view::npos)
                Fail(start, "the quotation has no end");
            return {Token::Kind::Quoted, rest.substr(1, end - 1), start};
        }
        if (rest.front() == '(' || rest.front() == ')')
            return {rest.front() == '(' ? Token::Kind::Open : Token::Kind::Close, rest.substr(0, 1), start};
        if (kOperators.find(rest.front()) != std::string_view::npos)
            return {Token::Kind::Operator, rest.substr(0, rest.size() > 1 && rest[1] == '=' ? 2 : 1), start};
        return {Token::Kind::Word, rest.substr(0, rest.find_first_of(" \t\r\n()<>=!\"")), start};
    }

    Test Or() {
        auto test = And();
        while (IsWord(token_, "or")) {
            Next();
            test = [one = std::move(test), other = And()](const Session& s) { return one(s) || other(s); };
        }
        return test;
    }
    Test And() {
        auto test = Not();
        while (IsWord(token_, "and")) {
            Next();
            test = [one = std::move(test), other = Not()](const Session& s) { return one(s) && other(s); };
        }
        return test;
    }
    Test Not() {
        if (!IsWord(token_, "not"))
            return Bracket();
        if (++depth_ > kDeepest)
            Fail(token_.place, "there are too many times \"not\"");
        Next();
        auto test = Not();
        --depth_;
        return [test = std::move(test)](const Session& s) { return !test(s); };
    }
    Test Bracket() {
        if (token_.kind != Token::Kind::Open)
            return Comparison();
        const auto place = token_.place;
        if (++depth_ > kDeepest)
            Fail(place, "there are too many brackets in each other");
        Next();
        auto test = Or();
        if (token_.kind != Token::Kind::Close)
            Fail(place, "the bracket has no end");
        --depth_;
        Next();
        return test;
    }

    // A name or a text: quoted, or words up to what ends them. A bracket within, as in Gun Combat (Slug), belongs to
    // it.
    std::string Words(const char* what, bool isName) {
        if (token_.kind == Token::Kind::Quoted) {
            auto text = std::string(token_.text);
            Next();
            return text;
        }
        if (!IsAnyWord(token_))
            Fail(token_.place, Concat(what, " is missing"));
        std::string words;
        while (IsAnyWord(token_)) {
            AppendAll(words, words.empty() ? "" : " ", token_.text);
            Next();
            if (isName && token_.kind == Token::Kind::Open)
                AppendAll(words, " ", Speciality());
        }
        return words;
    }
    std::string Speciality() {
        const auto end = text_.find(')', token_.place);
        if (end == std::string_view::npos)
            Fail(token_.place, "the bracket has no end");
        auto text = std::string(text_.substr(token_.place, end + 1 - token_.place));
        next_ = end + 1;
        Next();
        return text;
    }

    Test Comparison() {
        const auto place = token_.place;
        const auto name = Words("a name", true);
        const auto op = token_;
        if (op.kind != Token::Kind::Operator)
            Fail(op.place, Concat("a comparison is missing after \"", name, "\": < <= > >= = !="));
        Next();
        if (const auto* const field = std::ranges::find_if(
                kTexts, [&](const TextField& each) { return EqualsIgnoringCase(each.name, name); });
            field != kTexts.end())
            return CompareText(*field, op);
        return Compare(NumberNamed(name, place), op);
    }

    Test CompareText(const TextField& field, const Token& op) {
        const auto place = token_.place;
        auto text = Words("a text", false);
        const bool wanted = op.text == "=" || op.text == "==";
        if (!wanted && op.text != "!=")
            Fail(op.place, Concat("\"", field.name, "\" is a text; it is = or != another"));
        if (field.known != nullptr && !HoldsText(known_.*field.known, text))
            Fail(place, Concat("no ", field.name == "was" ? "career" : field.name, " is called \"", text, "\"",
                               DidYouMean(text, Views(known_.*field.known))));
        return [is = field.is, text = std::move(text), wanted](const Session& s) { return is(s, text) == wanted; };
    }

    Test Compare(Value value, const Token& op) {
        const std::int64_t number = Number();
        const auto with = [&](auto compare) -> Test {
            return [value = std::move(value), number, compare](const Session& s) { return compare(value(s), number); };
        };
        if (op.text == "<")
            return with(std::less<>());
        if (op.text == "<=")
            return with(std::less_equal<>());
        if (op.text == ">")
            return with(std::greater<>());
        if (op.text == ">=")
            return with(std::greater_equal<>());
        if (op.text == "!=")
            return with(std::not_equal_to<>());
        if (op.text == "=" || op.text == "==")
            return with(std::equal_to<>());
        Fail(op.place, Concat("\"", op.text, "\" is no comparison; there are < <= > >= = !="));
    }
    std::int64_t Number() {
        std::int64_t number = 0;
        const auto text = token_.text;
        const auto* const end = text.data() + text.size();
        const auto read = std::from_chars(text.data(), end, number);
        if (text.empty() || read.ec != std::errc() || read.ptr != end)
            Fail(token_.place, "a whole number is missing");
        Next();
        return number;
    }

    Value NumberNamed(const std::string& name, std::size_t place) const {
        for (const auto& field : kNumbers)
            if (EqualsIgnoringCase(field.name, name))
                return [of = field.of](const Session& s) { return of(s.character); };
        if (HoldsText(known_.characteristics, name))
            return [name](const Session& s) { return CharacteristicOf(s.character, name); };
        if (!IsSkill(name))
            Fail(place, Concat("nothing is called \"", name, "\"", DidYouMean(name, Views(AllNames()))));
        return [name](const Session& s) { return LevelOf(s.character, name); };
    }
    bool IsSkill(const std::string& name) const {
        const auto parts = SplitFirst(name, " (");
        if (parts.second.empty())
            return HoldsText(known_.skills, name);
        const auto bare = parts.first;
        const auto speciality = parts.second.substr(0, parts.second.size() - 1);
        if (!parts.second.ends_with(')'))
            return false;
        return std::ranges::any_of(known_.specialities, [&](const auto& row) {
            const auto is_it = [&](const std::string& each) { return EqualsIgnoringCase(each, speciality); };
            return EqualsIgnoringCase(row.first, bare) && std::ranges::any_of(row.second, is_it);
        });
    }
    static std::int64_t CharacteristicOf(const CharacterRecord& character, const std::string& name) {
        const int slot = CharacteristicSlot(character, name);
        return slot == 0 ? -1 : int{character.Characteristic.all()[static_cast<std::size_t>(slot)]};
    }
    static std::int64_t LevelOf(const CharacterRecord& character, const std::string& name) {
        int best = -1;
        const bool is_special = name.ends_with(')');
        for (const auto* const skill : character.Skills.Held()) {
            const std::string_view held = skill->Name;
            const bool is_it = EqualsIgnoringCase(held, name) ||
                               (!is_special && EqualsIgnoringCase(SplitFirst(held, " (").first, name));
            if (is_it)
                best = std::max<int>(best, skill->Level);
        }
        return best;
    }

    static std::vector<std::string_view> Views(const std::vector<std::string>& names) {
        return {names.begin(), names.end()};
    }
    std::vector<std::string> AllNames() const {
        auto names = known_.skills;
        names.insert(names.end(), known_.characteristics.begin(), known_.characteristics.end());
        for (const auto& field : kNumbers)
            names.emplace_back(field.name);
        for (const auto& field : kTexts)
            names.emplace_back(field.name);
        for (const auto& [skill, specialities] : known_.specialities)
            for (const auto& speciality : specialities)
                names.push_back(Concat(skill, " (", speciality, ")"));
        return names;
    }

    static constexpr std::string_view kBlanks = " \t\r\n";
    static constexpr int kDeepest = 100;

    std::string_view text_;
    const Vocabulary& known_;
    int depth_ = 0;
    std::size_t next_ = 0;
    Token token_;
};

}  // namespace

Wish::Wish(std::string_view text, const Vocabulary& known) : fits_(Reader(text, known).All()) {}

}  // namespace korvane::play
