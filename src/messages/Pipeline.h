#pragma once
// The pipelines: one design in seven forms, chosen by the setting FightFunc. What differs is data in this table;
// shared code asks the row, never the name.

#include "messages/Msg.h"

#include <string>

namespace tolvane {

enum class TextKind { Wide, Narrow };
enum class Reader {
    Wide,    // OpenFileUTF8toVecW20, OpenFileUTF16toVecW20
    Widened, // the narrow reader, each line widened
    Narrow,
    Array, // OpenFileChH with its limits
};
enum class Normalising { editNWB, editN };
// The passes over the lines of a program and the link that belongs to them: over vectors of any size, or over fixed
// tables, which bound nearly everything.
enum class Analysis { Vectors, Tables };
enum class Dump { DspRegMry70, DspRegMry68 };

// What a pipeline of fixed size takes. 0 stands for no limit of its own.
struct Limits {
    int lines = 0;        // of a file
    int lineLength = 0;   // bytes of a line that are read
    int opLength = 0;     // characters of an opcode word
    int dcConstants = 0;  // constants of a DC line
    int dcdsLines = 0;    // DC and DS lines of a file, together
    int dcdsWords = 0;    // their words
    int literalWords = 0; // words of the literals of a file
    int imageWords = 0;   // words of the image
};

struct Pipeline {
    const char* name;
    Wording wording;
    TextKind text;
    Reader reader;
    bool printsOperandsAtOnce; // the diagnostics of the passes over operands; else the queue alone shows them
    bool printsQueue;          // DspMsgStore before the error summary
    bool silentShortensMenu;   // SilentModeIndex chooses the short menu

    // Lines
    Normalising normalising;
    bool boundaryEndsInBlank; // START and END count only with a blank or the end of the line behind them
    bool tellsZenSpaceInOp;   // an unknown opcode with a full-width space draws a further, bare Error
    bool trimTellsUnknownOp;  // TrimZenOprndCom reports an opcode that it does not know
    bool hasExit;             // the opcode EXIT
    Analysis analysis;
    bool firstLabelCharCounts; // the character sweep of Label35G reports position 0 as well

    // Operands
    bool explainsOpenLiteral;  // an example goes before the Error of a literal that is not closed
    bool refusesLabelAlone;    // OpCk reports a label without an opcode
    bool dcDsHavePasses;       // the array passes read DC and DS, the shared ones leave them alone
    int oprndLimit;            // characters of operand text that are read, 0 without a limit
    bool refusesLeadSemicolon; // SearchApostForNonCharConstOP reports a semicolon at the front
    bool commaPass;            // the further pass for commas behind ExtractAllOprnds
    bool ld2LooksFirst;        // ld2 asks for operands 1 and 2 before anything else
    bool regXDoubleComma;      // RegX reports an operand that begins with a comma
    bool srl2OwnForm;          // srl2 has a form Error of its own
    bool startNamesProgram;    // START may name a program
    bool startAnalystZenKaku;  // AnalystZenKakuMoziStr behind StartBad
    bool dcTextBehindBlank;    // dc45 reports text behind a blank

    // Link, run and dump
    bool buildsLineOfWord;
    int maxMemory;       // highest address of an instruction and of a memory operand
    int storeGuard;      // an indexed store from here on is put to the guard, though it has warned already
    int storeLimit;      // the guard ends the run from here on
    bool clearsRunCount; // at the start of Run3
    Dump dump;
    bool dumpsRunCount;
    bool dumpsLabelSpace; // the dump takes the labels from labelSpace, not from the line records

    Limits limits; // of the fixed tables
};

// The row for a value of FightFunc, compared exactly; null for a value that names no pipeline.
const Pipeline* FindPipeline(const std::string& fightFunc);
// The row of NWW, which stands in for an unknown value.
const Pipeline& DefaultPipeline();
// Whether the value names a pipeline that was given up: the program then ends at once.
bool IsGivenUp(const std::string& fightFunc);

} // namespace tolvane
