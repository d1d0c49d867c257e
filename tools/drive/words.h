#pragma once
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/values.h"

/// A line of a script as words.
namespace melvane::drive {

struct Word {
    std::string text;     ///< without the quotes, names expanded
    std::string given;    ///< as it stands in the script, without the outer quotes
    bool isText = false;  ///< it stood in double quotes
};
using Words = std::span<const Word>;

/// What `$NAME` in quoted text stands for, by "$NAME".
using Expansions = std::map<std::string, std::string>;

struct WordList {
    std::vector<Word> words;
    std::string error;  ///< empty when the line was understood
};

/// Blanks part words; blanks within parentheses do not. Text stands in double quotes, an inner quote doubled.
WordList splitWords(std::string_view line, const Expansions& expansions);

/// Text, a whole number, a decimal, or true and false; nothing for any other word.
std::optional<Value> valueOf(const Word& word);
std::optional<int> wholeNumberOf(const Word& word);

}  // namespace melvane::drive
