#pragma once
// The owner of the line and program records and of the file-wide counts. One object, reached through `b`.

#include "messages/TMsgBase.h"
#include "records/PrgData.h"
#include "records/SrcData.h"

#include <string_view>
#include <vector>

namespace tolvane {

inline constexpr int MaxPrgKazu = 6;

class TBasicData : public TMsgBase {
public:
    std::vector<SrcDataA> vecSrcA;
    std::vector<SrcDataW> vecSrcW;
    std::vector<PrgDataA> vecPrgA;
    std::vector<PrgDataW> vecPrgW;
    std::int32_t ReservedWords = 0; // the first address behind the image

    // The records of the pipeline's kind of text; the index of a line record is its zero-based line number.
    template <class Ch> std::vector<SrcData<Ch>>& Src();
    template <class Ch> std::vector<PrgData<Ch>>& Prg();

    // Appends the record of the next line of the file, without its line end.
    template <class Ch> void AddLine(std::basic_string_view<Ch> text) { Src<Ch>().emplace_back().strSrc = text; }

    std::int32_t GetPrgKazuInFile() const { return prgKazuInFile; }
    void SetPrgKazuInFile(int kazu); // a negative count is reported and not stored
    std::int32_t GetReservedWords() const { return ReservedWords; }
    void SetReservedWords(int words) { ReservedWords = words; }

    // Forgets everything of the file: records, programs, counts. The counters of diagnostics stay.
    void Reset();

private:
    std::int32_t prgKazuInFile = 0;
};

template <> inline std::vector<SrcDataW>& TBasicData::Src<char16_t>() {
    return vecSrcW;
}
template <> inline std::vector<SrcDataA>& TBasicData::Src<char>() {
    return vecSrcA;
}
template <> inline std::vector<PrgDataW>& TBasicData::Prg<char16_t>() {
    return vecPrgW;
}
template <> inline std::vector<PrgDataA>& TBasicData::Prg<char>() {
    return vecPrgA;
}

extern TBasicData* const b;

} // namespace tolvane
