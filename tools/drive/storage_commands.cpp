#include <array>
#include <cstdio>
#include <fstream>
#include <sstream>

#include "drive/commands.h"

namespace melvane::drive {

namespace {

std::optional<std::string> bytesOf(const std::string& path) {
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(path, ignored)) return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    if (!file) return std::nullopt;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

std::string hashText(const std::string& bytes) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211ULL;
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(hash));
    return text.data();
}

}  // namespace

std::string printSettings(Bench& bench, Words) {
    for (const auto& [key, value] : bench.world.settings.all()) bench.output.line(key + "=" + value);
    return {};
}

std::string storeSetting(Bench& bench, Words words) {
    if (!words.back().isText) return "the value of a setting stands in quotes";
    std::string key;
    for (const Word& word : words.first(words.size() - 1)) key += key.empty() ? word.text : " " + word.text;
    bench.world.settings.write(key, words.back().text);
    return {};
}

std::string printFile(Bench& bench, Words words) {
    const auto bytes = bytesOf(words[0].text);
    bench.output.line(words[0].given + ": " +
                      (bytes ? std::to_string(bytes->size()) + " bytes " + hashText(*bytes) : "missing"));
    return {};
}

std::string printText(Bench& bench, Words words) {
    const auto bytes = bytesOf(words[0].text);
    if (!bytes) {
        bench.output.line(words[0].given + ": missing");
        return {};
    }
    std::istringstream lines(*bytes);
    for (std::string line; std::getline(lines, line);) {
        if (line.ends_with('\r')) line.pop_back();
        bench.output.line(line);
    }
    return {};
}

}  // namespace melvane::drive
