// The machine word by word: values and flags of every instruction, limits of stack and memory, the stops, and the
// services at their edges. The words of its messages are told by the transcripts.

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
#include <unistd.h>
#include <vector>

namespace tolvane::tests {

namespace {

constexpr int Ret = 0x8100;
constexpr int Exit = 0x8800;
constexpr int Far = 0x1000; // an address behind every program of these tests
constexpr int High = 0x7FFF0000;

// What a run has told: the row and its numbers.
struct Told {
    const Msg* row;
    std::vector<long long> numbers;
    bool operator==(const Told&) const = default;
};

class Machine {
public:
    std::string console;
    std::vector<Told> told;

    Machine(const std::vector<int>& words, const std::array<int, 8>& gr, const char* usedPipeline = "NWW")
        : pipeline(usedPipeline) {
        machine->InitComet2();
        std::copy(words.begin(), words.end(), machine->Memory.begin());
        machine->GR = gr;
        machine->ReservedWords = 0x2000;
    }
    explicit Machine(const std::vector<int>& words) : Machine(words, {}) {}
    Machine(Machine&&) = default;
    Machine& operator=(Machine&&) = default;
    ~Machine() {
        if (machine != nullptr) Idle().push_back(std::move(machine));
    }

    Tcomet2* operator->() { return machine.get(); }
    // The flags that are 1: O, S, Z.
    std::string Flags() const {
        const auto name = [](int flag, const char* letter) { return flag == 1 ? letter : ""; };
        return std::string(name(machine->Fovf, "O")) + name(machine->Fsign, "S") + name(machine->Fzero, "Z");
    }
    Machine& Run(int lang = 1) {
        modeFlags->Pipe = FindPipeline(pipeline);
        modeFlags->Lang = lang;
        store->ClearMsgStore();
        console::WriteTo(&console);
        machine->Run3();
        console::WriteTo(nullptr);
        modeFlags->Pipe = &DefaultPipeline();
        modeFlags->Lang = 1;
        for (const MsgRec& record : store->Records) {
            told.push_back({record.row, {}});
            for (const KeptArg& arg : record.args)
                told.back().numbers.push_back(arg.number);
        }
        store->ClearMsgStore();
        return *this;
    }

private:
    const char* pipeline;
    std::unique_ptr<Tcomet2> machine = Waiting();

    // Machines of a megabyte, of which a test may need hundreds one after the other.
    static std::vector<std::unique_ptr<Tcomet2>>& Idle() {
        static std::vector<std::unique_ptr<Tcomet2>> idle;
        return idle;
    }
    static std::unique_ptr<Tcomet2> Waiting() {
        if (Idle().empty()) return std::make_unique<Tcomet2>();
        std::unique_ptr<Tcomet2> waiting = std::move(Idle().back());
        Idle().pop_back();
        return waiting;
    }
};

// Runs a machine whose standard input holds some bytes.
void RunWithInput(Machine& m, const std::string& typed) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(write(ends[1], typed.data(), typed.size()), static_cast<ssize_t>(typed.size()));
    close(ends[1]);
    const int kept = dup(STDIN_FILENO);
    dup2(ends[0], STDIN_FILENO);
    close(ends[0]);
    m.Run();
    dup2(kept, STDIN_FILENO);
    close(kept);
}

} // namespace

