#include "messages/TMsgBase.h"

#include "messages/TMsgStore.h"
#include "platform/Console.h"

#include <vector>

namespace tolvane {

namespace {

std::string_view WordsOf(const Msg& msg) {
    return msg.For(modeFlags->Lang, modeFlags->Pipe->wording);
}

std::string Composed(const Msg& msg, Args args, bool forTerminal) {
    const std::vector<KeptArg> kept(args.begin(), args.end());
    std::string text;
    ComposeText(text, WordsOf(msg), Severity::Error, NoLine, kept, forTerminal);
    return text;
}

void Print(const MsgRec& record, std::string_view lineEnd) {
    std::string text;
    ComposeText(text, WordsOf(*record.row), record.severity, record.place, record.args, console::IsTerminal());
    console::Write(text += lineEnd);
}

void Report(Severity severity, Place place, const Msg& msg, Args args, bool counted) {
    const MsgRec& record = store->Append(severity, place, msg, args, true, counted);
    if (!msg.ofOperands || modeFlags->Pipe->printsOperandsAtOnce) Print(record, "\n");
}

} // namespace

void ComposeText(std::string& out, std::string_view text, Severity severity, Place place, std::span<const KeptArg> args,
                 bool forTerminal) {
    Compose(out, text, {modeFlags->Lang, modeFlags->Pipe->wording, severity, place, args, forTerminal});
}

std::string TextOf(const Msg& msg, Args args) {
    return Composed(msg, args, false);
}

void Say(const Msg& msg, Args args) {
    console::Write(Composed(msg, args, console::IsTerminal()));
}

void Tell(Severity severity, Place place, const Msg& msg, Args args) {
    Print(store->Append(severity, place, msg, args, false, false), "");
}

void Explain(Severity severity, Place place, const Msg& msg, Args args) {
    Report(severity, place, msg, args, false);
}

void TMsgBase::Error(Place place, const Msg& msg, Args args) {
    Report(Severity::Error, place, msg, args, true);
    ++ErrorKazu;
}

void TMsgBase::Warning(Place place, const Msg& msg, Args args) {
    Report(Severity::Warning, place, msg, args, true);
    ++WarningKazu;
}

void TMsgBase::Note(Place place, const Msg& msg, Args args) {
    Report(Severity::Note, place, msg, args, true);
    ++NoteKazu;
}

void TMsgBase::Memo(Place place, const Msg& msg, Args args) {
    Report(Severity::Memo, place, msg, args, true);
    ++MemoKazu;
}

void TMsgBase::ClearCounters() {
    ErrorKazu = WarningKazu = NoteKazu = MemoKazu = 0;
}

} // namespace tolvane
