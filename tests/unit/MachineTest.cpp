// The machine word by word: values and flags of every instruction, limits of stack and memory, the stops.

#include "machine/Tcomet2.h"
#include "platform/Console.h"

#include <gtest/gtest.h>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

namespace tolvane::tests {

namespace {

constexpr int Ret = 0x8100;
constexpr int Far = 0x1000; // an address behind every program of these tests

class Machine {
public:
    Machine() : machine(std::make_unique<Tcomet2>()) {
        machine->ReservedWords = 0x2000;
        modeFlags->Pipe = &DefaultPipeline();
        modeFlags->Lang = 1;
    }
    explicit Machine(std::initializer_list<int> words) : Machine() { Put(0, words); }

    Tcomet2* operator->() { return machine.get(); }
    void Put(std::size_t address, std::initializer_list<int> words) {
        for (int word : words)
            machine->Memory[address++] = word;
    }
    // Runs and gives what the console shows.
    std::string Run() {
        console::Flush();
        testing::internal::CaptureStdout();
        machine->Run3();
        console::Flush();
        return testing::internal::GetCapturedStdout();
    }
    // The flags that are 1: O, S, Z.
    std::string Flags() const {
        return std::string(machine->Fovf == 1 ? "O" : "") + (machine->Fsign == 1 ? "S" : "") +
               (machine->Fzero == 1 ? "Z" : "");
    }
    void SetFlags(const std::string& flags) {
        machine->Fovf = flags.find('O') != std::string::npos;
        machine->Fsign = flags.find('S') != std::string::npos;
        machine->Fzero = flags.find('Z') != std::string::npos;
    }

private:
    std::unique_ptr<Tcomet2> machine;
};

bool Contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

bool SaysEnd(const std::string& console) {
    return Contains(console, "and it has come to an end of the program\nin ");
}

struct Operation {
    const char* name;
    int code; // of the memory form; the register form is 4 more
    int gr;
    int operand;
    int value; // all 32 bits
    const char* flags;
};

} // namespace

TEST(Machine, OperationsStoreAndSetFlags) {
    const int high = 0x7FFF0000;
    const std::vector<Operation> operations = {
        {"LD", 0x10, 5, 0, 0, "Z"},
        {"LD", 0x10, 5, 0x8000, -32768, "S"},
        {"LD, low half", 0x10, 5, high | 7, 7, ""},
        {"ADDA", 0x20, 32767, 1, -32768, "OS"},
        {"ADDA", 0x20, -32768, 0x8000, 0, "OZ"},
        {"ADDA", 0x20, 0xFFFF, 1, 0, "Z"},
        {"ADDA, low half", 0x20, high | 1, high | 2, 3, ""},
        {"SUBA", 0x21, 0x8000, 1, 32767, "O"},
        {"SUBA", 0x21, 0, 0x8000, -32768, "OS"},
        {"SUBA", 0x21, 3, 3, 0, "Z"},
        {"ADDL", 0x22, 0xFFFF, 1, 0, "OZ"},
        {"ADDL", 0x22, -1, 0xFFFF, 0xFFFE, "OS"},
        {"ADDL", 0x22, 0x7FFF, 1, 0x8000, "S"},
        {"SUBL", 0x23, 0, 1, 0xFFFF, "OS"},
        {"SUBL", 0x23, -1, 1, 0xFFFE, "S"},
        {"SUBL", 0x23, 9, 9, 0, "Z"},
        {"AND", 0x30, -1, 0x8000, 0x8000, "S"},
        {"AND, low half decides", 0x30, high, high, high, "Z"},
        {"OR", 0x31, -65536, 1, -65535, ""},
        {"XOR", 0x32, -1, 0xFFFF, -65536, "Z"},
        {"CPA less", 0x40, 0x8000, 1, 0x8000, "S"},
        {"CPA far less", 0x40, -32768, 32767, -32768, "S"},
        {"CPA greater", 0x40, 32767, 0x8000, 32767, ""},
        {"CPA equal", 0x40, 0xFFFF, -1, 0xFFFF, "Z"},
        {"CPL greater", 0x41, 0x8000, 1, 0x8000, ""},
        {"CPL less", 0x41, 0, 0xFFFF, 0, "S"},
        {"CPL equal", 0x41, -1, 0xFFFF, -1, "Z"},
    };
    for (const Operation& op : operations) {
        for (bool inMemory : {true, false}) {
            SCOPED_TRACE(op.name + std::string(inMemory ? " memory " : " register ") + std::to_string(op.gr));
            Machine m;
            if (inMemory)
                m.Put(0, {op.code << 8 | 0x30, Far, Ret});
            else
                m.Put(0, {(op.code + 4) << 8 | 0x34, Ret});
            m->Memory[Far] = op.operand;
            m->GR[3] = op.gr;
            m->GR[4] = op.operand;
            m.SetFlags("O");
            EXPECT_TRUE(SaysEnd(m.Run()));
            EXPECT_EQ(m->GR[3], op.value);
            EXPECT_EQ(m.Flags(), op.flags);
            EXPECT_EQ(m->PR, inMemory ? 2 : 1);
            EXPECT_EQ(m->GR[4], op.operand);
        }
    }
}

TEST(Machine, Shifts) {
    struct Shift {
        const char* name;
        int code;
        int gr;
        int count;
        int value;
        const char* flags;
    };
    const std::vector<Shift> shifts = {
        {"SLA", 0x50, 0x4000, 0, 0x4000, ""},
        {"SLA", 0x50, 0x4000, 1, 0, "OZ"},
        {"SLA", 0x50, 0xC000, 1, -32768, "OS"},
        {"SLA", 0x50, 0x8001, 14, -16384, "S"},
        {"SLA", 0x50, 1, 15, 0, "OZ"},
        {"SLA", 0x50, 0xFFFF, 16, -32768, "S"},
        {"SLA", 0x50, 0xFFFF, 17, -32768, "S"},
        {"SLA", 0x50, 0x7FFF, 100, 0, "Z"},
        {"SLA", 0x50, 0x8000, 65535, -32768, "S"},
        {"SRA", 0x51, 0x8000, 0, -32768, "S"},
        {"SRA", 0x51, 3, 1, 1, "O"},
        {"SRA", 0x51, 0x4000, 15, 0, "OZ"},
        {"SRA", 0x51, 0x8000, 15, -1, "S"},
        {"SRA", 0x51, 0x8000, 16, -1, "OS"},
        {"SRA", 0x51, 0x8000, 100, -1, "OS"},
        {"SRA", 0x51, 0x7FFF, 16, 0, "Z"},
        {"SRA", 0x51, 0x7FFF, 65535, 0, "Z"},
        {"SLL", 0x52, -1, 0, 0xFFFF, "S"},
        {"SLL", 0x52, 0x8000, 1, 0, "OZ"},
        {"SLL", 0x52, 3, 15, 0x8000, "OS"},
        {"SLL", 0x52, 1, 16, 0, "OZ"},
        {"SLL", 0x52, 2, 16, 0, "Z"},
        {"SLL", 0x52, 0xFFFF, 17, 0, "Z"},
        {"SLL", 0x52, 0xFFFF, 65535, 0, "Z"},
        {"SRL", 0x53, 0x8000, 0, -32768, "S"},
        {"SRL", 0x53, 3, 1, 1, "O"},
        {"SRL", 0x53, 0x8000, 15, 1, ""},
        {"SRL", 0x53, 0x8000, 16, 0, "OZ"},
        {"SRL", 0x53, 0xFFFF, 17, 0, "Z"},
        {"SRL", 0x53, -1, 65535, 0, "Z"},
    };
    for (const Shift& shift : shifts) {
        SCOPED_TRACE(shift.name + std::string(" #") + std::to_string(shift.gr) + " by " + std::to_string(shift.count));
        Machine m{shift.code << 8 | 0x20, shift.count, Ret};
        m->GR[2] = shift.gr;
        m.SetFlags("O");
        m.Run();
        EXPECT_EQ(m->GR[2], shift.value);
        EXPECT_EQ(m.Flags(), shift.flags);
        EXPECT_EQ(m->PR, 2);
    }
}

TEST(Machine, JumpsLookAtFlagsAndLeaveThem) {
    const std::string all[] = {"", "S", "Z", "O", "OS", "OZ"};
    const auto has = [](const std::string& flags, char c) { return flags.find(c) != std::string::npos; };
    for (const std::string& flags : all) {
        const bool s = has(flags, 'S');
        const bool z = has(flags, 'Z');
        const std::pair<int, bool> jumps[] = {{0x61, s},    {0x62, !z},       {0x63, z},
                                              {0x64, true}, {0x65, !s && !z}, {0x66, has(flags, 'O')}};
        for (const auto& [code, taken] : jumps) {
            SCOPED_TRACE(flags + " " + std::to_string(code));
            Machine m{code << 8 | 0x03, Far - 7, Ret};
            m->GR[3] = 7;
            m->Memory[Far] = Ret;
            m.SetFlags(flags);
            m.Run();
            EXPECT_EQ(m->PR, taken ? Far : 2);
            EXPECT_EQ(m.Flags(), flags);
        }
    }
}

TEST(Machine, AddressesAndStores) {
    Machine m{0x1213, 0xFFFF, 0x1220, 5, 0x1140, 0xFFFF, 0x1145, Far, Ret}; // LAD, LAD, ST, ST indexed
    m->GR[0] = 99;
    m->GR[3] = -1; // as an index 65535
    m->GR[4] = -2;
    m->GR[5] = 1;
    m.SetFlags("OS");
    const std::string console = m.Run();
    EXPECT_EQ(m->GR[1], 0xFFFE);
    EXPECT_EQ(m->GR[2], 5) << "GR0 is no index register";
    EXPECT_EQ(m->Memory[0xFFFF], -2) << "a store without index register is not watched";
    EXPECT_EQ(m->Memory[Far + 1], -2);
    EXPECT_EQ(m.Flags(), "OS");
    EXPECT_FALSE(Contains(console, "Warning"));

    Machine rewriting{0x1110, 2, 0x7FFF, Ret}; // ST puts LAD GR6 in the place of the word behind it
    rewriting->GR[1] = 0x1260;
    rewriting.Put(3, {42, Ret});
    rewriting.Run();
    EXPECT_EQ(rewriting->GR[6], 42);
}

TEST(Machine, CountsFirstWordsThatAreExecuted) {
    // LAD GR1,3; SUBA GR1,one; JNZ back; unknown code
    Machine m{0x1210, 3, 0x2110, 8, 0x6200, 2, 0x1300, 0, 1};
    m->RunCount[2] = 77;
    m->RunCount[65000] = 5;
    m.Run();
    EXPECT_EQ(std::vector<int>(m->RunCount.begin(), m->RunCount.begin() + 8),
              (std::vector<int>{1, 0, 3, 0, 3, 0, 1, 0}));
    EXPECT_EQ(m->RunCount[65000], 5);

    Machine refused{0x1290, 0};
    refused.Run();
    EXPECT_EQ(refused->RunCount[0], 0) << "the register check comes before the count";

    Machine array{Ret};
    modeFlags->Pipe = FindPipeline("NH");
    array->RunCount[0] = 4;
    array.Run();
    EXPECT_EQ(array->RunCount[0], 5);
}

TEST(Machine, NibblesThatAnInstructionDoesNotUse) {
    struct Row {
        int word;
        bool passes;
    };
    const Row rows[] = {{0x8199, true},  {0x6190, true},  {0x6199, false}, {0x70F0, true},  {0x7008, false},
                        {0x80F0, true},  {0x8008, false}, {0xF080, true},  {0xF008, false}, {0x710F, true},
                        {0x7180, false}, {0x1208, false}, {0x1480, false}, {0x8880, false}, {0x13FF, false}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.word);
        Machine m{row.word, 2, Ret};
        m->Memory[2] = 0x8800;
        const std::string console = m.Run();
        EXPECT_EQ(Contains(console, "a non-general register"), !row.passes) << console;
        EXPECT_TRUE(SaysEnd(console));
    }
}

