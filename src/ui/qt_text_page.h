#pragma once

class QPlainTextEdit;
class QTextEdit;

namespace melvane {

/// A page whose text can be selected and copied, but not dragged away: a drag runs an event loop of its own,
/// which takes all input from the windows until it ends. A press of the left button begins a new selection.
void keepTextInPlace(QTextEdit& page);
void keepTextInPlace(QPlainTextEdit& page);

}  // namespace melvane
