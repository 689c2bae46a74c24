#include "input/TMoziCode.h"

#include "input/MoziCodeMsgs.h"
#include "messages/TMsgBase.h"
#include "text/Convert.h"

#include <optional>
#include <string_view>

namespace tolvane {

namespace {

struct Mark {
    std::string_view bytes;
    const char* digits;
    std::int32_t codePage;
    const char* codeName;
};

constexpr Mark Marks[] = {
    {"\xEF\xBB\xBF", "EFBBBF", 65001, "utf-8 with bom(EF BB BF)"},
    {"\xFF\xFE", "FFFE", 1200, "utf-16 le(FF FE)"},
    {"\xFE\xFF", "FEFF", 1201, "utf-16 be(FE FF)"},
};

struct Counts {
    int ascii = 0;
    int sjis = 0;
    int non = 0;
};

// A lead byte takes the next byte along, whatever it is. Half-width kana and the lead bytes 98 to 9F count as stray, so
// that they speak for UTF-8.
Counts CountBytes(std::string_view bytes) {
    Counts counts;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const unsigned c = static_cast<unsigned char>(bytes[i]);
        if (c <= 126) {
            ++counts.ascii;
        } else if ((0x80 <= c && c <= 0x97) || (0xE0 <= c && c <= 0xFC)) {
            ++counts.sjis;
            ++i;
        } else {
            ++counts.non;
        }
    }
    return counts;
}

} // namespace

std::string TMoziCode::DetBOM_MzC(const std::string& path, const std::string* bytes) {
    if (path.empty()) {
        Say(MoziCodeMsg.FnameEmpty);
        return {};
    }
    if (bytes == nullptr) {
        Say(MoziCodeMsg.BomFailToOpen, {Utf8Arg{path}});
        return {};
    }
    for (const Mark& mark : Marks) {
        if (!bytes->starts_with(mark.bytes)) continue;
        BomStr = mark.digits;
        CodePage = mark.codePage;
        CodeName = mark.codeName;
        return BomStr;
    }
    BomStr.clear();
    CodeName = "utf-8 or sjis";
    return {};
}

void TMoziCode::Det_sjisMzC(const std::string& path, const std::string* bytes) {
    if (bytes == nullptr) {
        Say(MoziCodeMsg.FailToOpen, {Utf8Arg{path}});
        return;
    }
    const Counts counts = CountBytes(*bytes);
    Say(MoziCodeMsg.MoziKazu, {counts.ascii, counts.sjis, counts.non});
    const bool isSjis = counts.non < 1;
    CodePage = isSjis ? 932 : 65001;
    CodeName = isSjis ? "sjis" : "utf-8";
}

void TMoziCode::DetMoziCode(const std::string& path, const std::string* bytes, bool simpleTitle) {
    if (DetBOM_MzC(path, bytes).empty() && !simpleTitle) Det_sjisMzC(path, bytes);
    if (simpleTitle)
        Say(MoziCodeMsg.ReadingSimple, {Utf8Arg{path}});
    else
        Say(MoziCodeMsg.Reading, {Utf8Arg{path}, Utf8Arg{CodeName}});
}

TextW utf_16_to_shift_jis(ViewA narrow) {
    return Wide932(narrow.substr(0, narrow.find('\0')));
}

TextW Utf8ToWide(ViewA utf8) {
    std::optional<TextW> wide = WideUtf8(utf8);
    return wide ? *std::move(wide) : Wide932(utf8);
}

TextA Utf8ToNarrow(ViewA utf8) {
    return Narrow932(Utf8ToWide(utf8));
}

TextW NarrowToWide(ViewA narrow) {
    return Wide932(narrow);
}

} // namespace tolvane