TEST(Machine, OperationsStoreAndSetFlags) {
    struct Case {
        int gr;
        int operand; // a shift's is its count
        int value;   // all 32 bits
        const char* flags;
    };
    // By the code of the form with an address; the form with two registers is 4 more.
    const std::vector<std::pair<int, std::vector<Case>>> operations = {
        {0x10, {{5, 0, 0, "Z"}, {5, 0x8000, -32768, "S"}, {5, High | 7, 7, ""}}}, // LD, then ADDA to SUBL
        {0x20, {{32767, 1, -32768, "OS"}, {-32768, 0x8000, 0, "OZ"}, {0xFFFF, 1, 0, "Z"}, {High | 1, High | 2, 3, ""}}},
        {0x21, {{0x8000, 1, 32767, "O"}, {0, 0x8000, -32768, "OS"}, {3, High | 3, 0, "Z"}}},
        {0x22, {{0xFFFF, 1, 0, "OZ"}, {-1, 0xFFFF, 0xFFFE, "OS"}, {0x7FFF, 1, 0x8000, "S"}}},
        {0x23, {{0, 1, 0xFFFF, "OS"}, {-1, High | 1, 0xFFFE, "S"}, {9, 9, 0, "Z"}}},
        {0x30, {{-1, 0x8000, 0x8000, "S"}, {High, High, High, "Z"}}}, // AND, OR, XOR take the whole cells
        {0x31, {{-65536, 1, -65535, ""}, {0, 0x8000, 0x8000, "S"}}},
        {0x32, {{-1, 0xFFFF, -65536, "Z"}}},
        {0x40, {{0x8000, 1, 0x8000, "S"}, {-32768, 32767, -32768, "S"}, {32767, 0x8000, 32767, ""}}}, // CPA
        {0x40, {{0xFFFF, -1, 0xFFFF, "Z"}}},
        {0x41, {{0x8000, 1, 0x8000, ""}, {0, 0xFFFF, 0, "S"}, {-1, 0xFFFF, -1, "Z"}}},      // CPL
        {0x50, {{0x4000, 0, 0x4000, ""}, {0x4000, 1, 0, "OZ"}, {0xC000, 1, -32768, "OS"}}}, // SLA
        {0x50, {{0x8001, 14, -16384, "S"}, {1, 15, 0, "OZ"}, {0xFFFF, 16, -32768, "S"}, {0x7FFF, 65535, 0, "Z"}}},
        {0x51, {{0x8000, 0, -32768, "S"}, {High | 3, 1, 1, "O"}, {0x4000, 15, 0, "OZ"}, {0x8000, 15, -1, "S"}}}, // SRA
        {0x51, {{0x8000, 16, -1, "OS"}, {0x8000, 17, -1, "OS"}, {0x7FFF, 65535, 0, "Z"}}},
        {0x52, {{-1, 0, 0xFFFF, "S"}, {0x8000, 1, 0, "OZ"}, {3, 15, 0x8000, "OS"}, {1, 16, 0, "OZ"}}}, // SLL
        {0x52, {{2, 16, 0, "Z"}, {-1, 17, 0, "Z"}, {0xFFFF, 65535, 0, "Z"}}},
        {0x53, {{0x8000, 0, -32768, "S"}, {3, 1, 1, "O"}, {0x8000, 15, 1, ""}, {0x8000, 16, 0, "OZ"}}}, // SRL
        {0x53, {{0xFFFF, 17, 0, "Z"}, {-1, 65535, 0, "Z"}}},
    };
    for (const auto& [code, cases] : operations) {
        for (const Case& c : cases) {
            for (bool oneWord : {false, true}) {
                SCOPED_TRACE(testing::Message() << std::hex << code << ": " << c.gr << ", " << c.operand);
                const bool isShift = code / 16 == 5; // it has no form with two registers
                if (isShift && oneWord) continue;
                Machine m({oneWord ? (code + 4) << 8 | 0x34 : code << 8 | 0x30, isShift ? c.operand : Far, Ret},
                          {0, 0, 0, c.gr, c.operand});
                if (oneWord) m->Memory[1] = Ret;
                m->Memory[Far] = c.operand;
                m->Fovf = 1;
                EXPECT_EQ(m.Run()->GR[3], c.value);
                EXPECT_EQ(m.Flags(), c.flags);
                EXPECT_EQ(m->PR, oneWord ? 1 : 2);
            }
        }
    }
}

TEST(Machine, JumpsLookAtFlagsAndLeaveThem) {
    for (const auto& [o, s, z] : {std::array{0, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 0, 0}, {1, 1, 0}, {1, 0, 1}}) {
        const bool taken[] = {s == 1, z == 0, z == 1, true, s + z == 0, o == 1}; // JMI to JOV
        for (int code = 0x61; code <= 0x66; ++code) {
            SCOPED_TRACE(testing::Message() << std::hex << code << " " << o << s << z);
            Machine m({code << 8 | 0x03, Far - 7, Ret}, {0, 0, 0, High | 7});
            m->Memory[Far] = Ret;
            m->Fovf = o;
            m->Fsign = s;
            m->Fzero = z;
            EXPECT_EQ(m.Run()->PR, taken[code - 0x61] ? Far : 2);
            EXPECT_EQ((std::array{m->Fovf, m->Fsign, m->Fzero}), (std::array{o, s, z}));
        }
    }
}

