#include "playback_stage.h"

#include <QCoreApplication>
#include <QEvent>
#include <array>
#include <filesystem>

namespace melvane::bench {

namespace {

constexpr std::uint32_t noteOnOfTrack0 = 0x90;
constexpr std::array<int, Stage::tracks> trackNumbers{0, 1, 2, 3, 4, 5, 6, 7, 8, 10, 11, 12};

}  // namespace

MidiPort::Result ColumnPort::midiOutShortMsg(Handle, std::uint32_t message) {
    if ((message & 0xFF) != noteOnOfTrack0) return ok;
    columns.push_back(std::chrono::steady_clock::now());
    if (columnCame) columnCame();
    return ok;
}

Prompter::Prompter(std::function<void()> call) : call_(std::move(call)), thread_([this] { run(); }) {}

Prompter::~Prompter() {
    {
        const std::lock_guard lock(guard_);
        over_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Prompter::callAt(Moment moment) {
    {
        const std::lock_guard lock(guard_);
        next_ = moment;
    }
    changed_.notify_one();
}

void Prompter::run() {
    std::unique_lock lock(guard_);
    while (!over_) {
        changed_.wait(lock, [this] { return over_ || next_; });
        if (over_) return;
        const Moment moment = *next_;
        next_.reset();
        lock.unlock();
        std::this_thread::sleep_until(moment);
        QCoreApplication::postEvent(this, new QEvent(QEvent::User));
        lock.lock();
    }
}

bool Prompter::event(QEvent* event) {
    if (event->type() != QEvent::User) return QObject::event(event);
    call_();
    return true;
}

Stage::Stage()
    : outside{clock,
              loop,
              port,
              media,
              desktop,
              store,
              dialogs,
              Directories{std::filesystem::temp_directory_path() / "melvane-bench", MELVANE_RESOURCES}},
      program(outside) {
    store.write("Form3", "False");
    program.start();
    while (program.prepareWindow()) {
    }
    program.window().setGeometry(0, 0, 1920, 1080);
    loop.runQueue();
    program.studio().Form3.Text3.set("12");
    program.engine().page.Form_Resize();
    fill();
    program.window().DrawNoteArray();
    program.window().DrawBeatArray();
    loop.runQueue();
}

void Stage::fill() {
    auto& studio = program.studio();
    for (const int track : trackNumbers) {
        const auto at = static_cast<std::size_t>(track);
        studio.tracks.TrackActive[at] = studio.tracks.TrackVisible[at] = true;
        for (int column = 0; column < columns; ++column) {
            const int row = isMelodyTrack(track) ? 45 + track * 6 + column % 5 : 42 + track % 4;
            studio.score.NoteArray.set(track, column, row);
            studio.score.InstArray.set(track, column, isMelodyTrack(track) ? track : 128 + track);
        }
    }
    studio.score.UsedTrackCount = 13;
}

std::vector<double> Stage::play() {
    port.columns.clear();
    program.studio().score.Tempo = tempo;
    program.engine().toolbar.play();
    std::vector<double> late;
    for (std::size_t at = 1; at < port.columns.size(); ++at) {
        const std::chrono::duration<double> took = port.columns[at] - port.columns[at - 1];
        late.push_back((took.count() - step) * 1000);
    }
    return late;
}

}  // namespace melvane::bench
