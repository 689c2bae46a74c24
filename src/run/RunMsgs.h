#pragma once
// What tolvane-run says by itself. The diagnostics of a source and of the machine are those of the other rooms.

#include "messages/Msg.h"

namespace tolvane {

struct RunCatalogue {
    Msg Version{"tolvane-run " TOLVANE_VERSION "\n"};
    Msg Help{"Usage: tolvane-run [OPTIONS] FILE...\n"
             "Assembles, links and runs each FILE, a source in CASL II; - is standard input.\n"
             "\n"
             "  -c, --check            do not run\n"
             "  -d, --dump DIR         write NAME.assembled.txt and NAME.result.txt into DIR\n"
             "      --expect FILE      compare what OUT writes with FILE\n"
             "      --explain [WORDS]  explain a pasted message, words, an opcode; list all\n"
             "      --grade FOLDER     run with input-N.txt of FOLDER, expect output-N.txt\n"
             "  -h, --help             show this text; -V, --version: the version\n"
             "  -i, --input FILE       what IN reads, for each program from its beginning\n"
             "      --last N           trace the last N steps alone\n"
             "  -l, --lang en|ja       the language of the diagnostics (default: the locale's)\n"
             "  -n, --limit N          the most instructions (default: 100000000; 0: no limit)\n"
             "      --no-hints         no notes of what is sound but hardly meant\n"
             "  -p, --pipeline NAME    WP (default), NWW, NwW, NaW, NA, AP or NH\n"
             "      --registers        tell registers, flags and instructions at the end\n"
             "  -t, --trace            tell each instruction, what it reads and changes\n"
             "      --werror           status 1 for warnings, too\n"
             "  -w, --words            list the words of the image beside the source\n"
             "\n"
             "Standard output has what OUT writes, standard error all else. Exit status:\n"
             "0 all ran to their end, 1 errors in a source, 2 stopped by the machine, 3 limit,\n"
             "4 wrong use or a file's fault, 5 wrong output, 130 Ctrl+C; the highest counts.\n",
             "使い方: tolvane-run [オプション] ファイル...\n"
             "CASL II のソースを順にアセンブル、リンク、実行する。ファイル名 - は標準入力。\n"
             "\n"
             "  -c, --check            実行しない\n"
             "  -d, --dump DIR         DIR に NAME.assembled.txt と NAME.result.txt を書く\n"
             "      --expect FILE      OUT の出力を FILE と比べる\n"
             "      --explain [言葉]   貼り付けたメッセージ、言葉、命令の説明。なければ一覧\n"
             "      --grade FOLDER     FOLDER の input-N.txt で実行し、output-N.txt と比べる\n"
             "  -h, --help             この説明を表示する。-V, --version: 版\n"
             "  -i, --input FILE       IN が読むファイル。プログラムごとに先頭から読む\n"
             "      --last N           最後の N ステップだけをトレースする\n"
             "  -l, --lang en|ja       メッセージの言語（既定値はロケールによる）\n"
             "  -n, --limit N          実行する命令数の上限（既定値 100000000、0 は無制限）\n"
             "      --no-hints         誤りではないが疑わしい箇所の指摘をしない\n"
             "  -p, --pipeline NAME    WP（既定値）, NWW, NwW, NaW, NA, AP, NH\n"
             "      --registers        最後にレジスタ、フラグ、命令数を表示する\n"
             "  -t, --trace            一命令ごとに、読んだ値と変化したものを表示する\n"
             "      --werror           警告があれば終了ステータスを 1 にする\n"
             "  -w, --words            機械語をソースの横に並べて表示する\n"
             "\n"
             "標準出力には OUT の出力だけを、ほかは標準エラー出力に書く。終了ステータス:\n"
             "0 すべて最後まで実行、1 ソースの誤り、2 COMET II による停止、3 上限に達した、\n"
             "4 使い方かファイルの誤り、5 出力の誤り、130 Ctrl+C。複数のときはその最大値。\n"};

