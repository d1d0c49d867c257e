#pragma once
#include <optional>
#include <string>
#include <string_view>

/// Characters between the program's texts, which are UTF-8, and the 8-bit ones of key events and key scheme
/// files (Windows code page 1252; a byte that it leaves free is the control character of that number).
namespace melvane {

/// The character of a key code or a typed character: codes 0 to 255 by the code page, higher ones as they are
/// (Unicode). Empty for a code that is none.
std::string characterOf(int code);

/// 8-bit text as UTF-8.
std::string fromEightBit(std::string_view bytes);
/// Nothing when a character has no place among the 256.
std::optional<std::string> toEightBit(std::string_view text);

/// Whether `text` is UTF-8 throughout.
bool isUtf8(std::string_view text);
/// The first `count` characters of a UTF-8 text.
std::string_view firstCharacters(std::string_view text, std::size_t count);

/// Whether a label is like the typed character, which is taken as a pattern: "?" is like any label of one
/// character, "#" like a digit, "*" like any label, "[" is no pattern and like none. Case matters.
bool isLike(std::string_view label, std::string_view typed);

}  // namespace melvane
