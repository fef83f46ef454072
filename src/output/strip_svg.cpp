#include "output/strip_svg.h"

#include <algorithm>

#include "base/text.h"
#include "output/strip_layout.h"
#include "output/svg_text.h"

namespace korvane {

namespace {

// ---- Marks

constexpr double kMarkBox = 12;  // the marks' paths are drawn in a square of this size

// Chevrons, a drop, a grating, the way out of one, a heart, a cross that strikes out.
constexpr std::array<std::string_view, kMarkKinds> kMarkPaths = {
    "M6 .6L11 5.6V8L6 3L1 8V5.6ZM6 4.8L11 9.8V12L6 7.2L1 12V9.8Z",
    "M6 .4C7.5 2.8 10.2 5.7 10.2 7.7C10.2 10 8.3 11.7 6 11.7C3.7 11.7 1.8 10 1.8 7.7C1.8 5.7 4.5 2.8 6 .4Z",
    "M.6 .8H11.4V2.4H10.4V9.6H11.4V11.2H.6V9.6H1.6V2.4H.6ZM3.2 2.4V9.6H5.2V2.4ZM6.8 2.4V9.6H8.8V2.4Z",
    "M.6 .8H5.4V2.4H2.4V9.6H5.4V11.2H.6ZM4.4 5.1H7.4V2.4L11.8 6L7.4 9.6V6.9H4.4Z",
    "M6 11.4C4.2 9.9 .5 7.4 .5 4.1C.5 2.2 1.9 .9 3.5 .9C4.6 .9 5.5 1.5 6 2.4C6.5 1.5 7.4 .9 8.5 .9C10.1 .9 11.5 2.2 "
    "11.5 4.1C11.5 7.4 7.8 9.9 6 11.4Z",
    "M2.6 .8L6 4.2L9.4 .8L11.2 2.6L7.8 6L11.2 9.4L9.4 11.2L6 7.8L2.6 11.2L.8 9.4L4.2 6L.8 2.6Z"};

std::string MarkPath(MarkKind kind, std::string_view colour) {
    return SvgElement("path", {{"d", std::string(kMarkPaths.at(static_cast<std::size_t>(kind)))},
                               {"fill", Escaped(colour)},
                               {"fill-rule", "evenodd"}});
}

// ---- The picture

// How far below its middle a text's base line is, in parts of the font's size.
constexpr double kToMiddle = 0.36;

class Drawing {
  public:
    Drawing(const LifeStrip& strip, const StripLook& look) : strip_(strip), look_(look) {}

    StripPicture Draw();

  private:
    // Terms in one career, one after the other.
    struct Run {
        std::size_t first = 0;
        std::size_t last = 0;
    };
    // What the curves' band stands for.
    struct Scale {
        double least = 0;   // the value at its bottom
        double pixels = 0;  // a point
    };

    std::string Opening() const;

    std::vector<Run> Runs() const;
    Box BoxOf(const Run& run) const;
    BlockColours ColoursOf(const StripBlock& block);
    void DrawRun(const Run& run);
    void DrawBlock(std::size_t place, const Run& run, const BlockColours& colours);
    void DrawName(const Run& run, const BlockColours& colours);

    void DrawAges();
    void DrawMarks();

    Scale ScaleOfCurves() const;
    double HeightOf(int value, const Scale& scale) const;
    double Beside(std::size_t number) const;
    void DrawCurves();
    void DrawCurve(std::size_t number, const Scale& scale);
    void DrawFirstValues(const Scale& scale);
    void DrawNames(const Scale& scale);
    void DrawCurveTexts(const std::vector<std::string>& texts, std::vector<double> places, double x,
                        std::string_view anchor, const Ink& ink);

    void Line(double x1, double y1, double x2, double y2, const Ink& ink);
    void Text(double x, double y, std::string_view anchor, const Ink& ink, std::string_view text);

