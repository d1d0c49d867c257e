#include "synth/key_characters.h"

#include <algorithm>
#include <array>

namespace melvane {

namespace {

constexpr char32_t firstSpecial = 0x80, highestCode = 0x10FFFF;

/// What the code page has from 0x80 to 0x9F.
constexpr std::array<char32_t, 32> specials{0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                            0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                            0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                            0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr bool isSurrogate(char32_t code) { return code >= 0xD800 && code <= 0xDFFF; }

char32_t fromByte(unsigned char byte) {
    const std::size_t special = byte - firstSpecial;
    return byte >= firstSpecial && special < specials.size() ? specials[special] : byte;
}

std::optional<char> toByte(char32_t code) {
    if (code < firstSpecial || (code >= firstSpecial + specials.size() && code <= 0xFF)) {
        return static_cast<char>(code);
    }
    const auto* const found = std::ranges::find(specials, code);
    if (found == specials.end()) return std::nullopt;
    return static_cast<char>(firstSpecial + static_cast<std::size_t>(found - specials.begin()));
}

void append(std::string& text, char32_t code) {
    const auto tail = [&](int shift) { text += static_cast<char>(0x80U | ((code >> shift) & 0x3FU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        tail(0);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        tail(6);
        tail(0);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        tail(12);
        tail(6);
        tail(0);
    }
}

/// How many bytes the character has that begins with `lead`; 0 when none does.
std::size_t lengthOf(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead >= 0xC2 && lead < 0xE0) return 2;
    if (lead >= 0xE0 && lead < 0xF0) return 3;
    return lead >= 0xF0 && lead < 0xF5 ? 4 : 0;
}

/// Takes the first character off; nothing, and nothing taken, when it is not UTF-8.
std::optional<char32_t> take(std::string_view& text) {
    constexpr std::array<char32_t, 5> lowest{0, 0, 0x80, 0x800, 0x10000};
    const auto lead = static_cast<unsigned char>(text.front());
    const std::size_t length = lengthOf(lead);
    if (length == 0 || length > text.size()) return std::nullopt;
    char32_t code = length == 1 ? lead : lead & (0x7FU >> length);
    for (const char letter : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(letter);
        if ((byte & 0xC0U) != 0x80U) return std::nullopt;
        code = (code << 6U) | (byte & 0x3FU);
    }
    if (code < lowest[length] || code > highestCode || isSurrogate(code)) return std::nullopt;
    text.remove_prefix(length);
    return code;
}

bool isOneCharacter(std::string_view text) { return !text.empty() && firstCharacters(text, 1) == text; }

}  // namespace

std::string characterOf(int code) {
    std::string text;
    const auto number = static_cast<char32_t>(code);
    if (code < 0 || number > highestCode || isSurrogate(number)) return text;
    append(text, number <= 0xFF ? fromByte(static_cast<unsigned char>(number)) : number);
    return text;
}

std::string fromEightBit(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) append(text, fromByte(static_cast<unsigned char>(byte)));
    return text;
}

std::optional<std::string> toEightBit(std::string_view text) {
    std::string bytes;
    while (!text.empty()) {
        const auto code = take(text);
        const auto byte = code ? toByte(*code) : std::nullopt;
        if (!byte) return std::nullopt;
        bytes += *byte;
    }
    return bytes;
}

bool isUtf8(std::string_view text) {
    while (!text.empty()) {
        if (!take(text)) return false;
    }
    return true;
}

std::string_view firstCharacters(std::string_view text, std::size_t count) {
    std::string_view rest = text;
    // A byte that belongs to no character counts as one.
    while (count-- > 0 && !rest.empty()) {
        if (!take(rest)) rest.remove_prefix(1);
    }
    return text.substr(0, text.size() - rest.size());
}

bool isLike(std::string_view label, std::string_view typed) {
    if (typed == "?") return isOneCharacter(label);
    if (typed == "#") return label.size() == 1 && label[0] >= '0' && label[0] <= '9';
    if (typed == "*") return true;
    return !typed.empty() && typed != "[" && label == typed;
}

}  // namespace melvane
