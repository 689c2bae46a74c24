// Every word of the page, once: Japanese and English. A text without its other language does not compile.

import type { Language } from './engine.js';

const all = {
  title: ['Tolvane', 'Tolvane'],
  subtitle: ['CASL II を書いて、動かして、たどる', 'Write, run and follow CASL II'],

  // Regions
  parts: ['表示する部分', 'Parts of the page'],
  source: ['ソース', 'Source'],
  problems: ['問題点', 'Problems'],
  machine: ['COMET II', 'COMET II'],
  registers: ['レジスタ', 'Registers'],
  memory: ['主記憶', 'Memory'],
  stack: ['スタック', 'Stack'],
  output: ['出力', 'Output'],
  time: ['時間', 'Time'],
  task: ['問題', 'Task'],

  // Controls
  run: ['実行', 'Run'],
  pause: ['一時停止', 'Pause'],
  step: ['1ステップ', 'Step'],
  stepBack: ['1ステップ戻る', 'Step back'],
  over: ['サブルーチンを一度に', 'Over'],
  out: ['呼び出し元まで', 'Out'],
  continueBack: ['逆向きに実行', 'Continue back'],
  restart: ['最初から', 'Restart'],
  grade: ['採点', 'Grade'],
  share: ['共有', 'Share'],
  open: ['開く', 'Open'],
  save: ['保存', 'Save'],
  settings: ['設定', 'Settings'],
  close: ['閉じる', 'Close'],
  copy: ['コピー', 'Copy'],
  copied: ['コピーした', 'Copied'],
  removeSource: ['一覧から消す', 'Remove from the list'],
  startAnew: ['元のソースに戻す', 'Back to the original'],
  stepHint: ['1 命令進む (F8)', 'One instruction on (F8)'],
  stepBackHint: ['1 命令戻る (Shift+F8)', 'One instruction back (Shift+F8)'],
  runHint: ['ブレークポイントか終わりまで実行する (Ctrl+Enter)', 'On to a breakpoint or the end (Ctrl+Enter)'],
  pauseHint: ['実行を止める (Ctrl+Enter)', 'Stop the run (Ctrl+Enter)'],
  overHint: ['CALL なら、戻るところまで進む (F10)', 'One instruction; a CALL with all that it does (F10)'],
  outHint: ['今の副プログラムから戻るところまで進む (Shift+F10)', 'On until this subroutine returns (Shift+F10)'],
  continueBackHint: ['前のブレークポイントか始まりまで戻る (Shift+Ctrl+Enter)', 'Back to the last breakpoint or the start (Shift+Ctrl+Enter)'],
  until: ['ここまで実行', 'Run to'],
  untilHint: ['このアドレスかラベルの命令の直前まで実行する', 'On to the instruction at this address or label'],
  untilPlace: ['アドレスかラベル', 'Address or label'],
  restartHint: ['新しく始める。入力も忘れる', 'A new run, without what was typed'],

  // Sources
  program: ['プログラム', 'Program'],
  editor: ['ソースの編集（F9 ブレークポイント、F1 語の意味）', 'Source text (F9 breakpoint, F1 meaning of a word)'],
  own: ['自分のプログラム', 'My program'],
  files: ['開いたもの', 'Opened'],
  samples: ['見本', 'Samples'],
  exercises: ['練習問題', 'Exercises'],
  guide: ['手引きの例', 'Examples of the guide'],
  shared: ['共有されたプログラム', 'Shared program'],
  sharedArrived: [
    'リンクのプログラムを開いた。まだ何も実行していない。',
    'This is the program of the link. Nothing of it has been run.',
  ],
  linkBroken: ['リンクのプログラムは読めない: {0}', 'The program of the link cannot be read: {0}'],
  linkTooLong: ['大きすぎる', 'it is too large'],
  linkDamaged: ['壊れている', 'it is damaged'],
  linkFits: ['このリンクを開くと、今のソースが入った状態で始まる。', 'Whoever opens this link gets the source as it is now.'],
  linkLabel: ['リンク', 'Link'],
  sourceTooLong: ['このソースはリンクに入らない。ファイルに保存して渡す。', 'The source is too large for a link. Save it, and hand the file over.'],
  notOpened: ['「{0}」を開けない: {1}', '“{0}” cannot be opened: {1}'],
  fileTooLarge: ['1 MB を超えている', 'it has more than 1 MB'],
  fileInvalid: ['{1} バイト目が {0} の文字ではない', 'byte {1} is no character of {0}'],
  fileUnreadable: ['読み込みに失敗した', 'it could not be read'],
  opened: ['「{0}」を {1} として開いた。', '“{0}” was opened as {1}.'],
  lostCharacter: [
    '「{0}」は Shift_JIS にない文字なので、保存しなかった。設定で UTF-8 を選ぶ。',
    '“{0}” has no place in Shift_JIS; nothing was saved. Choose UTF-8 in the settings.',
  ],
  storageFailed: [
    'ブラウザに保存できない（容量不足、または禁止されている）。閉じる前にファイルへ保存すること。',
    'The browser keeps nothing: its storage is full or refused. Save to a file before you leave.',
  ],
  allRight: ['全問正解', 'All right'],
  notAllRight: ['まだ正解ではない', 'Not yet right'],

  // Problems
  noProblems: ['問題なし', 'No problems'],
  moreProblems: ['ほか {0} 件', '{0} more'],
  checking: ['確認中', 'Checking'],
  errorCount: ['エラー {0}', 'Errors: {0}'],
  warningCount: ['警告 {0}', 'Warnings: {0}'],
  noteCount: ['注意 {0}', 'Notes: {0}'],
  error: ['エラー', 'Error'],
  warning: ['警告', 'Warning'],
  note: ['注意', 'Note'],
  atLine: ['{0} 行目', 'Line {0}'],
  explain: ['規則と正しい書き方', 'Rule and sound line'],
  cannotRun: ['エラーがあるので実行できない。', 'It cannot run: the source has errors.'],

  // Editor
  addressColumn: ['アドレスと語', 'Address and words'],
  countColumn: ['実行回数', 'Executions'],
  breakpoint: ['ブレークポイント', 'Breakpoint'],
  labelHover: ['{0} = #{1}（{2}）', '{0} = #{1} ({2})'],
  labelValue: ['内容 #{0}（{1}）', 'holds #{0} ({1})'],

  meaningOfWord: ['語の意味', 'Meaning'],

  // Machine
  notLoaded: ['ソースにエラーがなければ、ここに COMET II が現れる。', 'The machine appears here when the source is sound.'],
  hexadecimal: ['16 進', 'Hex'],
  signed: ['符号付き', 'Signed'],
  unsigned: ['符号なし', 'Unsigned'],
  binary: ['2 進', 'Binary'],
  character: ['文字', 'Char'],
  register: ['名前', 'Name'],
  flags: ['FR', 'FR'],
  address: ['アドレス', 'Address'],
  goToAddress: ['表示するアドレスかラベル', 'Address or label to show'],
  noSuchPlace: ['そのようなアドレスもラベルもない', 'There is no such address or label'],
  words: ['語', 'Words'],
  meaning: ['ソース', 'Source'],
  stackEmpty: ['空', 'Empty'],
  calledFrom: ['{1} 行目の CALL {0} の戻り先', 'back from CALL {0} of line {1}'],
  follow: ['PR を追う', 'Follow PR'],
  details: ['{0} について', 'About {0}'],
  wordAt: ['#{0} の語', 'Word at #{0}'],
  instruction: ['命令', 'Instruction'],
  operation: ['命令コード', 'Operation'],
  firstField: ['r / r1', 'r / r1'],
  secondField: ['x / r2', 'x / r2'],
  addressField: ['アドレス', 'Address'],
  who: ['最後に変えたのは？', 'Who changed this last?'],
  stopWhenChanged: ['変わったら止める', 'Stop when it changes'],
  nobody: ['始まりから変わっていない。', 'It has not changed since the start.'],
  changer: ['{0} 命令目 {1}（{2} 行目）が {3} から {4} に変えた。', 'At moment {0}, {1} (line {2}) changed it from {3} to {4}.'],
  goThere: ['そこへ行く', 'Go there'],
  watching: ['{0} が変わったら止まる', 'Stops when {0} changes'],
  remove: ['取り消す', 'Remove'],

  // Time
  moment: ['{0} / {1} 命令', 'Moment {0} of {1}'],
  slider: ['実行の位置', 'Moment of the run'],
  speed: ['速さ', 'Speed'],
  fullSpeed: ['最高速', 'Full speed'],
  perSecond: ['毎秒 {0} 命令', '{0} a second'],
  ready: ['実行できる', 'Ready'],
  running: ['実行中', 'Running'],
  stopped: ['停止', 'Stopped'],
  paused: ['一時停止中', 'Paused'],
  atBreakpoint: ['ブレークポイントで止まった', 'At a breakpoint'],
  atWatch: ['見ているものが変わった', 'What is watched has changed'],
  atStart: ['始まり', 'At the start'],
  atEnd: ['終わり', 'At the end'],
  ended: ['プログラムは終わった', 'The program has ended'],
  faulted: ['COMET II が止めた', 'The machine has stopped it'],
  wantsInput: ['IN が入力を待っている', 'IN waits for a line'],
  stale: ['ソースが変わった。次の実行は最初から始まる', 'The source has changed: the next run begins anew'],

  // Output and input
  noOutput: ['まだ出力はない', 'Nothing has been printed yet'],
  inputLine: ['IN への入力', 'Input for IN'],
  enter: ['入力', 'Enter'],
  endOfInput: ['入力の終わり', 'End of input'],
  inputEnded: ['（入力の終わり）', '(end of the input)'],
  moreAbove: ['（これより前は省略）', '(the lines before are left out)'],
  linesWaiting: ['先に入力した行: {0}', 'Lines typed ahead: {0}'],
  saveDump: ['ダンプを保存', 'Save the dump'],

  // Settings
  language: ['言語 / Language', 'Language / 言語'],
  pipeline: ['パイプライン', 'Pipeline'],
  numberFormat: ['主記憶とスタックの表示', 'Numbers in memory and stack'],
  saveAs: ['保存の文字コード', 'Save as'],
  utf8: ['UTF-8（BOM 付き）', 'UTF-8 with a mark'],
  shiftJis: ['Shift_JIS', 'Shift_JIS'],
  licences: ['ライセンス', 'Licences'],
  failed: ['このブラウザでは動かない: {0}', 'The page does not work in this browser: {0}'],
} as const satisfies Record<string, readonly [string, string]>;

export type TextKey = keyof typeof all;

let language: Language = 1;
export const currentLanguage = () => language;
export function setLanguage(chosen: Language) {
  language = chosen;
  document.documentElement.lang = chosen === 0 ? 'ja' : 'en';
}

// The text in the language in force, with {0}, {1} ... filled in.
export function t(key: TextKey, ...words: (string | number)[]): string {
  return all[key][language].replace(/\{(\d)\}/g, (_, n: string) => String(words[Number(n)] ?? ''));
}
