#pragma once
// What is said of a program that is sound but probably does not mean what it says.

#include "messages/Msg.h"

namespace tolvane {

struct HintCatalogue {
    // {0} a label
    Msg BareLabel{
        "The line of the label \"{0}\" has nothing but a comment, so that its address is 0 and not that of the next "
        "line. Write NOP there, or the label in front of the next instruction.",
        "ラベル「{0}」の行には命令がないので、そのアドレスは次の行ではなく 0 になる。NOP "
        "を書くか、ラベルを次の命令の行に"
        "移す。"};
    // {0} an opcode, {1} the number
    Msg NumberAsAddress{
        "{0} takes the word at the address {1} here, not the number {1}. The number itself is the literal ={1}.",
        "この {0} は数 {1} ではなく、アドレス {1} の語を使う。数そのものならリテラル ={1} と書く。"};
    // {0} a literal
    Msg StoreToLiteral{"No other line can read what ST puts into the literal {0}. Store it in a word of a DS.",
                       "リテラル {0} に書き込んだ値は、ほかの行から読めない。DS で確保した語に書き込む。"};
    // {0} an opcode, {1} what is written over
    Msg StoreIntoInstruction{"{0} writes over an instruction: {1}. A word for data is made by DS or DC.",
                             "{0} が命令を書き換える: {1}。データの語は DS か DC で確保する。"};
    // {0} the line behind
    Msg FallsIntoData{"Behind this instruction the run goes on into data: {0}. A RET or a JUMP is missing.",
                      "この命令の次はデータで、そのまま実行してしまう: {0}。RET か JUMP が足りない。"};
    Msg FallsOff{
        "Behind this instruction the program is over, and the run goes on into empty memory. A RET is missing.",
        "この命令の後ろにプログラムはなく、何もない主記憶へ実行が進む。RET が足りない。"};
    // {0} a label
    Msg FallsIntoSubroutine{
        "Behind this instruction the run goes on into the subroutine {0} without a CALL. A RET or a JUMP is "
        "missing.",
        "この命令の次は副プログラム {0} で、CALL しないまま実行が進む。RET か JUMP が足りない。"};
    // {0} a register
    Msg NeverSet{"{0} is read here, but nothing has been put into it before.",
                 "ここで {0} を読むが、それまでに {0} に値を入れた命令がない。"};

    // While the program runs. {0} characters, {1} a place, {2} its words, {3} the first place behind them
    Msg InputOverran{
        "IN has read {0} characters into {1}, which has {2} words: {3} and what follows were written over. The "
        "longest line has 256.",
        "IN が {2} 語しかない {1} に {0} 文字を読み、{3} から後ろを書き換えた。1 行は最大 256 文字。"};
    // {0} where the RET went, {1} a line
    Msg ReturnToPushed{
        "This RET went to {0}: not behind a CALL, but to the word that PUSH had put on the stack in line {1}. What "
        "is pushed has to be popped in front of RET.",
        "この RET は CALL の次ではなく、{1} 行目の PUSH が積んだ語 {0} をアドレスとしてそこへ進んだ。PUSH したものは "
        "RET の前に POP する。"};
};
inline constexpr HintCatalogue HintMsg;

} // namespace tolvane
