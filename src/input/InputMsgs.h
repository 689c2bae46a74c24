#pragma once
// What the name entry and the readers say.

#include "messages/Msg.h"

namespace tolvane {

struct InputCatalogue {
    Msg FileNotFound{"The file is not found there. *", "ファイルが見つかりませんでした。\n"};
    Msg NoInput{"No Input Error!\n"};
    Msg DoesNotOpenBinary{"\n{prefix}The file {0q} does not open on binary mode. "
                          "Misspellings?  Or the file does not exist there. *",
                          "\n{prefix}{0q} (binary mode)を開くことができません。 "
                          "ミススペル あるいは ファイルが存在しない。 *"};
    Msg DoesNotOpen{"\n{prefix}The file {0} does not open. "
                    "Misspellings?  Or the file does not exist there. *",
                    "\n{prefix}'{0}' を開くことができません。 "
                    "ミススペル あるいは ファイルが存在しない。 *"};
    Msg TooLargeFile{"\n{prefix}The file {0} is too large for the memory of this machine. *",
                     "\n{prefix}'{0}' は大きすぎて、このマシンのメモリーに入りません。 *"};
    Msg EndlessFile{"\n{prefix}The file {0} does not end where its size says it ends. It is not read any further. *",
                    "\n{prefix}'{0}' は表示されたサイズを超えても終わらないため、読み込みを中止しました。 *"};

    // The array reader
    Msg ReadingArray{"Reading {0}.\n", "'{0}' を読み込みます。\n"};
    // {0} the length of the line, {1} the limit
    Msg LongLine{"{line}There are {0} characters in the line. "
                 "The assembler does not read more than {1} characters in a line. (Spec. of Tolvane): "
                 "This could cause an error to assemble the line. ",
                 "{line}一行の中に {0} 文字ある。 ソースコード一行の制限文字数 {1} 文字（独自仕様）を超えている。 "
                 "エラーにはなりませんが、制限文字数以上は読み込みません。 "};
    // {0} the limit, {1} the lines of the file
    Msg TooManyLines{"{prefix}There is a limitation to the number of the lines in a source code file. "
                     "The maximum is {0} lines in a file. There are {1} lines in your source code. "
                     "You are expected to decrease the lines in your file. ",
                     "{prefix}ソースコードのおおよその制限（一つのファイルにつき） {0}行 を超えています。"
                     "行数を減らす工夫をしてご利用ください。 "};

    Msg NoUtf16CodePage{"Prg. Else Error: "};
};
inline constexpr InputCatalogue InputMsg;

} // namespace tolvane
