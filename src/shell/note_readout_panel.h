#pragma once
#include <QFrame>

#include "core/studio.h"

namespace melvane {

class Engine;

/// The note under inspection: channel, column and name, velocity, instrument.
class NoteReadoutPanel : public QFrame {
    Q_OBJECT

 public:
    NoteReadoutPanel(Studio& studio, QWidget* parent);
};

/// The chord of the next notes, and the notes of the chord in words.
class ChordPanel : public QFrame {
    Q_OBJECT

 public:
    ChordPanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
};

/// The instrument of the next note, and the switches of the single-note effects.
class NoteInstrumentPanel : public QFrame {
    Q_OBJECT

 public:
    NoteInstrumentPanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
};

}  // namespace melvane
