// The program under a random user for as long as one likes: does it answer, does its memory stay, do its
// files, and is it silent when it was told to be?
//
//     melvane-soak MINUTES SEED PROGRAM [ARGUMENT...]
//
// The display ($DISPLAY, with a window manager), the sound server and the home folder are those of the
// environment: tests/soak/run makes private ones. $MELVANE_SOAK_PRELOAD is preloaded into the program, and
// $MELVANE_SOAK_HEAP is the file into which heap_probe.cpp writes then. The exit status is 0 when all held.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "soak/random_user.h"
#include "soak/watch.h"
#include "soak/x_session.h"

namespace melvane::soak {

namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

constexpr milliseconds patience{60000};  // the sanitizers make everything slow
constexpr seconds startPatience{120};
constexpr seconds endPatience{120};
constexpr int actionsBetweenLooks = 20;
constexpr int mostActionsOnDialog = 400;
constexpr double leastMinutes = 60;  // of a run that has to tell whether the memory stays
constexpr float quietest = 1e-4F;    // of full scale: what counts as silence

/// Of the environment; empty when it is not set.
std::string textOf(const char* name) {
    const char* const text = getenv(name);
    return text == nullptr ? "" : text;
}

/// The program, started and watched.
class Program {
 public:
    explicit Program(std::vector<char*> command) : command_(std::move(command)) {
        command_.push_back(nullptr);
    }

    void start() {
        id_ = fork();
        if (id_ != 0) return;
        if (const char* const preloaded = getenv("MELVANE_SOAK_PRELOAD")) setenv("LD_PRELOAD", preloaded, 1);
        execvp(command_[0], command_.data());
        _exit(127);
    }
    pid_t id() const { return id_; }
    bool isRunning() {
        if (id_ <= 0) return false;
        if (waitpid(id_, &status_, WNOHANG) == 0) return true;
        id_ = -1;
        return false;
    }
    bool endedWell() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == 0; }
    std::string end() const {
        return WIFSIGNALED(status_) ? "signal " + std::to_string(WTERMSIG(status_))
                                    : "exit status " + std::to_string(WEXITSTATUS(status_));
    }
    void abort() {
        ::kill(id_, SIGABRT);
        for (int turn = 0; turn < 200 && isRunning(); ++turn) std::this_thread::sleep_for(milliseconds(100));
    }
    void kill() const {
        if (id_ > 0) ::kill(id_, SIGKILL);
    }

 private:
    std::vector<char*> command_;
    pid_t id_ = -1;
    int status_ = 0;
};

class Soak {
 public:
    Soak(XSession& session, Program& program, double minutes, unsigned seed)
        : session_(session),
          program_(program),
          user_(session, seed),
          minutes_(minutes),
          files_(getenv("HOME")),
          heapFile_(textOf("MELVANE_SOAK_HEAP")) {}

    bool run() {
        if (!begin() || !play() || !calmDown()) return false;
        checkSilence();
        if (!endProgram()) return false;
        return report();
    }

 private:
    double minute() const {
        return std::chrono::duration<double, std::ratio<60>>(steady_clock::now() - start_).count();
    }

    bool fail(const std::string& what) {
        std::printf("FAILED after %.1f minutes and %ld actions: %s; the user did: %s\n", minute(), actions_,
                    what.c_str(), user_.lastActions().c_str());
        std::fflush(stdout);
        return false;
    }

    bool begin() {
        program_.start();
        const auto limit = steady_clock::now() + startPatience;
        while (steady_clock::now() < limit && program_.isRunning()) {
            if (mainWindow().id != 0) return true;
            std::this_thread::sleep_for(milliseconds(200));
        }
        return fail("no main window");
    }

    VisibleWindow mainWindow() {
        const auto windows = session_.windowsOf(program_.id());
        const auto found = std::ranges::find_if(windows, RandomUser::isMain);
        return found == windows.end() ? VisibleWindow{} : *found;
    }

    bool play() {
        start_ = steady_clock::now();
        while (minute() < minutes_) {
            const auto windows = session_.windowsOf(program_.id());
            if (!program_.isRunning()) {
                if (!restart()) return false;
                continue;
            }
            if (windows.empty() && minute() > lastWindow_ + 1)
                return fail("no window has been there for a minute");
            if (!windows.empty()) lastWindow_ = minute();
            if (!dialogsClose(windows)) return false;
            user_.act(windows);
            std::this_thread::sleep_for(milliseconds(20 + actions_ % 60));
            if (++actions_ % actionsBetweenLooks == 0 && !look()) return false;
        }
        return true;
    }

    /// A dialog is closed by some of the first dozens of actions upon it.
    bool dialogsClose(const std::vector<VisibleWindow>& windows) {
        const auto dialog = std::ranges::find_if(windows, &VisibleWindow::modal);
        const unsigned long id = dialog == windows.end() ? 0 : dialog->id;
        actionsOnDialog_ = id != 0 && id == dialog_ ? actionsOnDialog_ + 1 : 0;
        dialog_ = id;
        return actionsOnDialog_ < mostActionsOnDialog ||
               fail("the dialog '" + dialog->title + "' does not close; " + session_.inputState());
    }

    /// The user found the way out after all: that is no fault, as long as the end was a good one.
    bool restart() {
        if (!program_.endedWell()) return fail("the program ended with " + program_.end());
        ++ends_;
        std::printf("ended after %.1f minutes; the user did: %s\n", minute(), user_.lastActions().c_str());
        std::fflush(stdout);
        lives_.emplace_back(minute());
        return begin();
    }

