#pragma once
#include <span>

#include "tutorial/lesson.h"

namespace melvane {

extern const Lesson composingLesson, chordsLesson, percussionLesson, editingLesson, midiFileLesson,
    recordingLesson, setupLesson, quickComposeLesson;

/// All lessons, in the order of their tabs.
std::span<const Lesson* const> lessons();

/// The titles of so many lessons, from the first, have given names: "Ltit1" and on.
inline constexpr int titlesWithAName = 7;

}  // namespace melvane
