#pragma once
#include <filesystem>
#include <fstream>
#include <sstream>

#include "program_fixture.h"

namespace melvane::test {

/// The program with its recorder open, on a device that captures silence and plays files of 10 seconds.
class RecorderTest : public ProgramTest {
 protected:
    using Lines = std::vector<std::string>;

    RecorderTest() {
        start();
        engine.recorder.window.Form_Load();
        media.log().take();
        window().Erbox.changed = [this] { shown_.push_back(erbox()); };
    }
    /// The recorder has gone to the program's folder, which goes with the test.
    ~RecorderTest() override { std::filesystem::current_path("/"); }

    RecorderCommands& recorder() { return engine.recorder; }
    RecordControls& window() { return studio.Record; }
    std::string erbox() { return window().Erbox.text(); }

    /// What Erbox showed since the last call, one message after the other; the same twice in a row counts
    /// once.
    Lines shown() { return std::exchange(shown_, {}); }
    /// The commands since the last call, with their answers, without their moments.
    Lines commands() {
        Lines lines;
        for (const auto& line : media.log().take()) lines.push_back(line.substr(line.find(' ') + 1));
        return lines;
    }
    /// The log's messages since the last call, without their times.
    Lines logged() {
        Lines lines;
        std::istringstream text(window().Text2.text());
        for (std::string line; std::getline(text, line);) lines.push_back(line.substr(line.find("  ") + 2));
        window().Text2.set({});
        return lines;
    }
    void makeLibraries() {
        write("akrip32.dll", "x");
        write("lame_enc.dll", "x");
    }
    using ProgramTest::write;
    std::string write(const std::string& name, const std::string& bytes) {
        std::ofstream(folder.file(name), std::ios::binary) << bytes;
        return folder.file(name);
    }
    static bool exists(const std::string& path) { return std::filesystem::exists(path); }
    static std::string read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
    /// The WAV files in the folder of recordings.
    Lines recordings() {
        Lines names;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "Songs"))
            if (entry.path().extension() == ".wav") names.push_back(entry.path().string());
        std::ranges::sort(names);
        return names;
    }

 private:
    Lines shown_;
};

}  // namespace melvane::test
