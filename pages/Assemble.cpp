#include "Assemble.h"

#include "Catalogues.h"
#include "input/TMoziCode.h"
#include "platform/Console.h"
#include "records/Records.h"
#include "stages/Stages.h"
#include "text/Convert.h"

#include <map>
#include <stdexcept>
#include <utility>

namespace tolvane {

namespace {

// Brings a line to the form in which the pipeline's reader would store it.
void AddLine(const std::string& line, const Pipeline& pipeline) {
    const TextW wide = WideUtf8Lossy(line);
    if (pipeline.text == TextKind::Narrow)
        b->AddLine<char>(Narrow932(wide));
    else
        b->AddLine<char16_t>(pipeline.reader == Reader::Widened ? NarrowToWide(Narrow932(wide)) : wide);
}

template <class Ch> std::vector<int> Addresses() {
    std::vector<int> addresses;
    for (const SrcData<Ch>& line : b->Src<Ch>())
        addresses.push_back(line.AbAdr);
    return addresses;
}

// The OS in a run: what it says of an SVC becomes a diagnostic.
void WriteOut(void* assembly, const std::string& line) {
    static_cast<Assembly*>(assembly)->out += line;
}
std::optional<MachineIo::Line> ReadOnce(void* assembly, std::size_t) {
    const std::string line = std::exchange(static_cast<Assembly*>(assembly)->input, {});
    if (line.empty()) return std::nullopt;
    return MachineIo::Line{line, line.size()};
}
void SayOfService(void*, const Msg& msg, Args args) {
    Tell(Severity::Note, NoLine, msg, args);
}

void Run(Assembly& result) {
    const MachineIo io{WriteOut, ReadOnce, SayOfService, &result};
    comet2->Io = &io;
    result.stop = comet2->RunLimited(RunLimit);
    comet2->Io = &DialogueIo;
    result.registers.assign(comet2->GR.begin(), comet2->GR.end());
    if (comet2->Fovf != 0) result.flags += " OF";
    if (comet2->Fsign != 0) result.flags += " SF";
    if (comet2->Fzero != 0) result.flags += " ZF";
}

// The members of a catalogue are all rows, so that it can be read as an array of the rows that CMake has found in it.
struct Names {
    std::vector<const Msg*> rows;
    std::map<const Msg*, std::string> names;

    Names() {
        auto found = CatalogueNames.begin();
        std::apply([&](const auto&... catalogue) { (Append(catalogue, *found++), ...); }, AllCatalogues);
    }
    template <class Catalogue> void Append(const Catalogue& catalogue, const CatalogueName& found) {
        const auto* row = reinterpret_cast<const Msg*>(&catalogue);
        if (sizeof(Catalogue) != found.rows.size() * sizeof(Msg)) throw std::logic_error(found.object);
        for (const char* name : found.rows) {
            names[row] = std::string(found.object) + "." + name;
            rows.push_back(row++);
        }
    }
};
const Names& AllNames() {
    static const Names all;
    return all;
}

} // namespace

Assembly Assemble(const std::vector<std::string>& lines, const Pipeline& pipeline, int language, Then then,
                  const std::string& input) {
    const TModeFlags before = *modeFlags;
    Assembly result;
    result.input = input;
    TMsgBase game;
    console::WriteTo(&result.printed);
    BeginAssembly(game, pipeline, language);
    for (const std::string& line : lines)
        AddLine(line, pipeline);
    result.good = RunStages(game) && RunLink(game);
    if (result.good) {
        result.words.assign(comet2->Memory.begin(), comet2->Memory.begin() + comet2->ReservedWords);
        result.addresses = pipeline.text == TextKind::Wide ? Addresses<char16_t>() : Addresses<char>();
        if (then == Then::Run) Run(result);
    }
    console::WriteTo(nullptr);
    result.counters = {game.ErrorKazu, game.WarningKazu, game.NoteKazu, game.MemoKazu};
    result.said = store->Records;
    for (const int each : {0, 1}) {
        modeFlags->Lang = each;
        for (const MsgRec& record : result.said) {
            Strings shown = record.Lines();
            result.composes = result.composes && !shown.empty();
            if (each == language) result.lines.push_back(std::move(shown));
        }
    }
    *modeFlags = before;
    return result;
}

std::string NameOf(const Msg& row) {
    return AllNames().names.at(&row);
}

const std::vector<const Msg*>& AllRows() {
    return AllNames().rows;
}

} // namespace tolvane