    const LifeStrip& strip_;
    const StripLook& look_;
    StripLayout layout_;
    std::vector<std::string_view> careers_;  // in the order of their colours
    StripPicture picture_;
};

std::string OpacityText(double opacity) {
    return opacity < 1 ? SvgNumber(opacity) : std::string();
}

std::string Title(std::string_view words) {
    return SvgElement("title", {}, Escaped(words));
}

// A rectangle. One of no opacity isn't seen, but the pointer meets it.
std::string RectOf(const Box& box, const Ink& ink, double radius = 0) {
    return SvgElement("rect", {{"x", SvgNumber(box.x)},
                               {"y", SvgNumber(box.y)},
                               {"width", SvgNumber(box.w)},
                               {"height", SvgNumber(box.h)},
                               {"rx", radius > 0 ? SvgNumber(radius) : ""},
                               {"fill", Escaped(ink.colour)},
                               {"fill-opacity", OpacityText(ink.opacity)}});
}

void Drawing::Line(double x1, double y1, double x2, double y2, const Ink& ink) {
    picture_.svg += SvgElement("line", {{"x1", SvgNumber(x1)},
                                        {"y1", SvgNumber(y1)},
                                        {"x2", SvgNumber(x2)},
                                        {"y2", SvgNumber(y2)},
                                        {"stroke", Escaped(ink.colour)},
                                        {"stroke-opacity", OpacityText(ink.opacity)}});
}

void Drawing::Text(double x, double y, std::string_view anchor, const Ink& ink, std::string_view text) {
    picture_.svg += SvgElement("text",
                               {{"x", SvgNumber(x)},
                                {"y", SvgNumber(y)},
                                {"text-anchor", std::string(anchor)},
                                {"fill", Escaped(ink.colour)},
                                {"fill-opacity", OpacityText(ink.opacity)},
                                {"pointer-events", "none"}},  // what lies below tells its words
                               Escaped(text));
}

std::string Drawing::Opening() const {
    const auto width = SvgNumber(look_.width);
    const auto height = SvgNumber(look_.height);
    return SvgOpen("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                           {"width", look_.scales ? "100%" : width},
                           {"height", look_.scales ? "" : height},
                           {"viewBox", Concat("0 0 ", width, " ", height)},
                           {"role", "img"},
                           {"font-family", Escaped(look_.fontFamily)},
                           {"font-size", SvgNumber(look_.fontSize)}}) +
           Title(strip_.sentence);
}

// ---- Blocks

std::vector<Drawing::Run> Drawing::Runs() const {
    const auto& blocks = strip_.blocks;
    std::vector<Run> runs;
    for (std::size_t i = 0; i < blocks.size(); ++i)
        if (i > 0 && blocks[i].kind == blocks[i - 1].kind && blocks[i].career == blocks[i - 1].career)
            runs.back().last = i;
        else
            runs.push_back({i, i});
    return runs;
}

Box Drawing::BoxOf(const Run& run) const {
    constexpr double kGap = 2;
    const double left = layout_.edges[run.first];
    const double room = layout_.edges[run.last + 1] - left;
    const double gap = run.last + 1 < strip_.blocks.size() ? std::min(kGap, room / 4) : 0;
    return {left, layout_.blocksTop, room - gap, layout_.blocksHeight};
}

BlockColours Drawing::ColoursOf(const StripBlock& block) {
    if (block.kind == BlockKind::Prison)
        return look_.prison;
    if (block.kind != BlockKind::Career)
        return {look_.text.colour, look_.text.colour};
    auto career = std::ranges::find(careers_, block.career);
    if (career == careers_.end())
        career = careers_.insert(career, block.career);
    return look_.blocks.at(static_cast<std::size_t>(career - careers_.begin()) % look_.blocks.size());
}

// Draws a block of a run that is there already: what the pointer meets, and where it borders on the one before.
void Drawing::DrawBlock(std::size_t place, const Run& run, const BlockColours& colours) {
    const auto& block = strip_.blocks[place];
    const auto whole = BoxOf(run);
    const double left = layout_.edges[place];
    const double right = place == run.last ? whole.x + whole.w : layout_.edges[place + 1];
    const Box box{left, whole.y, right - left, whole.h};
    picture_.svg += SvgElement("g", {}, Title(block.words) + RectOf(box, {colours.fill, 0}));
    picture_.spots.push_back({box.x, box.y, box.w, box.h, block.line, block.words});
    if (place == run.first)
        return;
    // Notches leave the name of the run alone.
    const double notch = box.h / 6;
    const double bottom = box.y + box.h;
    const Ink ink{colours.text, 0.6};
    Line(left, box.y, left, box.y + notch, ink);
    Line(left, bottom - notch, left, bottom, ink);
}

void Drawing::DrawName(const Run& run, const BlockColours& colours) {
    const auto box = BoxOf(run);
    const double font = look_.fontSize;
    const auto name = ShortenedTo(box.w - 0.7 * font, strip_.blocks[run.first].career, font);
    if (!name.empty())
        Text(box.x + box.w / 2, box.y + box.h / 2 + kToMiddle * font, "middle", {colours.text}, name);
}

void Drawing::DrawRun(const Run& run) {
    constexpr double kRadius = 4;
    constexpr double kTint = 0.1;
    const auto& block = strip_.blocks[run.first];
    const auto colours = ColoursOf(block);
    const auto box = BoxOf(run);
    // What is no career is tinted alone.
    const bool tinted = block.kind == BlockKind::Education || block.kind == BlockKind::Unwritten;
    picture_.svg += RectOf(box, {colours.fill, tinted ? kTint : 1}, std::min(kRadius, box.w / 3));
    for (auto place = run.first; place <= run.last; ++place)
        DrawBlock(place, run, colours);
    DrawName(run, colours);
}

// ---- Ages

// A tick at each edge, and the age below as many of them as have room; always below the first and the last.
void Drawing::DrawAges() {
    const auto& edges = layout_.edges;
    const double bottom = layout_.blocksTop + layout_.blocksHeight;
    const double room = TextWidth(Concat(strip_.lastAge), look_.fontSize) + look_.fontSize / 2;
    // A block that lasts no years ends at no age.
    const bool open = strip_.blocks.back().to == strip_.blocks.back().from;
    const auto last = open ? strip_.blocks.size() - 1 : strip_.blocks.size();
    double free_from = 0;
    for (std::size_t i = 0; i <= last; ++i) {
        Line(edges[i], bottom + 1, edges[i], bottom + 4, look_.line);
        if (i != last && (edges[i] < free_from || (i > 0 && edges[i] + room > edges[last])))
            continue;
        const int age = i < strip_.blocks.size() ? strip_.blocks[i].from : strip_.lastAge;
        Text(edges[i], layout_.agesLine, "middle", look_.dim, Concat(age));
        free_from = edges[i] + room;
    }
}

// ---- Marks

void Drawing::DrawMarks() {
    for (std::size_t i = 0; i < strip_.marks.size(); ++i) {
        const auto& mark = strip_.marks[i];
        const auto& box = layout_.marks[i];
        const auto place =
            Concat("translate(", SvgNumber(box.x), " ", SvgNumber(box.y), ") scale(", SvgNumber(box.w / kMarkBox), ")");
        const auto& colour = look_.marks.at(static_cast<std::size_t>(mark.kind));
        picture_.svg += SvgElement(
            "g", {{"transform", place}},
            Title(mark.words) + RectOf({0, 0, kMarkBox, kMarkBox}, {colour, 0}) + MarkPath(mark.kind, colour));
        picture_.spots.push_back({box.x, box.y, box.w, box.h, mark.line, mark.words});
    }
}

// ---- Curves

// One point more or less is no great change: the band stands for some points at the least, the values in its middle.
Drawing::Scale Drawing::ScaleOfCurves() const {
    constexpr int kLeastRange = 6;
    int least = strip_.curves.front().values.front();
    int most = least;
    for (const auto& curve : strip_.curves)
        for (const int value : curve.values) {
            least = std::min(least, value);
            most = std::max(most, value);
        }
    const int range = std::max(kLeastRange, most - least);
    return {least - (range - (most - least)) / 2.0, (layout_.curvesHeight - 1.2 * look_.fontSize) / range};
}

double Drawing::HeightOf(int value, const Scale& scale) const {
    const double lowest = layout_.curvesTop + layout_.curvesHeight - 0.6 * look_.fontSize;
    return lowest - (value - scale.least) * scale.pixels;
}

// Each curve lies a little beside the one before, as equal values are common.
double Drawing::Beside(std::size_t number) const {
    constexpr double kBeside = 2;
    return (static_cast<double>(number) - static_cast<double>(strip_.curves.size() - 1) / 2) * kBeside;
}

// Each curve has dashes of its own.
void Drawing::DrawCurve(std::size_t number, const Scale& scale) {
    constexpr std::array<std::string_view, 6> kDashes = {"", "7 3", "1.5 2.5", "7 3 1.5 3", "12 3", "4 2"};
    const auto& values = strip_.curves[number].values;
    std::string points;
    for (std::size_t i = 0; i < values.size(); ++i)
        AppendAll(points, i == 0 ? "" : " ", SvgNumber(layout_.edges.at(i)), ",",
                  SvgNumber(HeightOf(values[i], scale) + Beside(number)));
    picture_.svg += SvgElement("polyline", {{"points", points},
                                            {"fill", "none"},
                                            {"stroke", Escaped(look_.text.colour)},
                                            {"stroke-opacity", OpacityText(look_.text.opacity)},
                                            {"stroke-width", "1.3"},
                                            {"stroke-linejoin", "round"},
                                            {"stroke-dasharray", std::string(kDashes.at(number % kDashes.size()))}});
}

// Writes texts beside the curves, apart from each other.
void Drawing::DrawCurveTexts(const std::vector<std::string>& texts, std::vector<double> places, double x,
                             std::string_view anchor, const Ink& ink) {
    const double font = look_.fontSize;
    MoveApart(places, 1.1 * font, layout_.curvesTop + font / 2, layout_.curvesTop + layout_.curvesHeight - font / 2);
    for (std::size_t i = 0; i < texts.size(); ++i)
        Text(x, places[i] + kToMiddle * font, anchor, ink, texts[i]);
}

// The values that the curves begin with, equal ones once.
void Drawing::DrawFirstValues(const Scale& scale) {
    std::vector<std::string> texts;
    std::vector<double> places;
    for (std::size_t i = 0; i < strip_.curves.size(); ++i) {
        const int value = strip_.curves[i].values.front();
        auto text = Concat(value);
        if (std::ranges::find(texts, text) != texts.end())
            continue;
        texts.push_back(std::move(text));
        places.push_back(HeightOf(value, scale) + Beside(i));
    }
    DrawCurveTexts(texts, places, layout_.edges.front() - look_.fontSize / 2, "end", look_.dim);
}

void Drawing::DrawNames(const Scale& scale) {
    std::vector<std::string> texts;
    std::vector<double> places;
    for (std::size_t i = 0; i < strip_.curves.size(); ++i) {
        const int value = strip_.curves[i].values.back();
        texts.push_back(Concat(strip_.curves[i].name, " ", value));
        places.push_back(HeightOf(value, scale) + Beside(i));
    }
    DrawCurveTexts(texts, places, layout_.edges.back() + look_.fontSize / 2, "start", look_.text);
}

void Drawing::DrawCurves() {
    if (layout_.curvesHeight <= 0)
        return;
    const Ink faint{look_.line.colour, look_.line.opacity * 0.6};
    for (const double edge : layout_.edges)
        Line(edge, layout_.curvesTop, edge, layout_.curvesTop + layout_.curvesHeight, faint);
    const auto scale = ScaleOfCurves();
    for (std::size_t i = 0; i < strip_.curves.size(); ++i)
        DrawCurve(i, scale);
    DrawFirstValues(scale);
    DrawNames(scale);
}

StripPicture Drawing::Draw() {
    picture_.svg = Opening();
    if (!look_.ground.empty())
        picture_.svg += RectOf({0, 0, look_.width, look_.height}, {look_.ground});
    if (!strip_.blocks.empty()) {
        layout_ = LayOut(strip_, look_);
        for (const auto& run : Runs())
            DrawRun(run);
        DrawAges();
        DrawCurves();
        DrawMarks();
    }
    picture_.svg += "</svg>";
    return std::move(picture_);
}

}  // namespace

StripPicture DrawStrip(const LifeStrip& strip, const StripLook& look) {
    return Drawing(strip, look).Draw();
}

std::string MarkSvg(MarkKind kind, int size, std::string_view colour) {
    const auto box = SvgNumber(kMarkBox);
    return SvgOpen("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                           {"width", Concat(size)},
                           {"height", Concat(size)},
                           {"viewBox", Concat("0 0 ", box, " ", box)}}) +
           MarkPath(kind, colour) + "</svg>";
}

}  // namespace korvane