TEST(Machine, StackHoldsFiveHundredWords) {
    const std::pair<const char*, std::vector<int>> programs[] = {
        {"PUSH", {0x7000, 0xABCD, 0x6400, 0}},
        {"CALL", {0x8000, 0}},
        {"both", {0x7000, 7, 0x8000, 0}},
    };
    for (const auto& [name, words] : programs) {
        SCOPED_TRACE(name);
        Machine m;
        for (std::size_t i = 0; i < words.size(); ++i)
            m->Memory[i] = words[i];
        const std::string console = m.Run();
        EXPECT_TRUE(Contains(console, "beyond the so-called stack area. "));
        EXPECT_TRUE(SaysEnd(console));
        EXPECT_EQ(m->SP, 65535 - 501);
        EXPECT_NE(m->Stack[1], 0);
        EXPECT_NE(m->Stack[500], 0);
        EXPECT_EQ(m->Stack[501], 0);
        EXPECT_EQ(m->PR, 1) << "the second word of the instruction";
    }
}

TEST(Machine, CallReturnPushPop) {
    // CALL 4; EXIT behind it; the routine: PUSH E; POP GR1; RET
    Machine m{0x8000, 4, 0x8800, 0, 0x7000, 0xFFFE, 0x7110, Ret};
    m.Run();
    EXPECT_EQ(m->GR[1], 0xFFFE);
    EXPECT_EQ(m->Stack[1], 2);
    EXPECT_EQ(m->Stack[2], 0xFFFE);
    EXPECT_EQ(m->SP, 65535);
    EXPECT_EQ(m->OS, 0);
    EXPECT_EQ(m->PR, 3) << "EXIT leaves PR behind it";

    Machine pushed{0x8000, 4, 0x8800, 0, 0x7000, 8, Ret, 0, 0x8800}; // the word on top is the return address
    pushed.Run();
    EXPECT_EQ(pushed->PR, 9);
    EXPECT_EQ(pushed->SP, 65534);

    Machine inside{0x8000, 3, 0, 0x8800};
    inside.Run();
    EXPECT_EQ(inside->OS, 1);

    Machine empty{0x8000, 2, 0x7110, 0x7120, 0x7130, Ret}; // one POP takes the return address, two find nothing
    empty->GR[3] = 9;
    const std::string console = empty.Run();
    EXPECT_EQ(empty->GR[1], 2);
    EXPECT_EQ(empty->GR[3], 0);
    EXPECT_EQ(empty->SP, 65537);
    EXPECT_EQ(empty->PR, 5);
    EXPECT_EQ(empty->OS, 0);
    EXPECT_TRUE(Contains(console, "SP=#10001 An unknown error has happened in Tcomet2::ret581(), ret681. and it"));

    Machine below{0x7110, 0x7110, 0x7000, 7, 0x7000, 8, 0x7000, 9, Ret}; // pushed above the bottom, at it, below it
    below.Run();
    EXPECT_EQ(below->Stack[1], 9);
    EXPECT_EQ(below->SP, 65534);
}

