#include "Entries.h"

#include "Assemble.h"
#include "PageWords.h"
#include "messages/Pipeline.h"
#include "records/OpcodeHelp.h"
#include "run/RunMsgs.h"
#include "text/Text.h"

#include <algorithm>
#include <climits>
#include <fstream>
#include <map>
#include <numeric>
#include <optional>
#include <set>
#include <stdexcept>
#include <tuple>

namespace tolvane {

namespace {

// WP is what a learner sees; where WP does not say a row, the first of the others that does.
constexpr std::array<const char*, 7> PipelineOrder = {"WP", "NWW", "NwW", "NaW", "AP", "NA", "NH"};
constexpr std::size_t LongestLine = 110;
constexpr std::size_t MostLines = 16;

// --- Words of a row

// Heads that a row spells out itself, and the signs that are left when a head or an argument is taken off.
constexpr const char* Heads[] = {
    "Error :", "Error:", "Warning:", "WARNING:",       "Runtime Error:", "エラー：",    "実行時エラー：", "警告：",
    "警告:",   "--> ",   "-> ",      "line ",          "行目：",         "“…”: ",       "“…” : ",         "“…”： ",
    "“…”：",   ":",      "：",       "Prg. Error of ", "OS: ",           "k=…* ",       "Prg. Error: ",   "…:",
    "… :",     "\"…\":", "'…':",     "Constant Nr=",   "k=* ",           "番目の定数："};

std::string WithoutHeads(std::string text) {
    for (bool found = true; found;) {
        text = TrimZenBlankUtf8(text);
        const auto* const head = std::find_if(std::begin(Heads), std::end(Heads), [&](const char* each) { return text.starts_with(each); });
        found = head != std::end(Heads);
        if (found) text.erase(0, std::string_view(*head).size());
    }
    return (text.starts_with("の") ? "“…” " : "") + text;
}

// A text of a row with "…" for its arguments and without its heads, on one line.
std::string WordsOf(const char* text) {
    std::string words;
    for (const char* c = text; *c != '\0'; ++c) {
        if (*c != '{') {
            const char sign = *c == '\n' ? ' ' : *c;
            if (sign != ' ' || !words.ends_with(' ')) words += sign;
            continue;
        }
        const std::string tag(c, std::find(c, c + std::string_view(c).size(), '}'));
        if (tag == "{join") words += ' ';
        if (IsDigit(tag[1])) words += tag.ends_with('q') ? " “…” " : "…";
        c += tag.size();
    }
    for (std::size_t at = 0; (at = words.find("  ", at)) != std::string::npos;)
        words.erase(at, 1);
    return WithoutHeads(words);
}

// The last place up to `at` where a character begins.
std::size_t BoundaryAt(const std::string& text, std::size_t at) {
    while ((static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U)
        --at;
    return at;
}

// The first sentence, or as much of it as a line holds.
std::string TitleOf(std::string words) {
    // A sentence that begins behind the name of what it is about; words that go on with it begin in small or hiragana.
    constexpr std::string_view name = "“…” ";
    const std::string_view rest = std::string_view(words).substr(std::min(name.size(), words.size()));
    const bool goesOn = rest.empty() || IsLower(rest[0]) || ("ぁ" <= rest && rest <= "ん");
    if (words.starts_with(name) && !goesOn) words.erase(0, name.size());
    constexpr std::size_t shortest = 25;
    constexpr std::size_t longest = 130;
    std::size_t end = words.size();
    for (const char* stop : {". ", "! ", "。", "！", ".  "})
        if (const std::size_t found = words.find(stop, shortest); found < end) end = found + (*stop == '.' ? 1 : 3);
    if (end <= longest) return TrimZenBlankUtf8(words.substr(0, end));
    end = BoundaryAt(words, longest);
    const std::size_t blank = words.rfind(' ', end);
    return words.substr(0, blank > longest / 2 && blank < end ? blank : end) + "…";
}

// --- Sources and what is said of them

std::string Joined(const Strings& lines) {
    return std::accumulate(
        lines.begin(), lines.end(), std::string(),
        [](const std::string& all, const std::string& line) { return all + WithoutBlanksBehind(line) + "\n"; });
}

std::string Cut(const std::string& line) {
    if (line.size() <= LongestLine) return line;
    return line.substr(0, BoundaryAt(line, LongestLine - 40)) + " … " + line.substr(BoundaryAt(line, line.size() - 20));
}

std::string SourceText(const Strings& source) {
    std::string text;
    for (std::size_t i = 0; i < source.size(); ++i) {
        const bool shown = source.size() <= MostLines || i < MostLines / 2 || i + 4 >= source.size();
        if (shown) text += Cut(source[i]) + "\n";
        if (!shown && i == MostLines / 2) text += "...\n";
    }
    return text;
}

// The diagnostics, each once.
std::string Said(const Assembly& assembly) {
    Strings texts;
    for (const Strings& lines : assembly.lines) {
        const std::string text = Joined(lines);
        if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
    }
    return Joined(texts);
}

template <class Text> Pair InBoth(Text text) {
    return {text(0), text(1)};
}
Pair InBoth(const words::Word& word) {
    return {word[0], word[1]};
}

Assembly AssembleCase(const Case& c, const char* pipeline, int language) {
    return Assemble(SourceOf(c), *FindPipeline(pipeline), language, c.run ? Then::Run : Then::Nothing);
}

// --- Entries of rows

// The case that shows a row.
struct Example {
    const Case* c = nullptr;
    const char* pipeline = nullptr;
    std::size_t rows = 0; // that are said of it
    Severity severity{};
    int line = -1;
    bool shownByConsole = true;
};

// The first diagnostic of a row; a.said.end() if there is none.
std::vector<MsgRec>::const_iterator SaidOf(const Msg* row, const Assembly& a) {
    return std::find_if(a.said.begin(), a.said.end(), [row](const MsgRec& said) { return said.row == row; });
}

Example ExampleOf(const Msg* row, const Case& c, const char* pipeline, const Assembly& a, std::size_t rows) {
    const auto record = SaidOf(row, a);
    const bool queued = row->ofOperands && !FindPipeline(pipeline)->printsOperandsAtOnce;
    return {&c, pipeline, rows, record->severity, record->place.line, !queued || a.counters[0] > 0};
}

// The one of which the fewest rows are said; of several, one of whose own line it is said, under the rule where it is
// said most often, in the shortest source.
const Example& BestOf(const std::vector<Example>& examples) {
    const auto sameRule = [&](const Example& example) {
        return std::count_if(examples.begin(), examples.end(), [&](const Example& e) { return e.c->rule == example.c->rule; });
    };
    const auto rank = [&](const Example& example) {
        return std::tuple(example.rows, example.line != LineInFrame(*example.c), -sameRule(example),
                          SourceOf(*example.c).size());
    };
    return *std::min_element(examples.begin(), examples.end(),
                             [&](const Example& a, const Example& b) { return rank(a) < rank(b); });
}

// The instruction of a line without a label, else nothing: a fault of a label has nothing to do with it.
std::string OpcodeOf(const std::string& line) {
    if (line[0] != ' ') return {};
    const std::size_t begin = std::min(line.find_first_not_of(' '), line.size());
    return line.substr(begin, line.find(' ', begin) - begin);
}

// The nearest line of which nothing is said: of the same instruction, of the same rule; empty if there is none.
std::string SoundTwin(const Example& example, const std::vector<const Case*>& sound) {
    const Case* best = nullptr;
    const std::string& faulty = example.c->source[0];
    const auto sameOpcode = [&](const Case& c) {
        return !OpcodeOf(faulty).empty() && OpcodeOf(faulty) == OpcodeOf(c.source[0]);
    };
    const auto distance = [&](const Case& c) {
        const auto differs = std::mismatch(faulty.begin(), faulty.end(), c.source[0].begin(), c.source[0].end());
        const auto alike = differs.first - faulty.begin();
        return std::tuple(!sameOpcode(c), c.rule != example.c->rule, -alike, c.source[0].size());
    };
    for (const Case* c : sound) {
        const bool beside = c->frame == example.c->frame && (c->rule == example.c->rule || sameOpcode(*c));
        if (c->frame.empty() || !beside) continue;
        if (best == nullptr || distance(*c) < distance(*best)) best = c;
    }
    return best == nullptr ? "" : SourceText(Split(Unescaped(best->source[0]), '\n'));
}

std::string OtherWordings(const Msg& row, int language, Wording shown) {
    constexpr std::pair<Wording, const char*> names[] = {
        {WordingWP, "WP"}, {WordingNWW, "NWW, NwW, NaW"}, {WordingNA, "NA"}, {WordingAP, "AP"}, {WordingNH, "NH"}};
    std::map<std::string, std::string> pipelinesOf;
    for (const auto& [wording, name] : names) {
        std::string& pipelines = pipelinesOf[WordsOf(row.For(language, wording))];
        pipelines += (pipelines.empty() ? "" : ", ") + std::string(name);
    }
    pipelinesOf.erase(WordsOf(row.For(language, shown)));
    std::string text;
    for (const auto& [words, pipelines] : pipelinesOf)
        text += Cat(pipelines, ": ", words, "\n");
    return text;
}

// What is wrong with a program that is shown as sound: it must assemble without a word and run to its end.
std::string FaultOf(const Strings& source, const char* pipeline) {
    const Assembly a = Assemble(source, *FindPipeline(pipeline), 1, Then::Run);
    if (!a.lines.empty()) return Joined(a.lines[0]);
    return a.good && (a.stop == Stop::End || a.stop == Stop::None) ? "" : "does not run to its end";
}

void AddSound(Entry& entry, const Example& example, const Notes& notes, const std::vector<const Case*>& sound) {
    if (!notes.sound.empty()) {
        const std::string text = Joined(notes.sound);
        entry.pieces.push_back({Piece::Kind::Source, InBoth(words::SoundSource), {text, text}, notes.marked, true});
    } else if (const std::string twin = SoundTwin(example, sound); !twin.empty()) {
        entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Sound), {twin, twin}});
    }
}

