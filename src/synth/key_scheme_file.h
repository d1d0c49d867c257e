#pragma once
#include <array>
#include <iosfwd>
#include <string>

#include "core/keyboard.h"

/// The key scheme file (.key): the 44 labels, one a line, from the lowest key up.
namespace melvane {

using KeyLabels = std::array<std::string, Keyboard::keys>;

/// What stands on the keys without a scheme. G, H and J stand twice.
const KeyLabels& defaultKeyLabels();

/// Reads the first 44 lines and nothing behind them. A line is the label as it stands, blanks included; of a
/// line of more than 32767 characters the first are taken. Keys without a line take the last line there is,
/// or nothing where there is none. Lines end in CR LF, LF or CR. When the bytes of these lines are UTF-8
/// they are taken so, without a byte order mark, else as 8-bit characters.
KeyLabels readKeyScheme(std::istream& file);
/// Empty labels when the file cannot be opened.
KeyLabels readKeySchemeFile(const std::string& path);

/// The file's bytes: labels without blanks around them, in 8-bit characters where these have them all.
std::string keySchemeText(const KeyLabels& labels);

}  // namespace melvane
