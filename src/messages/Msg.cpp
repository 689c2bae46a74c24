#include "messages/Msg.h"

#include "text/Convert.h"

#include <algorithm>
#include <array>
#include <charconv>
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

// The parts of a text, each appended to `out`.
void AppendNumber(std::string& out, long long n) {
    std::array<char, 24> digits;
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), n).ptr;
    out.append(digits.data(), end);
}

void AppendHex(std::string& out, long long value, std::size_t least) {
    std::array<char, 16> digits;
    const int length = std::snprintf(digits.data(), digits.size(), "%X", static_cast<unsigned>(value));
    const auto size = static_cast<std::size_t>(length);
    if (size < least) out.append(least - size, '0');
    out.append(digits.data(), size);
}

// The severity's prefix in a language: "Error : ", "エラー： ".
const char* SeverityPrefix(Severity severity, int lang) {
    return Prefixes[static_cast<int>(severity)][lang == 0 ? 0 : 1];
}

void AppendPrefix(std::string& out, const Filling& f) {
    if (!f.headless) out += SeverityPrefix(f.severity, f.lang);
}

void AppendAtLine(std::string& out, const Filling& f) {
    if (f.headless) return;
    if (f.lang != 0) out += LineWord[1];
    AppendNumber(out, f.place.line + 1);
    out += f.lang == 0 ? LineWord[0] : ": ";
}

void AppendAtConst(std::string& out, const Filling& f) {
    AppendAtLine(out, f);
    if (f.lang != 0) out += ConstantWord[1] + (f.headless && out.ends_with(' ') ? 1 : 0);
    AppendNumber(out, f.place.constant + 1);
    out += f.lang == 0 ? ConstantWord[0] : ": ";
}

// The head of a diagnostic on a source line, and on a constant of one.
void LineHead(std::string& out, const Filling& f) {
    AppendPrefix(out, f);
    AppendAtLine(out, f);
}
void ConstHead(std::string& out, const Filling& f) {
    AppendPrefix(out, f);
    AppendAtConst(out, f);
}

// "1st", "2nd", "3rd", otherwise the number and "th", also for 21, 22 and 23.
void OrdinalStr(std::string& out, long long n) {
    AppendNumber(out, n);
    out += n == 1 ? "st" : n == 2 ? "nd" : n == 3 ? "rd" : "th";
}

void AppendArg(std::string& out, const KeptArg& arg, std::string_view form, const Filling& f) {
    if (form == "o") return OrdinalStr(out, arg.number);
    if (form == "x") return AppendHex(out, arg.number, 1);
    if (form == "x4") return AppendHex(out, arg.number, 4);
    // a blank, the text in double quotation marks, a blank
    if (form == "q") out += f.headless && (out.empty() || out.ends_with(' ')) ? "\"" : " \"";
    if (arg.row != nullptr)
        Compose(out, arg.row->For(f.lang, f.wording), f);
    else if (arg.isNumber)
        AppendNumber(out, arg.number);
    else if (f.forTerminal)
        AppendVisibly(out, arg.text);
    else
        out += arg.text;
    if (form == "q") out += "\" ";
}

void JoinLine(std::string& out, const Filling& f) {
    if (!f.headless) {
        out += '\n';
        return;
    }
    out.erase(out.find_last_not_of(' ') + 1);
    out += out.ends_with(':') ? " " : ": ";
}

void AppendTag(std::string& out, std::string_view tag, const Filling& f) {
    if (tag.empty()) return;
    if (IsDigit(tag[0])) {
        const auto index = static_cast<std::size_t>(tag[0] - '0');
        if (index < f.args.size()) AppendArg(out, f.args[index], tag.substr(1), f);
        return;
    }
    if (tag == "line") LineHead(out, f);
    if (tag == "const") ConstHead(out, f);
    if (tag == "prefix") AppendPrefix(out, f);
    if (tag == "atline") AppendAtLine(out, f);
    if (tag == "atconst") AppendAtConst(out, f);
    if (tag == "nr") AppendNumber(out, f.place.line + 1);
    if (tag == "k") AppendNumber(out, f.place.constant + 1);
    if (tag == "constbody" && f.headless) AppendAtConst(out, f);
    if (tag == "join") JoinLine(out, f);
}

// A row's own words, without a blank behind a blank and in front of a sign behind a quoted text.
void AppendTidily(std::string& out, std::string_view words) {
    for (const char c : words) {
        if (c == ' ' && out.ends_with(' ')) continue;
        if ((c == ':' || c == '.') && out.ends_with("\" ")) out.pop_back();
        out += c;
    }
}

} // namespace

const char* Msg::For(int lang, Wording wording) const {
    for (const Variant& v : variants) {
        const char* text = lang == 0 ? v.ja : v.en;
        if ((v.wordings & wording) != 0 && text != nullptr) return text;
    }
    return lang == 0 ? ja : en;
}

Arg::Arg(ViewW wide) : text(Utf8(wide)) {}
Arg::Arg(ViewA shiftJis) : text(Utf8From932(shiftJis)) {}

void AppendVisibly(std::string& out, std::string_view text) {
    constexpr unsigned char LeadOfC1 = 0xC2; // U+0080 to U+009F, each of which stands for ESC and a letter
    const auto byteAt = [text](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0; };
    for (std::size_t i = 0; i < text.size(); ++i) {
        const int byte = byteAt(i);
        if (byte == LeadOfC1 && 0x80 <= byteAt(i + 1) && byteAt(i + 1) < 0xA0) {
            out += "^[";
            out += static_cast<char>(byteAt(++i) - 0x40);
        } else if ((byte >= 0x20 && byte != 0x7F) || byte == '\t') {
            out += text[i];
        } else {
            out += '^';
            out += static_cast<char>(byte ^ 0x40);
        }
    }
}

std::string_view WithoutHead(std::string_view text) {
    for (const std::string_view end : {"{body}", "{constbody}"})
        if (const std::size_t at = text.find(end); at != npos) return text.substr(at);
    return text;
}

std::string_view TakeLine(std::string_view& text) {
    constexpr std::string_view join = "{join}";
    const std::size_t end = std::min({text.find('\n'), text.find(join), text.size()});
    const std::string_view line = text.substr(0, end);
    const std::size_t lineBreak = text.substr(end).starts_with(join) ? join.size() : 1;
    text.remove_prefix(std::min(end + lineBreak, text.size()));
    return line;
}

void Compose(std::string& out, std::string_view text, const Filling& filling) {
    if (filling.headless) text = WithoutHead(text);
    while (!text.empty()) {
        const std::size_t brace = std::min(text.find('{'), text.size());
        if (filling.headless)
            AppendTidily(out, text.substr(0, brace));
        else
            out += text.substr(0, brace);
        text.remove_prefix(brace);
        if (text.empty()) return;
        const std::size_t end = text.find('}');
        AppendTag(out, text.substr(1, end - 1), filling);
        text.remove_prefix(end + 1);
    }
}

} // namespace tolvane
