// The editor: text, faults, addresses and words, breakpoints, how often each line has run, and what a word means.

import { defaultKeymap, history, historyKeymap } from '@codemirror/commands';
import { lintKeymap, setDiagnostics, type Diagnostic as Mark } from '@codemirror/lint';
import { highlightSelectionMatches, search, searchKeymap } from '@codemirror/search';
import { Compartment, EditorState, Prec, RangeSet, StateEffect, StateField, type Extension } from '@codemirror/state';
import { Decoration, EditorView, GutterMarker, drawSelection, gutter, highlightActiveLine, hoverTooltip, keymap, lineNumbers, type DecorationSet } from '@codemirror/view';
import { casl2 } from './casl2.js';
import type { Diagnostic, LineInfo } from './engine.js';
import { hex } from './numbers.js';
import { t } from './texts.js';

const mostWords = 2; // beside a line

class TextMarker extends GutterMarker {
  constructor(
    readonly text: string,
    readonly style: string,
  ) {
    super();
  }
  override eq(other: TextMarker) {
    return other.text === this.text && other.style === this.style;
  }
  override toDOM() {
    const element = document.createElement('span');
    element.className = this.style;
    element.textContent = this.text;
    return element;
  }
}

function field<T>(empty: T) {
  const effect = StateEffect.define<T>();
  const state = StateField.define<T>({
    create: () => empty,
    update: (value, transaction) => transaction.effects.reduce((kept, each) => (each.is(effect) ? each.value : kept), value),
  });
  return { effect, state };
}
const lineInfos = field<LineInfo[]>([]);
const runCounts = field<number[]>([]);

const setCurrent = StateEffect.define<number>();
const currentMark = Decoration.line({ class: 'cm-current', attributes: { 'aria-current': 'true' } });
const currentLine = StateField.define<DecorationSet>({
  create: () => Decoration.none,
  update(marks, transaction) {
    let kept = marks.map(transaction.changes);
    for (const each of transaction.effects)
      if (each.is(setCurrent)) {
        const exists = each.value >= 0 && each.value < transaction.state.doc.lines;
        kept = exists ? Decoration.set([currentMark.range(transaction.state.doc.line(each.value + 1).from)]) : Decoration.none;
      }
    return kept;
  },
  provide: (marks) => EditorView.decorations.from(marks),
});

const breakMarker = new TextMarker('●', 'breakpoint');
const toggleBreak = StateEffect.define<number>(); // where its line begins
const breakpoints = StateField.define<RangeSet<GutterMarker>>({
  create: () => RangeSet.empty,
  update(marks, transaction) {
    let kept = marks.map(transaction.changes);
    for (const each of transaction.effects)
      if (each.is(toggleBreak)) {
        let isThere = false;
        kept.between(each.value, each.value, () => void (isThere = true));
        kept = isThere
          ? kept.update({ filter: (from) => from !== each.value })
          : kept.update({ add: [breakMarker.range(each.value)], sort: true });
      }
    return kept;
  },
});

function wordsText(info: LineInfo): string {
  if (info.words.length === 0) return '';
  const words = info.words.slice(0, mostWords).map(hex).join(' ');
  return hex(info.address) + '  ' + words + (info.words.length > mostWords ? '…' : '');
}

// Ten times as many executions are one step hotter.
function heat(count: number): number {
  return Math.min(5, Math.floor(Math.log10(count)) + 1);
}

const lineOf = (view: EditorView, from: number) => view.state.doc.lineAt(from).number - 1;
const widest = (text: string) => new TextMarker(text, 'spacer');

const wordsGutter = gutter({
  class: 'cm-words',
  lineMarker(view, line) {
    const info = view.state.field(lineInfos.state)[lineOf(view, line.from)];
    return info ? new TextMarker(wordsText(info), 'words') : null;
  },
  lineMarkerChange: (update) => update.transactions.some((each) => each.effects.some((effect) => effect.is(lineInfos.effect))),
  initialSpacer: () => widest('0000  0000 0000…'),
});
const countGutter = gutter({
  class: 'cm-counts',
  lineMarker(view, line) {
    const count = view.state.field(runCounts.state)[lineOf(view, line.from)] ?? 0;
    return count > 0 ? new TextMarker(count < 1e6 ? String(count) : (count / 1e6).toFixed(count < 1e7 ? 1 : 0) + 'M', 'count heat' + heat(count)) : null;
  },
  lineMarkerChange: (update) => update.transactions.some((each) => each.effects.some((effect) => effect.is(runCounts.effect))),
  initialSpacer: () => widest('00000'),
});

export interface EditorUses {
  opcodes: readonly string[];
  changed(): void;
  breakpointsChanged(): void;
  // What is told of a word of the source, in a line (from 0).
  explain(word: string, line: number): Promise<string | undefined>;
  keys: { key: string; run(): void }[];
}

export interface Editor {
  view: EditorView;
  text(): string;
  breakpoints(): number[]; // lines
  open(id: string, text: string): void; // with the history that this text had before
  replace(text: string): void;
  showFaults(diagnostics: Diagnostic[]): void;
  showLines(lines: LineInfo[]): void;
  showRun(line: number, counts: number[]): void;
  goTo(line: number): void;
  reveal(line: number): void; // without taking the focus
  toggleBreakpoint(): void;
  wordAtCursor(): { word: string; line: number };
  languageChanged(): void;
}

