#pragma once
#include <algorithm>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "core/values.h"

namespace melvane {

struct Colour {
    std::uint8_t red = 0, green = 0, blue = 0;
    bool operator==(const Colour&) const = default;
};

/// What a control holds, apart from the widget that shows it. The engine reads and sets it; a widget is told
/// of each change by `changed`, and what the user does comes in by userPut, which runs `acted`.
///
/// Which settings by the program run the handler too differs by kind: texts and scroll bars do (their event
/// is a change), lists, ticks and options do not (theirs is a click). User-interface thread.
class Control {
 public:
    Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    std::function<void()> changed;  ///< set by the one widget that shows this control
    std::function<void()> acted;    ///< set by the engine: the handler of the control's own event

    bool visible() const { return visible_; }
    bool enabled() const { return enabled_; }
    const std::string& tip() const { return tip_; }
    void setVisible(bool on) { store(visible_, on); }
    void setEnabled(bool on) { store(enabled_, on); }
    void setTip(std::string tip) { store(tip_, std::move(tip)); }

    /// What it shows: text, tick, list index or position, as its kind has it.
    virtual Value shown() const { return {}; }
    /// Sets it as the user would. False when it cannot take such a value.
    virtual bool userPut(const Value&) { return false; }

 protected:
    /// Answers whether `value` was new.
    template <class Held>
    bool store(Held& held, Held value) {
        if (held == value) return false;
        held = std::move(value);
        if (changed) changed();
        return true;
    }
    void act() {
        if (acted) acted();
    }
    /// 1 runs the handler while it is enabled, 0 does nothing; false for what is no number.
    bool press(const Value& value);

 private:
    bool visible_ = true;
    bool enabled_ = true;
    std::string tip_;
};

/// A label or text box. A change of its text runs the handler, whoever made it.
class TextControl : public Control {
 public:
    TextControl() = default;
    /// `longest` in characters; what is longer is cut. 0 for any length.
    explicit TextControl(std::string text, std::size_t longest = 0)
        : text_(std::move(text)), longest_(longest) {}
    const std::string& text() const { return text_; }
    void set(std::string text);
    std::size_t longest() const { return longest_; }
    Colour backColour() const { return backColour_; }
    void setBackColour(Colour colour) { store(backColour_, colour); }
    Value shown() const override { return text_; }
    bool userPut(const Value& value) override;

 private:
    std::string text_;
    std::size_t longest_ = 0;
    Colour backColour_{255, 255, 255};
};

/// A tick, an option or a push button that stays down: 0 or 1. Only the user's click runs the handler; while
/// it is disabled there is none.
class CheckControl : public Control {
 public:
    CheckControl() = default;
    explicit CheckControl(bool ticked) : value_(ticked ? 1 : 0) {}
    int value() const { return value_; }
    bool ticked() const { return value_ == 1; }
    void set(bool ticked) { store(value_, ticked ? 1 : 0); }
    /// One of a row may stand out, whatever is ticked.
    bool highlighted() const { return highlighted_; }
    void setHighlighted(bool on) { store(highlighted_, on); }
    Value shown() const override { return static_cast<long long>(value_); }
    bool userPut(const Value& value) override;

 private:
    int value_ = 0;
    bool highlighted_ = false;
};

/// A picture, or a push button with one on it: art by its name, which a window knows how to draw. A press
/// runs the handler.
class PictureControl : public Control {
 public:
    PictureControl() = default;
    explicit PictureControl(std::string picture) : picture_(std::move(picture)) {}
    const std::string& picture() const { return picture_; }
    void setPicture(std::string picture) { store(picture_, std::move(picture)); }
    Value shown() const override { return picture_; }
    /// 1 presses it.
    bool userPut(const Value& value) override;

 private:
    std::string picture_;
};

/// A menu entry, which shows its caption; choosing it runs the handler.
class EntryControl : public Control {
 public:
    explicit EntryControl(std::string caption) : caption_(std::move(caption)) {}
    Value shown() const override { return caption_; }
    /// 1 chooses it.
    bool userPut(const Value& value) override;

 private:
    std::string caption_;
};

/// A push button, which shows its caption; a press runs the handler.
class ButtonControl : public Control {
 public:
    explicit ButtonControl(std::string caption) : caption_(std::move(caption)) {}
    const std::string& caption() const { return caption_; }
    void setCaption(std::string caption) { store(caption_, std::move(caption)); }
    Value shown() const override { return caption_; }
    /// 1 presses it.
    bool userPut(const Value& value) override;

