#pragma once
// What the driver says: start-up, title, menu, the lines round an assembly and a run.

#include "messages/Msg.h"

namespace tolvane {

struct DriverCatalogue {
    // Start-up
    Msg NoIniDirectoryNarrow{"iRt=0: Fail to SetCurrentDirChH()\n"};
    Msg NoIniDirectoryWide{"iRt=0: Fail to SetCurrentDirChWH()\n"};
    Msg NoCurrentDirectory{"iRt=0: Fail to TGame::SetCurrentDirChH()\n"};
    Msg GetcwdError{"_getcwd error: {0}\n"};
    Msg PipelineByDefault{"FightNwW(); by default.\n"};
    Msg EditorFlagOutOfRange{"Error: {body}TextEditorFlag is out of range. \n"
                             "TextEditorIndex={0}\n"
                             "TextEditorIndex is corrected to be 0. \n"};
    Msg EditorIndexOutOfRange{"PrgError: index < 0 || 2 < index\n"
                              "The index was corrected to be zero.\n"
                              "TBasicData::SetTextEdIndex(int)\n"};

    // Title
    Msg Title{"\nTolvane  Ver. " TOLVANE_VERSION "  x64  R_{0}\n\n"
              "Assembler, Linker, and Simulator\n"
              "Built for {1}\n"
              "The Tolvane developers\n\n"};
    Msg SimpleTitle{"\nTolvane  Ver. " TOLVANE_VERSION "  x64  R_{0}\n\n"
                    "Assembler & Simulator\n"
                    "Built for {1}\n"
                    "The Tolvane developers\n\n"};

    // The Enter prompt and the menu
    Msg FirstEnterPrompt{"\n\nPress your Enter key to go next. \n",
                         "\n\n入力（Enter）キィを押すと次へ進む。\n",
                         {WordingNH, "\n\nPress the Enter key to go next. \n", nullptr}};
    Msg EnterPrompt{"\n\nPress the Enter key to go next. \n", "\n\n入力（Enter）キィを押すと次へ進む。\n"};
    Msg ShortMenu{"\nMenu:\n"
                  " 1.  Input a filename to assemble.\n"
                  "11.  assembles the previous file once again. \n"
                  " 2.  {0}\n"
                  " 3.  {1}\n"
                  " 4.  shows a list of files in a specified folder.\n"
                  " 5.  displays a specified text file.\n"
                  "55.  displays the previous file. \n"
                  "123. Exit\n"
                  "Input a menu number.\n",
                  "\nメニュー：\n"
                  " 1.  ファイル名（プログラム名）を指定する。\n"
                  "11.  前回のファイルを再アセンブルする。\n"
                  " 2.  {0}\n"
                  " 3.  {1}\n"
                  " 4.  指定フォルダの中のファイルリストを表示 \n"
                  " 5.  指定のファイルを表示する。\n"
                  "55.  前回のファイルを再度開く。 \n"
                  "123 プログラムを終了する。\n"
                  "メニュー番号を入力してください。\n"};
    Msg LongMenu{"\nMenu:\n"
                 " 1.  Input a filename to assemble.   e.g. src/pn100.txt\n"
                 "11.  assembles the previously assembled or opened file once again. \n"
                 " 2.  shows an assembled result of {0}\n"
                 " 3.  shows an execution result of {1}\n"
                 " 4.  shows a list of files in a specified folder.   e.g.  src\n"
                 " 5.  displays a specified text file.   e.g.  src/list792j.txt\n"
                 "55.  displays the previously opened or assembled text file. \n"
                 "123. Exit \n"
                 "Input a menu number.\n",
                 "\nメニュー：\n"
                 " 1.  ファイル名（プログラム名）を指定する。例 : src/pn100.txt\n"
                 "11.  前回アセンブルまたは開いたファイルを再アセンブルする。\n"
                 " 2.  アセンブル結果 を表示する。{0}\n"
                 " 3.  実行結果       を表示する。{1}\n"
                 " 4.  指定フォルダの中のファイルリストを表示する。 \n"
                 " 5.  指定のテキストファイルを表示する。\n"
                 "55.  前回開いたまたはアセンブルしたファイルを再度開く。 \n"
                 "123 プログラムを終了する。\n"
                 "メニュー番号を入力してください。\n"};
    Msg NoMenuNumber{"You are expected to input a good menu number.\n",
                     "メニュー番号以外の入力がありましたのでもう一度！\n"};
    Msg TryAgain{"Try it again!\n", "もう一度\n"};
    Msg AskSourceName{"\nInput a filename (with no extension). \n",
                      "\nファイル名(拡張子省略可) を入力してください。 \n"};
    Msg AskFolder{"Input a folder name.  eg1:  src     eg2:  src/example\n",
                  "フォルダ名を入力してください。　例１： src  例２：　src/example\n"};
    Msg AskTextName{"Input a text filename to edit. \n",
                    "テキスト名を入力してください。　例１： src\\pn3035  　例２: src/list792j\n"};

