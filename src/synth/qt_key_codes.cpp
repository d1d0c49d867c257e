#include "synth/qt_key_codes.h"

#include <QKeyEvent>
#include <string_view>

namespace melvane {

namespace {

constexpr int spaceCode = 32;
/// From here on no code is a character.
constexpr int firstNamelessCode = 0xE000, namelessCodes = 0x1000;
constexpr int lastLatinLetter = 0xFF;

/// Where the keys of a US keyboard stand, by the numbers that X11 and Wayland give to places.
struct Row {
    int first;
    std::string_view keys;
};
constexpr Row digits{10, "1234567890"};
constexpr Row letters[] = {{24, "QWERTYUIOP"}, {38, "ASDFGHJKL"}, {52, "ZXCVBNM"}};

std::optional<int> inRow(const Row& row, int place) {
    const int at = place - row.first;
    if (at < 0 || at >= static_cast<int>(row.keys.size())) return std::nullopt;
    return row.keys[static_cast<std::size_t>(at)];
}

/// 0 where places are counted in another way.
int placeOf(const QKeyEvent& event) {
#if defined(Q_OS_LINUX) || defined(Q_OS_FREEBSD)
    return static_cast<int>(event.nativeScanCode());
#else
    static_cast<void>(event);
    return 0;
#endif
}

std::optional<int> byPlace(const QKeyEvent& event) {
    const int place = placeOf(event);
    if (const auto digit = inRow(digits, place)) return digit;
    if (event.key() <= lastLatinLetter) return std::nullopt;
    for (const Row& row : letters) {
        if (const auto letter = inRow(row, place)) return letter;
    }
    return std::nullopt;
}

bool isNamed(int key) {
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9);
}

int codeOf(const QKeyEvent& event) {
    const bool keypad = event.modifiers().testFlag(Qt::KeypadModifier);
    if (event.key() == Qt::Key_Space) return spaceCode;
    if (!keypad && isNamed(event.key())) return event.key();  // the toolkit's numbers are the same
    if (const auto code = keypad ? std::nullopt : byPlace(event)) return *code;
    return firstNamelessCode + keyIdentity(event) % namelessCodes;
}

/// Ctrl and Alt together are the key for third characters on some systems.
bool isCommand(Qt::KeyboardModifiers keys) {
    const bool control = keys.testFlag(Qt::ControlModifier), alternate = keys.testFlag(Qt::AltModifier);
    return control != alternate || keys.testFlag(Qt::MetaModifier);
}

}  // namespace

std::optional<TypedKey> typedKey(const QKeyEvent& event) {
    const auto characters = event.text().toUcs4();
    if (characters.size() != 1 || isCommand(event.modifiers())) return std::nullopt;
    const char32_t character = characters.front();
    if (!QChar::isPrint(character)) return std::nullopt;
    return TypedKey{codeOf(event), static_cast<int>(character)};
}

int keyIdentity(const QKeyEvent& event) {
    const auto scanned = static_cast<int>(event.nativeScanCode() & 0xFFFFU);
    return scanned != 0 ? scanned : event.key() & 0xFFFF;
}

}  // namespace melvane
