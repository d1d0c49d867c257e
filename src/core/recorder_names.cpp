#include "core/recorder_names.h"

#include "core/names.h"
#include "core/studio.h"

namespace melvane {

namespace {

constexpr const char* window = "Record";

void listState(StateTable& table, Recorder& recorder) {
    table.add("StopRequested", recorder.StopRequested);
    table.add("PlayerStopped", recorder.PlayerStopped);
    table.add("EncodeCancel", recorder.EncodeCancel);
    table.add("SongsDir", recorder.SongsDir);
    table.add("OpenMediaFile", recorder.OpenMediaFile);
    table.add("MediaFrames", recorder.MediaFrames);
    table.add("MediaSeconds", recorder.MediaSeconds);
    table.add("MediaFrameRate", recorder.MediaFrameRate);
    table.add("MediaPosition", recorder.MediaPosition);
    table.add("MediaTimeSeconds", recorder.MediaTimeSeconds);
    table.add("Record.OpenFolder", recorder.OpenFolder);
    table.add("Record.SaveFolder", recorder.SaveFolder);
    table.add("Record.AudioFolder", recorder.AudioFolder);
}

void listWidth(StateTable& table, const std::string& name, const AreaControl& area) {
    table.add(
        {std::string(window) + "." + name + ".Width", 0,
         [&area](StateTable::Indices) { return std::optional<Value>(static_cast<long long>(area.width())); },
         [](StateTable::Indices, const Value&) { return false; }});
}

void listRecording(ControlTable& table, RecordControls& Record) {
    table.add(window, "Optsourcesng", Record.Optsourcesng);
    table.add(window, "Optsourcemid", Record.Optsourcemid);
    table.add(window, "Optsourcekeyboard", Record.Optsourcekeyboard);
    table.add(window, "CmdrecordSNG", Record.CmdrecordSNG);
    table.add(window, "CmdStopRecording", Record.CmdStopRecording);
    table.add(window, "Command20", Record.Command20);
    table.add(window, "CmdLog", Record.CmdLog);
    table.add(window, "Command1", Record.Command1);
    table.add(window, "cbxFormat", Record.cbxFormat);
    table.add(window, "Check2", Record.Check2);
    table.add(window, "Check3", Record.Check3);
    table.add(window, "Check4", Record.Check4);
    table.add(window, "Combo3", Record.Combo3);
    table.add(window, "Combo4", Record.Combo4);
    table.add(window, "Text6", Record.Text6);
    table.add(window, "InputPath", Record.InputPath);
    table.add(window, "OutPutPath", Record.OutPutPath);
    table.add(window, "Erbox", Record.Erbox);
    table.add(window, "Label8", Record.Label8);
    table.add(window, "Status", Record.Status);
    table.add(window, "Text2", Record.Text2);
}

void listPlayer(ControlTable& table, RecordControls& Record) {
    table.add(window, "Cmd2", Record.Cmd2);
    table.add(window, "ImgR", Record.ImgR);
    table.add(window, "Picture7", Record.Picture7);
    table.add(window, "Picture5", Record.Picture5);
    table.add(window, "P2", Record.P2);
    table.add(window, "L2", Record.L2);
    table.add(window, "picMP3", Record.picMP3);
    table.add(window, "lblTime", Record.lblTime);
    table.add(window, "lblKhz", Record.lblKhz);
    table.add(window, "lblbitrate", Record.lblbitrate);
    table.add(window, "lblmode", Record.lblmode);
}

}  // namespace

void listRecorder(NameTables& tables, Studio& studio) {
    listState(tables.state, studio.recorder);
    listWidth(tables.state, "P2", studio.Record.P2);
    listWidth(tables.state, "L2", studio.Record.L2);
    listRecording(tables.controls, studio.Record);
    listPlayer(tables.controls, studio.Record);
    tables.controls.add("frmLog", "Text1", studio.frmLog.Text1);
}

}  // namespace melvane