    bool look() {
        const auto taken = session_.timeToAnswer(program_.id(), patience);
        if (!taken) {
            program_.abort();  // the sanitizer tells where it is
            return fail("it has not served events for a minute");
        }
        slowest_ = std::max(slowest_, *taken);
        session_.restore(program_.id());
        if (minute() >= nextSample_) {
            nextSample_ = minute() + 0.25;
            lives_.back().add(minute(), memoryOf(program_.id(), heapFile_));
            files_.look();
        }
        return true;
    }

    /// Lets go of everything: dialogs, the other windows, what plays. The main window may be hidden by
    /// another one.
    bool calmDown() {
        constexpr int mostTurns = 200;
        for (int turn = 0; turn < mostTurns && program_.isRunning(); ++turn) {
            session_.restore(program_.id());
            const auto windows = session_.windowsOf(program_.id());
            const auto dialog =
                std::ranges::find_if(windows, [](const auto& it) { return it.popup || it.modal; });
            const auto other = std::ranges::find_if(windows, [](const auto& it) {
                return !RandomUser::isMain(it) && !RandomUser::isKeyboard(it);
            });
            const auto keyboard = std::ranges::find_if(windows, RandomUser::isKeyboard);
            if (dialog != windows.end()) {
                tap("Escape");
                if (turn % 5 == 4) session_.close(dialog->id);
            } else if (other != windows.end()) {
                session_.close(other->id);
            } else if (keyboard != windows.end()) {
                session_.activate(keyboard->id);
                click(RandomUser::wayBack(*keyboard));
            } else if (!windows.empty()) {
                return stopAll(windows.front());
            }
            std::this_thread::sleep_for(milliseconds(500));
        }
        for (const auto& it : session_.windowsOf(program_.id()))
            std::printf("  '%s' %dx%d, popup %d, modal %d\n", it.title.c_str(), it.width, it.height, it.popup,
                        it.modal);
        return fail(program_.isRunning() ? "it did not come to rest; " + session_.inputState()
                                         : "it ended with " + program_.end());
    }

    bool stopAll(const VisibleWindow& main) {
        click({main.x + main.width / 2, main.y + 8});
        tap("F7");
        return true;
    }

    void click(Point place) {
        session_.moveTo(place);
        session_.press(1);
        session_.release(1);
    }

    void tap(const char* key) {
        session_.pressKey(key);
        session_.releaseKey(key);
    }

    /// Two seconds of what the sound server plays, some seconds after all was stopped.
    void checkSilence() {
        std::this_thread::sleep_for(seconds(10));
        FILE* const heard =
            popen("timeout 3 parec --format=float32le --rate=44100 --channels=2 -d card.monitor", "r");
        if (heard == nullptr) return;
        float sample = 0;
        while (fread(&sample, sizeof sample, 1, heard) == 1) {
            ++samples_;
            loudest_ = std::max(loudest_, std::fabs(sample));
        }
        pclose(heard);
    }

    bool endProgram() {
        session_.close(mainWindow().id);
        const auto limit = steady_clock::now() + endPatience;
        while (steady_clock::now() < limit) {
            if (!program_.isRunning()) return program_.endedWell() || fail("it ended with " + program_.end());
            std::this_thread::sleep_for(milliseconds(500));
            for (const auto& window : session_.windowsOf(program_.id())) {
                if (window.modal) tap("Return");
            }
        }
        return fail("it did not end");
    }

    bool report() {
        files_.look();
        files_.look();
        std::printf("%.0f minutes, %ld actions, ended and started again %d times\n", minutes_, actions_,
                    ends_);
        std::printf("longest time until events were served: %ld ms\n", static_cast<long>(slowest_.count()));
        for (const MemoryWatch& life : lives_) std::printf("%s", life.report().c_str());
        std::printf("loudest of %ld samples after the stop: %g\n", samples_, static_cast<double>(loudest_));
        std::printf("files: %zu, lost: %zu\n", files_.seen(), files_.losses().size());
        for (const std::string& loss : files_.losses()) std::printf("  %s\n", loss.c_str());
        bool good = files_.losses().empty();
        if (samples_ == 0 || loudest_ > quietest) good = fail("it is not silent");
        if (std::ranges::any_of(lives_, [](const auto& life) { return life.isLong() && !life.isFlat(); }))
            good = fail("the memory grows");
        if (minutes_ >= leastMinutes && std::ranges::none_of(lives_, &MemoryWatch::isLong))
            good = fail("no life of the program was long enough for its memory to be judged");
        std::printf(good ? "all held\n" : "not all held\n");
        return good;
    }

    XSession& session_;
    Program& program_;
    RandomUser user_;
    double minutes_;
    FileWatch files_;
    std::string heapFile_;
    std::vector<MemoryWatch> lives_{MemoryWatch(0)};
    steady_clock::time_point start_ = steady_clock::now();
    double nextSample_ = 0, lastWindow_ = 0;
    long actions_ = 0, samples_ = 0;
    int ends_ = 0, actionsOnDialog_ = 0;
    unsigned long dialog_ = 0;
    float loudest_ = 0;
    milliseconds slowest_{0};
};

}  // namespace

}  // namespace melvane::soak

int main(int count, char** arguments) {
    using namespace melvane::soak;
    if (count < 4 || getenv("HOME") == nullptr) {
        std::fprintf(stderr, "melvane-soak MINUTES SEED PROGRAM [ARGUMENT...]\n");
        return 2;
    }
    const auto session = XSession::open();
    if (session == nullptr) {
        std::fprintf(stderr, "There is no display that takes made-up events.\n");
        return 2;
    }
    Program program({arguments + 3, arguments + count});
    Soak soak(*session, program, std::atof(arguments[1]), static_cast<unsigned>(std::atol(arguments[2])));
    const bool good = soak.run();
    program.kill();
    return good ? 0 : 1;
}
