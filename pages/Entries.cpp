#include "Entries.h"

#include "Assemble.h"
#include "PageWords.h"
#include "messages/Pipeline.h"
#include "run/RunMsgs.h"
#include "text/Text.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <numeric>
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
        const auto* const head = std::ranges::find_if(Heads, [&](const char* each) { return text.starts_with(each); });
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
        if (std::ranges::find(texts, text) == texts.end()) texts.push_back(text);
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

Example ExampleOf(const Msg* row, const Case& c, const char* pipeline, const Assembly& a, std::size_t rows) {
    const auto record = std::ranges::find(a.said, row, &MsgRec::row);
    const bool queued = row->ofOperands && !FindPipeline(pipeline)->printsOperandsAtOnce;
    return {&c, pipeline, rows, record->severity, record->place.line, !queued || a.counters[0] > 0};
}

// The one of which the fewest rows are said; of several, one of whose own line it is said, under the rule where it is
// said most often, in the shortest source.
const Example& BestOf(const std::vector<Example>& examples) {
    const auto sameRule = [&](const Example& example) {
        return std::ranges::count_if(examples, [&](const Example& e) { return e.c->rule == example.c->rule; });
    };
    return *std::ranges::min_element(examples, {}, [&](const Example& example) {
        return std::tuple(example.rows, example.line != LineInFrame(*example.c), -sameRule(example),
                          SourceOf(*example.c).size());
    });
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
        const auto alike = std::ranges::mismatch(faulty, c.source[0]).in1 - faulty.begin();
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

Entry EntryOf(const Msg& row, const Example& example, const std::vector<const Case*>& sound) {
    const Wording wording = FindPipeline(example.pipeline)->wording;
    const auto words = [&](int language) { return TitleOf(WordsOf(row.For(language, wording))); };
    const bool ofRun = NameOf(row).starts_with("MachineMsg.") && example.severity == Severity::Error;
    Entry entry{&row, NameOf(row), InBoth(words), {}, {}, {}, {}};
    entry.severity = InBoth(ofRun ? words::Stop : words::Severities[static_cast<int>(example.severity)]);

    entry.pieces.push_back({Piece::Kind::Text, {}, {example.c->rule.at(1), example.c->rule.at(0)}});
    const bool inWP = std::string(example.pipeline) == "WP";
    const auto heading = [&](int l) {
        return inWP ? words::Example[l]
                    : Cat(words::Example[l], words::Pipeline[l], example.pipeline, words::PipelineEnd[l]);
    };
    const auto said = [&](int l) { return Said(AssembleCase(*example.c, example.pipeline, l)); };
    const std::string source = SourceText(SourceOf(*example.c));
    const bool cut = SourceOf(*example.c).size() > MostLines;
    entry.pieces.push_back({Piece::Kind::Source, InBoth(heading), {source, source}, cut ? -1 : example.line});
    entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Output), InBoth(said)});
    if (!example.shownByConsole) entry.pieces.push_back({Piece::Kind::Text, {}, InBoth(words::NotShown)});
    if (const std::string twin = SoundTwin(example, sound); !twin.empty())
        entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Sound), {twin, twin}});
    const Pair others = InBoth([&](int language) { return OtherWordings(row, language, wording); });
    if (!Cat(others[0], others[1]).empty()) entry.pieces.push_back({Piece::Kind::Text, InBoth(words::Others), others});
    entry.sample = TrimZenBlankUtf8(Split(Unescaped(example.c->source[0]), '\n').at(0));
    return entry;
}

} // namespace

std::vector<Entry> EntriesOfBooks(const std::vector<Book>& books) {
    std::map<const Msg*, std::vector<Example>> examples;
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
                for (const Msg* row : rows)
                    if (!examples.contains(row)) found[row].push_back(ExampleOf(row, c, pipeline, a, rows.size()));
            }
        examples.merge(found);
    }
    std::vector<Entry> entries;
    std::array<std::map<std::string, int>, 2> titles;
    for (const Msg* row : AllRows())
        if (const auto at = examples.find(row); at != examples.end())
            entries.push_back(EntryOf(*row, BestOf(at->second), sound[at->second.front().pipeline]));
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
Pair Happened(const Strings& source) {
    return InBoth([&](int l) {
        const Assembly a = Assemble(source, *FindPipeline("WP"), l, Then::Run);
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

std::vector<Entry> EntriesOfFaults(const std::filesystem::path& file) {
    std::vector<Entry> entries;
    std::ifstream in(file);
    std::string japanese;
    for (std::string line; std::getline(in, line);) {
        if (line.empty() || line[0] == '#') continue;
        const std::string rest = line.substr(std::min<std::size_t>(2, line.size()));
        if (line.starts_with("= ")) {
            entries.push_back({});
            entries.back().id = rest;
            entries.back().severity = InBoth(words::Fault);
            std::getline(in, entries.back().title[1]);
            std::getline(in, entries.back().title[0]);
            continue;
        }
        if (entries.empty()) throw std::runtime_error(file.string() + ": " + line);
        Entry& entry = entries.back();
        if (line.starts_with("+ ")) {
            entry.keys += rest + " ";
        } else if (line == "faulty" || line == "sound") {
            Strings source;
            for (std::string code; std::getline(in, code) && !code.empty();)
                source.push_back(code);
            const std::string text = Joined(source);
            const auto& heading = line == "faulty" ? words::Example : words::SoundSource;
            entry.pieces.push_back({Piece::Kind::Source, InBoth(heading), {text, text}});
            entry.pieces.push_back({Piece::Kind::Verbatim, InBoth(words::Result), Happened(source)});
        } else {
            std::getline(in, japanese);
            entry.pieces.push_back({Piece::Kind::Text, {}, {japanese, line}});
        }
    }
    return entries;
}

} // namespace tolvane
