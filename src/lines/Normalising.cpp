#include "lines/Normalising.h"

#include "lines/LinesMsgs.h"
#include "records/Lines.h"

#include <algorithm>
#include <array>
#include <span>

namespace tolvane {

namespace {

// One line as it was read: a blank line, which goes from strSrc as well, a comment line, or text without blanks at its
// right end.
template <class Ch> void SortLine(SrcData<Ch>& src) {
    const std::size_t p = FindNonBlank<Ch>(src.strSrc);
    if (p == npos)
        src.strSrc = src.strLine = {};
    else if (src.strSrc[p] == Ch(';'))
        src.strLine = {};
    else
        src.strLine = TrimRightBlank<Ch>(src.strSrc);
}

// Two leading blanks or more become one space. A single one stays, even a tab.
template <class Ch> View<Ch> WithShortLead(View<Ch> line) {
    const std::size_t p = FindNonBlank(line);
    if (p == npos || p < 2) return line;
    line.remove_prefix(p - 1);
    if (line.front() == Ch(' ')) return line;
    Text<Ch> text(line);
    text.front() = Ch(' ');
    return b->Keep<Ch>(text);
}

// The position of the semicolon that begins the comment, npos if there is none. Inside a character constant a
// semicolon is text, and two apostrophes in a row do not end the constant.
template <class Ch> std::size_t FindComment(View<Ch> line) {
    if (!Has(line, ';')) return npos;
    bool inside = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == Ch(';') && !inside) return i;
        if (line[i] != Ch('\'')) continue;
        if (At(line, i + 1) == Ch('\''))
            ++i;
        else
            inside = !inside;
    }
    return npos;
}

// The operand text as the edit passes see it: without the blanks behind its first "=", if no apostrophe stands before
// it. An "=" with nothing but blanks behind it goes as well. A text that differs is put into `edited`.
template <class Ch> View<Ch> EditedOprnd(const SrcData<Ch>& src, Text<Ch>& edited) {
    const View<Ch> text = src.strOprndCom;
    if (!Has(text, '=')) return text;
    const std::size_t equal = text.find(Ch('='));
    if (text.find(Ch('\'')) < equal) return text;
    const std::size_t next = FindNonBlank(text, equal + 1);
    if (next == npos) return text.substr(0, equal);
    if (next == equal + 1) return text;
    edited.assign(text.substr(0, equal + 1)).append(text.substr(next));
    return edited;
}

template <class Ch> bool StandsBeforeApostrophe(View<Ch> text, std::size_t at) {
    return at != npos && at <= text.find(Ch('\''));
}

// Whether one of the signs stands in the text with a blank directly behind it.
template <class Ch, std::size_t N> bool HasBlankBehind(View<Ch> line, const std::array<std::string_view, N>& signs) {
    for (std::string_view sign : signs)
        for (std::size_t at = Find(line, sign); at != npos; at = Find(line, sign, at + 1))
            if (IsBlank(At(line, at + sign.size()))) return true;
    return false;
}

// Each character is written, so that the compiler turns many of them at once.
template <class Ch> void BlankTabs(std::span<Ch> text) {
    for (Ch& c : text)
        c = c == Ch('\t') ? Ch(' ') : c;
}

constexpr std::array<std::string_view, 3> LiteralSigns = {"=+", "=-", "=#"};
constexpr std::array<std::string_view, 3> Signs = {"+", "-", "#"};

} // namespace

template <class Ch> void editNWB() {
    auto& lines = b->Src<Ch>();
    for (SrcData<Ch>& src : lines) {
        SortLine(src);
        src.strLine = WithShortLead<Ch>(src.strLine);
    }

    if (std::any_of(lines.begin(), lines.end(), [](const SrcData<Ch>& src) { return !src.strLine.empty(); })) return;
    po->Error(NoLine, LinesMsg.EmptySource);
}

template <class Ch> void StripComment(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        SlimView<Ch>& text = LineAt<Ch>(line).strLine;
        text = text.substr(0, FindComment<Ch>(text));
    }
}

template <class Ch> bool edit30c(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    Text<Ch> edited;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const View<Ch> text = EditedOprnd(LineAt<Ch>(line), edited);
        if (!StandsBeforeApostrophe(text, text.find(Ch('='))) || !HasBlankBehind(text, LiteralSigns)) continue;
        cs->Error(line, LinesMsg.SpaceBehindLiteralSign, {text});
        return false;
    }
    return true;
}

template <class Ch> bool edit50(int prg) {
    const PrgData<Ch>& program = PrgAt<Ch>(prg);
    Text<Ch> edited;
    for (int line = program.StartLine; line < program.EndLine; ++line) {
        const View<Ch> text = EditedOprnd(LineAt<Ch>(line), edited);
        if (!StandsBeforeApostrophe(text, text.find_first_of(Lit<Ch>("+-#"))) || !HasBlankBehind(text, Signs)) continue;
        cs->Error(line, LinesMsg.SpaceBehindSign, {text});
        return false;
    }
    return true;
}

template <class Ch> void RemoveNoOprndOpSemiColn(int line) {
    const SrcData<Ch>& src = LineAt<Ch>(line);
    for (const Opcode& op : opcodes::Table) {
        if (!StandsAlone(op)) continue;
        const Text<Ch> word = Lit<Ch>(op.word);
        if (!ContainsMozi<Ch>(src.strOp, word)) continue;
        // Only the first word of the table that occurs is looked for. The form with the space is the one shown.
        const Text<Ch> behindSpace = Ch(' ') + word + Ch(';');
        const Text<Ch> behindTab = Ch('\t') + word + Ch(';');
        if (ContainsMozi<Ch>(src.strSrc, behindSpace) || ContainsMozi<Ch>(src.strSrc, behindTab))
            cs->Error(line, LinesMsg.CommentTouchesOp, {behindSpace});
        return;
    }
}

template <class Ch> bool OpNoOperand(int line, View<Ch> firstOperand) {
    if (firstOperand.empty()) return true;
    cs->Error(line, LinesMsg.OperandOfNoOperandOp, {firstOperand});
    return false;
}

template <class Ch> void TabsToBlanks() {
    for (SrcData<Ch>& src : b->Src<Ch>()) {
        if (!Has<Ch>(src.strLine, '\t')) continue;
        const View<Ch> line = src.strLine;
        const bool hasConstant = Has(line, '\'');
        const std::size_t first = hasConstant ? line.find(Ch('\'')) : line.size();
        const std::size_t last = hasConstant ? line.rfind(Ch('\'')) : line.size();
        const std::span<Ch> text = CopyText(b->Apart<Ch>().texts, line);
        BlankTabs(text.first(first));
        BlankTabs(text.subspan(last));
        src.strLine = View<Ch>(text.data(), text.size());
    }
}

TOLVANE_BOTH_KINDS(editNWB)
TOLVANE_BOTH_KINDS(StripComment)
TOLVANE_BOTH_KINDS(edit30c)
TOLVANE_BOTH_KINDS(edit50)
TOLVANE_BOTH_KINDS(RemoveNoOprndOpSemiColn)
TOLVANE_BOTH_KINDS(OpNoOperand)
TOLVANE_BOTH_KINDS(TabsToBlanks)

} // namespace tolvane
