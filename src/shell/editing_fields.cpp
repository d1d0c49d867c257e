#include "shell/editing_fields.h"

#include "core/names.h"
#include "shell/editing_pictures.h"

namespace melvane {

namespace {

constexpr Colour fieldColour{255, 255, 255}, buttonFace{207, 207, 207};

struct Field {
    TextControl EditingControls::*text;
    const char *name, *tip, *key, *otherwise;
};

/// In the order of their labels, in which they are stored too.
constexpr std::array<Field, 4> fields{
    {{&EditingControls::Text3, "Notes", "Total duplicated notes", "Notes", "60"},
     {&EditingControls::Text4, "Repeat", "Total # of notes in duplicated cycle", "Repeat", "12"},
     {&EditingControls::Text5, "Beats", "Total # of Playable notes in duplicated cycle", "Beats", "12"},
     {&EditingControls::Text1, "Spaces", "Insert # of spaces", "Spaces", "1"}}};

struct Bar {
    ScrollControl EditingControls::*bar;
    int top, largeChange, atRest;  ///< 0 at the bottom
};

constexpr std::array<Bar, 3> bars{{{&EditingControls::VScroll2, 99, 10, 60},
                                   {&EditingControls::VScroll4, 60, 4, 28},
                                   {&EditingControls::VScroll3, 60, 4, 28}}};

}  // namespace

EditingFields::EditingFields(Studio& studio, Settings& settings) : studio_(studio), settings_(settings) {
    nameControls();
    rest();
    takeEvents();
}

void EditingFields::nameControls() {
    auto& toolbar = studio_.Form2;
    for (std::size_t at = 0; at < fields.size(); ++at) {
        toolbar.Label6[at].set(fields[at].name);
        (toolbar.*fields[at].text).setTip(fields[at].tip);
    }
    for (const auto& [bar, top, largeChange, atRest] : bars) {
        (toolbar.*bar).setMinimum(top);
        (toolbar.*bar).setMaximum(0);
        (toolbar.*bar).setLargeChange(largeChange);
    }
    toolbar.Check2.setTip("Duplicate Instrument section");
    toolbar.Check1.setTip("Duplicate Percussion section");
    toolbar.chkgraphics.setTip("Show playing position");
    toolbar.loopcheck.setTip("Loop song");
    for (auto* const hidden : {&toolbar.chkgraphics, &toolbar.loopcheck}) hidden->setVisible(false);
}

void EditingFields::takeEvents() {
    auto& toolbar = studio_.Form2;
    toolbar.Text3.acted = [this] { Text3_Change(); };
    toolbar.Text4.acted = [this] { Text4_Change(); };
    toolbar.Text5.acted = [this] { Text5_Change(); };
    toolbar.VScroll2.acted = [this] { VScroll2_Change(); };
    toolbar.VScroll4.acted = [this] { VScroll4_Change(); };
    toolbar.VScroll3.acted = [this] { VScroll3_Change(); };
    toolbar.Check3.acted = [this] { Check3_Click(); };
    toolbar.chkgraphics.acted = [this] { chkgraphics_Click(); };
    toolbar.loopcheck.acted = [this] { loopcheck_Click(); };
}

void EditingFields::rest() {
    auto& toolbar = studio_.Form2;
    for (const auto& [bar, top, largeChange, atRest] : bars) (toolbar.*bar).set(atRest);
    toolbar.Check2.set(true);
    toolbar.Check1.set(true);
    toolbar.chkgraphics.set(true);
    toolbar.loopcheck.set(false);
}

void EditingFields::load() {
    auto& toolbar = studio_.Form2;
    loading_ = true;
    rest();
    for (const auto& [text, name, tip, key, otherwise] : fields) {
        (toolbar.*text).set(settings_.GetSetting(key, otherwise));
    }
    loading_ = false;
    takeValues();
    showCheck3();
}

void EditingFields::save() {
    auto& toolbar = studio_.Form2;
    for (const auto& [text, name, tip, key, otherwise] : fields) {
        settings_.SaveSetting(key, (toolbar.*text).text());
    }
}

void EditingFields::setEnabled(bool enabled) {
    auto& toolbar = studio_.Form2;
    toolbar.Picture2.setEnabled(enabled);
    for (const auto& field : fields) {
        TextControl& text = toolbar.*field.text;
        text.setEnabled(enabled);
        text.setBackColour(enabled ? fieldColour : buttonFace);
    }
    for (auto& label : toolbar.Label6) label.setEnabled(enabled);
    for (const auto& entry : bars) (toolbar.*entry.bar).setEnabled(enabled);
    toolbar.Check1.setEnabled(enabled);
    toolbar.Check2.setEnabled(enabled);
}

void EditingFields::takeValues() {
    const auto& toolbar = studio_.Form2;
    auto& values = studio_.duplicate;
    assign(values.DuplicateNotes, leadingNumber(toolbar.Text3.text()));
    assign(values.DuplicateRepeat, leadingNumber(toolbar.Text4.text()));
    assign(values.DuplicateBeats, leadingNumber(toolbar.Text5.text()));
}

void EditingFields::Text3_Change() {
    if (!loading_) assign(studio_.duplicate.DuplicateNotes, leadingNumber(studio_.Form2.Text3.text()));
}

void EditingFields::Text4_Change() {
    if (loading_) return;
    holdBeats();
    assign(studio_.duplicate.DuplicateRepeat, leadingNumber(studio_.Form2.Text4.text()));
}

void EditingFields::Text5_Change() {
    if (loading_) return;
    holdBeats();
    assign(studio_.duplicate.DuplicateBeats, leadingNumber(studio_.Form2.Text5.text()));
}

void EditingFields::holdBeats() {
    auto& toolbar = studio_.Form2;
    const auto& repeat = toolbar.Text4.text();
    if (leadingNumber(repeat) < leadingNumber(toolbar.Text5.text())) toolbar.Text5.set(repeat);
}

void EditingFields::follow(TextControl& field, const ScrollControl& bar) {
    if (!loading_) field.set(std::to_string(bar.value()));
}

void EditingFields::Check3_Click() {
    auto& one = studio_.selection.CopyonlyOneTrack;
    one = studio_.Form2.Check3.ticked();
    settings_.save("CopyonlyOneTrack", one);
    showCheck3();
}

void EditingFields::showCheck3() {
    const bool one = studio_.selection.CopyonlyOneTrack;
    studio_.Form2.Check3.set(one);
    studio_.Form2.Check3.setTip(one ? "Edit Selected Track Only" : "Edit All Tracks");
}

void EditingFields::chkgraphics_Click() {
    studio_.player.ShowPlayingPosition = studio_.Form2.chkgraphics.ticked();
    showPlayingPosition(studio_);
}

void EditingFields::loopcheck_Click() {
    studio_.player.LoopSong = studio_.Form2.loopcheck.ticked();
    showLoopSong(studio_);
}

void EditingFields::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Form2", "Text3_Change", this, &EditingFields::Text3_Change);
    operations.add("Form2", "Text4_Change", this, &EditingFields::Text4_Change);
    operations.add("Form2", "Text5_Change", this, &EditingFields::Text5_Change);
    operations.add("Form2", "VScroll2_Change", this, &EditingFields::VScroll2_Change);
    operations.add("Form2", "VScroll3_Change", this, &EditingFields::VScroll3_Change);
    operations.add("Form2", "VScroll4_Change", this, &EditingFields::VScroll4_Change);
    operations.add("Form2", "Check3_Click", this, &EditingFields::Check3_Click);
    operations.add("Form2", "chkgraphics_Click", this, &EditingFields::chkgraphics_Click);
    operations.add("Form2", "loopcheck_Click", this, &EditingFields::loopcheck_Click);
}

}  // namespace melvane
