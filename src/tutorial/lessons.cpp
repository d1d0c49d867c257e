#include "tutorial/lessons.h"

#include <array>

namespace melvane {

namespace {

constexpr std::array all{&composingLesson, &chordsLesson,    &percussionLesson, &editingLesson,
                         &midiFileLesson,  &recordingLesson, &setupLesson,      &quickComposeLesson};

}  // namespace

std::span<const Lesson* const> lessons() { return all; }

}  // namespace melvane
