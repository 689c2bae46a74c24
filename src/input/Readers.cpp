#include "input/Readers.h"

#include "input/InputMsgs.h"
#include "input/SourceLines.h"
#include "input/TMoziCode.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "text/Convert.h"

#include <algorithm>
#include <new>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

namespace tolvane {

namespace {

constexpr std::size_t FileNameLimit = 246;
constexpr std::size_t FolderNameLimit = 989;

bool IsQuoted(const std::string& text) {
    return text.size() >= 2 && text.front() == '"' && text.back() == '"';
}

// A name with a suffix behind it; a quoted name takes it within its quotation marks.
std::string WithSuffix(const std::string& name, const std::string& suffix) {
    if (!IsQuoted(name) || suffix.empty()) return name + suffix;
    return name.substr(0, name.size() - 1) + suffix + "\"";
}

// The first line of a file with a byte-order mark of UTF-8 loses it; every other line stays as it is.
ViewA WithoutMark(ViewA line, std::size_t number) {
    return number == 0 && !moziCode->BomStr.empty() ? line.substr(std::min<std::size_t>(3, line.size())) : line;
}

bool IsUtf16() {
    return moziCode->CodePage == 1200 || moziCode->CodePage == 1201;
}

// The 16-bit units of a file, low byte first for code page 1200; an odd last byte is half of a unit whose other half
// is 0.
TextW Utf16Units(std::string_view bytes) {
    if (!IsUtf16()) {
        Say(InputMsg.NoUtf16CodePage);
        return {};
    }
    const auto byte = [&](std::size_t i) { return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0; };
    const std::size_t low = moziCode->CodePage == 1200 ? 0 : 1;
    TextW units;
    units.reserve(bytes.size() / 2 + 1);
    for (std::size_t i = 0; i < bytes.size(); i += 2)
        units += static_cast<char16_t>(byte(i + 1 - low) << 8 | byte(i + low));
    return units;
}

// Gives the lines of a UTF-16 file to `take`. The mark is left out, and U+FFFF ends the text. Only CR LF ends a line,
// and what stands behind the last one is a line, even if it is empty.
template <class Take> void ForEachUtf16Line(std::string_view bytes, Take take) {
    const TextW units = Utf16Units(bytes);
    const std::size_t textEnd = std::min(units.find(u'\uFFFF'), units.size());
    std::size_t begin = std::min<std::size_t>(1, textEnd);
    for (;;) {
        const std::size_t end = units.find(u"\r\n", begin);
        if (end == npos || end + 2 > textEnd) break;
        take(units.substr(begin, end - begin));
        begin = end + 2;
    }
    take(units.substr(begin, textEnd - begin));
}

// Says that the file cannot be read. 1
int Refuse(const Msg& reason, const std::string& path) {
    Explain(Severity::Error, NoLine, reason, {Utf8Arg{path}});
    return 1;
}

// The narrow reader, UTF-16 included.
void OpenFileNarrow(std::string_view bytes) {
    b->vecSrcA.clear();
    if (IsUtf16()) return ForEachUtf16Line(bytes, [](const TextW& line) { b->AddLine<char>(Narrow932(line)); });
    b->vecSrcA.reserve(MostLines(bytes));
    const bool isSjis = moziCode->CodePage == 932;
    ForEachLine(bytes, [&](ViewA line, std::size_t number) {
        line = WithoutMark(line, number);
        if (isSjis || IsAscii(line))
            b->AddLine(line);
        else
            b->AddLine<char>(Utf8ToNarrow(line));
    });
}

// The narrow reader with its records widened, for the pipeline that reads so.
void OpenFileWidened(std::string_view bytes) {
    OpenFileNarrow(bytes);
    b->vecSrcW.clear();
    b->vecSrcW.reserve(b->vecSrcA.size());
    for (const SrcDataA& line : b->vecSrcA)
        b->AddLine<char16_t>(NarrowToWide(line.strSrc));
    b->vecSrcA.clear();
    b->apartA.Clear();
}

// Make records with strSrc set of a file's bytes, in the code that was found.
void OpenFileUTF8toVecW20(std::string_view bytes) {
    b->vecSrcW.clear();
    b->vecSrcW.reserve(MostLines(bytes));
    const bool isUtf8 = moziCode->CodePage == 65001;
    ForEachLine(bytes, [&](ViewA line, std::size_t number) {
        line = WithoutMark(line, number);
        if (IsAscii(line))
            b->AddAsciiLine<char16_t>(line);
        else
            b->AddLine<char16_t>(isUtf8 ? Utf8ToWide(line) : utf_16_to_shift_jis(line));
    });
}

void OpenFileUTF16toVecW20(std::string_view bytes) {
    b->vecSrcW.clear();
    ForEachUtf16Line(bytes, [](const TextW& line) { b->AddLine<char16_t>(line); });
}

} // namespace

int EditFilePath(std::string& path) {
    if (path.empty()) return -1;
    std::string text = TrimZenBlankUtf8(path);
    const bool hasBlank = text.find(' ') != npos || text.find("\u3000") != npos;
    if (hasBlank && !IsQuoted(text)) text = "\"" + text + "\"";
    path.clear();
    for (std::size_t i = 0; i < text.size(); ++i) {
        path += text[i];
        if (text[i] != '\\') continue;
        path += '\\';
        if (text.compare(i + 1, 1, "\\") == 0) ++i;
    }
    return 0;
}

std::string GetFilenameStrA(bool& ended) {
    const std::optional<std::string> line = console::ReadLine(FileNameLimit);
    ended = !line.has_value();
    if (ended) return {};
    const std::string typed = TrimZenBlankUtf8(*line);
    for (const char* suffix : SourceSuffixes) {
        const std::string name = WithSuffix(typed, suffix);
        std::string path = name;
        EditFilePath(path);
        if (!platform::IsFileThere(path)) continue;
        po->LastAssembledSrcFilePath = path;
        return path;
    }
    Say(InputMsg.FileNotFound);
    return {};
}

std::string GetFoldername(bool& ended) {
    const std::optional<std::string> line = console::ReadLine(FolderNameLimit);
    ended = !line.has_value();
    if (ended) return {};
    std::string name = *line;
    if (EditFilePath(name) < 0) Say(InputMsg.NoInput);
    return TrimZenBlankUtf8(name);
}

int ReadSourceBytes(const std::string& path, const std::string* bytes) {
    const Reader reader = modeFlags->Pipe->reader;
    if (reader == Reader::Array)
        Say(InputMsg.ReadingArray, {Utf8Arg{path}});
    else
        moziCode->DetMoziCode(path, bytes, modeFlags->SimpleTitleIndex != 0);
    if (bytes == nullptr)
        return Refuse(reader == Reader::Wide ? InputMsg.DoesNotOpenBinary : InputMsg.DoesNotOpen, path);

    switch (reader) {
    case Reader::Wide:
        IsUtf16() ? OpenFileUTF16toVecW20(*bytes) : OpenFileUTF8toVecW20(*bytes);
        break;
    case Reader::Widened:
        OpenFileWidened(*bytes);
        break;
    case Reader::Narrow:
        OpenFileNarrow(*bytes);
        break;
    case Reader::Array:
        return OpenFileChH(*bytes);
    }
    return 0;
}

int ReadSource(const std::string& path) {
    std::string bytes;
    try {
        const platform::ReadResult result = platform::ReadFile(path, bytes);
        if (result == platform::ReadResult::TooLarge) return Refuse(InputMsg.TooLargeFile, path);
        if (result == platform::ReadResult::Endless) return Refuse(InputMsg.EndlessFile, path);
        return ReadSourceBytes(path, result == platform::ReadResult::Read ? &bytes : nullptr);
    } catch (const std::bad_alloc&) {
        // The message needs memory, too.
        bytes = std::string();
        b->Reset();
        b->vecSrcA = SrcLines<char>();
        b->vecSrcW = SrcLines<char16_t>();
        return Refuse(InputMsg.TooLargeFile, path);
    }
}

} // namespace tolvane
