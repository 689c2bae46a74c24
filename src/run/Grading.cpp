#include "run/Grading.h"

#include "image/Codes.h"
#include "image/LinkedImage.h"
#include "machine/Tcomet2.h"
#include "platform/Console.h"
#include "platform/Files.h"
#include "run/Comparison.h"
#include "run/Errors.h"
#include "run/GradeMsgs.h"
#include "run/Inputs.h"
#include "run/RunMsgs.h"
#include "run/Sources.h"
#include "text/Convert.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <sstream>

namespace tolvane::run {

namespace {

constexpr std::int64_t GradingLimit = 1'000'000;

struct Rules {
    std::string keeps, looks; // labels
    std::size_t mostLooks = 0;
    int recursion = 0;
};

struct Case {
    int number;
    std::string input, expected;
};

// What a run has done beside printing.
struct Conduct {
    struct Frame {
        int target, sp; // of the CALL, and behind it
        std::array<int, 8> GR;
    };
    std::vector<Frame> calls; // those that have not returned
    std::set<int> looked;
    int changed = 0; // the first register that `keeps` has found changed
    int depth = 0;   // calls of one subroutine by itself
};

struct Verdict {
    bool right = false;
    int status = AllEnded;
};

struct Grader {
    Rules rules;
    int depth = 0;
    std::string lastStop; // as it was told
};

std::string NameOfCase(const std::string& folder, const char* kind, int number) {
    return folder + "/" + kind + "-" + std::to_string(number) + ".txt";
}

// The bytes of a file that has to do with a case; nothing, and it is told, if it cannot be read.
std::optional<std::string> ReadOfCase(const std::string& name) {
    platform::Once once = ReadInput(name);
    if (once.end == platform::Once::End::Read) return std::move(once.bytes);
    const std::string why = WhyNotRead(once);
    PrintDiagnostic(name, -1, Severity::Error, {TextOf(RunMsg.NotRead, {Utf8Arg{why}})});
    return std::nullopt;
}

bool IsThere(const std::string& name) {
    std::error_code error;
    return std::filesystem::exists(platform::SystemPath(name), error);
}

// All cases of a folder; nothing if one of them cannot be read.
std::optional<std::vector<Case>> ReadCases(const std::string& folder) {
    std::vector<Case> cases;
    for (int n = 1;; ++n) {
        const std::string names[] = {NameOfCase(folder, "input", n), NameOfCase(folder, "output", n)};
        if (!IsThere(names[0]) || !IsThere(names[1])) return cases;
        auto input = ReadOfCase(names[0]);
        const auto expected = input ? ReadOfCase(names[1]) : std::nullopt;
        if (!expected) return std::nullopt;
        cases.push_back({n, std::move(*input), AsExpected(*expected)});
    }
}

Rules ReadRules(const std::string& folder) {
    Rules rules;
    std::istringstream words(platform::ReadFile(folder + "/rules.txt").value_or(""));
    std::string word;
    while (words >> word) {
        if (word == "keeps") words >> rules.keeps;
        if (word == "looks") words >> rules.looks >> rules.mostLooks;
        if (word == "recursion") words >> rules.recursion;
    }
    return rules;
}

void TellErrors(const std::string& file) {
    for (const MsgRec& record : store->Records)
        if (record.severity == Severity::Error)
            PrintDiagnostic(file, record.place.line, record.severity, TextLines(record));
    FlushErr();
    Say(GradeMsg.NotSound);
}

// The source line of a label, -1 without one.
int LineOfLabel(const image::LinkedImage& image, const std::string& label) {
    for (int line = 0; line < image.LineCount(); ++line)
        if (image.TextOf(line).label == label) return line;
    return -1;
}

bool ReadsMemory(int code) {
    const auto reads = [code](const Opcode& op) { return op.shape == Shape::RegisterOrAddress && op.code == code; };
    return std::any_of(opcodes::Table.begin(), opcodes::Table.end(), reads);
}

void WatchCall(Conduct& conduct, const Step& step) {
    const int target = comet2->PR;
    conduct.calls.push_back({target, comet2->SP, step.before.GR});
    const auto same = std::count_if(conduct.calls.begin(), conduct.calls.end(),
                                    [target](const Conduct::Frame& call) { return call.target == target; });
    conduct.depth = std::max(conduct.depth, static_cast<int>(same));
}

void WatchReturn(Conduct& conduct, int kept) {
    while (!conduct.calls.empty() && conduct.calls.back().sp < comet2->SP) {
        const Conduct::Frame call = conduct.calls.back();
        conduct.calls.pop_back();
        if (call.target != kept || call.sp != comet2->SP - 1 || conduct.changed != 0) continue;
        for (int n = 7; n > 0; --n)
            if (call.GR[static_cast<std::size_t>(n)] != comet2->GR[static_cast<std::size_t>(n)]) conduct.changed = n;
    }
}

void WatchLook(Conduct& conduct, const image::LinkedImage& image, const Step& step, int line) {
    const int index = step.word & 0xF;
    const int offset = index == 0 ? 0 : step.before.GR[static_cast<std::size_t>(index)];
    const int address = (step.second + offset) & 0xFFFF;
    if (image.LineOf(address) == line) conduct.looked.insert(address);
}

void SayIndented(const Msg& row, const std::string& line) {
    console::Write("   " + TextOf(row, {Utf8Arg{line}}) + "\n");
}

void SayTyped(const Case& aCase) {
    const auto typed = LinesOf(aCase.input);
    for (std::size_t n = 0; n < std::max<std::size_t>(typed.size(), 1); ++n)
        SayIndented(GradeMsg.Typed, ShownLine(typed, n));
}

void SayDifference(const Difference& difference) {
    if (difference.line > 0) Say(GradeMsg.InLine, {difference.line + 1});
    SayIndented(GradeMsg.Expected, difference.expected);
    SayIndented(GradeMsg.Printed, difference.printed);
}

// The machine's reason and the place, as a diagnostic, but once.
void SayStop(Grader& grader, const image::LinkedImage& image, const Case& aCase, Stop stop, std::size_t firstRecord) {
    const int address = comet2->FaultAddress(stop);
    std::vector<std::string> lines;
    for (std::size_t i = firstRecord; i < store->Records.size(); ++i)
        for (const std::string& line : TextLines(store->Records[i]))
            lines.push_back(line);
    if (stop == Stop::InputEnded) lines.push_back(TextOf(RunMsg.InputEnded));
    lines.push_back(image.PlaceText(address));
    const bool known = lines.back() == grader.lastStop;
    grader.lastStop = lines.back();
    if (stop == Stop::LimitReached)
        Say(GradeMsg.Endless, {aCase.number, static_cast<long long>(GradingLimit)});
    else
        Say(known ? GradeMsg.StoppedAgain : GradeMsg.Stopped, {aCase.number});
    if (known) return;
    for (const std::string& line : lines)
        console::Write("   " + line + "\n");
    SayTyped(aCase);
}

// What is typed and printed in a case.
struct Traffic {
    InputLines input;
    std::string printed;
};

Verdict GradeCase(Grader& grader, const Case& aCase) {
    const image::LinkedImage image;
    const Rules& rules = grader.rules;
    const int kept = rules.keeps.empty() ? -1 : image.TextOf(LineOfLabel(image, rules.keeps)).address;
    const int looked = rules.looks.empty() ? -1 : LineOfLabel(image, rules.looks);
    Conduct conduct;
    const auto watch = [&](const Step& step) {
        const int code = (step.word >> 8) & 0xFF;
        if (code == image::Call) WatchCall(conduct, step);
        if (code == image::Ret) WatchReturn(conduct, kept);
        if (looked >= 0 && ReadsMemory(code)) WatchLook(conduct, image, step, looked);
    };

    Traffic traffic{InputLines(aCase.input), {}};
    const auto write = [](void* context, const std::string& line) { static_cast<Traffic*>(context)->printed += line; };
    const auto read = [](void* context, std::size_t limit) -> std::optional<MachineIo::Line> {
        std::optional<std::string> line = static_cast<Traffic*>(context)->input.Next(limit);
        if (!line) return std::nullopt;
        const std::size_t valid = line->size();
        return MachineIo::Line{std::move(*line), valid};
    };
    const MachineIo io{write, read, [](void*, const Msg&, Args) {}, &traffic};
    const std::size_t firstRecord = store->Records.size();
    std::string swallowed;
    comet2->Io = &io;
    console::WriteTo(&swallowed);
    const Stop stop = comet2->RunTraced(GradingLimit, watch);
    console::WriteTo(nullptr);
    comet2->Io = &DialogueIo;
    grader.depth = std::max(grader.depth, conduct.depth);

    if (stop != Stop::None && stop != Stop::End) {
        SayStop(grader, image, aCase, stop, firstRecord);
        return {false, stop == Stop::LimitReached  ? LimitWasReached
                       : stop == Stop::Interrupted ? CtrlC
                                                   : MachineStopped};
    }
    const auto difference = FirstDifference(aCase.expected, traffic.printed);
    const bool tooManyLooks = conduct.looked.size() > rules.mostLooks;
    const bool right = !difference && conduct.changed == 0 && !tooManyLooks;
    Say(right ? GradeMsg.Right : GradeMsg.Wrong, {aCase.number});
    if (right) return {true, AllEnded};
    SayTyped(aCase);
    if (difference) SayDifference(*difference);
    const std::string changed = "GR" + std::to_string(conduct.changed);
    if (conduct.changed != 0) Say(GradeMsg.Changed, {Utf8Arg{rules.keeps}, Utf8Arg{changed}});
    if (tooManyLooks) Say(GradeMsg.Looks, {conduct.looked.size(), Utf8Arg{rules.looks}, rules.mostLooks});
    return {false, WrongOutput};
}

bool LabelsAreThere(const Rules& rules) {
    const image::LinkedImage image;
    for (const std::string& label : {rules.keeps, rules.looks}) {
        if (label.empty() || LineOfLabel(image, label) >= 0) continue;
        Say(GradeMsg.NoSuchLabel, {Utf8Arg{label}});
        return false;
    }
    return true;
}

} // namespace

int Grade(const Options& options, const std::string& told, const std::string& source) {
    const auto read = ReadCases(*options.grade);
    if (!read) return WrongUse;
    const std::vector<Case>& cases = *read;
    if (cases.empty()) {
        const std::string why = TextOf(GradeMsg.NoCases, {Utf8Arg{*options.grade}});
        WriteErr(TextOf(RunMsg.UseError, {Utf8Arg{why}}));
        return WrongUse;
    }
    Grader grader{ReadRules(*options.grade), 0, {}};
    if (options.files.size() > 1) Say(GradeMsg.OfFile, {Utf8Arg{told}});
    int rightCases = 0;
    int status = AllEnded;
    for (const Case& aCase : cases) {
        if (!Assemble(options, told, source)) {
            TellErrors(told);
            return SourceErrors;
        }
        if (!LabelsAreThere(grader.rules)) return WrongOutput;
        const Verdict verdict = GradeCase(grader, aCase);
        status = std::max(status, verdict.status);
        rightCases += verdict.right ? 1 : 0;
        if (status == CtrlC) return status;
    }
    const bool recurses = grader.depth >= grader.rules.recursion;
    const int all = static_cast<int>(cases.size());
    if (rightCases == all && recurses)
        Say(GradeMsg.AllRight, {all});
    else
        Say(GradeMsg.SomeRight, {rightCases, all});
    if (recurses) return status;
    Say(GradeMsg.NoRecursion);
    return std::max<int>(status, WrongOutput);
}

} // namespace tolvane::run
