#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace melvane {

/// A hidden list of decimal texts, kept as numbers: four bytes an item. An item may be an empty text too,
/// which is no number. Items count from 0. A read outside the list finds an empty text; a change or a
/// removal there does nothing.
class TextList {
 public:
    using Item = std::optional<std::int32_t>;  ///< nothing: an empty text

    int count() const { return static_cast<int>(items_.size()); }
    Item at(int index) const;
    /// What the item's text is worth: 0 for an empty one.
    std::int32_t value(int index) const { return at(index).value_or(0); }
    std::string text(int index) const;
    void add(Item item) { items_.push_back(item.value_or(emptyText)); }
    void set(int index, Item item);
    void remove(int index);
    void clear();

 private:
    // The lowest number stands for an empty text.
    static constexpr std::int32_t emptyText = INT32_MIN;
    bool has(int index) const { return index >= 0 && index < count(); }

    std::vector<std::int32_t> items_;
};

}  // namespace melvane
