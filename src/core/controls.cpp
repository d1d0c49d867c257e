#include "core/controls.h"

#include <algorithm>
#include <cmath>

#include "core/numbers.h"

namespace melvane {

std::optional<long long> wholeNumber(const Value& value) {
    if (const auto* whole = std::get_if<long long>(&value)) return *whole;
    if (const auto* truth = std::get_if<bool>(&value)) return *truth ? 1 : 0;
    if (const auto* flag = std::get_if<Flag>(&value)) return flag->on ? 1 : 0;
    return std::nullopt;
}

namespace {

/// The first `count` characters of a text in UTF-8.
std::string firstCharacters(std::string text, std::size_t count) {
    const auto begins = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    std::size_t found = 0;
    const auto end = std::ranges::find_if(text, [&](char byte) { return begins(byte) && ++found > count; });
    text.erase(end, text.end());
    return text;
}

}  // namespace

void TextControl::set(std::string text) {
    if (longest_ != 0) text = firstCharacters(std::move(text), longest_);
    if (store(text_, std::move(text))) act();
}

bool TextControl::userPut(const Value& value) {
    if (const auto* text = std::get_if<std::string>(&value)) {
        set(*text);
        return true;
    }
    const auto whole = wholeNumber(value);
    if (whole) set(std::to_string(*whole));
    return whole.has_value();
}

bool CheckControl::userPut(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole) return false;
    if (enabled() && store(value_, *whole != 0 ? 1 : 0)) act();
    return true;
}

bool Control::press(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole) return false;
    if (*whole != 0 && enabled()) act();
    return true;
}

bool PictureControl::userPut(const Value& value) { return press(value); }

bool EntryControl::userPut(const Value& value) { return press(value); }

bool ButtonControl::userPut(const Value& value) { return press(value); }

std::string ListControl::text() const {
    return index_ >= 0 ? items_[static_cast<std::size_t>(index_)] : std::string();
}

void ListControl::fill(std::vector<std::string> items) {
    index_ = -1;
    items_ = std::move(items);
    if (changed) changed();
}

void ListControl::set(int index) {
    if (index >= -1 && index < static_cast<int>(items_.size())) store(index_, index);
}

bool ListControl::userPut(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole || *whole < 0 || *whole >= static_cast<long long>(items_.size())) return false;
    set(static_cast<int>(*whole));
    act();
    return true;
}

double SliderControl::fractionAt(double X) const {
    const double way = trackWidth - pointerWidth;
    return way > 0 ? std::clamp(X - pointerWidth / 2.0, 0.0, way) / way : 0;
}

int SliderControl::number() const { return narrowed<int>(value()).value_or(0); }

double SliderControl::value() const { return leadingNumber(number_.text()); }

int SliderControl::numberAt(double X) const {
    return static_cast<int>(fractionAt(X) * scale_.steps) * scale_.factor + scale_.first;
}

/// From a number between two steps the way up leads to the next one.
void SliderControl::step(int steps) {
    const double now = std::floor((static_cast<double>(number()) - scale_.first) / scale_.factor);
    const double next = (now + steps) * scale_.factor + scale_.first;
    set(static_cast<int>(std::clamp<double>(next, lowest(), highest())));
}

double SliderControl::placeOf(double value) const {
    return (value - scale_.first) / (static_cast<double>(scale_.steps) * scale_.factor);
}

double SliderControl::place() const {
    const double now = value();
    const bool holds = held_ && (!followsNumber || held_->value == now);
    return std::clamp(holds ? held_->place : placeOf(now), 0.0, 1.0);
}

void SliderControl::set(int number) {
    number_.set(std::to_string(number));
    if (!followsNumber) setPlace(std::nullopt);
}

void SliderControl::drag(double X) {
    set(numberAt(X));
    setPlace(fractionAt(X));
}

void SliderControl::setPlace(std::optional<double> place) {
    if (!place && !followsNumber) place = placeOf(value());
    store(held_, place ? std::optional(Held{*place, value()}) : std::nullopt);
}

int SliderControl::pointerLeft() const {
    return static_cast<int>(std::lround(std::max(0, trackWidth - pointerWidth) * place()));
}

bool SliderControl::userPut(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole || *whole < lowest() || *whole > highest()) return false;
    set(static_cast<int>(*whole));
    act();
    return true;
}

Value SliderPointer::shown() const { return static_cast<long long>(slider_.pointerLeft()); }

bool SliderPointer::userPut(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole || *whole < 0 || *whole > slider_.trackWidth - slider_.pointerWidth) return false;
    const double middle = static_cast<double>(*whole) + slider_.pointerWidth / 2.0;
    return slider_.userPut(Value(static_cast<long long>(slider_.numberAt(middle))));
}

bool ScrollControl::takes(int value) const {
    return value >= std::min(minimum_, maximum_) && value <= std::max(minimum_, maximum_);
}

void ScrollControl::set(int value) {
    if (takes(value) && store(value_, value)) act();
}

bool ScrollControl::userPut(const Value& value) {
    const auto whole = wholeNumber(value);
    if (!whole || !takes(static_cast<int>(std::clamp(*whole, -100000LL, 100000LL)))) return false;
    set(static_cast<int>(*whole));
    return true;
}

}  // namespace melvane
