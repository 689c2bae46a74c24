#pragma once
// What tolvane-debug says by itself. Diagnostics and faults of the command line that it shares are those of
// tolvane-run.

#include "messages/Msg.h"

namespace tolvane {

struct DebugCatalogue {
    Msg Version{"tolvane-debug " TOLVANE_VERSION "\n"};
    Msg Usage{"Usage: tolvane-debug [OPTIONS] SOURCE\n"
              "Assembles and links SOURCE, and runs it step by step, on and back.\n"
              "\n"
              "  -h, --help            show this text\n"
              "  -i, --input FILE      what IN reads; behind its end the program is asked for lines\n"
              "  -l, --lang en|ja      the language (default: the locale's)\n"
              "  -p, --pipeline NAME   WP (default), NWW, NwW, NaW, NA, AP or NH\n"
              "  -V, --version         show the version\n"
              "  -x, --commands FILE   commands that are read before those of the standard input\n"
              "\n"
              "The command \"help\" shows the commands.\n"
              "Exit status: 0 after \"quit\", 1 errors in the source, 4 wrong use or a file that cannot be read.\n",
              "使い方: tolvane-debug [オプション] ソース\n"
              "ソースをアセンブル、リンクし、一命令ずつ進めたり戻したりしながら実行する。\n"
              "\n"
              "  -h, --help            この説明を表示する\n"
              "  -i, --input FILE      IN が読むファイル。終わりまで読むと、その後の行は入力を求める\n"
              "  -l, --lang en|ja      表示の言語（既定値はロケールによる）\n"
              "  -p, --pipeline NAME   WP（既定値）, NWW, NwW, NaW, NA, AP, NH\n"
              "  -V, --version         版を表示する\n"
              "  -x, --commands FILE   標準入力より先に読むコマンドのファイル\n"
              "\n"
              "コマンドの一覧はコマンド help で表示する。\n"
              "終了ステータス: 0 quit による終了、1 ソースの誤り、4 使い方の誤り、または読めないファイル。\n"};
    Msg UseError{"tolvane-debug: {0} (see --help)\n", "tolvane-debug: {0}（--help を参照）\n"};
    Msg OneSource{"one source is to be given", "ソースを一つ指定する"};
    Msg MemoryEnded{"tolvane-debug: out of memory\n", "tolvane-debug: メモリ不足\n"};
    Msg OutputLost{"tolvane-debug: the output cannot be written: {0}\n", "tolvane-debug: 出力できない: {0}\n"};

    Msg Prompt{"debug> "};
    Msg InPrompt{"IN> "};
    Msg Welcome{"Command \"help\" shows the commands, \"quit\" ends.\n",
                "help でコマンドの一覧を表示、quit で終了。\n"};
    // On one screen: 24 lines of 80 columns.
    Msg Help{"The first letters of a command suffice; an empty line repeats the last command.\n"
             "  step [N], back [N]     N instructions on or back\n"
             "  over, out              behind a CALL; behind the RET of this routine\n"
             "  until PLACE            on to a place\n"
             "  over back, out back, until PLACE back     the same backwards\n"
             "  run, reverse           on or back to a breakpoint or a watched change, or to\n"
             "                         the end or the start; Ctrl+C stops\n"
             "  go MOMENT              to any moment: go 0 the start, go end the end\n"
             "  break [PLACE]          stop in front of a place; alone: the list\n"
             "  watch [WHAT]           stop when it has changed; alone: the list\n"
             "  delete N               breakpoint or watch N goes\n"
             "  who WHAT               the instruction that has changed it last\n"
             "  show [WHAT]            registers and flags (* changed), or one of WHAT\n"
             "  show stack, show calls, show output, show input\n"
             "  list [PLACE]           the source round a place\n"
             "  type TEXT, close       a line for IN; the end of its input. Else a run asks\n"
             "  help, quit             this text; the end\n"
             "PLACE: a label LOOP, LOOP+2, MAIN.LOOP; the number of a line, 12; an address, #0012\n"
             "WHAT: GR0 to GR7, SP, Fovf, Fsign, Fzero, a word at a PLACE; for show also\n"
             "      several words, TABLE..TABLE+5\n"
             "[12] is a moment: 12 instructions have been executed. What follows comes next.\n",
             "コマンドは先頭の文字だけでよい。空行は直前のコマンドを繰り返す。\n"
             "  step [N], back [N]     N 命令進む、戻る\n"
             "  over, out              CALL の次へ、このルーチンの RET の次へ進む\n"
             "  until 場所             その場所まで進む\n"
             "  over back, out back, until 場所 back     同じことを逆向きに行う\n"
             "  run, reverse           ブレークポイントか監視対象の変化まで進む、戻る。\n"
             "                         なければ終わり、始めまで。Ctrl+C で止まる\n"
             "  go 時点                任意の時点へ。go 0 は始め、go end は終わり\n"
             "  break [場所]           その場所の手前で止める。場所なしでは一覧\n"
             "  watch [対象]           変化したら止める。対象なしでは一覧\n"
             "  delete N               N 番のブレークポイントや監視を消す\n"
             "  who 対象               最後に変更した命令を示す\n"
             "  show [対象]            レジスタとフラグ（* は変化したもの）、または対象\n"
             "  show stack, show calls, show output, show input\n"
             "                         スタック、呼出し、出力、入力\n"
             "  list [場所]            その場所の前後のソース\n"
             "  type 文字列, close     IN が読む行、入力の終わり。なければ実行中に求める\n"
             "  help, quit             この説明、終了\n"
             "場所: ラベル LOOP, LOOP+2, MAIN.LOOP、行番号 12、アドレス #0012\n"
             "対象: GR0～GR7, SP, Fovf, Fsign, Fzero、場所の語。show では範囲\n"
             "      TABLE..TABLE+5 も使える\n"
             "[12] は時点で、12 命令を実行したことを示す。続く命令を次に実行する。\n"};