TEST(Machine, AddressesAndStores) {
    Machine m({0x1213, 0xFFFF, 0x1220, 5, 0x1140, 0xFFFF, 0x1145, Far, Ret}, {99, 0, 0, -1, -2, High | 1});
    m->Fovf = m->Fsign = 1;
    m.Run();
    EXPECT_EQ(m->GR[1], 0xFFFE) << "an index of -1 is 65535, and the sum wraps around";
    EXPECT_EQ(m->GR[2], 5) << "GR0 is no index register";
    EXPECT_EQ(m->Memory[0xFFFF], -2) << "a store without index register is not watched";
    EXPECT_EQ(m->Memory[Far + 1], -2);
    EXPECT_EQ(m.Flags(), "OS");
    EXPECT_TRUE(m.told.empty());

    Machine rewriting({0x1110, 2, 0x7FFF, 42, Ret}, {0, 0x1260}); // ST puts LAD GR6 behind itself
    EXPECT_EQ(rewriting.Run()->GR[6], 42);
}

TEST(Machine, CountsFirstWordsThatAreExecuted) {
    Machine m({0x1210, 3, 0x2110, 6, 0x6200, 2, 1, Ret}); // LAD GR1,3; SUBA GR1,one; JNZ back; no NOP
    m->RunCount[2] = m->RunCount[64999] = m->RunCount[65000] = 77;
    m.Run();
    EXPECT_EQ(std::vector<int>(m->RunCount.begin(), m->RunCount.begin() + 8), (std::vector{1, 0, 3, 0, 3, 0, 1, 0}));
    EXPECT_EQ((std::array{m->RunCount[64999], m->RunCount[65000]}), (std::array{0, 77})) << "the last is not cleared";
    EXPECT_EQ(Machine({0x1290, 0}).Run()->RunCount[0], 0) << "the register check comes before the count";

    Machine array({0, Ret}, {}, "NH"); // clears none
    array->RunCount[0] = 4;
    array->RunCount[1] = std::numeric_limits<int>::max();
    array.Run();
    EXPECT_EQ((std::array{array->RunCount[0], array->RunCount[1]}), (std::array{5, std::numeric_limits<int>::min()}));
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
            SCOPED_TRACE(name + " " + std::to_string(nibbles));
            const bool refused = nibbles != 0 && !isIn(nibbles == 0x80 ? withoutR : withoutX);
            const Msg* row = isIn(codes) ? nullptr : &MachineMsg.UnknownCode;
            if (code == 0 && nibbles != 0) row = &MachineMsg.NotANop;
            if (refused) row = &MachineMsg.BadRegister;
            Machine m({code << 8 | nibbles, 2, Exit}, {Exit});
            m->Memory[1] = code == 0 || code == 0x71 || (code / 16 < 5 && code % 16 > 3) ? Exit : 2;
            m.Run();
            EXPECT_EQ(m.told.empty() ? nullptr : m.told[0].row, row) << m.console;
        }
    }
}

TEST(Machine, Stops) {
    struct Stop {
        std::vector<int> words;
        int pr;
        Told told;
        int sp = 65535;
        const char* pipeline = "NWW";
    };
    const Stop stops[] = {
        {{0x6400, 65001}, 65001, {&MachineMsg.PrBeyondMemory, {65000, 65001}}},
        {{0x8000, 64999},
         65001,
         {&MachineMsg.PrBeyondMemory, {65000, 65001}},
         65534},                                                   // to the routine that stands below
        {{}, 65001, {&MachineMsg.PrBeyondMemory, {65000, 65001}}}, // slides over its zeros
        {{}, 3501, {&MachineMsg.PrBeyondMemory, {3500, 3501}}, 65535, "NH"},
        {{-65536}, 0, {&MachineMsg.NotANop, {-65536, 0}}}, // 0 in its low half
        {{0, 0x1112, 64998}, 2, {&MachineMsg.StoreBeyondMemory, {65000, 1}}},
        {{0x1112, 3498}, 1, {&MachineMsg.StoreBeyondMemory, {3500, 0}}, 65535, "NH"},
        {{0x8000, 2, 0x7110, Ret}, 3, {&MachineMsg.ReturnWithoutStack, {65536}}, 65536},
        {{0x7000, 0xABCD, 0x6400, 0}, 1, {&MachineMsg.StackFull, {0}}, 65535 - 501}, // PUSH, CALL, both
        {{0x8000, 0}, 1, {&MachineMsg.StackFull, {0}}, 65535 - 501},
        {{0, 0x7000, 7, 0x8000, 1}, 2, {&MachineMsg.StackFull, {1}}, 65535 - 501},
    };
    for (const Stop& stop : stops) {
        Machine m(stop.words, {0, 0, 2}, stop.pipeline);
        m->ReservedWords = 20;
        m.Run();
        EXPECT_EQ(m.told, std::vector{stop.told}) << m.console;
        EXPECT_EQ(m->PR, stop.pr);
        EXPECT_EQ(m->SP, stop.sp);
    }
}

