#pragma once
// What the machine says: start and end of a run, the stops, the store warning, and the virtual OS.

#include "messages/Msg.h"

namespace tolvane {

struct MachineCatalogue {
    Msg Start{"The comet2 starts running, please wait for a moment ...,\n",
              "\n演算実行 開始、しばらくお待ちください。\n"
              "COMET2 実行中 "};
    Msg End{"and it has come to an end of the program\n"
            "in ",
            "--> 終了\n"};
    Msg RunTime{"{0}. ", "{0} 実行時間 "};

    // The stops. {0} is the limit, where there is one.
    Msg PrBeyondMemory{"Runtime Error: {body}The comet2 is terminated！\n"
                       "Because the Program Register(PR) has exceeded the maximum memory address "
                       "of {0}. "
                       "Your program cannnot access any address over there. "
                       "It might haved executed a lot of opcodes in vain "
                       "in the higher address area. "
                       "The comet2 has 65536 words in memory in truth. "
                       "But this simulator has only {0} memories for the sake of simplicity. "
                       "PR = #{1x4} = {1}(dec) \n",
                       "実行時エラー：{body}実行途中停止！\n"
                       "プログラムレジスター(PR)が この COMET2 シミレーター の "
                       "最大メモリー {0} 番地を超えました。 "
                       "さらに、最大アドレスを超えてメモリにアクセスしようとしたので"
                       "実行を中止しました。  "
                       "本来の COMET2 では もちろん "
                       "PR = 65535 までアクセス可能ですが、Tolvane では制限を設けています。"
                       "プログラムを工夫修正してご利用ください。 "
                       "PR = #{1x4} = {1}（十進数）番地 Run. "
                       "おそらく、プログラムの定義域を飛び出して、メモリ後半にある "
                       "NOP=#0000 の連続部分が実行されたものと考えられます。",
                       {WordingNA | WordingAP | WordingNH,
                        "--> {body}The comet2 is terminated！\n"
                        "Because the Program Register(PR) has exceeded the maximum memory address "
                        "of {0}. "
                        "Your program cannnot access any address over there. "
                        "It might haved executed a lot of opcodes in vain "
                        "in the higher address parts. "
                        "The comet2 has 65536 words in memory in truth. "
                        "But this simulator has only {0} memories "
                        "for the sake of simplicity. "
                        "PR = #{1x4} = {1}(dec) \n",
                        "--> {body}中止！\n"
                        "プログラムレジスター(PR)が この COMET2 シミレーター の "
                        "最大メモリー {0} 番地を超えました。 "
                        "そして、最大メモリーを超えてアクセスしようとしたので"
                        "実行を中止しました。  "
                        "本来の COMET2 では もちろん "
                        "PR = 65535 までアクセス可能ですが、Tolvane では。"
                        "プログラムを工夫修正してご利用ください。 "
                        "PR = #{1x4} = {1}（十進数）番地 Run. "
                        "おそらく、プログラムの定義域を飛び出して、メモリ後半にある "
                        "NOP=#0000 の連続部分が実行されたものと考えられます。"}};
    // {0} the word, {1} its address
    Msg BadRegister{"Runtime Error: {body}The comet2 is terminated! "
                    "There is a machine code to specify "
                    "a non-general register excluding GR0-GR7. "
                    " Or the instruction code has been rewriten "
                    "during the execution of the comet2. "
                    "The comet2 has been terminated "
                    "because an opcode of #{0x4} is going to be executed. "
                    "Program Register(PR)=#{1x4}= {1}(Address in Decimal Number).  ",
                    "実行時エラー：{body}実行途中停止\n"
                    "機械語命令が GR0-GR7 以外のレジスターを指定している。 "
                    "あるいは、機械語命令が実行中に変更された。 "
                    "命令コード #{0x4} を実行しようとしたのでCOMET2を停止させました。 "
                    "Program Register(PR)=#{1x4}= {1} （十進数）番地  ",
                    {WordingNA | WordingAP | WordingNH,
                     "The comet2 is terminated! "
                     "There is a machine code instruction to specify "
                     "a non-exisitinggeneral register excluding GR0-GR7. "
                     " Or the instruction has been rewriten so "
                     "during the execution of the comet2. "
                     "The comet2 has been terminated "
                     "because an opcode of #{0x4} is going to be executed. "
                     "Program Register(PR)=#{1x4}= {1}(Address in Decimal Number).  ",
                     "実行時エラー：{body}実行途中停止\n"
                     "機械語命令が GR0-GR7 以外のレジスターを指定しているかのように読み取れる。 "
                     "あるいは、機械語命令がそのように変化している。 "
                     "命令コード #{0x4} を実行しようとしたので実行が中断された。 "
                     "Program Register(PR)=#{1x4}= {1} （十進数）番地  "}};
    Msg OperandBeyondMemory{"\nRuntime Error: --> OS: {body}Forced Termination of the comet2.  "
                            "The virtual OS has detected that the comet2 "
                            "is going to access a memory beyond tMaxMemory. \n",
                            "\n実行時エラー：{body}途中中止：  tMaxMemory を超えてロードしようとしたので"
                            "実行を中止しました。 \n",
                            {WordingNA | WordingAP,
                             "--> OS: {body}Termination of the comet2.  "
                             "The virtual OS has detected that the comet2 "
                             "is going to access a memory beyond tMaxMemory. \n",
                             "-> {body}中止。  tMaxMemory を超えてロードしようとしたので"
                             "実行を中止しました。 \n"},
                            {WordingNH,
                             "--> OS: {body}Termination of the comet2.  "
                             "The virtual OS has detected that the comet2 "
                             "is going to access a memory beyond MaxMemory. \n",
                             "-> {body}中止。  MaxMemory を超えてロードしようとしたので"
                             "実行を中止しました。 \n"}};
    // The instruction's two words: {0} address as a signed word, {1} address, {2} cell; {3} {4} {5} the same.
    Msg OperandWords{"PR={0} (address), Memory[{1}]=#{2x4}={2}(dec) and \n"
                     "PR={3} (address), Memory[{4}]=#{5x4}={5}(dec) \n",
                     "PR={0} 番地の Memory[{1}]=#{2x4}={2}(dec) と \n"
                     "PR={3} 番地の Memory[{4}]=#{5x4}={5}(dec)\n"
                     " を実行により発生。 \n"};
    // The cell that the address word names: {0} address as a signed word, {1} the word, {2} its signed value.
    Msg OperandCell{"Memory[{0}]=#{1x4}={2}(dec). \n", "Memory[{0}]=#{1x4}={2}(dec). \n"};
    // {0} the word, {1} its address
    Msg NotANop{"\nRuntime Error: {body}Forced Termination of comet2 by OS:{join}"
                "An unknown error has happened while comet2 is running. "
                "The comet2 is going to "
                "execute #{0x4} at an address of {1} (Dec). "
                "It is strange. Because NOP machine code is not #{0x4} but #0000. "
                "Please check your source code carefully, "
                "you will find out this main cause in it.\n\n",
                "\n実行時エラー：{body}COMET2 を強制終了させました。\n"
                "ソースコードを見直してください。\n"
                "An unknown error has happened while comet2 is running. "
                "The comet2 is going to "
                "execute #{0x4} at an address of {1} (Dec). "
                "It is strange. Because NOP machine code is not #{0x4} but #0000. "
                "Please check your source code carefully, "
                "you will find out this main cause in it.\n\n"};
    // {0} the limit, {1} the instruction's address
    Msg StoreBeyondMemory{"Terminated!\n"
                          "The COMET2 has 65536 words in memory. \n"
                          "When an opcode at "
                          "#{1x4} was executed, "
                          "a virtual OS in Tolvane has detected the comet2 was "
                          "going to store a data beyond the maximam address "
                          "of {0}. "
                          "So the OS has terminated the comet2; "
                          " otherwise the comet2 would get out of control. \n",
                          "実行時エラー：　{body}中止\n"
                          "#{1x} = {1} （10進数）番地の命令の実行時 {0} 番地を超えてデータを"
                          "ストア（ＳＴ）しようとしました。"
                          "これは危険なので暴走をしないように実行を停止させました。\n",
                          {WordingNH,
                           "Terminated!\n"
                           "The COMET2 has 3465 words in memory. \n"
                           "When an opcode at "
                           "#{1x4} was executed, "
                           "a virtual OS in Tolvane has detected the comet2 was "
                           "going to store a data beyond the maximam address "
                           "of {0}. "
                           "So the OS has terminated the comet2; "
                           " otherwise the comet2 would get out of control. \n",
                           nullptr}};
    // {0} the word, {1} its address
    Msg UnknownCode{"\nRuntime Error: {body}"
                    "The comet2 has been terminated by OS.  "
                    "Because a non-registered machine code of "
                    "#{0x4} is going to be executed.  "
                    "Program Register(pr)=#{1x}=dec{1} \n"
                    "An unknown error has happened in Tcomet2::Run(). ",
                    "\n実行時エラー： {body}comet2 を強制終了させました。\n"
                    "登録されていない命令コード "
                    "#{0x4} を実行しようとしたので実行を中止しました。\n"
                    "Program Register(pr)=#{1x}=dec{1}\n"
                    " An unknown error has happened in Tcomet2::Run(). ",
                    {WordingNA | WordingAP | WordingNH,
                     "\nRuntime Error: {body}"
                     "The comet2 has been terminated.  "
                     "Because a non-registered machine code of "
                     "#{0x4} is going to be executed.  "
                     "Program Register(pr)=#{1x}=dec{1} \n"
                     "An unknown error has happened in Tcomet2::Run(). ",
                     nullptr}};
    Msg ReturnWithoutStack{"SP=#{0x} "
                           "An unknown error has happened "
                           "in Tcomet2::ret581(), ret681. ",
                           "SP=#{0x} "
                           "An unknown error has happened "
                           "in Tcomet2::ret581(), ret681. "};
    Msg StackFull{"The virtual OS has terminated the comet2. "
                  "Because the comet2 was going to save a data "
                  "into an inappropriate memory area "
                  "beyond the so-called stack area. "
                  "It has happened when an opcode at address "
                  "of #{0x} is executed. "
                  "The stack area is allocated between "
                  "#FFFF and (#FFFF(hex)-500(dec)) in memory. ",
                  "スタックエリア（このシミレイターでは 500 個）をこえて"
                  "スタックしようとしたので実行を中止しました。"
                  "#{0x}=Dec{0}番地の実行で発生。"};

