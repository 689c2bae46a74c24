// Output and input of the run, as they came.

import type { ConsoleEntry, State } from './engine.js';
import { button, h, inEachLanguage, named, region, update } from './dom.js';
import { t } from './texts.js';

export interface Console {
  element: HTMLElement;
  show(state: State | undefined, entries?: ConsoleEntry[]): void; // without entries the console is as before
}

export function makeConsole(uses: { type(line: string): void; endInput(): void; goTo(line: number): void; saveDump(): void }): Console {
  const lines = named(h('div', { class: 'console', tabindex: 0, role: 'log' }), 'output');
  const input = named(h('input', { type: 'text', autocomplete: 'off', spellcheck: 'false' }), 'inputLine');
  inEachLanguage(input, () => (input.placeholder = t('inputLine')));
  const waiting = h('span', { class: 'hint' });
  const end = button('endOfInput', () => uses.endInput());
  const form = h('form', { class: 'input' }, input, h('button', { type: 'submit' }, inEachLanguage(document.createTextNode(''), (node) => (node.data = t('enter')))), end, waiting);
  form.addEventListener('submit', (event) => {
    event.preventDefault();
    uses.type(input.value);
    input.value = '';
  });
  const dump = button('saveDump', () => uses.saveDump(), { class: 'quiet' });
  const element = region('output', { class: 'panel', id: 'output' }, dump, lines, form);

  lines.addEventListener('click', (event) => {
    const line = event.target instanceof HTMLElement ? event.target.dataset['line'] : undefined;
    if (line) uses.goTo(Number(line));
  });

  function lineOf(entry: ConsoleEntry) {
    const text = entry.kind === 'end' ? t('inputEnded') : entry.kind === 'more' ? t('moreAbove') : entry.text.replace(/\n$/, '');
    const row = h('div', { class: 'line-' + entry.kind }, text);
    if (entry.line !== undefined && entry.line >= 0) {
      row.append(' ', h('button', { type: 'button', class: 'place', 'data-line': entry.line }, t('atLine', entry.line + 1)));
    }
    return row;
  }
  let shown: State | undefined;
  let entries: ConsoleEntry[] = [];
  let isNew = true;
  function show() {
    if (isNew) showLines();
    isNew = false;
    const wants = shown?.wantsInput ?? false;
    if (wants && !form.classList.contains('wanted')) lines.scrollTop = lines.scrollHeight;
    form.classList.toggle('wanted', wants);
    waiting.textContent = shown && shown.waiting > 0 ? t('linesWaiting', shown.waiting) : wants ? t('wantsInput') : '';
    dump.disabled = input.disabled = end.disabled = !shown;
  }
  function showLines() {
    const rows = entries.length > 0 ? entries.map(lineOf) : [h('div', { class: 'hint' }, t('noOutput'))];
    const atEnd = lines.scrollTop + lines.clientHeight >= lines.scrollHeight - 20;
    update(lines, rows);
    if (atEnd) lines.scrollTop = lines.scrollHeight;
  }
  inEachLanguage(element, () => ((isNew = true), show()));
  return {
    element,
    show(state, found) {
      shown = state;
      if (!state || found) {
        entries = state ? found! : [];
        isNew = true;
      }
      show();
    },
  };
}
