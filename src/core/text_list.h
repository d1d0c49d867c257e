#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace melvane {

/// A hidden list of decimal texts, kept as numbers: four bytes an item. An item may be an empty text too,
/// which is no number. Items count from 0. A read outside the list finds an empty text; a change or a
/// removal there does nothing.
///
/// A removal costs the way from the removal before it, so that a walk through the list which takes items out
/// on its way stays linear.
class TextList {
 public:
    using Item = std::optional<std::int32_t>;  ///< nothing: an empty text

    int count() const { return static_cast<int>(front_.size() + back_.size()); }
    Item at(int index) const;
    /// What the item's text is worth: 0 for an empty one.
    std::int32_t value(int index) const { return at(index).value_or(0); }
    std::string text(int index) const;
    void add(Item item);
    void set(int index, Item item);
    void remove(int index);
    void clear();

 private:
    // The lowest number stands for an empty text.
    static constexpr std::int32_t emptyText = INT32_MIN;
    bool has(int index) const { return index >= 0 && index < count(); }
    std::int32_t held(int index) const;
    std::size_t fromBehind(std::size_t index) const;
    void moveGap(std::size_t index);

    // The items before the gap, and those behind it in reverse.
    std::vector<std::int32_t> front_, back_;
};

}  // namespace melvane
