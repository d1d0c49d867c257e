#pragma once
#include <string>
#include <string_view>

namespace melvane {

/// ASCII letters in lower case, every other byte as it is.
std::string lowerCase(std::string_view text);
/// Without blanks at either end.
std::string trimmed(std::string_view text);
/// Whether `text` ends in `ending`, without regard to the case of ASCII letters.
bool endsWithNoCase(std::string_view text, std::string_view ending);

}  // namespace melvane
