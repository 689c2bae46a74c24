#include "lines/ZenKaku.h"

#include "lines/LinesMsgs.h"
#include "records/Lines.h"
#include "text/Convert.h"

#include <algorithm>

namespace tolvane {

namespace {

// Bytes of the character at i in code page 932, 0 for what is no character of it.
template <class Ch> int ByteLengthAt(View<Ch> text, std::size_t i) {
    if (IsZenKakuAt(text, i)) return 2;
    if constexpr (IsWide<Ch>)
        return ByteLength932(text[i]);
    else
        return IsLeadByte932(static_cast<unsigned char>(text[i])) ? 0 : 1;
}

// Whether a walk over the characters of a text meets a full-width one. It ends at what is no character.
template <class Ch> bool MeetsZenKaku(View<Ch> text) {
    for (std::size_t i = 0; i < text.size(); ++i)
        if (const int bytes = ByteLengthAt(text, i); bytes != 1) return bytes == 2;
    return false;
}

template <class Ch> void RefuseZenKaku(View<Ch> text, int line, const Msg& msg) {
    if (MeetsZenKaku(text)) cs->Error(line, msg, {text});
}

// The rows for START and END.
struct BoundaryRows {
    std::string_view word;
    const Msg& zenBehind;
    const Msg& zenBefore;
    const Msg& lrSemicolon;
    const Msg& lrZenBehind;
    const Msg& lrZenBefore;
};
constexpr BoundaryRows StartRows = {"START",
                                    LinesMsg.ZenSpaceBehindStart,
                                    LinesMsg.ZenSpaceBeforeStart,
                                    LinesMsg.StartWithSemicolon,
                                    LinesMsg.StartThenZenSpace,
                                    LinesMsg.ZenSpaceThenStart};
constexpr BoundaryRows EndRows = {"END",
                                  LinesMsg.ZenSpaceBehindEnd,
                                  LinesMsg.ZenSpaceBeforeEnd,
                                  LinesMsg.EndWithSemicolon,
                                  LinesMsg.EndThenZenSpace,
                                  LinesMsg.ZenSpaceThenEnd};

template <class Ch> void DetAtZenKakuSpace(const BoundaryRows& rows) {
    const Text<Ch> behind = Lit<Ch>(rows.word).append(ZenSpace<Ch>());
    const Text<Ch> before = Text<Ch>(ZenSpace<Ch>()).append(Lit<Ch>(rows.word));
    for (int line = 0; line < LineKazu<Ch>(); ++line) {
        const View<Ch> text = LineAt<Ch>(line).strLine;
        if (ContainsMozi<Ch>(text, behind)) {
            po->Error(line, rows.zenBehind, {behind});
            return;
        }
        if (ContainsMozi<Ch>(text, before)) {
            po->Error(line, rows.zenBefore, {before});
            return;
        }
    }
}

template <class Ch> void CkLeftRight(const BoundaryRows& rows) {
    const Text<Ch> word = Lit<Ch>(rows.word);
    const Text<Ch> semicolon = Ch(' ') + word + Ch(';');
    const Text<Ch> zenBehind = Text<Ch>(word).append(ZenSpace<Ch>());
    const Text<Ch> zenBefore = Text<Ch>(ZenSpace<Ch>()).append(word);
    for (int line = 0; line < LineKazu<Ch>(); ++line) {
        const View<Ch> text = LineAt<Ch>(line).strLine;
        const Msg* row = ContainsMozi<Ch>(text, semicolon)   ? &rows.lrSemicolon
                         : ContainsMozi<Ch>(text, zenBehind) ? &rows.lrZenBehind
                         : ContainsMozi<Ch>(text, zenBefore) ? &rows.lrZenBefore
                                                             : nullptr;
        if (row == nullptr) continue;
        po->Error(line, *row);
        return;
    }
}

template <class Ch> Text<Ch> WithSpaces(View<Ch> text) {
    Text<Ch> out(text);
    std::replace(out.begin(), out.end(), Ch('\t'), Ch(' '));
    return out;
}

// For operands that never hold an apostrophe. Of each pair of spaces one goes, so that a run shrinks to about half.
template <class Ch> Text<Ch> TidySimply(View<Ch> operands) {
    Text<Ch> text = WithSpaces(operands.substr(0, operands.find(Ch(';'))));
    for (std::size_t at = Find<Ch>(text, "  "); at != npos; at = Find<Ch>(text, "  ", at + 1))
        text.erase(at, 1);
    return text;
}

// Without the comment: it begins at the first semicolon if no apostrophe stands before it, else at the first of those
// that stand behind the last apostrophe.
template <class Ch> View<Ch> WithoutCommentOutside(View<Ch> text) {
    const std::size_t first = text.find(Ch(';'));
    if (first == npos) return text;
    if (first < text.find(Ch('\''))) return text.substr(0, first);
    return text.substr(0, text.find(Ch(';'), text.rfind(Ch('\''))));
}

// Text that lies outside the apostrophes: each run of blanks shrinks to a space, and beside a comma it goes.
template <class Ch> Text<Ch> TidyOutside(View<Ch> outside, bool commas) {
    const Text<Ch> text = WithSpaces(outside);
    Text<Ch> tidy;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == Ch(' ')) {
            const bool behindSpace = i > 0 && text[i - 1] == Ch(' ');
            const bool behindComma = !tidy.empty() && tidy.back() == Ch(',');
            if (behindSpace || (commas && behindComma)) continue;
        } else if (commas && text[i] == Ch(',') && !tidy.empty() && tidy.back() == Ch(' ')) {
            tidy.pop_back();
        }
        tidy += text[i];
    }
    return tidy;
}

