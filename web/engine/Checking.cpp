// Faults, words and explanations of a source, and sources as files.

#include "Engine.h"
#include "explain/Explanations.h"
#include "hints/Hints.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "machine/Tcomet2.h"
#include "platform/CharacterCode.h"
#include "platform/Console.h"
#include "records/Records.h"
#include "run/Errors.h"
#include "stages/Stages.h"
#include "text/Convert.h"

#include <algorithm>
#include <emscripten/bind.h>

namespace tolvane::web {

namespace {

// The index of what explains a row, -1 if nothing does.
int ExplanationOf(const Msg& row) {
    using explain::Explanations;
    const auto explains = [&row](const explain::Explanation& entry) {
        return std::find(entry.rows.begin(), entry.rows.end(), &row) != entry.rows.end();
    };
    const auto found = std::find_if(Explanations.begin(), Explanations.end(), explains);
    return found == Explanations.end() ? -1 : static_cast<int>(found - Explanations.begin());
}

int MemoryAt(int address) {
    return comet2->Memory[static_cast<std::size_t>(address)] & 0xFFFF;
}

// The words of a line that stand one behind the other, without its literals.
val WordsOf(const image::LinkedImage& image, int line, const image::LineText& text) {
    val words = val::array();
    const int end = text.literalAddress > text.address ? text.literalAddress : comet2->ReservedWords;
    for (int address = text.address; address < end && image.LineOf(address) == line; ++address)
        words.call<void>("push", MemoryAt(address));
    return words;
}

val Line(const image::LinkedImage& image, int line) {
    const image::LineText text = image.TextOf(line);
    val row = val::object();
    row.set("address", text.address);
    row.set("words", WordsOf(image, line, text));
    row.set("isInstruction", text.isInstruction);
    row.set("label", text.label);
    row.set("ends", text.ends);
    return row;
}

// Faults while typing.
val Check(const std::string& source, const std::string& pipeline, int language) {
    val result = val::object();
    const bool good = Assemble(source, pipeline, language);
    result.set("good", good);
    result.set("diagnostics", Diagnostics(good));
    return result;
}

// What stands beside the lines of a sound source, nothing for any other.
val Lines(const std::string& source, const std::string& pipeline, int language) {
    val lines = val::array();
    if (!Assemble(source, pipeline, language)) return lines;
    const image::LinkedImage image;
    for (int line = 0; line < image.LineCount(); ++line)
        lines.call<void>("push", Line(image, line));
    return lines;
}

// In the language: 0 Japanese, 1 English.
std::string ExplanationText(int index, int language) {
    return explain::Explanations[static_cast<std::size_t>(index)].text[language];
}

// The words of the language, and the index of what explains each.
val Opcodes() {
    val opcodes = val::array();
    for (const Opcode& opcode : opcodes::Table) {
        val entry = val::object();
        entry.set("word", std::string(opcode.word));
        const auto explains = [&opcode](const explain::Explanation& each) {
            return each.kind == explain::Kind::Opcode && each.id == opcode.word;
        };
        const auto& all = explain::Explanations;
        const auto found = std::find_if(all.begin(), all.end(), explains);
        entry.set("explanation", found == all.end() ? -1 : static_cast<int>(found - all.begin()));
        opcodes.call<void>("push", entry);
    }
    return opcodes;
}

// Where the first character stands that is none in the code, -1 if all are.
int FirstInvalid(const std::string& bytes, const console::CharacterCode& code) {
    for (std::size_t i = 0; i < bytes.size();) {
        const std::size_t length = code.charBytes(bytes, i);
        if (!code.isValid(std::string_view(bytes).substr(i, length))) return static_cast<int>(i);
        i += length;
    }
    return -1;
}

int FirstInvalidOfFile(const std::string& bytes) {
    const bool isUtf16 = moziCode->CodePage == 1200 || moziCode->CodePage == 1201;
    if (isUtf16) return bytes.size() % 2 == 0 ? -1 : static_cast<int>(bytes.size()) - 1;
    const std::size_t zero = bytes.find('\0');
    if (zero != std::string::npos) return static_cast<int>(zero);
    return FirstInvalid(bytes, moziCode->CodePage == 932 ? console::ShiftJisCode : console::Utf8Code);
}

// A file's text by the reading rule of the programs, and which code it was: `invalid` is the place of the first byte
// that is no text in it, -1 without one.
val Decode(const std::string& bytes) {
    TMsgBase game;
    std::string swallowed;
    console::WriteTo(&swallowed);
    BeginAssembly(game, DefaultPipeline(), 1);
    ReadSourceBytes(SourceName, &bytes);
    console::WriteTo(nullptr);
    std::string text;
    for (const SrcDataW& line : b->vecSrcW) {
        AppendUtf8(text, line.strSrc);
        text += '\n';
    }
    val result = val::object();
    result.set("text", text);
    result.set("code", moziCode->CodeName);
    result.set("invalid", FirstInvalidOfFile(bytes));
    return result;
}

// The bytes in Shift_JIS, and the first character that has no place there.
val EncodeShiftJis(const std::string& text) {
    const std::u16string wide = WideUtf8Lossy(text);
    const std::string bytes = Narrow932(wide);
    val result = val::object();
    const val view(emscripten::typed_memory_view(bytes.size(), reinterpret_cast<const unsigned char*>(bytes.data())));
    result.set("bytes", val::global("Uint8Array").new_(view));
    const auto lost = std::find_if(wide.begin(), wide.end(), [](char16_t c) { return ByteLength932(c) == 0; });
    const std::size_t length = lost != wide.end() && IsHighSurrogate(*lost) ? 2 : 1;
    result.set("lost", Utf8(std::u16string_view(wide).substr(static_cast<std::size_t>(lost - wide.begin()), length)));
    return result;
}

} // namespace

val Strings(const std::vector<std::string>& texts) {
    val array = val::array();
    for (const std::string& text : texts)
        array.call<void>("push", text);
    return array;
}

bool Assemble(const std::string& source, const std::string& pipeline, int language) {
    const Pipeline* const named = FindPipeline(pipeline);
    static TMsgBase sums;
    std::string swallowed;
    console::WriteTo(&swallowed);
    BeginAssembly(sums, named != nullptr ? *named : DefaultPipeline(), language);
    const std::string bytes = std::string(Utf8Mark) + source;
    const bool good = ReadSourceBytes(SourceName, &bytes) == 0 && RunStages(sums) && RunLink(sums);
    console::WriteTo(nullptr);
    return good;
}

val Diagnostic(Severity severity, const Msg& row, std::span<const KeptArg> args, int line) {
    val result = val::object();
    result.set("line", line);
    result.set("severity", static_cast<int>(severity));
    result.set("lines", Strings(run::TextLines({&row, args, line, severity, false, false})));
    result.set("explanation", ExplanationOf(row));
    return result;
}

val Diagnostics(bool good) {
    val array = val::array();
    for (const MsgRec& record : store->Records) {
        val each = Diagnostic(record.severity, *record.row, record.args, record.place.line);
        each.set("lines", Strings(run::TextLines(record)));
        array.call<void>("push", each);
    }
    if (!good) return array;
    for (const hints::Hint& hint : hints::HintsOf(image::LinkedImage())) {
        val each = Diagnostic(Severity::Note, *hint.row, {}, hint.line);
        each.set("lines", Strings({hint.text}));
        array.call<void>("push", each);
    }
    return array;
}

EMSCRIPTEN_BINDINGS(checking) {
    emscripten::function("check", &Check);
    emscripten::function("lines", &Lines);
    emscripten::function("explanation", &ExplanationText);
    emscripten::function("opcodes", &Opcodes);
    emscripten::function("decode", &Decode);
    emscripten::function("encodeShiftJis", &EncodeShiftJis);
}

} // namespace tolvane::web