    // Where the run stands. {0} a number of the list of breakpoints and watches, {1} what has changed
    Msg AtBreakpoint{"Breakpoint {0}\n", "ブレークポイント {0}\n"};
    Msg AtWatch{"Watch {0}: {1}\n", "監視 {0}: {1}\n"};
    Msg AtStart{"This is the start.\n", "実行の始め。\n"};
    Msg Ended{"The program has ended.\n", "プログラムは終了した。\n"};
    Msg EndedInput{"IN has met the end of the input 1,000 times in a row.\n",
                   "IN が続けて 1,000 回、入力の終わりに達した。\n"};
    Msg StoppedByMachine{"The machine has stopped here.\n", "COMET II はここで停止した。\n"};
    Msg Waits{"IN waits for a line: type TEXT\n", "IN が入力を待っている: type 文字列\n"};
    Msg InputEnds{"The input has ended; the run waits in front of IN. \"close\" lets IN meet the end.\n",
                  "入力は終わった。IN の手前で待つ。close で IN に入力の終わりを伝える。\n"};
    Msg Interrupted{"Stopped by Ctrl+C.\n", "Ctrl+C により止めた。\n"};
    Msg MoreOutput{"({0} lines of output before)\n", "（この前に {0} 行の出力）\n"};
    Msg MoreInput{"({0} lines read before)\n", "（この前に {0} 行を読んだ）\n"};
    Msg MoreWords{" and {0} more words", " ほか {0} 語"};

    // Answers. {0} a number, {1} a place or a cell
    Msg BreakpointIs{"{0} break {1}\n"};
    Msg WatchIs{"{0} watch {1}\n"};
    Msg NothingSet{"There is none; break PLACE or watch WHAT sets one.\n",
                   "何もない。break 場所、watch 対象で設定する。\n"};
    Msg Deleted{"{0} has gone.\n", "{0} を消した。\n"};
    Msg GoThere{"go {0} shows it.\n", "go {0} でその時点へ行ける。\n"};
    Msg NotChanged{"{0} has not changed since the start.\n", "{0} は始めから変化していない。\n"};
    Msg NoCalls{"No CALL is open.\n", "実行中の CALL はない。\n"};
    Msg StackIsEmpty{"The stack is empty.\n", "スタックは空である。\n"};
    Msg NoOutput{"Nothing has been printed.\n", "まだ何も出力していない。\n"};
    Msg NoInput{"Nothing has been read, and no line waits.\n", "まだ何も読んでおらず、待っている行もない。\n"};
    Msg LineRead{"read:  {0}\n", "読んだ行: {0}\n"};
    Msg LineWaits{"waits: {0}\n", "待つ行:   {0}\n"};
    Msg LineKept{"The next IN reads it.\n", "次の IN が読む。\n"};
    Msg EndKept{"Behind the lines that wait, IN meets the end of the input.\n",
                "待っている行の後で、IN は入力の終わりに達する。\n"};
    Msg FutureForgotten{"What came after [{0}] is forgotten.\n", "[{0}] より後の実行は取り消した。\n"};

    // What is not understood, and what is possible there
    Msg NoCommand{"There is no command \"{0}\"; \"help\" shows them all.\n",
                  "コマンド「{0}」はない。help で一覧を表示する。\n"};
    Msg NoNumber{"\"{0}\" is no number of instructions: 1 or more.\n", "「{0}」は命令数ではない。1 以上の数を書く。\n"};
    Msg NoMoment{"\"{0}\" is no moment: a number from 0 on, or end.\n",
                 "「{0}」は時点ではない。0 以上の数か end を書く。\n"};
    Msg NoSuchItem{"There is no number {0}; \"break\" shows the list.\n", "{0} 番はない。break で一覧を表示する。\n"};
    Msg NoPlace{"\"{0}\" is no place: a label, PROGRAM.LABEL, a line 1 to {1}, or an address #0000 to #FFFF.\n",
                "「{0}」は場所ではない。ラベル、プログラム名.ラベル、行番号 1～{1}、アドレス #0000～#FFFF を書く。\n"};
    Msg NoWords{"Line {0} has no words; the next one that has some is line {1}.\n",
                "{0} 行に語はない。次に語のある行は {1} 行である。\n"};
    Msg NoWordsBehind{"Line {0} has no words, nor has any line behind it.\n", "{0} 行にも、その後の行にも語はない。\n"};
    Msg NoCell{"\"{0}\" is none of GR0 to GR7, SP, Fovf, Fsign, Fzero, and no place of a word.\n",
               "「{0}」は GR0～GR7, SP, Fovf, Fsign, Fzero でも、語の場所でもない。\n"};
    Msg WordMissing{"{0} needs a word behind it: {1}\n", "{0} の後に指定が要る: {1}\n"};
    Msg PlaceWord{"PLACE", "場所"};
    Msg CellWord{"GR0 to GR7, SP, Fovf, Fsign, Fzero or PLACE", "GR0～GR7, SP, Fovf, Fsign, Fzero、場所"};
    Msg MomentWord{"a moment or end", "時点か end"};
    Msg NumberWord{"a number of the list", "一覧の番号"};
    Msg TextWord{"the line for IN", "IN が読む行"};
};
inline constexpr DebugCatalogue DebugMsg;

} // namespace tolvane