template <class Ch> Text<Ch> TidyCarefully(View<Ch> operands, bool commas) {
    const View<Ch> text = WithoutCommentOutside(operands);
    const std::size_t first = text.find(Ch('\''));
    if (first == npos) return TidyOutside(text, commas);
    const std::size_t behindLast = text.rfind(Ch('\'')) + 1;
    Text<Ch> tidy = TidyOutside(text.substr(0, first), commas);
    tidy += text.substr(first, behindLast - first);
    tidy += TidyOutside(text.substr(behindLast), commas);
    return tidy;
}

} // namespace

template <class Ch> void AnalystZenKSpace20(View<Ch> text, int line) {
    if (FindZenSpace(text) != npos) cs->Error(line, LinesMsg.ZenSpaceInWord, {text});
}

template <class Ch> void AnalystZenKMozi(View<Ch> text, int line) {
    RefuseZenKaku(text, line, LinesMsg.ZenMoziInWord);
}

template <class Ch> void AnalystZenKakuMoziStr(View<Ch> text, int line) {
    RefuseZenKaku(text, line, LinesMsg.ZenMoziInStartOperand);
}

template <class Ch> void DetSTARTatZenKakuSpace() {
    DetAtZenKakuSpace<Ch>(StartRows);
}
template <class Ch> void DetENDatZenKakuSpace() {
    DetAtZenKakuSpace<Ch>(EndRows);
}
template <class Ch> void CkSTART_LR() {
    CkLeftRight<Ch>(StartRows);
}
template <class Ch> void CkEnd_LR() {
    CkLeftRight<Ch>(EndRows);
}

template <class Ch> void TrimZenOprndCom() {
    for (SrcData<Ch>& src : b->Src<Ch>()) {
        if (src.strOp.empty() || src.strOprndCom.empty()) continue;
        const Tidy tidy = src.op != nullptr ? src.op->tidy : Tidy::None;
        if (tidy == Tidy::Simple)
            src.strOprndCom = b->KeepEdited<Ch>(src.strOprndCom, TidySimply<Ch>(src.strOprndCom));
        else if (tidy != Tidy::None)
            src.strOprndCom =
                b->KeepEdited<Ch>(src.strOprndCom, TidyCarefully<Ch>(src.strOprndCom, tidy == Tidy::CarefulWithCommas));
        else if (modeFlags->Pipe->trimTellsUnknownOp && src.op == nullptr)
            Say(LinesMsg.NoOpCodeToTrim, {src.strOp});
    }
}

template <class Ch> void TrimZenOprndComOfFile(int) {
    TrimZenOprndCom<Ch>();
}

TOLVANE_BOTH_KINDS(TrimZenOprndComOfFile)
TOLVANE_BOTH_KINDS(AnalystZenKSpace20)
TOLVANE_BOTH_KINDS(AnalystZenKMozi)
TOLVANE_BOTH_KINDS(AnalystZenKakuMoziStr)
TOLVANE_BOTH_KINDS(DetSTARTatZenKakuSpace)
TOLVANE_BOTH_KINDS(DetENDatZenKakuSpace)
TOLVANE_BOTH_KINDS(CkSTART_LR)
TOLVANE_BOTH_KINDS(CkEnd_LR)
TOLVANE_BOTH_KINDS(TrimZenOprndCom)

} // namespace tolvane