// The word of letters and digits at a place, which may be empty.
function wordAt(state: EditorState, position: number) {
  const line = state.doc.lineAt(position);
  const isWordChar = (at: number) => /[A-Z0-9]/.test(line.text[at] ?? '');
  let from = position - line.from;
  let to = from;
  while (from > 0 && isWordChar(from - 1)) --from;
  while (isWordChar(to)) ++to;
  return { from: line.from + from, to: line.from + to, word: line.text.slice(from, to), line: line.number - 1 };
}

const severities = ['error', 'warning', 'info', 'hint'] as const;

export function makeEditor(parent: Element, uses: EditorUses): Editor {
  const names = new Compartment();
  const nameOfText = () => EditorView.contentAttributes.of({ 'aria-label': t('editor'), tabindex: '0', spellcheck: 'false', autocapitalize: 'characters' });
  const toggleAt = (from: number) => {
    view.dispatch({ effects: toggleBreak.of(from) });
    uses.breakpointsChanged();
    return true;
  };
  const breakGutter = gutter({
    class: 'cm-breaks',
    markers: (each) => each.state.field(breakpoints),
    initialSpacer: () => breakMarker,
    domEventHandlers: { mousedown: (_, line) => toggleAt(line.from) },
  });
  const hover = hoverTooltip(async (each, position) => {
    const { from, to, word, line } = wordAt(each.state, position);
    const text = word ? await uses.explain(word, line) : undefined;
    if (!text) return null;
    return {
      pos: from,
      end: to,
      above: true,
      create() {
        const dom = document.createElement('pre');
        dom.className = 'hover';
        dom.textContent = text;
        return { dom };
      },
    };
  });
  const extensions: Extension = [
    Prec.highest(keymap.of(uses.keys.map(({ key, run }) => ({ key, run: () => (run(), true) })))),
    breakGutter,
    lineNumbers({ domEventHandlers: { mousedown: (_, line) => toggleAt(line.from) } }),
    wordsGutter,
    countGutter,
    history(),
    drawSelection(),
    highlightActiveLine(),
    highlightSelectionMatches(),
    search({ top: true }),
    EditorState.tabSize.of(8),
    keymap.of([...defaultKeymap, ...historyKeymap, ...searchKeymap, ...lintKeymap]),
    casl2(uses.opcodes),
    lineInfos.state,
    runCounts.state,
    currentLine,
    breakpoints,
    hover,
    names.of(nameOfText()),
    EditorView.updateListener.of((update) => {
      if (update.docChanged) uses.changed();
    }),
  ];
  const create = (text: string) => EditorState.create({ doc: text, extensions });
  const view = new EditorView({ state: create(''), parent });
  const kept = new Map<string, EditorState>();
  let opened = '';

  const at = (line: number) => view.state.doc.line(Math.min(Math.max(line + 1, 1), view.state.doc.lines));
  return {
    view,
    text: () => view.state.doc.toString(),
    breakpoints() {
      const lines: number[] = [];
      const doc = view.state.doc;
      view.state.field(breakpoints).between(0, doc.length, (from) => void lines.push(doc.lineAt(from).number - 1));
      return lines;
    },
    open(id, text) {
      if (opened) kept.set(opened, view.state);
      opened = id;
      const state = kept.get(id);
      view.setState(state && state.doc.toString() === text ? state : create(text));
      view.dispatch({ effects: [names.reconfigure(nameOfText()), runCounts.effect.of([]), setCurrent.of(-1), lineInfos.effect.of([])] });
    },
    replace(text) {
      view.dispatch({ changes: { from: 0, to: view.state.doc.length, insert: text } });
    },
    showFaults(diagnostics) {
      const marks = diagnostics
        .filter((each) => each.line >= 0)
        .map((each): Mark => {
          const line = at(each.line);
          const blank = line.text.length - line.text.trimStart().length;
          const from = line.from + Math.min(blank, line.text.trimEnd().length);
          return { from, to: Math.max(from, line.from + line.text.trimEnd().length), severity: severities[each.severity] ?? 'info', message: each.lines.join('\n') };
        });
      view.dispatch(setDiagnostics(view.state, marks));
    },
    showLines: (lines) => view.dispatch({ effects: lineInfos.effect.of(lines) }),
    showRun(line, counts) {
      view.dispatch({ effects: [setCurrent.of(line), runCounts.effect.of(counts)] });
    },
    goTo(line) {
      view.dispatch({ selection: { anchor: at(line).from }, effects: EditorView.scrollIntoView(at(line).from, { y: 'center' }) });
      view.focus();
    },
    reveal: (line) => view.dispatch({ effects: EditorView.scrollIntoView(at(line).from, { y: 'nearest', yMargin: 40 }) }),
    toggleBreakpoint: () => void toggleAt(view.state.doc.lineAt(view.state.selection.main.head).from),
    wordAtCursor: () => wordAt(view.state, view.state.selection.main.head),
    languageChanged: () => view.dispatch({ effects: names.reconfigure(nameOfText()) }),
  };
}