    // Summaries
    Msg OneError{"\n\nThere is 1 error to be corrected. \n"
                 "\nCorrect the codes and assemble them again.\n",
                 "\n\n 1 個の エラー があるので修正が必要です。 \n"};
    Msg Errors{"\n\nThere are {0} errors to be corrected. \n"
               "\nCorrect the codes and assemble them again.\n",
               "\n\n {0} 個の エラー があるので修正が必要です。 \n"};
    Msg OneWarning{"{0} warning: \n", "{0} 個の 警告 がある。 \n"};
    Msg Warnings{"{0} warnings: \n", "{0} 個の 警告 がある。 \n"};
    Msg Assembled{"Successfully Assembled! ", "アセンブル成功 "};
    // The first line of each dump in a run of the program says more in Japanese.
    Msg FirstAssembledDump{"---> {0} \n", "---> {0} \nアセンブルされたメモリの全容が保存してあります。"};
    Msg AssembledDump{"---> {0} \n", "---> {0} "};
    Msg FirstResultantDump{"---> {0} \n", "---> {0} \n実行後のメモリの全容が保存してあります。"};
    Msg ResultantDump{"---> {0} \n", "---> {0} "};
    Msg RunQuestion{"\n\n\nMenu:\n"
                    "1.  Go on this execution. \n"
                    "2.  Go back to Main Menu. \n"
                    "Input a menu number. \n",
                    "\n\n\nメニュー:\n"
                    "１ このまま実行する。 \n"
                    "２ メイン メニューにもどる。 \n"
                    "メニュウ番号を入力してください。 \n"};

    // On the standard error, one line each. {0} the reason, {1} the address, {2} the source line, {3} the dump
    Msg StoppedAtLine{"The program was stopped {0} at address #{1x4}, line {2}. ---> {3}\n",
                      "{0} #{1x4} 番地、{2} 行目で実行を中断しました。---> {3}\n"};
    // {2} the dump
    Msg StoppedAtAddress{"The program was stopped {0} at address #{1x4}. ---> {2}\n",
                         "{0} #{1x4} 番地で実行を中断しました。---> {2}\n"};
    Msg ByInterrupt{"by Ctrl+C", "Ctrl+C により"};
    Msg ByInputEnd{"after 1,000 INs in a row at the end of the input,",
                   "入力の終わりで IN が続けて 1,000 回実行されたので"};
    // {0} the system's reason
    Msg OutOfMemory{"\nThe source needs more memory than there is. It has been given up.\n",
                    "\nメモリが足りないので、このソースのアセンブルを中止しました。\n"};
    Msg MemoryEnded{"tolvane: out of memory\n", "tolvane: メモリ不足です\n"};
    Msg SettingsNotSaved{"tolvane: the settings cannot be saved: {0}\n", "tolvane: 設定を保存できません: {0}\n"};
    Msg NotStarted{"tolvane: no program that shows this can be started: {0}\n",
                   "tolvane: 表示に使うプログラムを起動できません: {0}\n"};
    Msg OutputLost{"tolvane: the output cannot be written: {0}\n", "tolvane: 出力できません: {0}\n"};
};
inline constexpr DriverCatalogue DriverMsg;

} // namespace tolvane