TEST(Machine, Stops) {
    struct Row {
        const char* name;
        std::vector<int> words;
        int pr;
        const char* en;
        const char* ja;
        bool sentence;
        bool time;
    };
    const std::vector<Row> rows = {
        {"PR beyond memory",
         {0x6400, 65001},
         65001,
         "But this simulator has only 65000 memories for the sake of simplicity. PR = #FDE9 = 65001(dec) \nand it ",
         "最大メモリー 65000 番地を超えました。 ",
         true,
         true},
        {"register",
         {0x1289},
         0,
         "because an opcode of #1289 is going to be executed. Program Register(PR)=#0000= 0(Address in Decimal "
         "Number).  and it ",
         "命令コード #1289 を実行しようとしたのでCOMET2を停止させました。 Program Register(PR)=#0000= 0 "
         "（十進数）番地  --> 終了\n",
         true,
         true},
        {"operand",
         {0x6400, 3, 0, 0x1012, 64999},
         4,
         "beyond tMaxMemory. \n"
         "PR=3 (address), Memory[3]=#1012=4114(dec) and \n"
         "PR=4 (address), Memory[4]=#FDE7=64999(dec) \n"
         "Memory[-537]=#0000=0(dec). \n",
         "PR=3 番地の Memory[3]=#1012=4114(dec) と \n"
         "PR=4 番地の Memory[4]=#FDE7=64999(dec)\n を実行により発生。 \n"
         "Memory[-537]=#0000=0(dec). \n",
         false,
         true},
        {"no NOP",
         {0, 0x0012},
         1,
         "execute #0012 at an address of 1 (Dec). It is strange. Because NOP machine code is not #0012 but #0000. ",
         "ソースコードを見直してください。\nAn unknown error",
         true,
         true},
        {"no NOP in the high half", {-65536}, 0, "execute #FFFF0000 at", "execute #FFFF0000 at", true, true},
        {"store",
         {0, 0x1112, 64998},
         2,
         "When an opcode at #0001 was executed, ",
         "実行時エラー：　中止\n#1 = 1 （10進数）番地の命令の実行時 65000 番地を超えてデータを",
         true,
         true},
        {"unknown code",
         {0, 0x2F77},
         1,
         "#2F77 is going to be executed.  Program Register(pr)=#1=dec1 \nAn unknown error has happened in "
         "Tcomet2::Run(). ",
         "#2F77 を実行しようとしたので実行を中止しました。\nProgram Register(pr)=#1=dec1\n An unknown",
         false,
         false},
    };
    for (const Row& row : rows) {
        for (int lang : {0, 1}) {
            SCOPED_TRACE(row.name + std::to_string(lang));
            Machine m;
            for (std::size_t i = 0; i < row.words.size(); ++i)
                m->Memory[i] = row.words[i];
            m->GR[2] = 2;
            modeFlags->Lang = lang;
            const std::string console = m.Run();
            EXPECT_TRUE(Contains(console, lang == 0 ? row.ja : row.en)) << console;
            EXPECT_EQ(m->PR, row.pr);
            EXPECT_EQ(lang == 0 ? Contains(console, "--> 終了\n") : SaysEnd(console), row.sentence);
            EXPECT_EQ(Contains(console, "sec"), row.time) << console; // the time, of whatever size
        }
    }
}