TEST(Machine, MemoryOperandsReachTheLastAddress) {
    for (int code : {0x10, 0x20, 0x21, 0x22, 0x23, 0x30, 0x31, 0x32, 0x40, 0x41}) {
        for (const auto& [pipeline, last] : {std::pair{"NWW", 65000}, {"NH", 3500}}) {
            // The word is read, and then it is executed.
            Machine reads({code << 8 | 0x01, last - 1, 0x6400, last}, {0, 1}, pipeline);
            reads->Memory[static_cast<std::size_t>(last)] = Exit;
            EXPECT_TRUE(reads.Run().told.empty());
            EXPECT_EQ(reads->PR, last + 1);
            Machine stops({code << 8 | 0x01, last, Ret}, {0, 1}, pipeline);
            EXPECT_EQ(stops.Run().told.at(0).row, &MachineMsg.OperandBeyondMemory);
            EXPECT_EQ(stops->PR, 1);
        }
    }
    Machine m({0x6400, 3, 0, 0x1012, 64999}, {0, 0, 2}); // the words are told, the cell by the address word alone
    m->Memory[64999] = -2;
    EXPECT_EQ(m.Run().told.at(1).numbers, (std::vector<long long>{3, 3, 0x1012, 4, 4, 64999}));
    EXPECT_EQ(m.told.at(2).numbers, (std::vector<long long>{-537, 0xFFFE, -2}));
}

TEST(Machine, StoresBehindTheImage) {
    const auto run = [](const std::vector<int>& words, const char* pipeline, int lang = 1) {
        Machine m(words, {0, 66, 2}, pipeline);
        m->ReservedWords = 8;
        return std::move(m.Run(lang));
    };
    // To the last reserved word, then twice behind it: one warning. The Japanese text names the last address.
    Machine m = run({0x1112, 5, 0x1112, 6, 0x1112, 7, Ret, 0}, "NWW");
    EXPECT_EQ(m.told, (std::vector<Told>{{&MachineMsg.StoreWarning, {8, 8, 2, 0x1112, 1}}}));
    EXPECT_EQ((std::array{m->Memory[7], m->Memory[8], m->Memory[9]}), (std::array{66, 66, 66}));
    EXPECT_EQ(run({0x1112, 6, Ret}, "NWW", 0).told.at(0).numbers[0], 7);
    EXPECT_EQ(run({0x1112, 64997, Ret}, "NWW").told.at(0).row, &MachineMsg.StoreWarning);

    // In the array pipeline a store to 3500 itself is refused only as long as none has been warned of.
    m = run({0x1112, 3497, 0x1112, 3498, 0x1112, 3499, Ret}, "NH");
    EXPECT_EQ(m.told, (std::vector<Told>{{&MachineMsg.StoreWarning, {8, 3499, 0, 0x1112, 1}},
                                         {&MachineMsg.StoreBeyondMemory, {3500, 4}}}));
    EXPECT_EQ(m->Memory[3500], 66);

    // ADDA GR2,one; ST GR1,0,GR2; CPA GR2,last; JNZ back
    Machine loop({0x2020, 10, 0x1112, 100, 0x4020, 11, 0x6200, 0, Ret, 0, 1, 30});
    loop->ReservedWords = 122;
    EXPECT_EQ(loop.Run().told, (std::vector<Told>{{&MachineMsg.StoreWarning, {122, 122, 2, 0x1112, 22}}}));
}

