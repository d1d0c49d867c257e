#include "synth/key_scheme_file.h"

#include <algorithm>
#include <fstream>
#include <istream>
#include <numeric>

#include "platform/files.h"
#include "platform/system_path.h"
#include "platform/text.h"
#include "synth/key_characters.h"

namespace melvane {

namespace {

constexpr std::size_t longestLabel = 32767;            // characters
constexpr std::size_t longestLine = 4 * longestLabel;  // bytes, as UTF-8 may need them
constexpr std::size_t mostRead = 16U << 20U;           // bytes; what lies behind is as if it were not there
constexpr const char* lineEnd = "\r\n";
constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

/// Takes lines off a stream with bounded memory, whatever their length.
class SchemeLines {
 public:
    explicit SchemeLines(std::istream& file) : bytes_(*file.rdbuf()) {}

    bool atEnd() { return read_ >= mostRead || bytes_.sgetc() == end; }
    std::string next() {
        std::string line;
        for (int byte = take(); byte != end && byte != '\n'; byte = take()) {
            if (byte == '\r') {
                if (bytes_.sgetc() == '\n') take();
                break;
            }
            if (line.size() < longestLine) line += static_cast<char>(byte);
        }
        return line;
    }

 private:
    static constexpr int end = std::char_traits<char>::eof();
    int take() { return read_++ < mostRead ? bytes_.sbumpc() : end; }

    std::streambuf& bytes_;
    std::size_t read_ = 0;
};

/// The beginning of a line that was cut may end inside a character.
void dropCutCharacter(std::string& line) {
    const auto isTail = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; };
    std::string whole = line;
    while (!whole.empty() && isTail(whole.back())) whole.pop_back();
    if (!whole.empty()) whole.pop_back();
    if (!isUtf8(line) && isUtf8(whole)) line = std::move(whole);
}

bool isPlain(const std::string& text) {
    return std::ranges::all_of(text, [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

void decode(KeyLabels& labels) {
    const bool asUtf8 = std::ranges::all_of(labels, isUtf8);
    if (asUtf8 && labels[0].starts_with(byteOrderMark)) labels[0].erase(0, byteOrderMark.size());
    for (std::string& label : labels) {
        if (!asUtf8) label = fromEightBit(label);
        label.resize(firstCharacters(label, longestLabel).size());
    }
}

/// A label on one line: without blanks around it, and without a line end of its own.
std::string lineOf(std::string label) {
    std::ranges::replace_if(
        label, [](char letter) { return letter == '\r' || letter == '\n'; }, ' ');
    return trimmed(label);
}

std::string joined(const KeyLabels& lines) {
    return std::accumulate(
        lines.begin(), lines.end(), std::string(),
        [](std::string text, const std::string& line) { return std::move(text) + line + lineEnd; });
}

}  // namespace

const KeyLabels& defaultKeyLabels() {
    static const KeyLabels labels{"Z", "S", "X", "D", "C", "V",  "G", "B", "H", "N", "J", "M", ",", "F", "G",
                                  "H", "J", "K", "L", ":", "\"", "Q", "W", "E", "R", "T", "Y", "U", "I", "O",
                                  "P", "{", "}", "1", "2", "3",  "4", "5", "6", "7", "8", "9", "0", "]"};
    return labels;
}

KeyLabels readKeyScheme(std::istream& file) {
    KeyLabels labels;
    SchemeLines lines(file);
    std::string line;
    for (std::string& label : labels) {
        if (!lines.atEnd()) {
            line = lines.next();
            if (line.size() == longestLine) dropCutCharacter(line);
        }
        label = line;
    }
    decode(labels);
    return labels;
}

KeyLabels readKeySchemeFile(const std::string& path) {
    if (!fileExists(path)) return {};
    std::ifstream file(systemPath(path), std::ios::binary);
    return readKeyScheme(file);
}

std::string keySchemeText(const KeyLabels& labels) {
    KeyLabels lines;
    std::ranges::transform(labels, lines.begin(), lineOf);
    const std::string text = joined(lines);
    const auto bytes = toEightBit(text);
    // 8-bit text that could be taken for UTF-8 is written as UTF-8.
    if (bytes && (isPlain(*bytes) || !isUtf8(*bytes))) return *bytes;
    // The reader drops a mark at the start, which is then not the label's own.
    return text.starts_with(byteOrderMark) ? std::string(byteOrderMark) + text : text;
}

}  // namespace melvane
