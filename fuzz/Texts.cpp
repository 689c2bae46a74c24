// Typed lines and the conversions between the character codes.

#include "Fuzz.h"
#include "driver/MainMenu.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "platform/Files.h"
#include "text/Convert.h"

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes = fuzz::Begin(data, size);
    std::string path = bytes;
    EditFilePath(path);
    TOLVANE_MUST(platform::SystemPath(path).size() <= path.size());
    std::string again = path;
    EditFilePath(again);
    TOLVANE_MUST(again == path);
    TOLVANE_MUST(TrimZenBlankUtf8(TrimZenBlankUtf8(bytes)) == TrimZenBlankUtf8(bytes));
    std::size_t end = 0;
    LeadingNumber(bytes, end);
    TOLVANE_MUST(end <= size);

    const TextW wide = Wide932(bytes);
    TOLVANE_MUST(wide.size() <= size);
    TOLVANE_MUST(Wide932(Narrow932(wide)) == wide);
    if (IsValid932(bytes)) TOLVANE_MUST(Narrow932(wide).size() == size);
    if (const auto strict = WideUtf8(bytes)) TOLVANE_MUST(Utf8(*strict) == bytes && WideUtf8Lossy(bytes) == *strict);
    const std::string fromEuc = EucTo932(bytes);
    TOLVANE_MUST(IsValid932(fromEuc));
    TOLVANE_MUST(EucTo932(EucFrom932(fromEuc)) == fromEuc);
    EucFrom932(bytes);
    TOLVANE_MUST(IsValid932(Utf8ToNarrow(bytes)));

    TextW units;
    for (std::size_t i = 0; i + 1 < size; i += 2)
        units += static_cast<char16_t>(data[i] << 8 | data[i + 1]);
    TOLVANE_MUST(IsValid932(Narrow932(units)));
    const auto repaired = WideUtf8(Utf8(units));
    TOLVANE_MUST(repaired && repaired->size() == units.size() && Utf8(*repaired) == Utf8(units));
    return 0;
}