TEST(Machine, CallReturnPushPop) {
    struct Case {
        std::vector<int> words;
        std::array<int, 7> after; // PR, SP, OS, Stack[0], Stack[1], Stack[2], GR1
    };
    const Case cases[] = {
        {{0x8000, 4, Exit, 0, 0x7002, 0xFFFC, 0x7110, Ret}, {3, 65535, 0, 0, 2, 0xFFFE, 0xFFFE}}, // PUSH, POP, RET
        {{0x8000, 4, Exit, 0, 0x7000, 8, Ret, 0, Exit}, {9, 65534, 0, 0, 2, 8, 7}}, // the word on top is where RET goes
        {{0x8000, 3, 0, Exit}, {4, 65534, 1, 0, 2, 0, 7}},
        {{0x7000, 9, Ret}, {2, 65534, 0, 0, 9, 0, 7}}, // without a CALL, RET ends the run whatever stands on top
        {{0x7130, 0x7110, 0x7000, 7, 0x7000, 8, 0x7000, 9, Ret}, {8, 65534, 0, 8, 9, 0, 0}}, // above the bottom first
    };
    for (const Case& c : cases) {
        Machine m(c.words, {0, 7, 2});
        m.Run();
        EXPECT_EQ((std::array{m->PR, m->SP, m->OS, m->Stack[0], m->Stack[1], m->Stack[2], m->GR[1]}), c.after);
    }
}

TEST(Machine, Out) {
    struct Case {
        std::vector<int> words;
        int length;
        const char* text;
        int at = Far;
        const char* pipeline = "NWW";
    };
    const Case cases[] = {
        {{'A', 0x65E5, -65536 | 'B'}, 3, "A日B"},
        {{0xD842, 0xDFB7, 0xDFB7, 0xD842}, 4, "𠮷\uFFFD\uFFFD"},
        {{'a', 7, '\n', 'b'}, 4, "a\a\nb"},
        {{'A'}, -5, ""},
        {{'x', 'y', 'z'}, 0x7FFFFFFF, "xy", 65534},
        {{0x93, 0xFA, 0xB1, 0x65E5, 0x93, 0x65E5}, 6, "日ｱ日・日", Far, "NA"}, // bytes are joined, a unit is one
    };
    for (const Case& c : cases) {
        Machine m({0xF003, 0xFFFF, Ret}, {0, High | c.at, High | 8, 3}, c.pipeline); // service 2 by its index
        std::copy(c.words.begin(), c.words.end(), m->Memory.begin() + c.at);
        m->Memory[8] = c.length;
        const std::string shown = TextOf(MachineMsg.OutHead) + c.text + "\n" + TextOf(MachineMsg.End);
        EXPECT_NE(m.Run().console.find(shown), npos) << m.console;
    }
}

TEST(Machine, In) {
    struct Case {
        std::string typed;
        int length;
        int first;
        int second = 'y'; // the next IN takes the next line
    };
    const Case cases[] = {
        {"", 0, 9, 9}, // the end of the input, twice
        {"\ny\n", 0, 9},
        {"ab\r\ny", 2, 'a'},
        {"日𠮷\ny\n", 3, 0x65E5},
        {std::string("a\0b\ny\n", 6), 1, 'a'},
        {"a\xFF\ny\n", 0, 9},
        {std::string(256, 'x') + "\xFF\ny\n", 256, 'x'}, // what does not count may be anything
        {std::string(2000, 'x') + "\ny\n", 256, 'x'},
        {"x" + Utf8(TextW(128, u'日')) + "\ny\n", 128, 'x'}, // two bytes each, none cut in half
        {Utf8(TextW(129, u'é')) + "\ny\n", 128, u'é'},
        {Utf8(TextW(127, u'日')) + "x𠮷\ny\n", 128, 0x65E5},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.typed);
        Machine m({0xF000, 1, 0x1040, Far - 1, 0x1210, 2 * Far, 0xF000, 1, Ret}, // IN; LD GR4; LAD GR1; IN
                  {0, High | Far, High | (Far - 1)});
        m->Memory[Far] = m->Memory[Far + 256] = m->Memory[2 * Far] = 9;
        RunWithInput(m, c.typed);
        EXPECT_EQ(m->GR[4], c.length);
        EXPECT_EQ(m->Memory[Far], c.first);
        EXPECT_EQ(m->Memory[Far + 256], 9);
        EXPECT_EQ(m->Memory[2 * Far], c.second);
        EXPECT_EQ(m.console.find(TextOf(MachineMsg.InNotConverted)) != npos, c.typed[0] == 'a' && c.length == 0);
    }
    Machine edge({0xF000, 1, Ret}, {0, 65535, Far});
    RunWithInput(edge, "ab");
    EXPECT_EQ((std::array{edge->Memory[65535], edge->Memory[65536], edge->Memory[Far]}),
              (std::array<int, 3>{'a', 0, 2}));
}

} // namespace tolvane::tests
