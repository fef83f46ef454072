#include "output/strip_layout.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "base/text.h"
#include "output/svg_text.h"

namespace korvane {

namespace {

// ---- From left to right

double LeftMargin(const LifeStrip& strip, double size) {
    double widest = TextWidth(Concat(strip.firstAge), size) / 2;
    for (const auto& curve : strip.curves)
        widest = std::max(widest, TextWidth(Concat(curve.values.front()), size) + size / 2);
    return widest + 1;
}

double RightMargin(const LifeStrip& strip, double size) {
    double widest = TextWidth(Concat(strip.lastAge), size) / 2;
    for (const auto& curve : strip.curves)
        widest = std::max(widest, TextWidth(Concat(curve.name, " ", curve.values.back()), size) + size / 2);
    return widest + 1;
}

// The years that a block is drawn with: one that lasts none has half of a term's.
double DrawnYears(const StripBlock& block, double term) {
    return block.to > block.from ? block.to - block.from : term / 2;
}

std::vector<double> EdgesOf(const LifeStrip& strip, double left, double right) {
    const auto& first = strip.blocks.front();
    const double term = std::max(1, first.to - first.from);
    std::vector<double> edges = {0};
    for (const auto& block : strip.blocks)
        edges.push_back(edges.back() + DrawnYears(block, term));
    const double scale = std::max(1.0, right - left) / edges.back();
    // On whole pixels neighbours meet without a seam, if they are no slivers.
    constexpr double kSliver = 4;
    const bool whole = scale * term > kSliver;
    for (auto& edge : edges)
        edge = whole ? std::round(left + edge * scale) : left + edge * scale;
    return edges;
}

// ---- Marks

// A column of marks above a block.
struct Column {
    double middle = 0;
    double width = 0;
    std::vector<std::size_t> marks;
};

std::vector<Column> ColumnsOf(const LifeStrip& strip, const std::vector<double>& edges) {
    std::vector<Column> columns(strip.blocks.size());
    for (std::size_t i = 0; i < columns.size(); ++i) {
        // The last block may be half a term alone; there is room to its right.
        const double room = std::max(edges[i + 1] - edges[i], edges[1] - edges[0]);
        columns[i].width = 0.9 * room;
        columns[i].middle = edges[i] + room / 2;
    }
    for (std::size_t i = 0; i < strip.marks.size(); ++i)
        columns.at(strip.marks[i].block).marks.push_back(i);
    return columns;
}

double GapOf(double size) {
    return size / 5;
}

// How many marks of a size stand in a length, with gaps between them.
std::size_t Fitting(double length, double size) {
    const double count = (length + GapOf(size)) / (size + GapOf(size));
    return count < 1 ? 0 : static_cast<std::size_t>(count);
}

double HeightWanted(const std::vector<Column>& columns, double size) {
    std::size_t rows = 0;
    for (const auto& column : columns) {
        const auto in_row = std::max<std::size_t>(1, Fitting(column.width, size));
        rows = std::max(rows, (column.marks.size() + in_row - 1) / in_row);
    }
    return static_cast<double>(rows) * (size + GapOf(size));
}

// The largest size up to the wanted one in which the column's marks fit into a height.
double FittingSize(const Column& column, double height, double wanted) {
    double size = wanted;
    while (Fitting(column.width, size) * Fitting(height, size) < column.marks.size())
        size *= 0.94;
    return size;
}

// Rows from the bottom upwards, each in the middle.
void PlaceColumn(std::vector<Box>& places, const Column& column, double bottom, double size) {
    const auto in_row = Fitting(column.width, size);
    const double step = size + GapOf(size);
    for (std::size_t i = 0; i < column.marks.size(); ++i) {
        const auto row = i / in_row;
        const auto here = std::min(in_row, column.marks.size() - row * in_row);
        const double left = column.middle - (static_cast<double>(here) * step - GapOf(size)) / 2;
        places[column.marks[i]] = {left + static_cast<double>(i % in_row) * step,
                                   bottom - size - static_cast<double>(row) * step, size, size};
    }
}

// ---- From top to bottom

// Gives the height for the marks; the curves have what is left.
double ShareHeight(StripLayout& layout, double height, double marks, double curves, double smallest_marks) {
    if (curves == 0 || height < curves + std::min(marks, smallest_marks))
        return height;
    const double given = std::min(marks, height - curves);
    layout.curvesHeight = height - given;
    return given;
}

}  // namespace

StripLayout LayOut(const LifeStrip& strip, const StripLook& look) {
    const double font = look.fontSize;
    const double mark = 1.1 * font;
    StripLayout layout;
    layout.edges = EdgesOf(strip, LeftMargin(strip, font), look.width - RightMargin(strip, font));
    layout.blocksHeight = std::round(2.1 * font);
    const double ages = std::round(1.6 * font) + 4;
    const double rest = std::max(font, look.height - layout.blocksHeight - ages - 2);
    const auto columns = ColumnsOf(strip, layout.edges);
    const auto lines = static_cast<double>(strip.curves.size());
    const double above = ShareHeight(layout, rest, HeightWanted(columns, mark) + 4,
                                     strip.curves.empty() ? 0 : (lines + 0.5) * 1.15 * font, mark + 4);
    layout.blocksTop = std::floor(above);
    layout.agesLine = layout.blocksTop + layout.blocksHeight + 4 + font;
    layout.curvesTop = layout.blocksTop + layout.blocksHeight + ages;
    layout.marks.resize(strip.marks.size());
    for (const auto& column : columns)
        PlaceColumn(layout.marks, column, above - 4, FittingSize(column, above - 4, mark));
    return layout;
}

void MoveApart(std::vector<double>& places, double gap, double least, double most) {
    std::vector<std::size_t> order(places.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::stable_sort(order, {}, [&](std::size_t i) { return places[i]; });
    double floor = least;
    for (const auto i : order) {
        places[i] = std::max(places[i], floor);
        floor = places[i] + gap;
    }
    double ceiling = most;
    std::ranges::reverse(order);
    for (const auto i : order) {
        places[i] = std::min(places[i], ceiling);
        ceiling = places[i] - gap;
    }
}

}  // namespace korvane
