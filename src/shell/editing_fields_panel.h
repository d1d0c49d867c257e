#pragma once
#include <QFrame>
#include <functional>

#include "core/studio.h"

class QBoxLayout;

namespace melvane {

/// The ground Picture2 of the Editing toolbar: the fields of "Duplicate notes" and of "Insert # Space(s) ",
/// each beside its button.
class EditingFieldsPanel : public QFrame {
    Q_OBJECT

 public:
    /// Gives the flat button of an index.
    using MakeButton = std::function<QWidget*(int index)>;
    EditingFieldsPanel(Studio& studio, MakeButton makeButton, QWidget* parent);

 private:
    QWidget* makeGround(const char* name, AreaControl& area);
    QWidget* makeDuplication();
    QWidget* makeSpaces();
    QBoxLayout* makeChannels();
    void addField(QBoxLayout& row, std::size_t label, const char* name, TextControl& text);
    void addBar(QBoxLayout& row, const char* name, ScrollControl& bar, const TextControl& text);

    EditingControls& toolbar_;
    MakeButton makeButton_;
};

}  // namespace melvane
