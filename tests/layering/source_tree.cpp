#include "layering/source_tree.h"

#include <fstream>
#include <regex>
#include <sstream>

namespace melvane::layering {

namespace fs = std::filesystem;

Includes includesOf(const std::string& text) {
    static const std::regex line(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"])");
    Includes found;
    std::istringstream lines(text);
    for (std::string each; std::getline(lines, each);) {
        std::smatch parts;
        if (!std::regex_search(each, parts, line)) continue;
        (parts[1] == "\"" ? found.own : found.system).push_back(parts[2]);
    }
    return found;
}

SourceTree readTree(const fs::path& project, const std::vector<std::string>& folders) {
    SourceTree tree;
    for (const std::string& folder : folders) {
        if (!fs::exists(project / folder)) continue;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(project / folder)) {
            const std::string ending = entry.path().extension().string();
            if (!entry.is_regular_file() || (ending != ".h" && ending != ".cpp")) continue;
            std::ostringstream text;
            text << std::ifstream(entry.path()).rdbuf();
            tree[entry.path().lexically_relative(project).generic_string()] = includesOf(text.str());
        }
    }
    return tree;
}

}  // namespace melvane::layering
