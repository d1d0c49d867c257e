#include "core/line_spacing.h"

#include "core/names.h"

namespace melvane {

namespace {

constexpr int lowestRow = 3, highestRow = 24;  // pixels

}  // namespace

void LineSpacing::setRange() {
    studio_.Form3.VScroll3.setMinimum(lowestRow);
    studio_.Form3.VScroll3.setMaximum(highestRow);
}

void LineSpacing::Text3_Change() {
    auto& height = studio_.page.LineHeight;
    assign(height, leadingNumber(studio_.Form3.Text3.text()));
    settings_.save("Line_Height", height);
    studio_.Form3.VScroll3.set(height);
    page_.Form_Resize();
    surfaces_.DrawNoteArray();
    surfaces_.DrawBeatArray();
}

void LineSpacing::VScroll3_Change() {
    const int height = studio_.Form3.VScroll3.value();
    // The box that has moved the bar keeps its text.
    if (height != studio_.page.LineHeight) studio_.Form3.Text3.set(std::to_string(height));
}

void LineSpacing::Check1_Click() {
    studio_.page.ShowSharpGuides = static_cast<Int16>(studio_.Form3.Check1.value());
    settings_.save("Show_Sharp_guides", studio_.page.ShowSharpGuides);
    surfaces_.DrawNoteArray();
}

void LineSpacing::listNames(NameTables& tables) {
    tables.operations.add("Form3", "Text3_Change", this, &LineSpacing::Text3_Change);
    tables.operations.add("Form3", "VScroll3_Change", this, &LineSpacing::VScroll3_Change);
    tables.operations.add("Form3", "Check1_Click", this, &LineSpacing::Check1_Click);
}

}  // namespace melvane
