#include "shell/note_test.h"

#include <algorithm>

#include "core/mouse_buttons.h"
#include "core/names.h"
#include "core/tested_note.h"

namespace melvane {

namespace {

constexpr const char* window = "Form5";
constexpr std::array dragged{"Pic2", "Picture4", "Picture10", "Pt1", "Text5"};
constexpr std::array closing{"Pic2", "Picture10", "Pt1", "LblNoteName"};

}  // namespace

NoteTest::NoteTest(Studio& studio, Parts parts) : studio_(studio), parts_(parts) {
    auto& panel = studio.Form5;
    auto& main = studio.form1;
    panel.Combo3.acted = [this] { Combo3_Click(); };
    panel.CmdInst.acted = [this] { Text5_DblClick(); };
    panel.Check4.acted = [&] { main.Check4.set(panel.Check4.ticked()); };
    main.Check4.acted = [&] { panel.Check4.set(main.Check4.ticked()); };
}

void NoteTest::Form_Load() {
    auto& panel = studio_.Form5;
    panel.loaded = true;
    panel.Combo3.fill({chordEntries.begin(), chordEntries.end()});
    panel.Combo3.set(0);
    panel.Check4.set(studio_.form1.Check4.ticked());
    showTestedNote(studio_);
}

void NoteTest::Form_Unload() {
    studio_.Form5.loaded = false;
    volumeHeld_ = false;
    studio_.Form5.Combo3.fill({});
    studio_.Form5.window.setVisible(false);
}

void NoteTest::Combo3_Click() { parts_.chords.Combo3_Click(); }

void NoteTest::Text5_DblClick() {
    parts_.picker.showModal();
    parts_.noteInstrument.Text5_DblClick();
}

void NoteTest::moveVolume(int button, double X) {
    auto& slider = studio_.Form5.lblVolume;
    if (!volumeHeld_) return;
    if ((button & mouse::left) != 0) {
        slider.drag(X);
    } else if ((button & mouse::right) != 0) {
        auto& tracks = studio_.tracks;
        tracks.TrackVolume[static_cast<std::size_t>(tracks.CurrentTrack)] = 127;
        slider.set(slider.scale().resting);
    }
}

/// Where the main window's strip has the column that the panel's has at X. What lies outside the panel's
/// strip counts as its edge, so that a sweep does not run away with the columns shown.
double NoteTest::onMainStrip(double X) const {
    const auto& panel = studio_.Form5;
    X = std::clamp(X, 0.0, std::max(0.0, panel.Pic2a.width() - 1.0));
    const int shift = (panel.firstColumn - studio_.page.FirstColumn) * Page::columnWidth;
    if (X + shift >= 0) return X + shift;
    return static_cast<int>(X / Page::columnWidth) * Page::columnWidth + shift;
}

void NoteTest::Pic2a_MouseDown(int button, int shift, double X, double Y) {
    parts_.selector.Pic2a_MouseDown(button, shift, onMainStrip(X), Y);
}
void NoteTest::Pic2a_MouseMove(int button, int shift, double X, double Y) {
    parts_.selector.Pic2a_MouseMove(button, shift, onMainStrip(X), Y);
}
void NoteTest::Pic2a_MouseUp(int button, int shift, double X, double Y) {
    parts_.selector.Pic2a_MouseUp(button, shift, onMainStrip(X), Y);
}
void NoteTest::Pic3_MouseDown(int button, int shift, double X, double Y) {
    parts_.chords.Pic3_MouseDown(button, shift, onMainStrip(X), Y);
    showTestedNote(studio_);
}
void NoteTest::Pic3_MouseMove(int button, int shift, double X, double Y) {
    parts_.chords.Pic3_MouseMove(button, shift, onMainStrip(X), Y);
    if (button != 0) showTestedNote(studio_);
}
void NoteTest::Pic3_MouseUp(int button, int shift, double X, double Y) {
    parts_.chords.Pic3_MouseUp(button, shift, onMainStrip(X), Y);
}

void NoteTest::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("form1", "ShowTestPanel", this, &NoteTest::open);
    operations.add(window, "Form_Load", this, &NoteTest::Form_Load);
    operations.add(window, "Form_Unload", this, &NoteTest::Form_Unload);
    operations.add(window, "Combo3_Click", this, &NoteTest::Combo3_Click);
    operations.add(window, "CmdInst_Click", this, &NoteTest::Text5_DblClick);
    operations.add(window, "Text5_DblClick", this, &NoteTest::Text5_DblClick);
    operations.addMouse(window, "lblVolume_MouseDown", [this](int, double) { pressVolume(); });
    operations.addMouse(window, "lblVolume_MouseMove",
                        [this](int button, double X) { moveVolume(button, X); });
    operations.addMouse(window, "lblVolume_MouseUp", [this](int, double) { releaseVolume(); });
    operations.add(window, "Pic2a_MouseDown", this, &NoteTest::Pic2a_MouseDown);
    operations.add(window, "Pic2a_MouseMove", this, &NoteTest::Pic2a_MouseMove);
    operations.add(window, "Pic2a_MouseUp", this, &NoteTest::Pic2a_MouseUp);
    operations.add(window, "Pic3_MouseDown", this, &NoteTest::Pic3_MouseDown);
    operations.add(window, "Pic3_MouseMove", this, &NoteTest::Pic3_MouseMove);
    operations.add(window, "Pic3_MouseUp", this, &NoteTest::Pic3_MouseUp);
    for (const char* name : closing) {
        operations.add(window, std::string(name) + "_DblClick", this, &NoteTest::Form_Unload);
    }
    for (const char* name : dragged) {
        operations.addMouse(window, std::string(name) + "_MouseDown", [this](int, double) {
            if (dragWindow) dragWindow();
        });
    }
}

}  // namespace melvane