// The faulty line, unless lines in front of it have been cut out.
std::set<int> Marked(const Example& example) {
    if (example.line < 0 || SourceOf(*example.c).size() > MostLines) return {};
    return {example.line};
}

// The line that tells an example from others: the case of a line alone, else the faulty one or the first.
std::string SampleOf(const Example& example) {
    const bool faulty = example.c->frame.empty() && example.line >= 0;
    return TrimZenBlankUtf8(faulty ? SourceOf(*example.c).at(static_cast<std::size_t>(example.line))
                                   : Split(Unescaped(example.c->source[0]), '\n').at(0));
}

Entry EntryOf(const Msg& row, const Example& example, const std::vector<const Case*>& sound, const Notes& notes) {
    const Wording wording = FindPipeline(example.pipeline)->wording;
    const auto words = [&](int language) { return TitleOf(WordsOf(row.For(language, wording))); };
    const bool ofRun = NameOf(row).starts_with("MachineMsg.") && example.severity == Severity::Error;
    Entry entry;
    entry.id = NameOf(row);
    entry.rows = {entry.id};
    entry.title = InBoth(words);
    entry.severity = InBoth(ofRun ? words::Stop : words::Severities[static_cast<int>(example.severity)]);

    const Pair rule = {example.c->rule.at(1), example.c->rule.at(0)};
    entry.pieces.push_back({Piece::Kind::Text, {}, notes.rule[0].empty() ? rule : notes.rule});
    const bool inWP = std::string(example.pipeline) == "WP";
    const auto heading = [&](int l) {
        return inWP ? words::Example[l]
                    : Cat(words::Example[l], words::Pipeline[l], example.pipeline, words::PipelineEnd[l]);
    };
    const auto said = [&](int l) { return Said(AssembleCase(*example.c, example.pipeline, l)); };
    const std::string source = SourceText(SourceOf(*example.c));
    entry.pieces.push_back({Piece::Kind::Source, InBoth(heading), {source, source}, Marked(example)});
    entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Output), InBoth(said)});
    if (!example.shownByConsole) entry.pieces.push_back({Piece::Kind::Text, {}, InBoth(words::NotShown)});
    AddSound(entry, example, notes, sound);
    const Pair others = InBoth([&](int language) { return OtherWordings(row, language, wording); });
    if (!Cat(others[0], others[1]).empty()) entry.pieces.push_back({Piece::Kind::Text, InBoth(words::Others), others});
    entry.sample = SampleOf(example);
    return entry;
}

