#include "driver/TGame.h"

#include "driver/DriverMsgs.h"
#include "driver/MainMenu.h"
#include "driver/Settings.h"
#include "input/Readers.h"
#include "input/TMoziCode.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "records/Records.h"
#include "records/TLabelSpace.h"
#include "reports/Dump.h"
#include "stages/Stages.h"
#include "timing/TTimeVcl.h"

#include <algorithm>

namespace tolvane {

namespace {

constexpr std::size_t AnswerLimit = 40;

// The rule of the command codes: above 9000 the program ends, from 1 to 6999 the next cycle starts.
bool EndsProgram(int result) {
    return static_cast<unsigned>(result) > 9000U;
}
bool StartsNextCycle(int result) {
    return 1 <= result && result <= 6999;
}

} // namespace

void TGame::Run() {
    StartUp();
    if (FightFuncName == "NewChH" || FightFuncName == "NewChWH") return;
    const Pipeline* pipeline = FindPipeline(FightFuncName);
    if (pipeline == nullptr) Say(DriverMsg.PipelineByDefault);
    RunPipeline(pipeline != nullptr ? *pipeline : DefaultPipeline());
    console::Flush();
}

void TGame::StartUp() {
    toolWin->SetIniPath();
    if (const auto directory = platform::CurrentDirectory())
        CurrentDir = *directory;
    else
        Say(DriverMsg.NoCurrentDirectory);
    if (const auto directory = platform::CurrentDirectory())
        tools->StartDirectory = *directory;
    else
        Say(DriverMsg.GetcwdError, {Utf8Arg{platform::LastSystemMessage()}});

    LoadSettings(toolWin->IniPath);
    Lang = b->Lang = cs->Lang = po->Lang;
    SrcFilePath = po->LastAssembledSrcFilePath;
    po->SilentFlag = SilentFlag;
    po->FightFunc = FightFuncName = TrimZenBlankUtf8(po->FightFunc);
}

void TGame::RunPipeline(const Pipeline& pipeline) {
    StartPipeline(pipeline);
    while (Cycle()) {
    }
}

void TGame::StartPipeline(const Pipeline& pipeline) {
    Pipe = &pipeline;
    for (TMsgBase* object :
         {static_cast<TMsgBase*>(b), static_cast<TMsgBase*>(cs), static_cast<TMsgBase*>(po),
          static_cast<TMsgBase*>(store), static_cast<TMsgBase*>(moziCode), static_cast<TMsgBase*>(timer)}) {
        object->Pipe = &pipeline;
        object->Lang = po->Lang;
    }
    Lang = po->Lang;
    comet2->Pipe = &pipeline;

    b->Reset();
    po->Reset();
    cs->Reset();
    store->ClearMsgStore();
    DspTitle();

    TextEditorFlag = po->TextEditorIndex;
    if (TextEditorFlag < 0 || 2 < TextEditorFlag) {
        if (pipeline.wording != WordingNWW) Say(DriverMsg.EditorFlagOutOfRange, {TextEditorFlag});
        TextEditorFlag = 0;
    }
    po->TextEditorName = b->TextEditors[static_cast<std::size_t>(TextEditorFlag)];
}

void TGame::DspTitle() const {
    const std::string build = platform::SystemAndMachine();
    Say(b->SimpleTitleIndex == 1 ? DriverMsg.SimpleTitle : DriverMsg.Title, {Utf8Arg{FightFuncName}, Utf8Arg{build}});
}

bool TGame::Cycle() {
    SumMsgKazu(*this);
    DspErrors();
    ResetCycle();
    const int result = GetSrcFile();
    timer->SetAssembleStart();
    if (EndsProgram(result)) return false;
    if (StartsNextCycle(result)) return true;
    SrcFilePath = po->LastAssembledSrcFilePath;
    return AssembleLinkRun();
}

void TGame::DspErrors() {
    if (ErrorKazu < 1) return;
    timer->SetAssembleEndTime();
    if (Pipe->printsQueue) store->DspMsgStore();
    timer->DspAssembleTime();
    if (ErrorKazu == 1)
        Say(DriverMsg.OneError);
    else
        Say(DriverMsg.Errors, {ErrorKazu});
}

void TGame::ResetCycle() {
    b->Reset();
    cs->Reset();
    po->Reset();
    for (TMsgBase* object : {static_cast<TMsgBase*>(this), static_cast<TMsgBase*>(b), static_cast<TMsgBase*>(cs),
                             static_cast<TMsgBase*>(po)})
        object->ClearCounters();
    po->TextEditorIndex = b->TextEditorIndex;
    po->TextEditorName = b->TextEditors[static_cast<std::size_t>(b->TextEditorIndex)];
    store->ClearMsgStore();
    SrcFilePath = b->SrcFilePath = po->LastAssembledSrcFilePath;
}

int TGame::GetSrcFile() {
    std::string path = po->LastAssembledSrcFilePath;
    const int result = GetMainMenu(path);
    if (result != SourceChosen) return result;
    timer->SetReadFileStart();
    b->SrcFilePath = path;
    return ReadSource(path) == 0 ? SourceChosen : SourceNotRead;
}

void TGame::DspWarningKazu() const {
    if (WarningKazu > 0) Say(WarningKazu == 1 ? DriverMsg.OneWarning : DriverMsg.Warnings, {WarningKazu});
    if (Lang != 0) return;
    if (NoteKazu > 0) console::Write("\n");
    if (MemoKazu > 0) console::Write("\n");
}

bool TGame::AssembleLinkRun() {
    if (!RunStages(*this)) return true;
    timer->SetAssembleEndTime();
    DspWarningKazu();

    po->Reset();
    comet2->InitComet2();
    comet2->Lang = Lang;
    const int linked = RunLink(*this);
    timer->SetLinkEnd();
    timer->DspLinkTime();
    if (linked < 0) {
        EndCycle();
        return true;
    }

    labelSpace->Free();
    if (Pipe->isArray) {
        cs->CountLabels();
        labelSpace->CopyLabel();
    }
    SrcFileName = b->SrcFilePath;
    comet2->SrcFileName = SrcFileName;
    comet2->ReservedWords = b->GetReservedWords();
    Say(DriverMsg.Assembled);
    Say(toldAssembledDump ? DriverMsg.AssembledDump : DriverMsg.FirstAssembledDump, {AssembledDumpName});
    toldAssembledDump = true;
    DspRegMry(*comet2, AssembledDumpName);

    bool ended = false;
    if (WarningKazu == 0 || AskToRun(ended) == 1) RunMachine();
    EndCycle();
    return !ended;
}

int TGame::AskToRun(bool& ended) const {
    Say(DriverMsg.RunQuestion);
    const auto line = console::ReadLine(AnswerLimit);
    ended = !line;
    std::size_t end = 0;
    return line ? LeadingNumber(*line, end) : 0;
}

void TGame::RunMachine() {
    comet2->Run3();
    const auto counts = comet2->RunCount.begin();
    comet2->MaxRunCount = *std::max_element(counts, counts + MaxImageWords);
    Say(toldResultantDump ? DriverMsg.ResultantDump : DriverMsg.FirstResultantDump, {ResultantDumpName});
    toldResultantDump = true;
    DspRegMry(*comet2, ResultantDumpName);
}

void TGame::EndCycle() {
    labelSpace->Free();
    cs->Reset();
    b->Reset();
}

} // namespace tolvane
