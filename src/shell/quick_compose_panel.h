#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

class ChannelLabelsPanel;
class ChordPanel;
class EffectSlidersPanel;
class Engine;
class NoteInstrumentPanel;

/// The Quick Compose bar: the note under inspection and the values for the next edits, in one row of panels
/// on a wide window and two on a narrow one.
class QuickComposePanel : public QWidget {
    Q_OBJECT

 public:
    QuickComposePanel(Studio& studio, QWidget* parent);
    void attach(Engine& engine);
    ChannelLabelsPanel& channels() { return *channels_; }

 private:
    ChannelLabelsPanel* channels_;
    ChordPanel* chord_;
    EffectSlidersPanel* sliders_;
    NoteInstrumentPanel* instrument_;
};

}  // namespace melvane