void PutInPlace(Entry& entry, const Guide& guide, const Notes& notes) {
    entry.place = notes.place;
    entry.subject = guide.subjects.at(notes.subject).title;
    entry.keys += notes.keys;
}

// The notes of a row; those of the last subject if there are none.
Notes NotesOf(const Guide& guide, const std::string& name) {
    const auto found = guide.notes.find(name);
    return found != guide.notes.end() ? found->second
                                      : Notes{INT_MAX, guide.subjects.size() - 1, {}, {}, {}, {}, {}, {}};
}

} // namespace

Guide ReadGuide(const std::filesystem::path& file) {
    Guide guide;
    Strings names;
    Notes notes;
    const auto keep = [&] {
        for (const std::string& name : names)
            if (!guide.notes.emplace(name, notes).second) throw std::runtime_error(name + " stands twice in the notes");
        notes = {notes.place + 1, guide.subjects.size() - 1, {}, {}, {}, {}, {}, {}};
        names.clear();
    };
    std::ifstream in(file);
    for (std::string line; std::getline(in, line);) {
        const std::string rest = line.substr(std::min<std::size_t>(2, line.size()));
        if (line.starts_with("= ") || line.starts_with(":: ")) keep();
        if (line.starts_with(":: ")) {
            guide.subjects.push_back({line.substr(3), {}});
            std::getline(in, guide.subjects.back().title[1]);
            std::getline(in, guide.subjects.back().title[0]);
        } else if (line.starts_with("= ")) {
            notes.subject = guide.subjects.size() - 1;
            names = Split(rest, ' ');
        } else if (line.starts_with("+ ")) {
            notes.keys += rest + " ";
        } else if (line.starts_with("? ")) {
            notes.shown = rest;
        } else if (line.starts_with("> ")) {
            notes.rule[1] = rest;
            std::getline(in, line);
            notes.rule[0] = line.substr(2);
        } else if (line == "faulty") {
            for (std::string code; std::getline(in, code) && !code.empty();)
                notes.faulty.push_back(code);
        } else if (line == "sound") {
            for (std::string code; std::getline(in, code) && !code.empty(); notes.sound.push_back(code)) {
                if (!code.starts_with("* ")) continue;
                notes.marked.insert(static_cast<int>(notes.sound.size()));
                code.erase(0, 2);
            }
        } else if (!line.empty() && line[0] != '#') {
            throw std::runtime_error(file.string() + ": " + line);
        }
    }
    keep();
    return guide;
}

