// The machine word by word: values and flags of every operation, limits of stack and memory, the stops, the services at
// their edges, limited and traced runs. The words of its messages are told by the transcripts.

#include "machine/MachineMsgs.h"
#include "machine/Tcomet2.h"
#include "messages/TMsgStore.h"
#include "platform/Console.h"
#include "text/Convert.h"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <string>
#include <vector>

namespace tolvane::tests {

namespace {

constexpr int Ret = 0x8100;
constexpr int Exit = 0x8800;
constexpr int Far = 0x1000; // an address behind every program of these tests
constexpr int High = 0x7FFF0000;

// What a run has told: the row and its numbers.
using Told = std::pair<const Msg*, std::vector<long long>>;

class Machine {
public:
    std::vector<Told> told;
    std::vector<MachineIo::Line> typed; // for IN
    std::size_t reads = 0;
    std::string written; // by OUT

    explicit Machine(const std::vector<int>& words, const std::array<int, 8>& gr = {}, const char* pipeline = "NWW")
        : pipe(FindPipeline(pipeline)) {
        std::copy(words.begin(), words.end(), machine->Memory.begin());
        machine->GR = gr;
        machine->ReservedWords = 0x2000;
        machine->Io = &io;
    }
    Tcomet2* operator->() { return machine.get(); }
    // The flags that are 1: O, S, Z.
    std::string Flags() const {
        const Tcomet2& m = *machine;
        return std::string(m.Fovf == 1 ? "O" : "") + (m.Fsign == 1 ? "S" : "") + (m.Fzero == 1 ? "Z" : "");
    }
    Stop Run(std::int64_t limit = 0, const Observer& observe = nullptr) {
        std::string console;
        console::WriteTo(&console);
        modeFlags->Pipe = pipe;
        store->ClearMsgStore();
        const Stop stop = observe ? machine->RunTraced(limit, observe) : machine->RunLimited(limit);
        for (const MsgRec& record : store->Records) {
            told.push_back({record.row, {}});
            for (const KeptArg& arg : record.args)
                told.back().second.push_back(arg.number);
        }
        store->ClearMsgStore();
        modeFlags->Pipe = &DefaultPipeline();
        console::WriteTo(nullptr);
        return stop;
    }

private:
    const Pipeline* pipe;
    std::unique_ptr<Tcomet2> machine = std::make_unique<Tcomet2>();
    const MachineIo io = {[](void* self, const std::string& line) { static_cast<Machine*>(self)->written += line; },
                          [](void* self, std::size_t) {
                              Machine& m = *static_cast<Machine*>(self);
                              return m.reads++ < m.typed.size() ? std::optional(m.typed[m.reads - 1]) : std::nullopt;
                          },
                          [](void*, const Msg&, Args) {}, this};
};

} // namespace

// The books tell the words and the flags; here are the high halves of cells and the far counts of shifts.
TEST(Machine, OperationsTakeWordsAndStoreCells) {
    struct Case {
        int gr;
        int operand; // a shift's is its count
        int value;   // all 32 bits
        const char* flags;
    };
    // By the code of the form with an address; the form with two registers is 4 more.
    const std::vector<std::pair<int, std::vector<Case>>> operations = {
        {0x10, {{5, 0x8000, -32768, "S"}, {5, High | 7, 7, ""}}}, // LD, then ADDA to SUBL
        {0x20, {{32767, 1, -32768, "OS"}, {-32768, 0x8000, 0, "OZ"}, {High | 1, High | 2, 3, ""}}},
        {0x21, {{0x8000, 1, 32767, "O"}, {0, 0x8000, -32768, "OS"}, {3, High | 3, 0, "Z"}}},
        {0x22, {{0xFFFF, 1, 0, "OZ"}, {-1, 0xFFFF, 0xFFFE, "OS"}, {0x7FFF, 1, 0x8000, "S"}}},
        {0x23, {{0, 1, 0xFFFF, "OS"}, {-1, High | 1, 0xFFFE, "S"}}},
        {0x30, {{-1, 0x8000, 0x8000, "S"}, {High, High, High, "Z"}}}, // AND, OR, XOR take the whole cells
        {0x31, {{-65536, 1, -65535, ""}}},
        {0x32, {{-1, 0xFFFF, -65536, "Z"}}},
        {0x40, {{-32768, 32767, -32768, "S"}, {32767, 0x8000, 32767, ""}, {0xFFFF, -1, 0xFFFF, "Z"}}},           // CPA
        {0x41, {{0x8000, 1, 0x8000, ""}, {0, 0xFFFF, 0, "S"}, {-1, 0xFFFF, -1, "Z"}}},                           // CPL
        {0x50, {{0x4000, 0, 0x4000, ""}, {0x8001, 14, -16384, "S"}, {-1, 16, -32768, "S"}, {1, 65535, 0, "Z"}}}, // SLA
        {0x51, {{0x8000, 0, -32768, "S"}, {High | 3, 1, 1, "O"}, {0x8000, 17, -1, "OS"}, {1, 65535, 0, "Z"}}},   // SRA
        {0x52, {{-1, 0, 0xFFFF, "S"}, {3, 15, 0x8000, "OS"}, {-1, 17, 0, "Z"}, {1, 65535, 0, "Z"}}},             // SLL
        {0x53, {{0x8000, 0, -32768, "S"}, {-1, 1, 0x7FFF, "O"}, {-1, 17, 0, "Z"}, {-1, 65535, 0, "Z"}}},         // SRL
    };
    for (const auto& [code, cases] : operations) {
        for (const Case& c : cases) {
            for (const bool oneWord : {false, true}) {
                SCOPED_TRACE(testing::Message() << std::hex << code << ": " << c.gr << ", " << c.operand);
                const bool isShift = code >= 0x50; // it has no form with two registers
                if (isShift && oneWord) continue;
                Machine m({oneWord ? (code + 4) << 8 | 0x34 : code << 8 | 0x30, isShift ? c.operand : Far, Ret},
                          {0, 0, 0, c.gr, c.operand});
                if (oneWord) m->Memory[1] = Ret;
                m->Memory[Far] = c.operand;
                m->Fovf = 1;
                m.Run();
                EXPECT_EQ(m->GR[3], c.value);
                EXPECT_EQ(m.Flags(), c.flags);
                EXPECT_EQ(m->PR, oneWord ? 1 : 2);
            }
        }
    }
}

TEST(Machine, AddressesAndStores) {
    Machine m({0x1213, 0xFFFF, 0x1220, 5, 0x1140, 0xFFFF, 0x1145, Far, 0x1170, 10, 0x7FFF, 42, Ret},
              {99, 0, 0, -1, -2, High | 1, 0, 0x1260});
    m->Fovf = m->Fsign = 1;
    m.Run();
    EXPECT_EQ(m->GR[1], 0xFFFE) << "an index of -1 is 65535, and the sum wraps around";
    EXPECT_EQ(m->GR[2], 5) << "GR0 is no index register";
    EXPECT_EQ(m->Memory[0xFFFF], -2) << "a store without index register is not watched";
    EXPECT_EQ(m->Memory[Far + 1], -2);
    EXPECT_EQ(m->GR[6], 42) << "a LAD that was stored in front of its turn";
    EXPECT_EQ(m.Flags(), "OS");
    EXPECT_EQ(m.told, std::vector<Told>{});
}

TEST(Machine, CountsFirstWordsThatAreExecuted) {
    Machine m({0x1210, 3, 0x2110, 6, 0x6200, 2, 1, Ret}); // LAD GR1,3; SUBA GR1,one; JNZ back; no NOP
    m->RunCount[2] = m->RunCount[64999] = m->RunCount[65000] = 77;
    m.Run();
    EXPECT_EQ(std::vector<int>(m->RunCount.begin(), m->RunCount.begin() + 8), (std::vector{1, 0, 3, 0, 3, 0, 1, 0}));
    EXPECT_EQ((std::array{m->RunCount[64999], m->RunCount[65000]}), (std::array{0, 77})) << "the last is not cleared";

    Machine array({0, 0x1290, 0}, {}, "NH"); // clears none
    array->RunCount[0] = std::numeric_limits<int>::max();
    array.Run();
    EXPECT_EQ((std::array{array->RunCount[0], array->RunCount[1]}), (std::array{std::numeric_limits<int>::min(), 0}))
        << "the register check comes before the count";
}

// Every code with both registers sound, with r above 7 and with x above 7.
TEST(Machine, CodesAndTheNibblesThatTheyUse) {
    const std::string codes = "00 10 11 12 14 20 21 22 23 24 25 26 27 30 31 32 34 35 36 40 41 44 45 50 51 52 53 "
                              "61 62 63 64 65 66 70 71 80 81 88 F0";
    const std::string withoutR = "00 61 62 63 64 65 66 70 80 81 F0";
    const std::string withoutX = "00 71 81";
    for (int code = 0; code <= 0xFF; ++code) {
        const std::string name = {"0123456789ABCDEF"[code / 16], "0123456789ABCDEF"[code % 16]};
        const auto isIn = [&name](const std::string& list) { return list.find(name) != std::string::npos; };
        for (int nibbles : {0, 0x80, 0x08}) {
            const Msg* row = isIn(codes) ? nullptr : &MachineMsg.UnknownCode;
            if (code == 0 && nibbles != 0) row = &MachineMsg.NotANop;
            if (nibbles != 0 && !isIn(nibbles == 0x80 ? withoutR : withoutX)) row = &MachineMsg.BadRegister;
            Machine m({code << 8 | nibbles, 2, Exit}, {Exit});
            m->Memory[1] = code == 0 || code == 0x71 || (code / 16 < 5 && code % 16 > 3) ? Exit : 2;
            m.Run();
            EXPECT_EQ(m.told.empty() ? nullptr : m.told[0].first, row) << name << " " << nibbles;
        }
    }
}

TEST(Machine, EndsAndStops) {
    struct Case {
        std::vector<int> words;
        std::array<int, 3> after; // PR, SP, GR1
        std::vector<Told> told = {};
    };
    const Told beyond = {&MachineMsg.PrBeyondMemory, {65000, 65001}};
    const Case cases[] = {
        {{0x8000, 4, Exit, 0, 0x7002, 0xFFFC, 0x7110, Ret}, {3, 65535, 0xFFFE}}, // PUSH, POP, RET, EXIT
        {{0x8000, 4, Exit, 0, 0x7000, 8, Ret, 0, Exit}, {9, 65534, 7}},          // the word on top is where RET goes
        {{0x7000, 9, Ret}, {2, 65534, 7}}, // without a CALL, RET ends the run whatever stands on top
        {{0x7130, 0x7110, 0x7000, 7, 0x7000, 8, 0x7110, 0x7130, Ret}, {8, 65537, 8}}, // POP and PUSH above the bottom
        {{0x6400, 65001}, {65001, 65535, 7}, {beyond}},
        {{0x8000, 64999}, {65001, 65534, 7}, {beyond}},                  // to the routine that stands below
        {{}, {65001, 65535, 7}, {beyond}},                               // slides over its zeros
        {{-65536}, {0, 65535, 7}, {{&MachineMsg.NotANop, {-65536, 0}}}}, // 0 in its low half
        {{0, 0x1112, 64998}, {2, 65535, 7}, {{&MachineMsg.StoreBeyondMemory, {65000, 1}}}},
        {{0x8000, 2, 0x7110, Ret}, {3, 65536, 2}, {{&MachineMsg.ReturnWithoutStack, {65536}}}},
        {{0x7000, 0xABCD, 0x6400, 0}, {1, 65535 - 501, 7}, {{&MachineMsg.StackFull, {0}}}}, // PUSH, CALL, both
        {{0, 0x7000, 7, 0x8000, 1}, {2, 65535 - 501, 7}, {{&MachineMsg.StackFull, {1}}}},
    };
    for (const Case& c : cases) {
        Machine m(c.words, {0, 7, 2});
        m.Run();
        EXPECT_EQ(m.told, c.told);
        EXPECT_EQ((std::array{m->PR, m->SP, m->GR[1]}), c.after);
    }
}

TEST(Machine, MemoryOperandsReachTheLastAddress) {
    for (int code : {0x10, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x40, 0x41}) {
        for (const auto& [pipeline, last] : {std::pair{"NWW", 65000}, {"NH", 3500}}) {
            // The word is read, and then it is executed.
            Machine m({code << 8 | 0x01, last - 1, 0x6400, last}, {0, 1}, pipeline);
            m->Memory[static_cast<std::size_t>(last)] = Exit;
            EXPECT_EQ(m.Run(), Stop::End);
            EXPECT_EQ(m->PR, last + 1);
            m->Memory[1] = last;
            m->GR[1] = 1;
            EXPECT_EQ(m.Run(), Stop::OperandBeyondMemory);
            EXPECT_EQ(m->FaultAddress(Stop::OperandBeyondMemory), 0);
        }
    }
}

TEST(Machine, StoresBehindTheImage) {
    // To the last reserved word, then behind it: one warning. In the array pipeline a store to 3500 itself is refused
    // only as long as none has been warned of.
    for (const char* pipeline : {"NWW", "NH"}) {
        Machine m({0x1112, 7, 0x1112, 3497, 0x1112, 3498, 0x1112, 3499, Ret}, {0, 66, 2}, pipeline);
        m->ReservedWords = 10;
        m.Run();
        std::vector<Told> told = {{&MachineMsg.StoreWarning, {10, 3499, 2, 0x1112, 1}}};
        if (pipeline == std::string("NH")) told.push_back({&MachineMsg.StoreBeyondMemory, {3500, 6}});
        EXPECT_EQ(m.told, told);
        EXPECT_EQ((std::array{m->Memory[9], m->Memory[3499], m->Memory[3500]}), (std::array{66, 66, 66}));
    }
    // The first word behind the image, in the 22nd turn. ADDA GR2,one; ST GR1,0,GR2; CPA GR2,last; JNZ back
    Machine loop({0x2020, 10, 0x1112, 100, 0x4020, 11, 0x6200, 0, Ret, 0, 1, 30});
    loop->ReservedWords = 122;
    loop.Run();
    EXPECT_EQ(loop.told, (std::vector<Told>{{&MachineMsg.StoreWarning, {122, 122, 2, 0x1112, 22}}}));
}

TEST(Machine, OutStopsAtTheLastAddress) {
    Machine m({0xF003, 0xFFFF, Ret}, {0, High | 65534, High | 8, 3}); // service 2 by its index
    m->Memory[65534] = -65536 | 'x';
    m->Memory[65535] = m->Memory[65536] = 0x65E5;
    m->Memory[8] = 0x7FFFFFFF;
    m.Run();
    EXPECT_EQ(m.written, "x日\n");
}

TEST(Machine, InStoresWhatFits) {
    const std::string wide = Utf8(TextW(127, u'日'));
    const std::tuple<std::string, int, int> cases[] = {
        {std::string("a\0b", 3), 1, 'a'},
        {std::string(256, 'x') + "\xFF", 256, 'x'}, // what does not count may be anything
        {Utf8(TextW(129, u'é')), 128, u'é'},        // two bytes each
        {wide + "𠮷", 129, 0x65E5},                 // none is cut in half
        {wide + "x𠮷", 128, 0x65E5},
    };
    for (const auto& [typed, length, first] : cases) {
        Machine m({0xF000, 1, Ret}, {0, High | Far, High | (Far - 1)});
        m->Memory[Far + 256] = 9;
        m.typed = {{typed, std::min<std::size_t>(typed.size(), typed.ends_with("\xFF") ? 256 : 999)}};
        m.Run();
        EXPECT_EQ((std::array{m->Memory[Far - 1], m->Memory[Far], m->Memory[Far + 256]}),
                  (std::array{length, first, 9}));
        EXPECT_EQ(m.told, std::vector<Told>{});
    }
    Machine edge({0xF000, 1, Ret}, {0, 65535, Far});
    edge.typed = {{"ab", 2}};
    std::string written;
    edge.Run(0, [&](const Step& step) {
        for (const Step::Stretch& stretch : step.written)
            written += std::to_string(stretch.first) + "+" + std::to_string(stretch.cells) + " ";
    });
    EXPECT_EQ((std::array{edge->Memory[65535], edge->Memory[65536], edge->Memory[Far]}), (std::array{97, 0, 2}));
    EXPECT_EQ(written, "4096+1 65535+1 0+0 0+0 ") << "of IN and RET, as a trace shows them";

    Machine endless({0x1210, 30, 0x1220, 20, 0xF000, 1, 0x6400, 4}); // IN, JUMP back
    endless.typed = {{"a", 1}, {"b", 1}};
    EXPECT_EQ(endless.Run(1'000'000), Stop::InputEnded);
    EXPECT_EQ(endless.reads, 1002U);
}

TEST(Machine, LimitsCountInstructionsAndTracesShowThem) {
    const std::tuple<std::vector<int>, Stop, int, int> cases[] = {
        {{0x1210, 1, 0x6400, 0}, Stop::LimitReached, 2, 3}, // PR is at what was not executed
        {{0x1210, 1, 0x1220, 2, Ret}, Stop::End, 4, 3},
        {{0x6400, 65001}, Stop::PrBeyondMemory, 65001, 1}, // it has been executed,
        {{0x1289}, Stop::BadRegister, 0, 0},               // but one that is refused has not
    };
    for (const auto& [words, stop, pr, steps] : cases) {
        int traced = 0;
        for (const Observer& observe : {Observer(), Observer([&traced](const Step&) { ++traced; })}) {
            Machine m(words);
            EXPECT_EQ(m.Run(3, observe), stop);
            EXPECT_EQ(m->PR, pr);
        }
        EXPECT_EQ(traced, steps);
    }
}

} // namespace tolvane::tests
