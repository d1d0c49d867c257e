#include "synth/piano_view.h"

#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

#include "core/qt_pixels.h"
#include "synth/key_colours.h"
#include "ui/qt_accessibility.h"
#include "ui/qt_bindings.h"
#include "ui/qt_style.h"

namespace melvane {

namespace {

constexpr double groundCorner = 7.5, whiteCorner = 4, blackCorner = 3;  // pixels
constexpr int lip = 6;                                  // pixels, the front edge of a key that is up
constexpr double naturalRatio = 6.4, longestRatio = 8;  // of a white key, height by width
constexpr double edgeWidth = 2;                         // pixels
constexpr int edgeContrast = 145;                       // percent
constexpr int labelPoints = 9, blackLabelPoints = 8;

constexpr QColor keyEdge(0x70, 0x78, 0x80), whiteLip(0xD3, 0xD7, 0xDB);

bool rests(Colour colour) { return colour == Colour{255, 255, 255} || colour == Colour{0, 0, 0}; }

QRect rectOf(const KeyBox& box) { return {box.left, box.top, box.width, box.height}; }

/// Lit from above: the ground lies higher than what is around it.
void paintRaisedEdge(QPainter& painter, const QRectF& box, const QColor& ground) {
    QLinearGradient light(box.topLeft(), box.bottomLeft());
    light.setColorAt(0, ground.lighter(edgeContrast));
    light.setColorAt(1, ground.darker(edgeContrast));
    painter.setPen(QPen(QBrush(light), edgeWidth));
    painter.setBrush(Qt::NoBrush);
    const double half = edgeWidth / 2;
    painter.drawRoundedRect(box.adjusted(half, half, -half, -half), groundCorner - half, groundCorner - half);
    painter.setPen(Qt::NoPen);
}

/// A key has round corners in front only.
void fillKey(QPainter& painter, const QRectF& box, double corner) {
    painter.save();
    painter.setClipRect(box);
    painter.drawRoundedRect(box.adjusted(0, -corner, 0, 0), corner, corner);
    painter.restore();
}

void paintWhite(QPainter& painter, const QRectF& box, const QColor& colour, bool up) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(keyEdge);
    fillKey(painter, box, whiteCorner);
    const QRectF inner = box.adjusted(0, 0, -1, -1);
    painter.setBrush(up ? whiteLip : colour.darker(120));
    fillKey(painter, inner, whiteCorner);
    QLinearGradient shade(inner.topLeft(), inner.bottomLeft());
    shade.setColorAt(0, colour.darker(up ? 118 : 135));
    shade.setColorAt(0.12, colour);
    shade.setColorAt(1, colour);
    painter.setBrush(shade);
    fillKey(painter, inner.adjusted(0, 0, 0, up ? -lip : -lip / 2), whiteCorner);
}

void paintBlack(QPainter& painter, const QRectF& box, const QColor& colour, bool up) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 60));  // its shadow on the white keys
    fillKey(painter, box.adjusted(1, 0, 3, 2), blackCorner);
    painter.setBrush(colour.darker(150));
    fillKey(painter, box, blackCorner);
    const QRectF top = box.adjusted(2, 0, -2, up ? -lip - 2 : -lip / 2);
    QLinearGradient shade(top.topLeft(), top.bottomLeft());
    const QColor light = up ? QColor(0x3A, 0x3F, 0x45) : colour;
    shade.setColorAt(0, up ? colour : colour.darker(130));
    shade.setColorAt(1, light);
    painter.setBrush(shade);
    fillKey(painter, top, blackCorner - 1);
}

}  // namespace

// Labels

KeyLabelField::KeyLabelField(KeyLabel& label, int index, QWidget* parent) : QLineEdit(parent), label_(label) {
    setObjectName(memberName("NoteX", index));
    setAccessibleName(QStringLiteral("Label of key %1").arg(index + 1));
    setToolTip("Type the character that sounds this key");
    setProperty("key", true);
    setAlignment(Qt::AlignCenter);
    setContextMenuPolicy(Qt::NoContextMenu);
    QFont small(font());
    small.setPointSize(isBlackKey(index) ? blackLabelPoints : labelPoints);
    setFont(small);
    bindShown(*this, label, [this] {
        const QString shown = QString::fromStdString(label_.text());
        if (text() != shown) setText(shown);
        update();
    });
    connect(this, &QLineEdit::textEdited, this,
            [&label](const QString& typed) { label.userPut(typed.toStdString()); });
    followEdit();
}

/// The mouse and the Tab key come here while the labels are edited.
void KeyLabelField::followEdit() {
    setAttribute(Qt::WA_TransparentForMouseEvents, !isEnabled());
    setFocusPolicy(isEnabled() ? Qt::StrongFocus : Qt::NoFocus);
}

void KeyLabelField::changeEvent(QEvent* event) {
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::EnabledChange) followEdit();
}

void KeyLabelField::paintEvent(QPaintEvent* event) {
    if (isEnabled()) return QLineEdit::paintEvent(event);
    QPainter painter(this);
    QFont bold(font());
    bold.setWeight(QFont::DemiBold);
    painter.setFont(bold);
    painter.setPen(readableOn(toQt(label_.backColour())));
    const QString shown = QFontMetrics(bold).elidedText(text(), Qt::ElideRight, width());
    painter.drawText(rect(), Qt::AlignCenter, shown);
}

