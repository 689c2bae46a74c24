#pragma once
// What tolvane-run says when it grades a solution.

#include "messages/Msg.h"

namespace tolvane {

struct GradeCatalogue {
    Msg OfFile{"{0}:\n"}; // where several are graded
    // {0} the number of the case
    Msg Right{"Case {0}: right\n", "ケース {0}：正解\n"};
    Msg Wrong{"Case {0}: wrong\n", "ケース {0}：不正解\n"};
    Msg Stopped{"Case {0}: the machine has stopped the program\n", "ケース {0}：実行が途中で止まった\n"};
    Msg StoppedAgain{"Case {0}: stopped at the same place\n", "ケース {0}：同じ所で止まった\n"};
    Msg Endless{"Case {0}: the program does not end; it was stopped after {1} instructions\n",
                "ケース {0}：プログラムが終わらないので、{1} 命令で止めた\n"};

    // {0} a line in quotation marks, or Nothing
    Msg Typed{"typed:    {0}", "入力: {0}"};
    Msg Expected{"expected: {0}", "期待: {0}"};
    Msg Printed{"printed:  {0}", "表示: {0}"};
    Msg InLine{"   The first line that differs is line {0}:\n", "   最初に異なるのは {0} 行目：\n"};
    Msg Nothing{"(nothing)", "（なし）"};

    // What the task demands beside the output
    Msg Changed{"   {0} has changed {1}\n", "   {0} が {1} を変えた\n"};
    Msg Looks{"   Words of {1} that were looked at: {0}; allowed: {2}\n", "   {1} の語を {0} 個見た（{2} 個まで）\n"};
    Msg NoSuchLabel{"The task needs a label {0}, which is not there.\n", "問題で使うラベル {0} がない。\n"};
    Msg NoRecursion{"No subroutine calls itself, as the task demands.\n",
                    "問題の求める、自分自身を呼び出す副プログラムがない。\n"};

    Msg NotSound{"The source has errors.\n", "ソースに誤りがある。\n"};
    Msg AllRight{"All is right: {0} of {0} cases\n", "{0} 件すべて正解。\n"};
    Msg SomeRight{"Right: {0} of {1} cases\n", "{1} 件のうち {0} 件が正解。\n"};
    Msg NoCases{"{0} has no cases: input-1.txt and output-1.txt, input-2.txt and so on",
                "{0} に、input-1.txt と output-1.txt などの採点用ファイルがない"};
};
inline constexpr GradeCatalogue GradeMsg;

} // namespace tolvane