    // Wrong use, on one line. {0} of UseError one of the rows behind it
    Msg UseError{"tolvane-run: {0} (see --help)\n", "tolvane-run: {0}（--help を参照）\n"};
    Msg OptionNotUnderstood{"the option \"{0}\" is not understood", "オプション「{0}」は使えない"};
    Msg ArgumentMissing{"the option \"{0}\" needs an argument", "オプション「{0}」には引数が必要"};
    Msg NotALanguage{"the language is en or ja, not \"{0}\"", "言語は en か ja で、「{0}」ではない"};
    Msg NotALimit{"\"{0}\" is no number of instructions", "「{0}」は命令数ではない"};
    Msg NotAPipeline{"there is no pipeline \"{0}\"; there are WP, NWW, NwW, NaW, NA, AP and NH",
                     "パイプライン「{0}」は存在しない。WP, NWW, NwW, NaW, NA, AP, NH のどれか"};
    Msg NotSteps{"\"{0}\" is no number of steps from 1 to {1}", "「{0}」は 1 から {1} までのステップ数ではない"};
    Msg NotTogether{"{0} and {1} do not go together", "{0} と {1} は同時に使えない"};
    Msg NoFile{"no file is given", "ファイルの指定がない"};
    Msg StandardInputTwice{"the standard input is read but once", "標準入力は一度しか読めない"};
    // {0} a name, {1} the system's reason
    Msg CannotBeRead{"{0} cannot be read: {1}", "{0} を読めない: {1}"};
    Msg CannotBeMade{"the folder {0} cannot be made: {1}", "フォルダ {0} を作れない: {1}"};

    // About a file, behind its name
    Msg NotRead{"The file cannot be read: {0}", "ファイルを読めない: {0}"};
    Msg NotWritten{"The file cannot be written: {0}", "ファイルに書けない: {0}"};
    Msg IsASource{"it is a source", "ソースである"};
    Msg TooLarge{"it has {0} bytes, more than 64 MB", "{0} バイトあり、64 MB を超えている"};
    Msg TooLong{"it has more than 64 MB", "64 MB を超えている"};
    Msg MemoryEnded{"tolvane-run: out of memory\n", "tolvane-run: メモリ不足\n"};
    Msg OutOfMemory{"out of memory", "メモリ不足"};
    Msg NotAssembled{"The source was not assembled.", "アセンブルできなかった。"};
    Msg OutputLost{"tolvane-run: the output cannot be written: {0}\n", "tolvane-run: 出力できない: {0}\n"};

    // --explain. {0} the words, the number of titles that are left out
    Msg NothingExplained{"tolvane-run: nothing is known of these words: {0}\nThe nearest are:\n",
                         "tolvane-run: この言葉に合う説明はない: {0}\n近いもの:\n"};
    Msg AlsoExplained{"\nThese fit, too; give more of their words:\n", "\nほかの候補（言葉を足すと絞り込める）:\n"};
    Msg MoreExplained{"  and {0} more\n", "  ほか {0} 件\n"};

    // About the code of a source
    Msg MaybeUtf8{
        "The source was read as Shift_JIS, but its bytes are UTF-8 as well. If its Japanese is UTF-8, save it with "
        "a mark (BOM).",
        "ソースを Shift_JIS として読んだが、UTF-8 としても読める。UTF-8 で書いたのなら BOM を付けて保存すること。"};

    // The trace: what a jump has decided, and what IN has met in the place of a line
    Msg Taken{"taken", "分岐する"};
    Msg NotTaken{"not taken", "分岐しない"};
    Msg EndOfInput{"(end of the input)", "（入力の終わり）"};

    // Behind the run
    Msg Executed{"Instructions: {0}\n", "命令数: {0}\n"};
    Msg OutputDiffers{"The output differs from what is expected in line {0}.", "出力の {0} 行目が期待と異なる。"};

    // The ends of a run that are not the machine's. {0} the limit
    Msg LimitReached{"The limit of {0} instructions was reached.", "命令数の上限 {0} に達した。"};
    Msg Interrupted{"The program was stopped by Ctrl+C.", "Ctrl+C により実行を中断した。"};
    Msg InputEnded{"The program was stopped after 1,000 INs in a row at the end of the input.",
                   "入力の終わりで IN が続けて 1,000 回実行されたので中断した。"};
};
inline constexpr RunCatalogue RunMsg;

} // namespace tolvane
