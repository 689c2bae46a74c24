// The values that the engine hands over (web/engine/), and what the workers are asked.

export type Language = 0 | 1; // Japanese, English
export const pipelines = ['WP', 'NWW', 'NwW', 'NaW', 'NA', 'AP', 'NH'] as const;
export type Pipeline = (typeof pipelines)[number];

export interface Diagnostic {
  line: number; // from 0, -1 without one
  severity: number; // error, warning, note, memo
  lines: string[];
  explanation: number; // -1 without one
}
export interface LineInfo {
  address: number;
  words: number[];
  isInstruction: boolean;
  label: string;
  ends: boolean; // the last line of a program
}
export interface Checked {
  good: boolean;
  diagnostics: Diagnostic[];
}
export interface Decoded {
  text: string;
  code: string;
  invalid: number; // the place of the first byte that is no text, -1 without one
}
export interface Encoded {
  bytes: Uint8Array<ArrayBuffer>;
  lost: string; // the first character that has no place in the code
}
export interface Opcode {
  word: string;
  explanation: number;
}
export interface Graded {
  right: boolean;
  text: string;
}
export interface CaseFile {
  name: string;
  text: string;
}

export type CellKind = 'GR' | 'SP' | 'OF' | 'SF' | 'ZF' | 'word';
export interface Cell {
  kind: CellKind;
  index: number;
}
export interface ConsoleEntry {
  kind: 'out' | 'in' | 'end' | 'note' | 'error' | 'more';
  text: string;
  place?: string;
  line?: number;
}
export interface StackWord {
  address: number;
  value: number;
  routine?: string; // of a return address: what was called
  line?: number;
}
export interface MemoryRow {
  address: number;
  words: number[];
  line: number;
  label?: string;
  text?: string;
}
export interface State {
  now: number;
  latest: number;
  isEnd: boolean;
  isFault: boolean;
  wantsInput: boolean;
  waiting: number;
  gr: number[];
  pr: number;
  sp: number;
  of: number;
  sf: number;
  zf: number;
  line: number;
  stack: StackWord[];
}
export type Why =
  'arrived' | 'breakpoint' | 'watch' | 'stopped' | 'start' | 'found' | 'notFound' | 'interrupted' | 'paused';
export interface Outcome {
  why: Why;
  moment?: number;
  line?: number;
  address?: number;
  label?: string;
  text?: string;
  before?: number;
  after?: number;
}
export interface Word {
  value: number;
  second: number;
  wordCount: number;
  instruction: string;
  label: string;
  line: number;
  isInstruction: boolean;
}

// The module that emscripten makes.
export interface Engine {
  check(source: string, pipeline: string, language: Language): Checked;
  lines(source: string, pipeline: string, language: Language): LineInfo[];
  explanation(index: number, language: Language): string;
  opcodes(): Opcode[];
  decode(bytes: Uint8Array): Decoded;
  encodeShiftJis(text: string): Encoded;
  grade(source: string, pipeline: string, language: Language, folder: string): boolean;
  load(source: string, pipeline: string, language: Language): Checked;
  begin(task: Exclude<Task, 'step'>, back: boolean, number: number): boolean;
  beginWho(kind: CellKind, index: number): boolean;
  work(budget: number): boolean;
  pace(instructions: number): Why;
  outcome(): Outcome;
  state(): State;
  console(): ConsoleEntry[];
  consoleMark(): string;
  counts(): number[];
  memoryRows(first: number, rows: number): MemoryRow[];
  wordAt(address: number): Word;
  type(line: string): void;
  endInput(): void;
  setBreakpoints(lines: number[]): void;
  setWatch(kind: CellKind, index: number, isOn: boolean): void;
  setLanguage(language: Language): void;
  dump(name: string): string;
  FS: { mkdir(path: string): void; writeFile(path: string, text: string): void; analyzePath(path: string): { exists: boolean }; unlink(path: string): void; readdir(path: string): string[] };
}
// "resume" goes on with a task that has stopped in front of an IN; "step" goes so many moments on or back,
// "until" to an address.
export type Task = 'go' | 'step' | 'run' | 'over' | 'out' | 'until' | 'resume';

// What is shown of the machine at a moment.
export interface Picture {
  state: State;
  counts: number[];
  memory: MemoryRow[];
  running: boolean;
  console?: ConsoleEntry[]; // if it has changed
  outcome?: Outcome; // of the task that has ended
}

// What a worker can be asked, with what it answers. Tasks answer by pictures.
export interface Questions {
  check(source: string, pipeline: Pipeline, language: Language): Checked;
  lines(source: string, pipeline: Pipeline, language: Language): LineInfo[]; // none of a source with errors
  explanation(index: number, language: Language): string;
  decode(bytes: Uint8Array): Decoded;
  encodeShiftJis(text: string): Encoded;
  grade(source: string, pipeline: Pipeline, language: Language, name: string, cases: CaseFile[]): Graded;
  load(source: string, pipeline: Pipeline, language: Language): Checked;
  unload(): void; // no picture comes behind its answer
  task(task: Task, back: boolean, number: number, pace: number): void; // instructions a second, 0: at full speed
  who(kind: CellKind, index: number): Outcome;
  pause(): void;
  look(first: number, rows: number): void; // which part of the memory is shown
  wordAt(address: number): Word;
  type(line: string): void;
  endInput(): void;
  setBreakpoints(lines: number[]): void;
  setWatch(kind: CellKind, index: number, isOn: boolean): void;
  setLanguage(language: Language): void;
  dump(name: string): string;
}
export type Question = keyof Questions;
export type ToWorker = { module: WebAssembly.Module } | { id: number; question: Question; words: unknown[] };
export type FromWorker =
  { kind: 'ready' } | { kind: 'answer'; id: number; answer: unknown } | { kind: 'fault'; id: number; why: string } | { kind: 'picture'; picture: Picture };
