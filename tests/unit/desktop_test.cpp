#include "platform/desktop.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "recorder_fixture.h"

namespace melvane::test {
namespace {

/// The PATH of the program while it lives.
class SearchPath {
 public:
    explicit SearchPath(const std::string& path) : before_(std::getenv("PATH")) {
        setenv("PATH", path.c_str(), 1);
    }
    ~SearchPath() { setenv("PATH", before_.c_str(), 1); }
    SearchPath(const SearchPath&) = delete;
    SearchPath& operator=(const SearchPath&) = delete;

 private:
    std::string before_;
};

/// A folder of mixers, each a script that tells its name and its arguments into a pipe.
class DesktopTest : public RecorderTest {
 protected:
    DesktopTest() {
        const std::string pipe = folder.file("told");
        EXPECT_EQ(mkfifo(pipe.c_str(), 0600), 0);
        pipe_ = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
        EXPECT_GE(pipe_, 0);
        std::filesystem::create_directory(programs());
    }
    ~DesktopTest() override { close(pipe_); }

    std::string programs() const { return folder.file("programs"); }
    void addMixer(const std::string& name) {
        const std::string path = programs() + "/" + name;
        std::ofstream(path) << "#!/bin/sh\necho " << name << " \"$@\" > \"" << folder.file("told") << "\"\n";
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    }
    /// The line of the mixer that was started, which comes in its own time.
    std::string told() const {
        constexpr int longestWait = 20000;  // milliseconds
        pollfd waiting{pipe_, POLLIN, 0};
        if (poll(&waiting, 1, longestWait) != 1) return "nothing";
        std::array<char, 100> line{};
        const ssize_t length = ::read(pipe_, line.data(), line.size());
        return {line.data(), static_cast<std::size_t>(std::max<ssize_t>(length, 0))};
    }
    /// Presses the button of a recorder on the system's desktop.
    void pressMixerButton() {
        SystemDesktop system;
        Outside world{time,   time,  port,    media,
                      system, store, dialogs, Directories{folder.path(), MELVANE_RESOURCES}};
        Studio other;
        Engine program(other, world, surfaces, frame, toolWindows);
        program.recorder.window.Form_Load();
        other.Record.Command1.userPut(Value(1LL));
    }

 private:
    int pipe_ = -1;
};

TEST_F(DesktopTest, TheMixerIsStarted) {
    addMixer("pavucontrol");
    const SearchPath path(programs());
    ASSERT_TRUE(SystemDesktop().openMixer());
    EXPECT_EQ(told(), "pavucontrol\n");
}

TEST_F(DesktopTest, OfSeveralMixersTheFirstOfTheListIsStartedWithItsArgument) {
    for (const char* const name : {"alsamixergui", "kmix", "gnome-control-center"}) addMixer(name);
    const SearchPath path(programs());
    ASSERT_TRUE(SystemDesktop().openMixer());
    EXPECT_EQ(told(), "gnome-control-center sound\n");
}

TEST_F(DesktopTest, WithoutAPathThereIsNoMixer) {
    const SearchPath path("");
    EXPECT_FALSE(SystemDesktop().openMixer());
}

TEST_F(DesktopTest, AMixerThatStartsIsNotToldOf) {
    addMixer("pavucontrol");
    const SearchPath path(programs());
    pressMixerButton();
    EXPECT_EQ(told(), "pavucontrol\n");
    EXPECT_TRUE(dialogs.takeBoxes().empty());
}

TEST_F(DesktopTest, AFolderWithoutMixersIsToldOf) {
    const SearchPath path(programs());
    pressMixerButton();
    EXPECT_EQ(dialogs.takeBoxes(),
              (Lines{"box exclamation \"Melvane - Error\" \"Unable to load SndVol32.exe\""}));
}

}  // namespace
}  // namespace melvane::test
