#include "messages/Msg.h"

#include "text/Convert.h"

#include <algorithm>
#include <cstdio>
#include <optional>

namespace tolvane {

namespace {

constexpr const char* Prefixes[4][2] = {
    {"エラー： ", "Error : "},
    {"警告： ", "Warning : "},
    {"注意： ", "Note : "},
    {"メモ： ", "Note : "},
};
constexpr const char* LineWord[2] = {" 行目： ", "line "};
constexpr const char* ConstantWord[2] = {" 番目の定数： ", " Constant Nr="};

std::string AtLine(int line, int lang) {
    const std::string nr = std::to_string(line + 1);
    return lang == 0 ? nr + LineWord[0] : LineWord[1] + nr + ": ";
}

std::string ConstantNr(int constant, int lang) {
    const std::string nr = std::to_string(constant + 1);
    return lang == 0 ? nr + ConstantWord[0] : ConstantWord[1] + nr + ": ";
}

std::string AtConst(int line, int constant, int lang) {
    return AtLine(line, lang) + ConstantNr(constant, lang);
}

std::string Hex(long long value, std::size_t least) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(value));
    std::string hex = digits;
    return hex.size() < least ? std::string(least - hex.size(), '0') + hex : hex;
}

std::string Plain(const Arg& arg, const Filling& filling) {
    if (arg.row != nullptr) return Compose(arg.row->For(filling.lang, filling.wording), filling);
    return arg.isNumber ? std::to_string(arg.number) : arg.text;
}

std::string FormatArg(const Arg& arg, std::string_view form, const Filling& filling) {
    if (form == "o") return OrdinalStr(arg.number);
    if (form == "x") return Hex(arg.number, 1);
    if (form == "x4") return Hex(arg.number, 4);
    const std::string plain = Plain(arg, filling);
    return form == "q" ? QuoteStr(plain) : plain;
}

// What a tag of a head leaves where the head is told by other means: the constant's number. Null for other tags.
std::optional<std::string> FillHeadless(std::string_view tag, const Filling& f) {
    if (tag == "const" || tag == "atconst") return ConstantNr(f.place.constant, f.lang);
    if (tag == "prefix" || tag == "line" || tag == "atline") return std::string();
    return std::nullopt;
}

std::string FillTag(std::string_view tag, const Filling& f) {
    if (f.headless)
        if (auto left = FillHeadless(tag, f)) return *std::move(left);
    if (tag == "prefix") return SeverityPrefix(f.severity, f.lang);
    if (tag == "atline") return AtLine(f.place.line, f.lang);
    if (tag == "line") return LineHead(f.severity, f.place.line, f.lang);
    if (tag == "atconst") return AtConst(f.place.line, f.place.constant, f.lang);
    if (tag == "const") return ConstHead(f.severity, f.place.line, f.place.constant, f.lang);
    if (tag == "nr") return std::to_string(f.place.line + 1);
    if (tag == "k") return std::to_string(f.place.constant + 1);
    const std::size_t index = tag.empty() ? npos : static_cast<std::size_t>(tag[0] - '0');
    if (index >= f.args.size()) return {};
    return FormatArg(f.args[index], tag.substr(1), f);
}

} // namespace

const char* Msg::For(int lang, Wording wording) const {
    for (const Variant& v : variants) {
        const char* text = lang == 0 ? v.ja : v.en;
        if ((v.wordings & wording) != 0 && text != nullptr) return text;
    }
    return lang == 0 ? ja : en;
}

Arg::Arg(const TextW& wide) : text(Utf8(wide)) {}
Arg::Arg(const TextA& shiftJis) : text(Utf8From932(shiftJis)) {}

std::string OrdinalStr(long long n) {
    if (n == 1) return "1st";
    if (n == 2) return "2nd";
    if (n == 3) return "3rd";
    return std::to_string(n) + "th";
}

std::string QuoteStr(const std::string& utf8) {
    return " \"" + utf8 + "\" ";
}

const char* SeverityPrefix(Severity severity, int lang) {
    return Prefixes[static_cast<int>(severity)][lang == 0 ? 0 : 1];
}

std::string LineHead(Severity severity, int line, int lang) {
    return SeverityPrefix(severity, lang) + AtLine(line, lang);
}

std::string ConstHead(Severity severity, int line, int constant, int lang) {
    return SeverityPrefix(severity, lang) + AtConst(line, constant, lang);
}

std::string Compose(std::string_view text, const Filling& filling) {
    std::string out;
    while (!text.empty()) {
        const std::size_t brace = std::min(text.find('{'), text.size());
        out += text.substr(0, brace);
        text.remove_prefix(brace);
        if (text.empty()) break;
        const std::size_t end = text.find('}');
        out += FillTag(text.substr(1, end - 1), filling);
        text.remove_prefix(end + 1);
    }
    return out;
}

} // namespace tolvane