TEST(Machine, LimitsAtTheirEdges) {
    Machine reads{0x1010, 65000, Ret};
    reads->Memory[65000] = 7;
    EXPECT_TRUE(SaysEnd(reads.Run()));
    EXPECT_EQ(reads->GR[1], 7);

    Machine runs{0x6400, 65000};
    runs->Memory[65000] = 0x8800;
    runs.Run();
    EXPECT_EQ(runs->PR, 65001);
    EXPECT_EQ(runs->RunCount[65000], 1);

    Machine stores{0x1112, 64997, Ret};
    stores->GR[2] = 2;
    EXPECT_FALSE(Contains(stores.Run(), "Terminated!"));

    // The array pipeline. A store at its limit itself is refused only as long as no store has been warned of.
    const auto array = [](std::initializer_list<int> words) {
        Machine m(words);
        modeFlags->Pipe = FindPipeline("NH");
        m->ReservedWords = 20;
        m->GR[2] = 1;
        return m;
    };
    Machine beyond = array({0x1010, 3501, Ret});
    EXPECT_TRUE(Contains(beyond.Run(), "-> OS: Termination of the comet2.  The virtual OS has detected that the comet2 "
                                       "is going to access a memory beyond MaxMemory. \n"));
    Machine refused = array({0x1112, 3499, Ret});
    EXPECT_TRUE(Contains(refused.Run(), "The COMET2 has 3465 words in memory. \n"));
    Machine warned = array({0x1112, 19, 0x1112, 3499, 0x1112, 3500, Ret});
    const std::string console = warned.Run();
    EXPECT_TRUE(Contains(console, "WARNING: Your reserved memory size is 20 words in size. \n")) << console;
    EXPECT_TRUE(Contains(console, "When an opcode at #0004 was executed, ")) << console;
    Machine slides = array({});
    EXPECT_TRUE(Contains(slides.Run(), "of 3500. "));
    EXPECT_EQ(slides->PR, 3501);
}

