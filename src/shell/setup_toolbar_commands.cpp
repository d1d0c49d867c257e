#include "shell/setup_toolbar_commands.h"

#include "core/instrument_names.h"
#include "core/names.h"

namespace melvane {

SetupToolbarCommands::SetupToolbarCommands(Studio& studio, Parts parts)
    : settings(studio, parts.output),
      channels(studio,
               {parts.surfaces, parts.output, parts.channels, parts.instruments, parts.picker, settings}),
      sliders(studio, parts.output),
      chords(studio, parts.surfaces),
      size(studio, parts.settings, parts.score, parts.page),
      pace(studio, parts.surfaces),
      lines(studio, parts.settings, parts.surfaces, parts.page),
      studio_(studio),
      parts_(parts) {
    lines.setRange();
    auto& setup = studio.Form3;
    setup.TempoLabel.acted = [this] { pace.TempoLabel_Change(); };
    for (std::size_t channel = 0; channel < setup.Ch.size(); ++channel) {
        setup.Ch[channel].acted = [this, channel] { chords.Ch_Click(static_cast<int>(channel)); };
    }
    setup.Combo3.acted = [this] { chords.Combo3_Click(); };
    setup.Combo2.acted = [this] { parts_.output.chooseDevice(); };
    setup.Check1.acted = [this] { lines.Check1_Click(); };
    // The program fills these texts too, which stores and draws nothing.
    setup.TxBeats.acted = [this] {
        if (!channels.loading) pace.TxBeats_Change();
    };
    setup.Text3.acted = [this] {
        if (!channels.loading) lines.Text3_Change();
    };
    setup.VScroll3.acted = [this] {
        if (!channels.loading) lines.VScroll3_Change();
    };
}

void SetupToolbarCommands::Form_Load() {
    auto& setup = studio_.Form3;
    setup.loaded = true;
    channels.loading = true;
    showScore();
    readPlace("form3 left", setup.left);
    readPlace("form3 top", setup.top);
    channels.loading = false;
    parts_.output.fillDeviceList(setup.Combo2);
    studio_.sounds.ChordStep1 = 3;
    studio_.sounds.ChordStep2 = 7;
    studio_.sounds.ChordStep3 = 12;
    chords.fillList();
    channels.TrackSel_MouseDown(setup.SetupChannel, 0, 0, 0, 0);
    studio_.score.Tempo = 100;
    setup.TempoLabel.set("100");
    setup.LblInst1.set(std::string(instrumentName(studio_.instruments.MelodyInstrument)));
    setup.LblInst2.set(std::string(instrumentName(studio_.instruments.PercussionInstrument)));
    for (std::size_t track = 0; track < Grid::tracks; ++track) {
        studio_.tracks.TrackShown[track] = !studio_.isHidden(static_cast<int>(track));
    }
    settings.ResetChannels();
}

void SetupToolbarCommands::showScore() {
    auto& setup = studio_.Form3;
    auto& score = studio_.score;
    auto& page = studio_.page;
    setup.Text1.set(std::to_string(score.NumNotes));
    parts_.settings.read("Line_Height", Int16{8}, page.LineHeight);
    setup.Text3.set(std::to_string(page.LineHeight));
    setup.VScroll3.set(page.LineHeight);
    parts_.settings.read("Beats per measure", Int16{4}, score.BeatsPerMeasure);
    setup.TxBeats.set(std::to_string(score.BeatsPerMeasure));
    parts_.settings.read("Show_Sharp_guides", Int16{1}, page.ShowSharpGuides);
    setup.Check1.set(page.ShowSharpGuides == 1);
}

void SetupToolbarCommands::readPlace(const char* key, std::optional<double>& place) {
    if (const auto number = wholeNumberText(parts_.settings.GetSetting(key, ""))) place = *number;
}

void SetupToolbarCommands::savePlace(const char* key, const std::optional<double>& place) {
    std::int32_t twips = 0;
    if (place && assign(twips, *place)) parts_.settings.save(key, twips);
}

void SetupToolbarCommands::Form_Activate() {
    auto& list = studio_.Form3.Combo2;
    std::int32_t device = list.index() - 1;
    parts_.settings.read("Devices", std::int32_t{0}, device);
    if (device < INT32_MAX) list.set(device + 1);
    settings.ApplyChannelSettings();
    studio_.shell.Form3Open = true;
}

void SetupToolbarCommands::Form_LostFocus() {
    if (!studio_.Form3.loaded) return;
    if (!studio_.Form3.shown) studio_.shell.Form3Open = false;
    settings.ApplyChannelSettings();
}

void SetupToolbarCommands::Form_Unload() {
    auto& setup = studio_.Form3;
    auto& store = parts_.settings;
    const bool openAtTheEnd = studio_.shell.Form3Open && studio_.shell.Ending;
    studio_.shell.Form3Open = false;
    savePlace("form3 left", setup.left);
    savePlace("form3 top", setup.top);
    store.save("Devices", setup.Combo2.index() - 1);
    store.save("Form3", openAtTheEnd);
    assign(studio_.score.BeatsPerMeasure, leadingNumber(setup.TxBeats.text()));
    store.save("Beats per measure", studio_.score.BeatsPerMeasure);
    setup.loaded = false;
}

void SetupToolbarCommands::listNames(NameTables& tables) {
    auto& operations = tables.operations;
    operations.add("Form3", "Form_Load", this, &SetupToolbarCommands::Form_Load);
    operations.add("Form3", "Form_Activate", this, &SetupToolbarCommands::Form_Activate);
    operations.add("Form3", "Form_LostFocus", this, &SetupToolbarCommands::Form_LostFocus);
    operations.add("Form3", "Form_Deactivate", this, &SetupToolbarCommands::Form_LostFocus);
    operations.add("Form3", "Form_Unload", this, &SetupToolbarCommands::Form_Unload);
    settings.listNames(tables);
    channels.listNames(tables);
    sliders.listNames(tables);
    chords.listNames(tables);
    size.listNames(tables);
    pace.listNames(tables);
    lines.listNames(tables);
}

}  // namespace melvane