namespace {

// The examples that the notes bring along, as cases.
std::map<std::string, Case> CasesOf(const Guide& guide) {
    std::map<std::string, Case> cases;
    for (const auto& [name, notes] : guide.notes) {
        if (notes.faulty.empty()) continue;
        Case& c = cases[name];
        c.rule = {notes.rule[1], notes.rule[0]};
        c.source = notes.faulty;
        c.run = name.starts_with("MachineMsg.");
    }
    return cases;
}

// The first pipeline in which a case says a row.
std::optional<Example> ExampleIn(const Msg* row, const Case& c) {
    for (const char* pipeline : PipelineOrder) {
        const Assembly a = AssembleCase(c, pipeline, 1);
        if (SaidOf(row, a) != a.said.end()) return ExampleOf(row, c, pipeline, a, 1);
    }
    return std::nullopt;
}

} // namespace

std::vector<Entry> EntriesOfBooks(const std::vector<Book>& books, const Guide& guide, Strings& wrong) {
    const std::map<std::string, Case> own = CasesOf(guide);
    std::map<const Msg*, std::vector<Example>> examples;
    std::map<const Msg*, Example> wanted;
    for (const Msg* row : AllRows())
        if (const auto c = own.find(NameOf(*row)); c != own.end()) {
            const auto example = ExampleIn(row, c->second);
            if (example) wanted.emplace(row, *example);
            if (!example) wrong.push_back(c->first + " is not said of its example");
            if (c->second.rule[0].empty()) wrong.push_back(c->first + " has an example without a rule");
        }
    std::map<std::string, std::vector<const Case*>> sound;
    for (const char* pipeline : PipelineOrder) {
        std::map<const Msg*, std::vector<Example>> found;
        for (const Book& book : books)
            for (const Case& c : book.cases) {
                if (c.rule.size() != 2)
                    throw std::runtime_error(book.path.string() + ": no rule in both languages: " + c.source.at(0));
                const Assembly a = AssembleCase(c, pipeline, 1);
                if (a.good && a.said.empty()) sound[pipeline].push_back(&c);
                std::set<const Msg*> rows;
                for (const MsgRec& record : a.said)
                    rows.insert(record.row);
                for (const Msg* row : rows) {
                    const Example example = ExampleOf(row, c, pipeline, a, rows.size());
                    if (TrimZenBlankUtf8(c.source[0]) == NotesOf(guide, NameOf(*row)).shown)
                        wanted.emplace(row, example);
                    if (!examples.contains(row)) found[row].push_back(example);
                }
            }
        examples.merge(found);
    }
    std::vector<Entry> entries;
    std::array<std::map<std::string, int>, 2> titles;
    for (const Msg* row : AllRows()) {
        const auto at = examples.find(row);
        if (at == examples.end()) continue;
        const Notes notes = NotesOf(guide, NameOf(*row));
        const auto shown = wanted.find(row);
        if (!notes.shown.empty() && shown == wanted.end()) wrong.push_back(NameOf(*row) + ": no case " + notes.shown);
        const Example& example = shown != wanted.end() ? shown->second : BestOf(at->second);
        if (!notes.sound.empty())
            if (const std::string fault = FaultOf(notes.sound, example.pipeline); !fault.empty())
                wrong.push_back(Cat(NameOf(*row), ": what is shown as sound is not: ", fault));
        entries.push_back(EntryOf(*row, example, sound[example.pipeline], notes));
        PutInPlace(entries.back(), guide, notes);
    }
    // Titles that several rows have are told apart by the faulty lines.
    for (const std::size_t l : {0U, 1U}) {
        for (const Entry& entry : entries)
            ++titles[l][entry.title[l]];
        for (Entry& entry : entries)
            if (titles[l][entry.title[l]] > 1 && !entry.sample.empty()) entry.title[l] += " (" + entry.sample + ")";
    }
    return entries;
}

