#include "synth/key_characters.h"

#include <gtest/gtest.h>

namespace melvane::test {
namespace {

TEST(KeyCharactersTest, ACodeIsItsCharacterInTheCodePage) {
    EXPECT_EQ(characterOf('A'), "A");
    EXPECT_EQ(characterOf(0xF6), "ö");
    EXPECT_EQ(characterOf(0x80), "€");
    EXPECT_EQ(characterOf(0x20AC), "€");
    EXPECT_EQ(characterOf(0x1F3B9), "🎹");
    for (const int none : {-1, 0xD800, 0xDFFF, 0x110000, 0x7FFFFFFF})
        EXPECT_EQ(characterOf(none), "") << none;
}

TEST(KeyCharactersTest, EveryByteComesBackFromItsCharacter) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
    EXPECT_EQ(toEightBit(fromEightBit(bytes)), bytes);
    EXPECT_TRUE(isUtf8(fromEightBit(bytes)));
}

TEST(KeyCharactersTest, WhatTheCodePageLacksHasNoByte) {
    EXPECT_EQ(toEightBit("Ж"), std::nullopt);
    EXPECT_EQ(toEightBit("🎹"), std::nullopt);
    EXPECT_EQ(toEightBit("\xFF"), std::nullopt) << "no UTF-8";
}

TEST(KeyCharactersTest, BrokenTextIsNoUtf8) {
    for (const char* text :
         {"\x80", "\xC3", "\xC0\xAF", "\xE0\x80\xAF", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF8"})
        EXPECT_FALSE(isUtf8(text)) << text;
    for (const char* text : {"", "a", "ö", "€", "🎹"}) EXPECT_TRUE(isUtf8(text)) << text;
}

TEST(KeyCharactersTest, CharactersAreCountedNotBytes) {
    EXPECT_EQ(firstCharacters("öß€a", 3), "öß€");
    EXPECT_EQ(firstCharacters("ab", 9), "ab");
    EXPECT_EQ(firstCharacters("\x80\x80z", 2), "\x80\x80");
}

TEST(KeyCharactersTest, TheTypedCharacterIsThePattern) {
    EXPECT_TRUE(isLike("a", "a"));
    EXPECT_FALSE(isLike("A", "a"));
    EXPECT_FALSE(isLike("aa", "a"));
    EXPECT_TRUE(isLike("x", "?"));
    EXPECT_TRUE(isLike("ö", "?")) << "one character of two bytes";
    EXPECT_FALSE(isLike("", "?"));
    EXPECT_FALSE(isLike("xy", "?"));
    EXPECT_TRUE(isLike("7", "#"));
    EXPECT_FALSE(isLike("x", "#"));
    EXPECT_FALSE(isLike("77", "#"));
    EXPECT_FALSE(isLike("#", "#"));
    EXPECT_TRUE(isLike("", "*"));
    EXPECT_TRUE(isLike("anything", "*"));
    EXPECT_FALSE(isLike("[", "["));
    EXPECT_TRUE(isLike("]", "]"));
    EXPECT_FALSE(isLike("a", "")) << "a code without a character";
}

}  // namespace
}  // namespace melvane::test
