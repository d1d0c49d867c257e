#include "core/keyboard_names.h"

#include "core/names.h"
#include "core/studio.h"

namespace melvane {

namespace {

constexpr const char* window = "frmsynth";

template <class Record, std::size_t Count, class Field>
void listField(StateTable& table, std::string name, std::array<Record, Count>& records,
               Field Record::*field) {
    const auto has = [](StateTable::Indices at) {
        return at[0] >= 0 && static_cast<std::size_t>(at[0]) < Count;
    };
    table.add({std::move(name), 1,
               [&records, field, has](StateTable::Indices at) -> std::optional<Value> {
                   if (!has(at)) return std::nullopt;
                   return toValue(records[static_cast<std::size_t>(at[0])].*field);
               },
               [&records, field, has](StateTable::Indices at, const Value& value) {
                   const auto converted = fromValue<Field>(value);
                   if (!converted || !has(at)) return false;
                   records[static_cast<std::size_t>(at[0])].*field = *converted;
                   return true;
               }});
}

void listChannels(StateTable& table, Keyboard& keyboard) {
    using Record = LiveChannelRecord;
    auto& channels = keyboard.ChannelTable;
    listField(table, "ChannelTable.Name", channels, &Record::Name);
    listField(table, "ChannelTable.Instrument", channels, &Record::Instrument);
    listField(table, "ChannelTable.Volume", channels, &Record::Volume);
    listField(table, "ChannelTable.Pan", channels, &Record::Pan);
    listField(table, "ChannelTable.Reverb", channels, &Record::Reverb);
    listField(table, "ChannelTable.Chorus", channels, &Record::Chorus);
    listField(table, "ChannelTable.Modulation", channels, &Record::Modulation);
    listField(table, "ChannelTable.Sustain", channels, &Record::Sustain);
    listField(table, "ChannelTable.Mute", channels, &Record::Mute);
}

void listPlaying(StateTable& table, Keyboard& keyboard) {
    table.add("OctaveShift", keyboard.OctaveShift);
    table.add("LiveChannel", keyboard.LiveChannel);
    table.add("StrumDelay", keyboard.StrumDelay);
    table.add("MouseChordType", keyboard.MouseChordType);
    table.add("NoteWord", keyboard.NoteWord);
    table.add("SpaceKeyCode", keyboard.SpaceKeyCode);
    table.add("KeyIsDown", keyboard.KeyIsDown);
    table.add("PressedKeyText", keyboard.PressedKeyText);
    table.add("HeldKeyText", keyboard.HeldKeyText);
    table.add("HistoryText", keyboard.HistoryText);
    table.add("ReleasedKeyText", keyboard.ReleasedKeyText);
    table.add("ReleasedMarkText", keyboard.ReleasedMarkText);
    table.add("CurrentKeyChar", keyboard.CurrentKeyChar);
    table.add("CurrentRow", keyboard.CurrentRow);
    table.add("LastTypedKey", keyboard.LastTypedKey);
    table.add("LastDownKey", keyboard.LastDownKey);
}

std::optional<TextList::Item> itemOf(const Value& value) {
    const auto* text = std::get_if<std::string>(&value);
    if (text != nullptr && text->empty()) return TextList::Item();
    const auto number =
        text != nullptr ? narrowed<std::int32_t>(leadingNumber(*text)) : fromValue<std::int32_t>(value);
    return number ? std::optional(TextList::Item(number)) : std::nullopt;
}

/// A read past the end shows an empty text; the item one past the end can be put, which adds it.
void listList(StateTable& table, const std::string& name, TextList& list) {
    table.add({std::string(window) + "." + name, 1,
               [&list](StateTable::Indices at) { return std::optional<Value>(list.text(at[0])); },
               [&list](StateTable::Indices at, const Value& value) {
                   const auto item = itemOf(value);
                   if (!item || at[0] < 0 || at[0] > list.count()) return false;
                   at[0] == list.count() ? list.add(*item) : list.set(at[0], *item);
                   return true;
               }});
    table.add(
        {std::string(window) + "." + name + ".count", 0,
         [&list](StateTable::Indices) { return std::optional<Value>(static_cast<long long>(list.count())); },
         [](StateTable::Indices, const Value&) { return false; }});
}

void listCapture(StateTable& table, Keyboard& keyboard) {
    listList(table, "List1", keyboard.List1);
    listList(table, "List3", keyboard.List3);
    listList(table, "List4", keyboard.List4);
    listList(table, "List5", keyboard.List5);
    table.add("RepeatCount", keyboard.RepeatCount);
    table.add("FirstKeyChar", keyboard.FirstKeyChar);
    table.add("PerformanceLength", keyboard.PerformanceLength);
    table.add("ComposerStopWatch", keyboard.ComposerStopWatch);
}

/// Under the window and under the control's own name: the score has a BeatsPerMeasure too.
void listMetronome(StateTable& table, MetronomeState& metronome) {
    for (const char* owner : {"frmsynth.", "cMetronome1."}) {
        const std::string own = owner;
        table.add(own + "BeatsPerMinute", metronome.BeatsPerMinute);
        table.add(own + "BeatsPerMeasure", metronome.BeatsPerMeasure);
        table.add(own + "BeatInterval", metronome.BeatInterval);
        table.add(own + "NextBeatTime", metronome.NextBeatTime);
        table.add(own + "LastCheckTime", metronome.LastCheckTime);
        table.add(own + "CurrentBeat", metronome.CurrentBeat);
        table.add(own + "CounterFrequency", metronome.CounterFrequency);
        table.add(own + "StartCount", metronome.StartCount);
        table.add(own + "StopCount", metronome.StopCount);
        table.add(own + "WatchRunning", metronome.WatchRunning);
    }
}

/// A property of a control as state of its own, read only: "frmsynth.CmdKey(3).Left".
template <class Kind, class Read>
void listProperty(StateTable& table, const std::string& control, const char* property, const Kind& owner,
                  Read read) {
    table.add({std::string(window) + "." + control + "." + property, 0,
               [&owner, read](StateTable::Indices) { return std::optional<Value>(read(owner)); },
               [](StateTable::Indices, const Value&) { return false; }});
}

template <class Kind, std::size_t Count, class Read>
void listProperty(StateTable& table, const std::string& control, const char* property,
                  const std::array<Kind, Count>& owners, Read read) {
    table.add({std::string(window) + "." + control + "." + property, 1,
               [&owners, read](StateTable::Indices at) -> std::optional<Value> {
                   if (at[0] < 0 || static_cast<std::size_t>(at[0]) >= Count) return std::nullopt;
                   return Value(read(owners[static_cast<std::size_t>(at[0])]));
               },
               [](StateTable::Indices, const Value&) { return false; }});
}

template <class Owner>
void listPlace(StateTable& table, const std::string& control, const Owner& owner) {
    listProperty(table, control, "Left", owner, [](const auto& box) { return box.place().left; });
    listProperty(table, control, "Top", owner, [](const auto& box) { return box.place().top; });
    listProperty(table, control, "Width", owner, [](const auto& box) { return box.place().width; });
    listProperty(table, control, "Height", owner, [](const auto& box) { return box.place().height; });
}

template <class Owner>
void listBackColour(StateTable& table, const std::string& control, const Owner& owner) {
    listProperty(table, control, "BackColor", owner,
                 [](const auto& box) { return BoxControl::colourNumber(box.backColour()); });
}

void listProperties(StateTable& table, KeyboardControls& frmsynth) {
    listPlace(table, "CmdKey", frmsynth.CmdKey);
    listBackColour(table, "CmdKey", frmsynth.CmdKey);
    listPlace(table, "NoteX", frmsynth.NoteX);
    listBackColour(table, "NoteX", frmsynth.NoteX);
    listPlace(table, "Picture1", frmsynth.Picture1);
    listBackColour(table, "Picture1", frmsynth.Picture1);
    listPlace(table, "Picture5", frmsynth.Picture5);
    listBackColour(table, "Picture5", frmsynth.Picture5);
    listBackColour(table, "pctBeat", frmsynth.pctBeat);
    listBackColour(table, "Label8", frmsynth.Label8);
    listProperty(table, "Label4", "ForeColor", frmsynth.Label4,
                 [](const PanicBar& bar) { return BoxControl::colourNumber(bar.textColour()); });
}

void listPiano(ControlTable& table, KeyboardControls& frmsynth) {
    table.add(window, "CmdKey", frmsynth.CmdKey);
    table.add(window, "NoteX", frmsynth.NoteX);
    table.add(window, "Picture1", frmsynth.Picture1);
    table.add(window, "Picture2", frmsynth.Picture2);
    table.add(window, "Picture5", frmsynth.Picture5);
    table.add(window, "Text14", frmsynth.Text14);
    table.add(window, "Label3", frmsynth.Label3);
    table.add(window, "Label4", frmsynth.Label4);
    table.add(window, "Check1", frmsynth.Check1);
    table.add(window, "CmdEd", frmsynth.CmdEd);
    table.add(window, "Command1", frmsynth.Command1);
    table.add(window, "Command6", frmsynth.Command6);
    table.add(window, "Check10", frmsynth.Check10);
    table.add(window, "Check8", frmsynth.Check8);
    table.add(window, "Check2", frmsynth.Check2);
    table.add(window, "Chkstrum", frmsynth.Chkstrum);
    table.add(window, "ChkSustain", frmsynth.ChkSustain);
    table.add(window, "ChkMute", frmsynth.ChkMute);
}

void listSettings(ControlTable& table, KeyboardControls& frmsynth) {
    table.add(window, "Text1", frmsynth.Text1);
    table.add(window, "Text4", frmsynth.Text4);
    table.add(window, "Label5", frmsynth.Label5);
    table.add(window, "Text7", frmsynth.Text7);
    table.add(window, "LblChord", frmsynth.LblChord);
    table.add(window, "LblOctave", frmsynth.LblOctave);
    table.add(window, "LblChannel", frmsynth.LblChannel);
    table.add(window, "LblInstrument", frmsynth.LblInstrument);
    table.add(window, "Option5", frmsynth.Option5);
    table.add(window, "OptOct", frmsynth.OptOct);
    table.add(window, "optChord", frmsynth.optChord);
    table.add(window, "VsbOctave", frmsynth.VsbOctave);
    table.add(window, "Command5", frmsynth.Command5);
    table.add(window, "Combo1", frmsynth.Combo1);
    table.add(window, "Label11", frmsynth.Label11);
    table.add(window, "LMod", frmsynth.LMod);
    table.add(window, "LPan", frmsynth.LPan);
    table.add(window, "LReverb", frmsynth.LReverb);
    table.add(window, "LChorus", frmsynth.LChorus);
    table.add(window, "chkRunning", frmsynth.chkRunning);
    table.add(window, "Check9", frmsynth.Check9);
    table.add(window, "txtValue", frmsynth.txtValue);
    table.add(window, "Optbeat", frmsynth.Optbeat);
    table.add(window, "Picmetro", frmsynth.Picmetro);
    table.add(window, "pctBeat", frmsynth.pctBeat);
}

void listComposer(ControlTable& table, KeyboardControls& frmsynth) {
    table.add(window, "Label8", frmsynth.Label8);
    table.add(window, "Text2", frmsynth.Text2);
    table.add(window, "Text8", frmsynth.Text8);
    table.add(window, "Text9", frmsynth.Text9);
    table.add(window, "Text11", frmsynth.Text11);
    table.add(window, "Text12", frmsynth.Text12);
    table.add(window, "Check3", frmsynth.Check3);
    table.add(window, "Check4", frmsynth.Check4);
    table.add(window, "Check5", frmsynth.Check5);
    table.add(window, "Check6", frmsynth.Check6);
    table.add(window, "Check7", frmsynth.Check7);
    table.add(window, "Command2", frmsynth.Command2);
    table.add(window, "Command4", frmsynth.Command4);
    table.add(window, "Command10", frmsynth.Command10);
    table.add(window, "Command11", frmsynth.Command11);
    table.add(window, "CmdRec", frmsynth.CmdRec);
    table.add(window, "CmdRecord", frmsynth.CmdRecord);
    table.add(window, "CmdEdit", frmsynth.CmdEdit);
    for (int index = 1; index < static_cast<int>(frmsynth.Cmd2.size()); ++index) {
        table.addMember(window, "Cmd2", index, frmsynth.Cmd2[static_cast<std::size_t>(index)]);
    }
    for (const int index : {1, 6, 11, 12, 13}) {
        table.addMember(window, "Cmd4", index, frmsynth.Cmd4[static_cast<std::size_t>(index)]);
    }
}

void listSlider(ControlTable& table, const std::string& name, SliderControl& slider,
                const char* pointer = "Ptr") {
    table.add(window, name, slider);
    table.add(window, name + pointer, slider.pointer);
}

void listSliders(ControlTable& table, KeyboardControls& frmsynth) {
    listSlider(table, "lblVolume", frmsynth.lblVolume);
    listSlider(table, "LblMod", frmsynth.LblMod);
    listSlider(table, "LblPan", frmsynth.LblPan);
    listSlider(table, "LblReverb", frmsynth.LblReverb);
    listSlider(table, "LblChorus", frmsynth.LblChorus);
    listSlider(table, "LblCh", frmsynth.LblCh);
    listSlider(table, "LblOct", frmsynth.LblOct);
    listSlider(table, "LblCrd", frmsynth.LblCrd);
    listSlider(table, "LblStrum", frmsynth.LblStrum);
    listSlider(table, "LblSpeed", frmsynth.LblSpeed);
    listSlider(table, "LblPauses", frmsynth.LblPauses);
    listSlider(table, "LblTempo", frmsynth.LblTempo);
    listSlider(table, "LblFileSpeed", frmsynth.LblFileSpeed);
    listSlider(table, "Lblbeats", frmsynth.Lblbeats, "ptr");
}

}  // namespace

void listKeyboard(NameTables& tables, Studio& studio) {
    listChannels(tables.state, studio.keyboard);
    listPlaying(tables.state, studio.keyboard);
    listCapture(tables.state, studio.keyboard);
    listMetronome(tables.state, studio.keyboard.cMetronome1);
    listProperties(tables.state, studio.frmsynth);
    listPiano(tables.controls, studio.frmsynth);
    listSettings(tables.controls, studio.frmsynth);
    listComposer(tables.controls, studio.frmsynth);
    listSliders(tables.controls, studio.frmsynth);
}

}  // namespace melvane