/// The next character that is typed takes the label's place.
void KeyLabelField::mousePressEvent(QMouseEvent*) { selectAll(); }

// Keys

PianoView::PianoView(Studio& studio, QWidget* parent) : QWidget(parent), studio_(studio) {
    setObjectName("Picture5");
    setProperty(spokenAsPicture, true);
    setAccessibleName("Keys");
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    auto& synth = studio.frmsynth;
    for (int index = 0; index < Keyboard::keys; ++index) {
        const auto at = static_cast<std::size_t>(index);
        labels_[at] = new KeyLabelField(synth.NoteX[at], index, this);
        synth.CmdKey[at].changed = [this, index] { update(keyRect(index).adjusted(-1, 0, 4, 3)); };
    }
}

PianoView::~PianoView() {
    for (auto& key : studio_.frmsynth.CmdKey) key.changed = nullptr;
}

int PianoView::naturalHeight(int width) {
    return static_cast<int>((width - 2 * margin) / double{PianoGeometry::whiteKeys} * naturalRatio) +
           2 * margin;
}

PianoGeometry PianoView::geometry() const {
    const int room = width() - 2 * margin;
    const int longest = static_cast<int>(room / double{PianoGeometry::whiteKeys} * longestRatio);
    return {std::max(0, room), std::clamp(height() - 2 * margin, 0, std::max(0, longest))};
}

/// The keys stand in the middle where they do not take the whole height.
QPoint PianoView::origin() const { return {margin, (height() - geometry().key(0).height) / 2}; }

QRect PianoView::keyRect(int index) const { return rectOf(geometry().key(index)).translated(origin()); }

int PianoView::keyAt(QPoint at) const {
    const QPoint inside = at - origin();
    return geometry().keyAt(inside.x(), inside.y());
}

void PianoView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const PianoGeometry keys = geometry();
    for (int index = 0; index < Keyboard::keys; ++index) {
        labels_[static_cast<std::size_t>(index)]->setGeometry(rectOf(keys.label(index)).translated(origin()));
    }
}

void PianoView::paintKeys(QPainter& painter, const QRect& area, bool black) const {
    for (int index = 0; index < Keyboard::keys; ++index) {
        const QRect box = keyRect(index);
        if (isBlackKey(index) != black || !box.adjusted(-1, 0, 4, 3).intersects(area)) continue;
        const Colour colour = studio_.frmsynth.CmdKey[static_cast<std::size_t>(index)].backColour();
        (black ? paintBlack : paintWhite)(painter, box, toQt(colour), rests(colour));
    }
}

void PianoView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(toQt(studio_.frmsynth.Picture5.backColour()));
    painter.drawRoundedRect(rect(), groundCorner, groundCorner);
    paintRaisedEdge(painter, rect(), toQt(studio_.frmsynth.Picture5.backColour()));
    const KeyBox first = geometry().key(0), last = geometry().key(Keyboard::keys - 1);
    painter.setBrush(palette::text);  // what shows between the keys
    painter.drawRect(QRect(origin(), QSize(last.left + last.width - first.left, first.height - lip)));
    paintKeys(painter, event->rect(), false);
    paintKeys(painter, event->rect(), true);
}

// Mouse

void PianoView::tell(const KeyHandler& handler, int index, int button, const QMouseEvent& event) const {
    if (!handler) return;
    const QPointF inside = event.position() - keyRect(index).topLeft();
    handler(index, button, shiftMask(event), inside.x(), inside.y());
}

void PianoView::letGo(Qt::MouseButtons down) {
    if (held_ && !down.testFlag(held_->button)) held_.reset();
}

void PianoView::mousePressEvent(QMouseEvent* event) {
    letGo(event->buttons() & ~event->button());
    const int index = held_ ? held_->key : keyAt(event->position().toPoint());
    if (index == Keyboard::noKey) return event->ignore();
    if (!held_) held_ = {index, event->button()};
    tell(pressed, index, buttonMask(event->button()), *event);
}

void PianoView::mouseMoveEvent(QMouseEvent* event) {
    letGo(event->buttons());
    const int index = held_ ? held_->key : keyAt(event->position().toPoint());
    if (index != Keyboard::noKey)
        tell(moved, index, buttonMask(event->buttons()), *event);
    else if (ground.moved)
        ground.moved(buttonMask(event->buttons()), shiftMask(*event), event->position().x(),
                     event->position().y());
}

void PianoView::mouseReleaseEvent(QMouseEvent* event) {
    if (!held_) return;
    const int index = held_->key;
    if (event->button() == held_->button) held_.reset();
    tell(released, index, buttonMask(event->button()), *event);
}

/// Each key has a tool tip of its own.
bool PianoView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip) return QWidget::event(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const int index = keyAt(help.pos());
    if (index == Keyboard::noKey) {
        QToolTip::hideText();
        return true;
    }
    const auto& key = studio_.frmsynth.CmdKey[static_cast<std::size_t>(index)];
    QToolTip::showText(help.globalPos(), QString::fromStdString(key.tip()), this, keyRect(index));
    return true;
}

}  // namespace melvane
