#include "shell/editing_toolbar_commands.h"

#include "core/drag.h"
#include "core/names.h"

namespace melvane {

namespace {

constexpr double rightOfMiddle = 200, aboveBottom = 700;  // twips, of the place of a first start

/// What the main toolbar's dispatcher takes for its own buttons.
namespace main_button {
constexpr int clear = 0, open = 1, save = 2;
}

}  // namespace

EditingToolbarCommands::EditingToolbarCommands(Studio& studio, Parts parts)
    : fields(studio, parts.settings), pictures(studio), studio_(studio), parts_(parts) {
    auto& toolbar = studio.Form2;
    for (int index = EditingControls::firstButton; index <= EditingControls::lastButton; ++index) {
        const auto at = static_cast<std::size_t>(index);
        toolbar.Cmd2[at].acted = [this, index] { Cmd2_Click(index); };
    }
    pictures.hideButtons();
    showTool(false);
}

void EditingToolbarCommands::Form_Load() {
    studio_.shell.Form2Open = true;
    readPlace();
    showTool(false);
    parts_.settings.read("Playing position", true, studio_.player.ShowPlayingPosition);
    showPlayingPosition(studio_);
    showLoopSong(studio_);
    fields.load();
    pictures.hideButtons();
}

/// A stored text that is no number counts as none.
void EditingToolbarCommands::readPlace() {
    auto& place = studio_.Form2.place;
    const auto stored = [this](const char* key, double otherwise) {
        return wholeNumberText(parts_.settings.GetSetting(key, "")).value_or(otherwise);
    };
    const auto& frame = parts_.frame;
    place.left = stored("form2 left", frame.screenWidth() / 2 - place.width / 2 + rightOfMiddle);
    place.top = stored("form2 top", frame.screenHeight() - place.height - aboveBottom);
}

void EditingToolbarCommands::Form_Activate() { studio_.shell.markActive(&Shell::Form2Active); }

void EditingToolbarCommands::Form_QueryUnload() { parts_.tools.FunctionBut_Click(edit_mode::draw); }

void EditingToolbarCommands::Form_Unload() {
    auto& settings = parts_.settings;
    const auto& place = studio_.Form2.place;
    studio_.shell.Form2Open = false;
    if (const auto left = narrowed<std::int32_t>(place.left)) settings.save("form2 left", *left);
    if (const auto top = narrowed<std::int32_t>(place.top)) settings.save("form2 top", *top);
    fields.save();
    settings.save("Playing position", studio_.player.ShowPlayingPosition);
}

EditingToolbarCommands::Press EditingToolbarCommands::press(int index) {
    using Toolbar = EditingToolbarCommands;
    static constexpr std::array<Press, EditingControls::buttons> presses{
        nullptr,
        [](Toolbar& t) { t.parts_.toolbar.Cmd2_Click(main_button::clear); },
        [](Toolbar& t) { t.parts_.toolbar.Cmd2_Click(main_button::open); },
        [](Toolbar& t) { t.parts_.toolbar.Cmd2_Click(main_button::save); },
        [](Toolbar& t) { t.parts_.player.PlayAndStop_Click(0); },
        [](Toolbar& t) { t.playSelection(); },
        [](Toolbar& t) { t.studio_.player.PauseRequested = true; },
        [](Toolbar& t) { t.parts_.player.PlayAndStop_Click(1); },
        [](Toolbar& t) { t.parts_.player.RewindBut_Click(); },
        [](Toolbar& t) { t.togglePosition(); },
        [](Toolbar& t) { t.toggleLoop(); },
        [](Toolbar& t) { t.toggleTool(); },
        [](Toolbar& t) { t.parts_.blocks.copyIt(); },
        [](Toolbar& t) { t.parts_.blocks.CutBut_Click(); },
        [](Toolbar& t) { t.parts_.blocks.PasteBut_Click(); },
        [](Toolbar& t) { t.parts_.blocks.PasteIntoBut_Click(); },
        [](Toolbar& t) { t.parts_.blocks.InsertColumnBut_Click(); },
        [](Toolbar& t) { t.duplicateNotes(); }};
    return index >= 0 && index < static_cast<int>(presses.size()) ? presses[static_cast<std::size_t>(index)]
                                                                  : nullptr;
}

void EditingToolbarCommands::Cmd2_Click(int Index) {
    if (const Press pressed = press(Index)) pressed(*this);
}

void EditingToolbarCommands::playSelection() {
    studio_.player.Playing = true;
    parts_.player.PlaySelection();
    studio_.player.Playing = false;
}

void EditingToolbarCommands::togglePosition() {
    auto& shown = studio_.player.ShowPlayingPosition;
    shown = !shown;
    showPlayingPosition(studio_);
}

void EditingToolbarCommands::toggleLoop() {
    auto& loops = studio_.player.LoopSong;
    loops = !loops;
    showLoopSong(studio_);
}

void EditingToolbarCommands::toggleTool() {
    const bool selects = studio_.Form2.EditToolState == 1;
    showTool(selects);
    parts_.tools.FunctionBut_Click(selects ? edit_mode::select : edit_mode::draw);
}

void EditingToolbarCommands::showTool(bool selects) {
    studio_.Form2.EditToolState = selects ? 0 : 1;
    pictures.showTool(selects);
    fields.setEnabled(selects);
}

void EditingToolbarCommands::duplicateNotes() {
    parts_.duplication.takeToolbarChannels();
    const auto& values = studio_.duplicate;
    parts_.duplication.CopyNotes(values.ToolbarFirstChannel, values.ToolbarLastChannel);
}

void EditingToolbarCommands::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Form2", "Form_Load", this, &EditingToolbarCommands::Form_Load);
    operations.add("Form2", "Form_Activate", this, &EditingToolbarCommands::Form_Activate);
    operations.add("Form2", "Form_QueryUnload", this, &EditingToolbarCommands::Form_QueryUnload);
    operations.add("Form2", "Form_Unload", this, &EditingToolbarCommands::Form_Unload);
    operations.add("Form2", "Cmd2_Click", this, &EditingToolbarCommands::Cmd2_Click);
    fields.listNames(tables);
    pictures.listNames(tables);
}

}  // namespace melvane
