#pragma once
// The owner of the line and program records and of the file-wide counts. One object, reached through `b`.

#include "messages/TMsgBase.h"
#include "records/PrgData.h"
#include "records/SrcData.h"
#include "text/Arena.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

namespace tolvane {

inline constexpr int MaxPrgKazu = 6;

// What the line records of one kind of text point to.
template <class Ch> struct TApart {
    Arena<Ch> texts;
    std::vector<TLiteConst<Ch>> vecLite;
    std::vector<TDcConst<Ch>> vecDcConst;

    void Clear() {
        texts.Clear();
        vecLite = {};
        vecDcConst = {};
    }
};

class TBasicData : public TMsgBase {
public:
    SrcLines<char> vecSrcA;
    SrcLines<char16_t> vecSrcW;
    std::vector<PrgDataA> vecPrgA;
    std::vector<PrgDataW> vecPrgW;
    TApart<char> apartA;
    TApart<char16_t> apartW;

    // The lines that hold the letters START and END, in file order.
    std::vector<int> StartLines;
    std::vector<int> EndLines;

    // The records of the pipeline's kind of text; the index of a line record is its zero-based line number.
    template <class Ch> SrcLines<Ch>& Src();
    template <class Ch> std::vector<PrgData<Ch>>& Prg();

    template <class Ch> TApart<Ch>& Apart();

    // Appends the record of the next line of the file, without its line end.
    template <class Ch> void AddLine(View<Ch> text) { Src<Ch>().emplace_back().strSrc = Keep(text); }
    // The same for bytes that are all ASCII, and so the same in either kind of text.
    template <class Ch> void AddAsciiLine(std::string_view bytes) {
        Arena<Ch>& texts = Apart<Ch>().texts;
        std::copy(bytes.begin(), bytes.end(), texts.Room(bytes.size()));
        const std::span<Ch> text = texts.Take(bytes.size());
        Src<Ch>().emplace_back().strSrc = View<Ch>(text.data(), text.size());
    }
    // A copy of the text that lives as long as the records.
    template <class Ch> View<Ch> Keep(View<Ch> text) { return KeepText(Apart<Ch>().texts, text); }
    // `edited` trimmed and kept, or the text itself if that is the same.
    template <class Ch> View<Ch> KeepEdited(View<Ch> text, const Text<Ch>& edited) {
        const View<Ch> trimmed = TrimBlank(View<Ch>(edited));
        return trimmed == text ? text : Keep(trimmed);
    }
    // The literal of a line, null if it has none; its constants.
    template <class Ch> TLiteConst<Ch>* Literal(const SrcData<Ch>& src) {
        return src.lite < 0 ? nullptr : &Apart<Ch>().vecLite[static_cast<std::size_t>(src.lite)];
    }
    template <class Ch> std::span<TDcConst<Ch>> Constants(const SrcData<Ch>& src) {
        return std::span(Apart<Ch>().vecDcConst)
            .subspan(static_cast<std::size_t>(src.dcFirst), static_cast<std::size_t>(src.dcKazu));
    }

    std::int32_t GetPrgKazuInFile() const { return prgKazuInFile; }
    void SetPrgKazuInFile(int kazu); // a negative count is reported and not stored

    // Forgets everything of the file, records, programs, counts, and gives their memory back. The counters of
    // diagnostics stay.
    void Reset();

private:
    std::int32_t prgKazuInFile = 0;
};

template <> inline SrcLines<char16_t>& TBasicData::Src<char16_t>() {
    return vecSrcW;
}
template <> inline SrcLines<char>& TBasicData::Src<char>() {
    return vecSrcA;
}
template <> inline std::vector<PrgDataW>& TBasicData::Prg<char16_t>() {
    return vecPrgW;
}
template <> inline std::vector<PrgDataA>& TBasicData::Prg<char>() {
    return vecPrgA;
}
template <> inline TApart<char16_t>& TBasicData::Apart<char16_t>() {
    return apartW;
}
template <> inline TApart<char>& TBasicData::Apart<char>() {
    return apartA;
}

extern TBasicData* const b;

} // namespace tolvane
