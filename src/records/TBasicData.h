#pragma once
// The owner of the line and program records and of the file-wide counts. One object, reached through `b`.

#include "messages/TMsgBase.h"
#include "records/PrgData.h"
#include "records/SrcData.h"

#include <array>
#include <string>
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

    // The lines with START and END in file order; -1 behind the last one in use.
    std::array<std::int32_t, MaxPrgKazu + 1> StartLines{};
    std::array<std::int32_t, MaxPrgKazu + 1> EndLines{};

    std::array<std::string, 3> TextEditors{"notepad.exe", "", ""}; // UTF-8; row 0 is the system's editor
    int TextEditorIndex = 0;
    int SimpleTitleIndex = 0;
    int BusyModeIndex = 0;
    std::string SrcFilePath; // UTF-8, the current source

    // The records of the pipeline's kind of text; the index of a line record is its zero-based line number.
    template <class Ch> std::vector<SrcData<Ch>>& Src();
    template <class Ch> std::vector<PrgData<Ch>>& Prg();

    std::int32_t GetPrgKazuInFile() const { return prgKazuInFile; }
    void SetPrgKazuInFile(int kazu); // a negative count is reported and not stored
    std::int32_t GetReservedWords() const { return ReservedWords; }
    void SetReservedWords(int words) { ReservedWords = words; }
    // 0, 1 or 2; any other index is reported and becomes 0.
    void SetTextEdIndex(int index);

    // Forgets everything of the file: records, programs, counts. Lang, counters and editors stay.
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
