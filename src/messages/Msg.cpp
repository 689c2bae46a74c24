#include "messages/Msg.h"

#include "text/Convert.h"

#include <cstdio>

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

std::string AtConst(int line, int constant, int lang) {
    const std::string nr = std::to_string(constant + 1);
    return AtLine(line, lang) + (lang == 0 ? nr + ConstantWord[0] : ConstantWord[1] + nr + ": ");
}

std::string Hex(long long value, std::size_t least) {
    char digits[16];
    std::snprintf(digits, sizeof digits, "%X", static_cast<unsigned>(value));
    std::string hex = digits;
    return hex.size() < least ? std::string(least - hex.size(), '0') + hex : hex;
}

std::string FormatArg(const Arg& arg, std::string_view form) {
    if (form == "o") return OrdinalStr(arg.number);
    if (form == "x") return Hex(arg.number, 1);
    if (form == "x4") return Hex(arg.number, 4);
    std::string plain = arg.isNumber ? std::to_string(arg.number) : arg.text;
    return form == "q" ? QuoteStr(plain) : plain;
}

std::string FillTag(std::string_view tag, int lang, Severity severity, Place place, Args args) {
    if (tag == "prefix") return SeverityPrefix(severity, lang);
    if (tag == "atline") return AtLine(place.line, lang);
    if (tag == "line") return LineHead(severity, place.line, lang);
    if (tag == "atconst") return AtConst(place.line, place.constant, lang);
    if (tag == "const") return ConstHead(severity, place.line, place.constant, lang);
    if (tag == "nr") return std::to_string(place.line + 1);
    if (tag == "k") return std::to_string(place.constant + 1);
    const std::size_t index = tag.empty() ? npos : static_cast<std::size_t>(tag[0] - '0');
    if (index >= args.size()) return {};
    return FormatArg(args.begin()[index], tag.substr(1));
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

std::string Compose(const char* text, int lang, Severity severity, Place place, Args args) {
    std::string out;
    for (const char* p = text; *p != '\0'; ++p) {
        if (*p != '{') {
            out += *p;
            continue;
        }
        const char* begin = ++p;
        while (*p != '}')
            ++p;
        out += FillTag(std::string_view(begin, static_cast<std::size_t>(p - begin)), lang, severity, place, args);
    }
    return out;
}

} // namespace tolvane
