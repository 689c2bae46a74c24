// Typed lines and the conversions between the character codes.

#include "Fuzz.h"
#include "driver/MainMenu.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "platform/Files.h"
#include "text/Convert.h"

using namespace tolvane;

namespace {

void TryTyped(const std::string& typed) {
    std::string path = typed;
    TOLVANE_MUST(EditFilePath(path) == (typed.empty() ? -1 : 0));
    TOLVANE_MUST(platform::SystemPath(path).size() <= path.size());
    std::string again = path;
    EditFilePath(again);
    TOLVANE_MUST(again == path);
    TOLVANE_MUST(TrimZenBlankUtf8(TrimZenBlankUtf8(typed)) == TrimZenBlankUtf8(typed));
    std::size_t end = 0;
    LeadingNumber(typed, end);
    TOLVANE_MUST(end <= typed.size());
}

void TryBytes(const std::string& bytes) {
    const TextW wide = Wide932(bytes);
    TOLVANE_MUST(wide.size() <= bytes.size());
    TOLVANE_MUST(Wide932(Narrow932(wide)) == wide);
    if (IsValid932(bytes)) TOLVANE_MUST(Narrow932(wide).size() == bytes.size());
    if (const auto strict = WideUtf8(bytes)) {
        TOLVANE_MUST(Utf8(*strict) == bytes);
        TOLVANE_MUST(WideUtf8Lossy(bytes) == *strict);
    }
    const std::string from = EucTo932(bytes);
    TOLVANE_MUST(IsValid932(from));
    TOLVANE_MUST(EucTo932(EucFrom932(from)) == from);
    TOLVANE_MUST(EucTo932(EucFrom932(bytes)).size() <= bytes.size());
    TOLVANE_MUST(IsValid932(Utf8ToNarrow(bytes)));
}

void TryUnits(const TextW& units) {
    const std::string narrow = Narrow932(units);
    TOLVANE_MUST(IsValid932(narrow));
    TOLVANE_MUST(narrow.size() <= 2 * units.size());
    const auto wide = WideUtf8(Utf8(units));
    TOLVANE_MUST(wide && wide->size() == units.size());
    TOLVANE_MUST(Utf8(*wide) == Utf8(units));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Silence silence;
    TryTyped(fuzz::AsString(data, size));
    TryBytes(fuzz::AsString(data, size));
    TextW units;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        units += static_cast<char16_t>(data[i] << 8 | data[i + 1]);
    TryUnits(units);
    return 0;
}
