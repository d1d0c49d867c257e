#pragma once
#include <optional>

class QKeyEvent;

/// What a key event of the toolkit comes to for the keyboard's handlers.
///
/// - A letter has the code of its capital, a digit its own, the Spacebar 32: the codes that name a character.
/// - The row of digits has the digits' codes whatever is typed there, and a key that types a letter beyond
///   Latin-1 that of the letter in its place on a US keyboard, as far as the system tells the place.
/// - Every other key that types something, and the keypad, has a code of its own that is no character: such a
///   key is known by what it types.
/// - A key that types nothing, or is pressed with Ctrl, Alt or the system's key, is none of the keyboard's.
namespace melvane {

struct TypedKey {
    int code;       ///< for Form_KeyDown and Form_KeyUp
    int character;  ///< as it was typed, Unicode; for Form_KeyPress
};

std::optional<TypedKey> typedKey(const QKeyEvent& event);

/// Which key of the machine it is, whatever else is held with it: the same at its press and at its release.
int keyIdentity(const QKeyEvent& event);

}  // namespace melvane
