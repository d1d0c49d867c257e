#pragma once
#include <gtest/gtest.h>

#include "private_display.h"
#include "private_sound_server.h"
#include "studio_session.h"
#include "tune.h"
#include "unit/temporary_folder.h"

namespace melvane::e2e {

/// The program on a display, with a sound server that a test may start, and a home of its own.
class StudioTest : public testing::Test {
 protected:
    void SetUp() override { ASSERT_EQ(display.start(), ""); }
    void TearDown() override {
        if (HasFailure()) ADD_FAILURE() << "the program said: " << studio.complaints();
    }

    std::string file(const std::string& name) const { return folder.file(name); }
    std::string home() const {
        return std::filesystem::path(folder.make("home/.keep")).parent_path().string();
    }

    test::TemporaryFolder folder;
    PrivateDisplay display{folder.path().string()};
    sound_test::PrivateSoundServer server;
    WindowRuler ruler;
    StudioSession studio{ruler, display, {home(), server.folder()}};
};

}  // namespace melvane::e2e
