// The conversions of numbers at their limits, and the counts of character constants in both kinds of text.

#include "operands/Numbers.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace tolvane {

namespace {

struct Reading {
    const char16_t* text;
    int value;
    std::size_t end;
};

TEST(Numbers, ADecimalNumberEndsAtTheFirstOtherCharacterAndIsHeldTo32Bits) {
    const Reading readings[] = {
        {u"0", 0, 1},
        {u"-32768", -32768, 6},
        {u"+70000", 70000, 6},
        {u"007", 7, 3},
        {u"2147483647", 2147483647, 10},
        {u"2147483648", 2147483647, 10},
        {u"-2147483648", -2147483647 - 1, 11},
        {u"-99999999999999999999999", -2147483647 - 1, 24},
        {u"1+2", 1, 1},
        {u"5A", 5, 1},
        {u"+", 0, 0},
        {u"++5", 0, 0},
        {u"", 0, 0},
    };
    for (const Reading& reading : readings) {
        std::size_t end = 99;
        const TextW text = reading.text;
        EXPECT_EQ(ReadDecimal(text, end), reading.value) << Arg(text).text;
        EXPECT_EQ(end, reading.end) << Arg(text).text;
    }
}

TEST(Numbers, AWordTakesMinus32768To32767WithoutAWarning) {
    cs->ClearCounters();
    for (const char16_t* sound : {u"32767", u"-32768", u"0", u"-"})
        DecStrToIntG(TextW(sound), 0, 0);
    EXPECT_EQ(cs->WarningKazu, 0);
    EXPECT_EQ(DecStrToIntG(TextW(u"70000"), 0, 0), 70000); // the cut to 16 bits is the caller's
    EXPECT_EQ(DecStrToIntG(TextW(u"-32769"), 0, 0), -32769);
    EXPECT_EQ(cs->WarningKazu, 2);
    EXPECT_EQ(cs->ErrorKazu, 0);
    cs->ClearCounters();
}

TEST(Numbers, AHexadecimalNumberHasFourCapitalDigits) {
    const std::vector<std::pair<const char*, int>> checks = {
        {"#00FF", 0}, {"#FFFF", 0}, {"#00ff", -1}, {"#G", -1}, {"#12345", -2}, {"#", -3}, {"#123", -4},
    };
    cs->ClearCounters();
    for (const auto& [text, result] : checks) {
        EXPECT_EQ(CkHexConstG(TextA(text), 0, 0), result) << text;
        EXPECT_EQ(CkHexConstG(Lit<char16_t>(text), 0, 0), result) << text;
    }
    EXPECT_EQ(cs->ErrorKazu, 10);

    cs->ClearCounters();
    EXPECT_EQ(HexStrToIntG(TextW(u"#00FF"), 0, 0), 255);
    EXPECT_EQ(HexStrToIntG(TextW(u"#FFFF"), 0, 0), 65535);
    EXPECT_EQ(HexStrToIntG(TextW(u"#"), 0, 0), 0);
    EXPECT_EQ(HexStrToIntG(TextW(u"#FFFFFFFFFF"), 0, 0), 2147483647);
    EXPECT_EQ(cs->ErrorKazu, 0);
    EXPECT_EQ(HexStrToIntG(TextW(u"#12G4"), 0, 0), 0x12);
    EXPECT_EQ(cs->ErrorKazu, 1);
    cs->ClearCounters();
}

TEST(Numbers, ACharacterConstantCountsUnitsAndADoubledApostropheOnce) {
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"'ABC'")), 3);
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"'A''B'")), 3);
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"''''")), 1);
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"''")), 0);
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"ABC")), 0);
    EXPECT_EQ(CountWordKazuAtCharConst(TextW(u"'\u65E5'")), 1);
    EXPECT_EQ(CountWordKazuAtCharConst(TextA("'\x93\xFA'")), 2);

    std::vector<int> codes;
    ForEachMozi(TextA("'\xB1''A'"), 0, [&codes](int code) { codes.push_back(code); });
    EXPECT_EQ(codes, (std::vector<int>{0xB1, '\'', 'A'}));
}

} // namespace

} // namespace tolvane
