#include "driver/TGame.h"

#include "driver/DriverMsgs.h"
#include "driver/MainMenu.h"
#include "driver/Settings.h"
#include "input/Readers.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "reports/Dump.h"
#include "stages/Stages.h"
#include "timing/TTimeVcl.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace tolvane {

namespace {

constexpr std::size_t AnswerLimit = 40;
constexpr int StoppedStatus = 130; // as the shell tells a program that Ctrl+C has ended

// There is nobody left to tell anything but here.
[[noreturn]] void EndWithoutOutput(const console::Loss& loss) {
    console::WriteError(TextOf(DriverMsg.OutputLost, {Utf8Arg{loss.why}}));
    std::_Exit(EXIT_FAILURE);
}

// The rule of the command codes: above 9000 the program ends, from 1 to 6999 the next cycle starts.
bool EndsProgram(int result) {
    return static_cast<unsigned>(result) > 9000U;
}
bool StartsNextCycle(int result) {
    return 1 <= result && result <= 6999;
}

} // namespace

int TGame::Run() {
    console::Start(EndWithoutOutput);
    try {
        StartAndRun();
    } catch (const std::bad_alloc&) {
        console::WriteError(DriverMsg.MemoryEnded.For(modeFlags->Lang, WordingNWW));
        exitStatus = EXIT_FAILURE;
    }
    console::Flush();
    return exitStatus;
}

void TGame::StartAndRun() {
    StartUp();
    if (IsGivenUp(modeFlags->FightFunc)) return;
    const Pipeline* pipeline = FindPipeline(modeFlags->FightFunc);
    if (pipeline == nullptr) Say(DriverMsg.PipelineByDefault);
    RunPipeline(pipeline != nullptr ? *pipeline : DefaultPipeline());
}

void TGame::StartUp() {
    toolWin->SetIniPath();
    const auto directory = platform::CurrentDirectory();
    if (directory) {
        tools->StartDirectory = *directory;
    } else {
        Say(DriverMsg.NoCurrentDirectory);
        Say(DriverMsg.GetcwdError, {Utf8Arg{platform::LastSystemMessage()}});
    }
    LoadSettings(toolWin->IniPath);
}

void TGame::RunPipeline(const Pipeline& pipeline) {
    StartPipeline(pipeline);
    while (CycleInMemory()) {
    }
}

bool TGame::CycleInMemory() {
    try {
        return Cycle();
    } catch (const std::bad_alloc&) {
        BeginAssembly(*this, *modeFlags->Pipe, modeFlags->Lang);
        Say(DriverMsg.OutOfMemory);
        return true;
    }
}

void TGame::StartPipeline(const Pipeline& pipeline) {
    modeFlags->Pipe = &pipeline;
    DspTitle();
    if (0 <= modeFlags->TextEditorIndex && modeFlags->TextEditorIndex <= 2) return;
    if (pipeline.wording != WordingNWW) Say(DriverMsg.EditorFlagOutOfRange, {modeFlags->TextEditorIndex});
    modeFlags->TextEditorIndex = 0;
}

void TGame::DspTitle() const {
    const std::string build = platform::SystemAndMachine();
    Say(modeFlags->SimpleTitleIndex == 1 ? DriverMsg.SimpleTitle : DriverMsg.Title,
        {Utf8Arg{modeFlags->FightFunc}, Utf8Arg{build}});
}

bool TGame::Cycle() {
    SumMsgKazu(*this);
    DspErrors();
    BeginAssembly(*this, *modeFlags->Pipe, modeFlags->Lang);
    const int result = GetSrcFile();
    timer->SetAssembleStart();
    if (EndsProgram(result)) return false;
    if (StartsNextCycle(result)) return true;
    return AssembleLinkRun();
}

void TGame::DspErrors() const {
    if (ErrorKazu < 1) return;
    timer->SetAssembleEndTime();
    if (modeFlags->Pipe->printsQueue) store->DspMsgStore();
    timer->DspAssembleTime();
    if (ErrorKazu == 1)
        Say(DriverMsg.OneError);
    else
        Say(DriverMsg.Errors, {ErrorKazu});
}

int TGame::GetSrcFile() {
    std::string path = po->LastAssembledSrcFilePath;
    const int result = GetMainMenu(path);
    if (result != SourceChosen) return result;
    timer->SetReadFileStart();
    return ReadSource(path) == 0 ? SourceChosen : SourceNotRead;
}

void TGame::DspWarningKazu() const {
    if (WarningKazu > 0) Say(WarningKazu == 1 ? DriverMsg.OneWarning : DriverMsg.Warnings, {WarningKazu});
    if (modeFlags->Lang != 0) return;
    if (NoteKazu > 0) console::Write("\n");
    if (MemoKazu > 0) console::Write("\n");
}

bool TGame::AssembleLinkRun() {
    if (!RunStages(*this)) return true;
    timer->SetAssembleEndTime();
    DspWarningKazu();

    const bool linked = RunLink(*this);
    timer->SetLinkEnd();
    timer->DspLinkTime();
    if (!linked) return true;

    Say(DriverMsg.Assembled);
    Say(toldAssembledDump ? DriverMsg.AssembledDump : DriverMsg.FirstAssembledDump, {AssembledDumpName});
    toldAssembledDump = true;
    DspRegMry(*comet2, AssembledDumpName);

    bool ended = false;
    if (WarningKazu == 0 || AskToRun(ended) == 1) return RunMachine();
    return !ended;
}

int TGame::AskToRun(bool& ended) const {
    Say(DriverMsg.RunQuestion);
    const auto line = console::ReadLine(AnswerLimit);
    ended = !line;
    std::size_t end = 0;
    return line ? LeadingNumber(*line, end) : 0;
}

bool TGame::RunMachine() {
    const Stop stop = comet2->Run3();
    const auto counts = comet2->RunCount.begin();
    comet2->MaxRunCount = *std::max_element(counts, counts + MaxImageWords);
    const bool stopped = stop == Stop::Interrupted || stop == Stop::InputEnded;
    if (!stopped) Say(toldResultantDump ? DriverMsg.ResultantDump : DriverMsg.FirstResultantDump, {ResultantDumpName});
    toldResultantDump = true;
    DspRegMry(*comet2, ResultantDumpName);
    if (stopped) LeaveStopped(stop);
    return !stopped;
}

void TGame::LeaveStopped(Stop stop) {
    console::Write("\n");
    console::Flush();
    SaveSettings(toolWin->IniPath);
    const Msg& reason = stop == Stop::Interrupted ? DriverMsg.ByInterrupt : DriverMsg.ByInputEnd;
    const int address = comet2->PR;
    const int line = comet2->LineOfWord[static_cast<std::size_t>(address)];
    console::WriteError(line < 0 ? TextOf(DriverMsg.StoppedAtAddress, {reason, address, ResultantDumpName})
                                 : TextOf(DriverMsg.StoppedAtLine, {reason, address, line + 1, ResultantDumpName}));
    exitStatus = StoppedStatus;
}

} // namespace tolvane
