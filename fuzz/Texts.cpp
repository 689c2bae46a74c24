// Typed lines and the conversions between the character codes.

#include "Fuzz.h"
#include "driver/MainMenu.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "platform/Files.h"
#include "text/Convert.h"

using namespace tolvane;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const fuzz::Silence silence;
    const std::string bytes = fuzz::AsString(data, size);

    std::string path = bytes;
    EditFilePath(path);
    TOLVANE_MUST(platform::SystemPath(path).size() <= path.size());
    TOLVANE_MUST(TrimZenBlankUtf8(TrimZenBlankUtf8(bytes)) == TrimZenBlankUtf8(bytes));
    std::size_t end = 0;
    LeadingNumber(bytes, end);
    TOLVANE_MUST(end <= bytes.size());

    const TextW wide = Wide932(bytes);
    TOLVANE_MUST(wide.size() <= bytes.size());
    TOLVANE_MUST(Narrow932(Wide932(Narrow932(wide))) == Narrow932(wide));
    TOLVANE_MUST(WideUtf8(Utf8(WideUtf8Lossy(bytes))).has_value());
    if (const auto strict = WideUtf8(bytes)) TOLVANE_MUST(Utf8(*strict) == bytes);
    TOLVANE_MUST(IsValid932(EucTo932(bytes)));
    EucFrom932(bytes);
    Utf8ToNarrow(bytes);
    return 0;
}