TEST(Machine, WarnsOnceOfAStoreBehindTheImage) {
    Machine m{0x1112, 5, 0x1113, 30, 0x1113, 31, Ret, 0}; // to the last reserved word, then twice behind the image
    m->ReservedWords = 8;
    m->GR[1] = 66;
    m->GR[2] = 2;
    m->GR[3] = 1;
    std::string console = m.Run();
    EXPECT_TRUE(Contains(console, "Warning: Out of Range\nYour reserved memory is 8 words in size. \n"
                                  "A data has stored in an address of 31(Dec).\nThe address is out of the reserved "
                                  "area.\nIs this your intention?  It has occured when a machine code of \n(Address, "
                                  "Machine Code)=(#0002, #1113)\nis done at the 1st execution. \n"))
        << console;
    EXPECT_EQ(console.find("Warning: Out"), console.rfind("Warning: Out"));
    EXPECT_EQ(m->Memory[31], 66);
    EXPECT_EQ(m->Memory[32], 66);

    for (const auto& [turns, ordinal] : {std::pair{2, "2nd"}, {3, "3rd"}, {22, "22th"}}) {
        // ADDA GR2,one; ST GR1,base,GR2; CPA GR2,last; JUMP back
        Machine loop{0x2020, 10, 0x1112, 0, 0x4020, 11, 0x6200, 0, Ret, 0, 1, 0};
        loop->ReservedWords = 100 + turns;
        loop->Memory[3] = 100;
        loop->Memory[11] = turns + 3;
        console = loop.Run();
        EXPECT_TRUE(Contains(console, std::string("is done at the ") + ordinal + " execution. \n")) << console;
        EXPECT_EQ(console.find("Warning: Out"), console.rfind("Warning: Out"));
    }
}

