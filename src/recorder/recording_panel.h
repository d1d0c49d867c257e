#pragma once
#include <QWidget>

#include "core/studio.h"

namespace melvane {

/// The upper half of the recorder's window: the source, the buttons of a recording and of an encoding, and
/// how both are made.
class RecordingPanel : public QWidget {
    Q_OBJECT

 public:
    RecordingPanel(RecordControls& Record, QWidget* parent);

 private:
    QWidget* makeSources();
    QWidget* makeControls();
    QWidget* makeRecordingFormat();
    QWidget* makeEncoderFormat();
    QWidget* makeLog();
    QWidget* makeMixer();

    RecordControls& Record_;
};

}  // namespace melvane
