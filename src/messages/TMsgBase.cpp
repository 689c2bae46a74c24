#include "messages/TMsgBase.h"

#include "messages/TMsgStore.h"
#include "platform/Console.h"

namespace tolvane {

void TMsgBase::Error(Place place, const Msg& msg, Args args) {
    Explain(Severity::Error, place, msg, args);
    ++ErrorKazu;
}

void TMsgBase::Warning(Place place, const Msg& msg, Args args) {
    Explain(Severity::Warning, place, msg, args);
    ++WarningKazu;
}

void TMsgBase::Note(Place place, const Msg& msg, Args args) {
    Explain(Severity::Note, place, msg, args);
    ++NoteKazu;
}

void TMsgBase::Memo(Place place, const Msg& msg, Args args) {
    Explain(Severity::Memo, place, msg, args);
    ++MemoKazu;
}

void TMsgBase::Explain(Severity severity, Place place, const Msg& msg, Args args) const {
    const std::string text = Compose(msg.For(Lang, Pipe->wording), Lang, severity, place, args);
    const Delivery delivery = msg.room == Room::Operands ? Pipe->operands : Pipe->shared;
    if (delivery != Delivery::Queue) console::Write(text + "\n");
    if (delivery != Delivery::Print) store->Append(severity, place, text, args);
}

void TMsgBase::Say(const Msg& msg, Args args) const {
    console::Write(TextOf(msg, args));
}

void TMsgBase::SayAt(Severity severity, Place place, const Msg& msg, Args args) const {
    console::Write(Compose(msg.For(Lang, Pipe->wording), Lang, severity, place, args));
}

std::string TMsgBase::TextOf(const Msg& msg, Args args) const {
    return Compose(msg.For(Lang, Pipe->wording), Lang, Severity::Error, NoLine, args);
}

void TMsgBase::ClearCounters() {
    ErrorKazu = WarningKazu = NoteKazu = MemoKazu = 0;
}

} // namespace tolvane
