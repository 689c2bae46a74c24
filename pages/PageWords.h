#pragma once
// What the pages say by themselves, in Japanese and in English.

namespace tolvane::words {

using Word = const char* [2];

inline constexpr Word Severities[] = {{"エラー", "Error"}, {"警告", "Warning"}, {"注意", "Note"}, {"メモ", "Note"}};
inline constexpr Word Stop = {"実行の停止", "Stop of the run"};
inline constexpr Word Fault = {"誤り", "Fault"};
inline constexpr Word Example = {"誤りのある例", "A faulty example"};
inline constexpr Word Pipeline = {"（パイプライン ", " (pipeline "};
inline constexpr Word PipelineEnd = {"）", ")"};
inline constexpr Word Output = {"表示されるメッセージ", "What is said of it"};
inline constexpr Word NotShown = {
    "tolvane は WP ではこの行を数えるだけで、表示しない（エラーもあるときは表示する）。tolvane-run は表示する。",
    "In WP tolvane counts it and shows it only beside an error; tolvane-run shows it."};
inline constexpr Word Sound = {"正しい行", "Sound"};
inline constexpr Word SoundSource = {"正しいプログラム", "A sound program"};
inline constexpr Word Instruction = {"命令", "Instruction"};
inline constexpr Word Colon = {"：", ": "};
inline constexpr Word Form = {"書式", "Form"};
inline constexpr Word OpcodeExample = {"例", "Example"};
inline constexpr Word Flags = {"フラグ", "Flags"};
inline constexpr Word Result = {"結果", "What happens"};
inline constexpr Word NothingSaid = {"（メッセージは出ない）", "(nothing is said)"};
inline constexpr Word Registers = {"実行後のレジスタ:", "Registers after the run:"};
inline constexpr Word NoRegisters = {" すべて 0", " all 0"};
inline constexpr Word Others = {"ほかの文面", "Other wordings"};
inline constexpr Word Title = {"Tolvane のメッセージ", "The messages of Tolvane"};
inline constexpr Word Intro = {
    "メッセージ、誤り、命令ごとに、規則、誤りのある例とその表示、正しいプログラムを示す。"
    "“…” の所には、ソースの語や数が入る。",
    "For each message, fault and instruction: the rule, a faulty example with what is said of it, and a sound program. "
    "“…” stands for words and numbers of your source."};
inline constexpr Word Search = {
    "検索：表示された行を貼り付けるか、言葉や命令を入れる（Enter で最初の結果へ、Esc で消去）",
    "Search: paste a printed line, or type words or an opcode (Enter: the first result, Esc: clear)"};
inline constexpr Word Fit = {"{0} 件", "{0} found"};
inline constexpr Word Near = {"合うものはない。近いもの：", "Nothing fits. The nearest:"};
inline constexpr Word Index = {"目次", "Index"};

} // namespace tolvane::words
