#pragma once
#include "core/studio.h"
#include "platform/event_loop.h"

namespace melvane {

struct NameTables;

/// Where the keys and their labels stand, in twips. Black keys lie over the white ones, labels over both.
class KeyLayout {
 public:
    KeyLayout(Studio& studio, EventLoop& loop) : studio_(studio), loop_(loop) {}

    /// The design's places, with the keys in their resting colours. Picture1 and Picture5 become as wide as
    /// the keys, and Text14 keeps that width.
    void layKeys();
    /// The keys for another width: `Scale` is the width of Picture5 by that of Text14.
    void ResizeKeys(double Scale);

    void listNames(NameTables& tables);

 private:
    Studio& studio_;
    EventLoop& loop_;
};

}  // namespace melvane
