#include "core/tablet_page.h"

#include <algorithm>

#include "core/names.h"

namespace melvane {

namespace {

constexpr int firstLabelLeft = 32;  // pixels
constexpr int bottomRow = 127;
constexpr std::size_t mostLabels = 13;

}  // namespace

std::vector<BarLabel> barLabels(const Page& page, int beatsPerMeasure) {
    std::vector<BarLabel> labels;
    if (beatsPerMeasure == 0) return labels;
    for (int column = page.FirstColumn; column <= page.FirstColumn + page.PageColumns; ++column) {
        if (column % beatsPerMeasure != 0) continue;
        const int left = (column - page.FirstColumn) * Page::columnWidth + firstLabelLeft;
        if (!labels.empty()) labels.back().width = left - labels.back().left;
        if (labels.size() == mostLabels) break;
        labels.push_back({left, std::abs(beatsPerMeasure) * Page::columnWidth, std::to_string(column + 1)});
    }
    return labels;
}

void TabletPage::Form_Resize() {
    if (studio_.shell.Minimised || studio_.shell.Resizing) return;
    studio_.shell.Resizing = true;
    measure();
    keepInsideScore();
    setScrollBars();
    DrawSideBar();
    surfaces_.DrawSelectorGrid();
    surfaces_.DrawBarStrip();
    surfaces_.DrawPolyStrip();
    surfaces_.DrawTopBar();
    studio_.player.SkipCursorRestore = true;
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
    studio_.shell.Resizing = false;
}

void TabletPage::measure() {
    auto& page = studio_.page;
    assign(page.LineHeight, leadingNumber(studio_.Form3.Text3.text()));
    const int columns = (studio_.form1.client.width() - 70) / Page::columnWidth;
    assign(page.PageColumns, columns - 1);
    const double rowPixels = page.LineHeight / 12.0 * 16.0;
    if (rowPixels != 0) assign(page.PageRows, studio_.form1.Picmain.height() / rowPixels + 12);
    page.HalfPageColumns = static_cast<Int16>((page.PageColumns + 1) / 2);
    page.HalfPageRows = static_cast<Int16>((page.PageRows + 1) / 2);
}

void TabletPage::keepInsideScore() {
    auto& page = studio_.page;
    const auto lastColumn = std::int64_t{studio_.score.NumNotes} - 1;
    assign(page.LastColumn, page.FirstColumn + page.PageColumns);
    if (page.LastColumn > lastColumn) {
        assign(page.LastColumn, static_cast<double>(lastColumn));
        assign(page.FirstColumn, page.LastColumn - page.PageColumns);
    }
    assign(page.LastRow, page.FirstRow + page.PageRows);
    if (page.LastRow > bottomRow) {
        page.LastRow = bottomRow;
        assign(page.FirstRow, page.LastRow - page.PageRows);
    }
}

void TabletPage::setScrollBars() {
    const auto& page = studio_.page;
    auto& across = studio_.form1.HScroll1;
    across.setMinimum(page.HalfPageColumns);
    std::int32_t furthest = across.maximum();
    assign(furthest,
           static_cast<double>(studio_.score.NumNotes) - 1 - (page.PageColumns - page.HalfPageColumns));
    across.setMaximum(furthest);
    across.setLargeChange(page.PageColumns + 1);
    across.set(page.FirstColumn + page.HalfPageColumns);
    auto& down = studio_.form1.VScroll1;
    down.setMinimum(page.HalfPageRows);
    down.setMaximum(bottomRow - (page.PageRows - page.HalfPageRows));
    down.setLargeChange(page.PageRows + 1);
    down.set(page.FirstRow + page.HalfPageRows);
}

void TabletPage::HScroll1_Change() {
    if (studio_.shell.Resizing) return;
    auto& page = studio_.page;
    assign(page.FirstColumn, studio_.form1.HScroll1.value() - page.HalfPageColumns);
    assign(page.LastColumn, page.FirstColumn + page.PageColumns);
    if (!page.NoScrollRedraw) {
        surfaces_.DrawNoteArray();
        surfaces_.DrawBeatArray();
    }
    studio_.player.SkipCursorRestore = true;
    surfaces_.DrawTopBar();
    surfaces_.DrawBarStrip();
    surfaces_.DrawPolyStrip();
}

void TabletPage::VScroll1_Change() {
    if (studio_.shell.Busy || studio_.shell.Resizing) return;
    auto& page = studio_.page;
    // One row further than Form_Resize reckons: the first move after a resize jumps by one.
    assign(page.FirstRow, studio_.form1.VScroll1.value() - page.HalfPageRows + 1);
    assign(page.LastRow, page.FirstRow + page.PageRows);
    DrawSideBar();
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void TabletPage::DrawSideBar() {
    auto& page = studio_.page;
    for (int line = 0; line <= page.PageRows; ++line) {
        const auto name = nameOfRow(page.NoteNames, page.FirstRow + line);
        for (std::size_t staff = 0; staff < staffRowNames.size(); ++staff) {
            if (name == staffRowNames[staff]) assign(page.StaffY[staff], line * page.LineHeight + 1);
        }
        if (static_cast<std::size_t>(line) < page.SharpRowFlags.size()) {
            page.SharpRowFlags[static_cast<std::size_t>(line)] = isSharp(name);
        }
    }
    if (studio_.form1.SideBar.visible()) writeSideBar();
    surfaces_.DrawSideBar();
}

void TabletPage::writeSideBar() {
    const auto& page = studio_.page;
    std::string names;
    for (int line = 0; line <= page.PageRows; ++line) {
        if (line > 0) names += '\n';
        names += printedRowName(nameOfRow(page.NoteNames, page.FirstRow + line));
    }
    studio_.form1.SideBar.set(std::move(names));
}

int TabletPage::FindNoteArray(double x) const {
    const int column =
        static_cast<int>(std::clamp(x, -1e6, 1e6) / Page::columnWidth) + studio_.page.FirstColumn;
    const int current = studio_.tracks.CurrentTrack;
    int row = cell::empty;
    for (int order = 0; order <= lastTrackNumber; ++order) {
        const int track = order == lastTrackNumber ? current : order + (order >= current ? 1 : 0);
        const int value = studio_.score.noteCell(track, column);
        if (!cell::isEmpty(value)) row = cell::row(value);
    }
    return row;
}

void TabletPage::followPage() {
    studio_.page.NoScrollRedraw = true;
    studio_.form1.HScroll1.set(studio_.page.FirstColumn + studio_.page.HalfPageColumns);
    studio_.page.NoScrollRedraw = false;
}

void TabletPage::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "Form_Resize", this, &TabletPage::Form_Resize);
    operations.add("form1", "HScroll1_Change", this, &TabletPage::HScroll1_Change);
    operations.add("form1", "VScroll1_Change", this, &TabletPage::VScroll1_Change);
    operations.add("form1", "DrawSideBar", this, &TabletPage::DrawSideBar);
    operations.add("form1", "FindNoteArray", this, &TabletPage::FindNoteArray);
}

}  // namespace melvane