    // {0} reserved words, in Japanese the last address of them, {1} the store's address, {2} the instruction's address,
    // {3} its word, {4} its executions
    Msg StoreWarning{"Warning: {body}Out of Range\n"
                     "Your reserved memory is {0} words in size. \n"
                     "A data has stored in an address of {1}(Dec).\n"
                     "The address is out of the reserved area.\n"
                     "Is this your intention?  "
                     "It has occured when a machine code of \n"
                     "(Address, Machine Code)=(#{2x4}, #{3x4})\n"
                     "is done at the {4o} execution. \n",
                     "\n 警告： {body}確保した（comet2の）メモリ領域以外への書き込み！\n"
                     "あなたのプログラムが確保したメモリ領域は {0} （10進数）番地までです。\n"
                     "これを超えて {1} （10進数）番地にデータがストア（ST）されました。\n"
                     "これはあなたが意図したものですか。\n"
                     "(Address, Machine Code）=（#{2x4}, #{3x4}）を\n"
                     "{4}回目に"
                     "実行した時に発生しました。 \n",
                     {WordingNH,
                      "WARNING: {body}Your reserved memory size is {0} words in size. \n"
                      "A data has stored in an address of {1}(Dec).\n"
                      "The address is out of the reserved area.\n"
                      "Is this your intention?  "
                      "It has occured when a machine code of \n"
                      "(Address, Machine Code)=(#{2x4}, #{3x4})\n"
                      "is done at the {4o} execution. \n",
                      nullptr}};

    // The virtual OS
    Msg UnknownService{"{0} works as NOP does. "
                       "Because there is no description about {0} "
                       "in Spec.of CASL2. ",
                       "svc {0} は仕様に記述がないので、NOP と同じ動作をするものとした。 "};
    Msg OutHead{"\nOS: Output by a Macro Instruction of OUT. \n", "\nOS: マクロ命令( OUT )による出力 \n"};
    Msg InHead{"\nOS: Input some letters from your keyboard. \n"
               "(Input Requirement by a Macro Instruction of IN) \n"
               "Press Enter key or Ctrl + Z Keys "
               "at the end of your input. \n",
               "\nOS: 文字を入力してください。 \n"
               "マクロ命令( IN )による入力要求。\n"
               "Enter キイ を押す 又は CTRL + Z を押す と 入力終了。 \n"};
    Msg InNotConverted{"mbsrtowcs_s() has returned Error. MbChToWCsH(), ",
                       "mbsrtowcs_s() has returned Error. MbChToWCsH(), "};
};
inline constexpr MachineCatalogue MachineMsg;

} // namespace tolvane