TEST(Machine, ServicesOfTheOs) {
    const auto shows = [](Machine& m) {
        const std::string console = m.Run();
        const std::string head = "OS: Output by a Macro Instruction of OUT. \n";
        const std::size_t begin = console.find(head) + head.size();
        return console.substr(begin, console.find("and it has come") - begin);
    };
    struct Row {
        std::vector<int> units;
        int length;
        const char* text;
    };
    const Row rows[] = {
        {{'A', 0x65E5, -65536 | 'B'}, 3, "A日B\n"},
        {{0xD842, 0xDFB7, 0xDFB7, 0xD842}, 4, "𠮷\uFFFD\uFFFD\n"},
        {{'a', 7, '\n', 'b'}, 4, "a\a\nb\n"},
        {{'A'}, 0, "\n"},
        {{'A'}, -5, "\n"},
    };
    for (const Row& row : rows) {
        Machine m{0xF003, 0xFFFF, Ret}; // the service number is the effective address
        for (std::size_t i = 0; i < row.units.size(); ++i)
            m->Memory[Far + i] = row.units[i];
        m->Memory[Far - 1] = row.length;
        m->GR[1] = Far;
        m->GR[2] = Far - 1;
        m->GR[3] = 3;
        EXPECT_EQ(shows(m), row.text);
    }
    Machine edge{0xF000, 2, Ret};
    edge->Memory[65534] = 'y';
    edge->Memory[65535] = 'z';
    edge->Memory[65536] = '!';
    edge->Memory[Far] = 0x7FFFFFFF;
    edge->GR[1] = 65534;
    edge->GR[2] = Far;
    EXPECT_EQ(shows(edge), "yz\n");

    Machine unknown{0xF000, 3, Ret};
    unknown.SetFlags("OS");
    EXPECT_TRUE(Contains(unknown.Run(), "3 works as NOP does. Because there is no description about 3 in Spec.of "
                                        "CASL2. and it has come"));
    EXPECT_EQ(unknown.Flags(), "OS");
    EXPECT_EQ(unknown->PR, 2);
}

} // namespace tolvane::tests
