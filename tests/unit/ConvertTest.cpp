// The conversions among code page 932, EUC-JP, UTF-8 and UTF-16.

#include "text/Convert.h"

#include <gtest/gtest.h>

namespace tolvane {

namespace {

using namespace std::string_literals;

// Gives every pair of a lead byte and any byte to `take`.
template <class Take> void ForEachPair(Take take) {
    for (int lead = 0x81; lead <= 0xFC; ++lead)
        for (int trail = 0; IsLeadByte932(static_cast<unsigned char>(lead)) && trail <= 0xFF; ++trail)
            take(std::string{static_cast<char>(lead), static_cast<char>(trail)});
}

TEST(Convert, EveryCharacterOfCodePage932ComesBack) {
    int characters = 0;
    ForEachPair([&](const std::string& pair) {
        const std::u16string wide = Wide932(pair);
        ASSERT_EQ(wide.size(), 1U);
        EXPECT_EQ(Wide932(Narrow932(wide)), wide);
        EXPECT_EQ(ByteLength932(wide[0]), 2);
        if (IsValid932(pair))
            ++characters;
        else
            EXPECT_EQ(wide, u"\u30FB");
    });
    EXPECT_EQ(characters, 7724 + 1880); // the sets of the page and the user's own characters

    for (int c = 0; c <= 0xFF; ++c) {
        const std::string single(1, static_cast<char>(c));
        if (IsLeadByte932(static_cast<unsigned char>(c))) continue;
        EXPECT_EQ(Narrow932(Wide932(single)), single);
        EXPECT_EQ(ByteLength932(Wide932(single)[0]), 1);
    }
}

TEST(Convert, CodePage932KnowsAllItsSets) {
    const std::pair<std::string, std::u16string> pairs[] = {
        {"\x93\xFA\x96\x7B\xB1\xDD\xA1\xDF\x83\x5C\x81\x5F\x5C\x7E", u"日本ｱﾝ｡ﾟソ＼\\~"},
        {"\xFB\xFC\xFA\x40\xFA\x55\xFA\x57\xFA\x5C", u"髙ⅰ￤＂纊"}, // the IBM code before the NEC-selected one
        {"\x87\x40\x87\x54\x87\x8A\x87\x82\x81\xBE", u"①Ⅰ㈱№∪"},    // row 13 before both, row 2 before all
        {"\xF0\x40\xF9\xFC\x81\x60\x81\x7C\xEA\xA4", u"\uE000\uE757～－熙"},
        {"\x80\xA0\xFD\xFE\xFF", u"\u0080\u00A0\uF8F1\uF8F2\uF8F3"},
    };
    for (const auto& [bytes, wide] : pairs) {
        EXPECT_EQ(Wide932(bytes), wide);
        EXPECT_EQ(Narrow932(wide), bytes);
    }
    EXPECT_EQ(Wide932("\xFB\xFC\xEE\xE0\xFA\x4A\xED\x40\x87\x9C\x81\xBE"), u"髙髙Ⅰ纊∪∪");
    EXPECT_EQ(Narrow932(u"\u301C\u2212\u2016\u2014\u00A2\u00A3\u00AC"), Narrow932(u"～－∥―￠￡￢"));
}

TEST(Convert, WhatHasNoPlaceIsReplaced) {
    EXPECT_EQ(Wide932("a\x81"), u"a・"); // a lead byte at the end
    EXPECT_FALSE(IsValid932("a\x81"));
    for (const std::string& bytes : {"\x81\x20"s, "\x81\x7F"s, "\x81\xFD"s, "\x85\x40"s, "\x81\0"s}) {
        EXPECT_FALSE(IsValid932("a" + bytes));
        EXPECT_EQ(Wide932(bytes + "z"), u"・z");
    }
    EXPECT_EQ(Narrow932(u"é\U0001F600\xD83Dx\xDE00"), "???x?");
    EXPECT_EQ(ByteLength932(u'é'), 0);
    EXPECT_EQ(ByteLength932(u'\0'), 1);
}

TEST(Convert, Utf8ComesBack) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x10000 ? 1 : 0x3F) {
        if (0xD800 <= c && c <= 0xDFFF) continue;
        std::u16string wide;
        if (c > 0xFFFF) wide += static_cast<char16_t>(0xD7C0 + (c >> 10));
        wide += static_cast<char16_t>(c > 0xFFFF ? 0xDC00 + (c & 0x3FF) : c);
        const std::string utf8 = Utf8(wide);
        ASSERT_EQ(Utf8Length(utf8, 0), utf8.size());
        ASSERT_EQ(WideUtf8(utf8), wide);
    }
    EXPECT_EQ(Utf8(u"\xD83Dx\xDE00"), "\uFFFDx\uFFFD");
}

TEST(Convert, Utf8IsTakenStrictly) {
    for (const char* bytes : {"\x80", "\xC0\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xF0\x8F\xBF\xBF",
                              "\xF4\x90\x80\x80", "\xF5\x80\x80\x80", "\xE3\x81", "\xE3\x81z", "\xFF", "\xC3"}) {
        EXPECT_FALSE(WideUtf8("a"s + bytes));
        EXPECT_EQ(WideUtf8Lossy("a"s + bytes)[1], u'\uFFFD');
    }
    EXPECT_EQ(WideUtf8Lossy("日\xE3\x81本"), u"日\uFFFD\uFFFD本");
}

TEST(Convert, EucAndCodePage932) {
    ForEachPair([](const std::string& pair) {
        const std::string euc = EucFrom932(pair);
        if (euc == "?") return; // not valid, or in a row that EUC-JP lacks
        EXPECT_EQ(EucLength(euc, 0), 2U);
        EXPECT_EQ(Wide932(EucTo932(euc)), Wide932(pair));
        if (pair < "\xF0") {
            EXPECT_EQ(EucTo932(euc), pair);
        }
    });
    EXPECT_EQ(EucTo932("A\xC6\xFC\xCB\xDC\x8E\xB1"), "A\x93\xFA\x96\x7B\xB1");
    EXPECT_EQ(EucFrom932("A\x93\xFA\x96\x7B\xB1"), "A\xC6\xFC\xCB\xDC\x8E\xB1");
    EXPECT_EQ(EucTo932("\x8F\xB0\xA1x\xC6"), "?x?"); // the supplementary set; half a character
    EXPECT_EQ(EucFrom932("\xF0\x40x\x93"), "?x?");
    EXPECT_EQ(EucFrom932(Narrow932(u"髙ⅰⅠ￢")), "\xFC\xE2\xFC\xF1\xAD\xB5\xA2\xCC");
    EXPECT_EQ(EucFrom932("\xFA\x4A\xFA\x54"), "\xAD\xB5\xA2\xCC"); // IBM codes of row 13 and row 2
}

} // namespace

} // namespace tolvane
