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
/// `path` with `ending` behind it, unless it ends so in any case.
std::string withEnding(std::string path, std::string_view ending);
/// A file dialog's answer as the program keeps it: without blanks around it and without a closing zero.
std::string answeredPath(std::string_view answer);

}  // namespace melvane
