#include "layering/include_rules.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <optional>
#include <regex>
#include <set>
#include <sstream>

namespace melvane::layering {

namespace {

/// A room's floor, 0 the lowest, and its own name: two rooms on one floor stand side by side.
struct Room {
    std::size_t floor;
    std::string name;
};

std::optional<Room> roomOf(const std::string& path, const Layers& layers) {
    const std::filesystem::path parts(path);
    auto part = parts.begin();
    if (part == parts.end() || *part != "src" || ++part == parts.end()) return std::nullopt;
    const std::string folder = part->string();
    if (++part == parts.end()) return std::nullopt;
    for (std::size_t floor = 0; floor < layers.rooms.size(); ++floor) {
        std::istringstream names(layers.rooms[floor]);
        for (std::string name; std::getline(names, name, '|');) {
            if (name == folder) return Room{floor, name};
        }
    }
    return std::nullopt;
}

/// The file of the tree that an include in double quotes means: from src/, else beside the file that includes
/// it.
std::optional<std::string> meant(const SourceTree& tree, const std::string& from,
                                 const std::string& include) {
    const std::string fromSources =
        std::filesystem::path("src/" + include).lexically_normal().generic_string();
    if (tree.contains(fromSources)) return fromSources;
    const auto beside =
        (std::filesystem::path(from).parent_path() / include).lexically_normal().generic_string();
    if (tree.contains(beside)) return beside;
    return std::nullopt;
}

bool isUnderSources(const std::string& path) { return path.starts_with("src/"); }

bool mayUseQt(const std::string& path, const Layers& layers) {
    const std::string stem = std::filesystem::path(path).stem().string();
    return path.starts_with("src/app/") ||
           std::ranges::any_of(layers.windowFiles, [&](const std::string& pattern) {
               return std::regex_search(stem, std::regex(pattern));
           });
}

bool isQtHeader(const std::string& header) {
    static const std::regex qt("^(Q[A-Z]|Qt[A-Z0-9]?|q[a-z]+\\.h$)");
    return std::regex_search(header, qt);
}

std::string told(const std::string& from, const std::string& to) { return from + " includes " + to; }

/// Calls `look` with each include under src/ and the file it means, if any.
void forEachInclude(const SourceTree& tree,
                    const std::function<void(const std::string&, const std::string&,
                                             const std::optional<std::string>&)>& look) {
    for (const auto& [path, includes] : tree) {
        if (!isUnderSources(path)) continue;
        for (const std::string& include : includes.own) look(path, include, meant(tree, path, include));
    }
}

/// A walk along the includes that remembers the way it came.
class LoopFinder {
 public:
    explicit LoopFinder(const SourceTree& tree) : tree_(tree) {}

    std::vector<std::string> find() {
        for (const auto& [path, includes] : tree_) visit(path);
        return loops_;
    }

 private:
    void visit(const std::string& path) {
        if (const auto again = std::ranges::find(way_, path); again != way_.end()) {
            std::string loop;
            for (auto step = again; step != way_.end(); ++step) loop += *step + " -> ";
            loops_.push_back(loop + path);
            return;
        }
        if (!seen_.insert(path).second) return;
        way_.push_back(path);
        for (const std::string& include : tree_.at(path).own) {
            if (const auto next = meant(tree_, path, include)) visit(*next);
        }
        way_.pop_back();
    }

    const SourceTree& tree_;
    std::vector<std::string> way_;
    std::set<std::string> seen_;
    std::vector<std::string> loops_;
};

}  // namespace

std::vector<std::string> includesThatPointUp(const SourceTree& tree, const Layers& layers) {
    std::vector<std::string> broken;
    forEachInclude(tree, [&](const std::string& from, const std::string& include, const auto& to) {
        const bool names = std::ranges::any_of(layers.outerFolders, [&](const std::string& folder) {
            return include.find(folder + "/") != std::string::npos;
        });
        const auto lower = to ? roomOf(*to, layers) : std::nullopt;
        const auto upper = roomOf(from, layers);
        const bool outside = names || (to && !lower);
        const bool up =
            upper && lower &&
            (lower->floor > upper->floor || (lower->floor == upper->floor && lower->name != upper->name));
        if (outside || up) broken.push_back(told(from, include));
    });
    return broken;
}

std::vector<std::string> includesOfNothing(const SourceTree& tree) {
    std::vector<std::string> broken;
    forEachInclude(tree, [&](const std::string& from, const std::string& include, const auto& to) {
        if (!to && !include.ends_with(".moc")) broken.push_back(told(from, include));
    });
    return broken;
}

std::vector<std::string> includeLoops(const SourceTree& tree) { return LoopFinder(tree).find(); }

std::vector<std::string> qtInTheEngine(const SourceTree& tree, const Layers& layers) {
    std::vector<std::string> broken;
    for (const auto& [path, includes] : tree) {
        if (!isUnderSources(path) || mayUseQt(path, layers)) continue;
        for (const std::string& header : includes.system) {
            if (isQtHeader(header)) broken.push_back(told(path, header));
        }
        for (const std::string& include : includes.own) {
            const auto to = meant(tree, path, include);
            if (isQtHeader(include) || (to && mayUseQt(*to, layers))) broken.push_back(told(path, include));
        }
    }
    return broken;
}

std::vector<std::string> filesWithoutARoom(const SourceTree& tree, const Layers& layers) {
    std::vector<std::string> broken;
    for (const auto& [path, includes] : tree) {
        if (isUnderSources(path) && !roomOf(path, layers)) broken.push_back(path + " is in no room");
    }
    return broken;
}

}  // namespace melvane::layering