 private:
    std::string caption_;
};

/// A list or drop-down. Only the user's choice runs the handler.
class ListControl : public Control {
 public:
    const std::vector<std::string>& items() const { return items_; }
    /// -1 when nothing is selected.
    int index() const { return index_; }
    /// The selected entry, or an empty text.
    std::string text() const;
    /// New entries; nothing is selected after it.
    void fill(std::vector<std::string> items);
    /// An index that the list does not have, other than -1, is not taken.
    void set(int index);
    Value shown() const override { return static_cast<long long>(index_); }
    bool userPut(const Value& value) override;

 private:
    std::vector<std::string> items_;
    int index_ = -1;
};

/// A scroll bar. A change of its value runs the handler, whoever made it; a value outside its range is not
/// taken.
class ScrollControl : public Control {
 public:
    int minimum() const { return minimum_; }
    int maximum() const { return maximum_; }
    int largeChange() const { return largeChange_; }
    int value() const { return value_; }
    void setMinimum(int minimum) { store(minimum_, minimum); }
    void setMaximum(int maximum) { store(maximum_, maximum); }
    void setLargeChange(int change) { store(largeChange_, change); }
    void set(int value);
    Value shown() const override { return static_cast<long long>(value_); }
    bool userPut(const Value& value) override;

 private:
    bool takes(int value) const;
    int minimum_ = 0, maximum_ = 32767, largeChange_ = 1, value_ = 0;
};

/// What a slider's number counts: `first` at the left end of the track, `first + steps` at the right one, and
/// `resting` after the right button, which may stand left of the track's way. `first` and `resting` are told
/// in numbers; one step is `factor` of them, and with a factor below 0 they fall from left to right.
struct SliderScale {
    int first = 0, steps = 127, resting = 0, factor = 1;
};

class SliderControl;

/// The pointer of a slider; its place is in pixels from the track's left edge.
class SliderPointer : public Control {
 public:
    explicit SliderPointer(SliderControl& slider) : slider_(slider) {}
    Value shown() const override;
    /// Drags the pointer to a place on its way.
    bool userPut(const Value& value) override;

 private:
    SliderControl& slider_;
};

/// A slider: a track with a pointer over it, and the label whose number says where the pointer stands. Widths
/// in logical pixels, set by the widget. A user's put runs the handler; setting the number does not.
class SliderControl : public Control {
 public:
    /// `number` outlives the slider.
    SliderControl(TextControl& number, SliderScale scale) : number_(number), scale_(scale) {}

    int trackWidth = 76, pointerWidth = 10;
    SliderPointer pointer{*this};
    /// Whether the pointer goes with the label's number, whoever sets that; else it moves with the slider
    /// alone.
    bool followsNumber = true;

    const SliderScale& scale() const { return scale_; }
    int lowest() const { return std::min({scale_.first, last(), scale_.resting}); }
    int highest() const { return std::max(scale_.first, last()); }
    int number() const;
    /// The same with what stands behind its point.
    double value() const;
    void set(int number);
    /// The number that a drag to the mouse at X gives; X from the track's left edge.
    int numberAt(double X) const;
    /// By so many steps to the right or left, inside the range.
    void step(int steps);
    /// How far along its way the pointer stands with the mouse at X: 0 to 1.
    double fractionAt(double X) const;
    /// Where the pointer stands on its way: 0 to 1.
    double place() const;
    int pointerLeft() const;
    /// What a drag to the mouse at X does: the number, and the pointer under the mouse, between two numbers
    /// too.
    void drag(double X);
    /// Puts the pointer to a place on its way, 0 to 1, for as long as the number stays if it follows that;
    /// nothing: where the number says.
    void setPlace(std::optional<double> place);
    Value shown() const override { return static_cast<long long>(number()); }
    bool userPut(const Value& value) override;

 private:
    int last() const { return scale_.first + scale_.steps * scale_.factor; }
    double placeOf(double value) const;

    TextControl& number_;
    SliderScale scale_;
    struct Held {
        double place;
        double value;
        bool operator==(const Held&) const = default;
    };
    std::optional<Held> held_;
};

/// A picture area or panel: what the engine must know of its size, in logical pixels.
class AreaControl : public Control {
 public:
    int width() const { return width_; }
    int height() const { return height_; }
    void setWidth(int width) { store(width_, width); }
    void setHeight(int height) { store(height_, height); }
    Value shown() const override { return static_cast<long long>(height_); }

 private:
    int width_ = 0, height_ = 0;
};

/// The whole number that a value stands for, if it does.
std::optional<long long> wholeNumber(const Value& value);

}  // namespace melvane