// --- Faults without a diagnostic of their own

namespace {

// What is said of a source and what is left behind its run.
Pair Happened(const Strings& source, const std::string& input) {
    return InBoth([&](int l) {
        const Assembly a = Assemble(source, *FindPipeline("WP"), l, Then::Run, input);
        std::string text = Said(a) + a.out;
        const KeptArg limit{{}, true, RunLimit};
        if (a.stop == Stop::LimitReached)
            Compose(text, RunMsg.LimitReached.For(l, WordingWP), {l, WordingWP, Severity::Error, NoLine, {&limit, 1}});
        if (a.stop == Stop::LimitReached) text += "\n";
        if (text.empty()) text = words::NothingSaid[l] + std::string("\n");
        if (!a.good) return text;
        std::string registers;
        for (std::size_t i = 0; i < a.registers.size(); ++i) {
            char cell[32];
            std::snprintf(cell, sizeof cell, " GR%zu=#%04X", i, static_cast<unsigned>(a.registers[i]) & 0xFFFFU);
            if (a.registers[i] != 0) registers += cell;
        }
        return text + words::Registers[l] + (registers.empty() ? words::NoRegisters[l] : registers) + "\n";
    });
}

} // namespace

std::vector<Entry> EntriesOfFaults(const std::filesystem::path& file, const Guide& guide) {
    std::vector<Entry> entries;
    std::ifstream in(file);
    std::string japanese;
    std::string input;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::string rest = line.substr(std::min<std::size_t>(2, line.size()));
        if (line.starts_with("= ")) {
            entries.emplace_back();
            entries.back().kind = explain::Kind::Fault;
            entries.back().id = rest;
            entries.back().severity = InBoth(words::Fault);
            PutInPlace(entries.back(), guide, NotesOf(guide, rest));
            std::getline(in, entries.back().title[1]);
            std::getline(in, entries.back().title[0]);
            continue;
        }
        if (entries.empty()) throw std::runtime_error(file.string() + ": " + line);
        Entry& entry = entries.back();
        if (line.starts_with("+ ")) {
            entry.keys += rest + " ";
        } else if (line.starts_with("& ")) {
            entry.rows = Split(rest, ' ');
        } else if (line.starts_with("< ")) {
            input = rest;
        } else if (line == "faulty" || line == "sound") {
            Strings source;
            for (std::string code; std::getline(in, code) && !code.empty();)
                source.push_back(code);
            const std::string text = Joined(source);
            const auto& heading = line == "faulty" ? words::Example : words::SoundSource;
            entry.pieces.push_back({Piece::Kind::Source, InBoth(heading), {text, text}, {}, line == "sound"});
            entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Result), Happened(source, input)});
            input.clear();
        } else {
            std::getline(in, japanese);
            entry.pieces.push_back({Piece::Kind::Text, {}, {japanese, line}});
        }
    }
    return entries;
}

// --- Opcodes

std::vector<Entry> EntriesOfOpcodes(const Guide& guide) {
    std::vector<Entry> entries;
    for (const OpcodeHelp& help : help::Table) {
        Entry entry;
        entry.kind = explain::Kind::Opcode;
        entry.id = help.opcode->word;
        entry.severity = InBoth(words::Instruction);
        entry.title = InBoth([&](int l) { return Cat(help.opcode->word, words::Colon[l], help.meaning[l]); });
        const std::string form = Cat(help.opcode->word, " ", help::FormOf(*help.opcode), "\n");
        entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Form), {form, form}});
        const std::string example = std::string(help.example) + "\n";
        entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::OpcodeExample), {example, example}});
        if (help.flags != nullptr)
            entry.pieces.push_back({Piece::Kind::Text, InBoth(words::Flags), InBoth(*help.flags)});
        PutInPlace(entry, guide, NotesOf(guide, entry.id));
        entries.push_back(entry);
    }
    return entries;
}

} // namespace tolvane
