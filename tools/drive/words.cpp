#include "drive/words.h"

#include <charconv>

namespace melvane::drive {

namespace {

bool isBlank(char letter) { return letter == ' ' || letter == '\t' || letter == '\r'; }

/// Reads words from the front of a line.
class LineReader {
 public:
    LineReader(std::string_view line, const Expansions& expansions) : rest_(line), expansions_(expansions) {}

    WordList read() {
        WordList list;
        while (skipBlanks()) {
            Word word;
            if (rest_.front() == '"') {
                if (!readText(word)) return {{}, "a quote is not closed"};
            } else {
                readPlain(word);
            }
            list.words.push_back(std::move(word));
        }
        return list;
    }

 private:
    bool skipBlanks() {
        while (!rest_.empty() && isBlank(rest_.front())) rest_.remove_prefix(1);
        return !rest_.empty();
    }

    char take() {
        const char letter = rest_.front();
        rest_.remove_prefix(1);
        return letter;
    }

    /// False when the line ends inside the text, or goes on right behind it.
    bool readText(Word& word) {
        word.isText = true;
        rest_.remove_prefix(1);
        while (!rest_.empty()) {
            const char letter = take();
            if (letter == '"' && (rest_.empty() || rest_.front() != '"')) {
                word.text = expanded(word.given);
                return rest_.empty() || isBlank(rest_.front());
            }
            if (letter == '"') rest_.remove_prefix(1);
            word.given += letter;
        }
        return false;
    }

    void readPlain(Word& word) {
        int depth = 0;
        while (!rest_.empty() && (depth > 0 || !isBlank(rest_.front()))) {
            const char letter = take();
            if (letter == '(') ++depth;
            if (letter == ')') --depth;
            word.given += letter;
        }
        word.text = word.given;
    }

    std::string expanded(std::string text) const {
        for (const auto& [name, meaning] : expansions_) {
            for (auto at = text.find(name); at != std::string::npos;
                 at = text.find(name, at + meaning.size())) {
                text.replace(at, name.size(), meaning);
            }
        }
        return text;
    }

    std::string_view rest_;
    const Expansions& expansions_;
};

template <class Number>
std::optional<Number> parsed(std::string_view text) {
    if (text.starts_with('+')) text.remove_prefix(1);
    Number number{};
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (problem != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

WordList splitWords(std::string_view line, const Expansions& expansions) {
    return LineReader(line, expansions).read();
}

std::optional<Value> valueOf(const Word& word) {
    if (word.isText) return word.text;
    if (word.text == "true") return true;
    if (word.text == "false") return false;
    if (const auto whole = parsed<long long>(word.text)) return *whole;
    if (word.text.find_first_not_of("+-.0123456789eE") != std::string::npos) return std::nullopt;
    if (const auto decimal = parsed<double>(word.text)) return *decimal;
    return std::nullopt;
}

std::optional<int> wholeNumberOf(const Word& word) {
    return word.isText ? std::nullopt : parsed<int>(word.text);
}

}  // namespace melvane::drive
