#include "recorder_user.h"

#include <stdexcept>

#include "patience.h"

namespace melvane::e2e {

namespace {

constexpr double listSeconds = 0.3;  // a list opens before it takes keys
constexpr const char* stopButton = "CmdStopRecording";

}  // namespace

RecorderUser::RecorderUser(StudioSession& studio) : studio_(studio) {
    studio.click("form1", "ImgPic(10)");
    studio.waitForWindow("Record");
    rest(listSeconds);
    stopAtRest_ = studio.lookAt("Record", stopButton);
}

void RecorderUser::chooseSource(const std::string& option) { studio_.click("Record", option); }

void RecorderUser::chooseLastFormat() {
    studio_.click("Record", "cbxFormat");
    for (const char* const key : {"End", "Return"}) {
        rest(listSeconds);
        studio_.hand().strike(key);
    }
    rest(listSeconds);
}

void RecorderUser::switchEncodingOff() { studio_.click("Record", "Check2"); }

void RecorderUser::start() { studio_.click("Record", "CmdrecordSNG"); }

void RecorderUser::waitForRecording(bool runs, double seconds) {
    const auto isSo = [&] { return (studio_.lookAt("Record", stopButton) != stopAtRest_) == runs; };
    if (!comesTrue(seconds, isSo))
        throw std::runtime_error(runs ? "no recording begins" : "the recording does not end");
}

void RecorderUser::stop() { studio_.click("Record", stopButton); }

void RecorderUser::play() { studio_.click("Record", "ImgR(1)"); }

}  // namespace melvane::e2e
