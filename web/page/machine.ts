// Registers, memory and stack, and what is told of one of their cells.

import type { Cell, MemoryRow, Outcome, Picture, State, Word } from './engine.js';
import { button, dialog, h, inEachLanguage, named, region, update, updateRows, word } from './dom.js';
import { formats, formatted, hex, type Format } from './numbers.js';
import { t } from './texts.js';

export interface MachineUses {
  format(): Format;
  look(first: number): void;
  placeOf(text: string): number | undefined; // of an address or a label
  wordAt(address: number): Promise<Word>;
  who(cell: Cell): Promise<Outcome>;
  go(moment: number): void;
  goTo(line: number): void;
  watch(cell: Cell, isOn: boolean): void;
}
export interface Machine {
  elements: { registers: HTMLElement; memory: HTMLElement; stack: HTMLElement };
  // Marks what differs from the picture before it, unless that is another run's or the slider's.
  show(picture: Picture | undefined, marks: boolean): void;
  watches(): Cell[];
}

export const rowsShown = 48;

export function nameOf(cell: Cell): string {
  if (cell.kind === 'GR') return 'GR' + cell.index;
  return cell.kind === 'word' ? '#' + hex(cell.index) : cell.kind;
}
function valueOf(state: State, cell: Cell): number {
  if (cell.kind === 'GR') return state.gr[cell.index] ?? 0;
  return cell.kind === 'SP' ? state.sp : cell.kind === 'OF' ? state.of : cell.kind === 'SF' ? state.sf : state.zf;
}

// The cell of such a name.
function cellOf(name: string): Cell {
  if (name.startsWith('GR')) return { kind: 'GR', index: Number(name.slice(2)) };
  if (name.startsWith('#')) return { kind: 'word', index: parseInt(name.slice(1), 16) };
  return { kind: name as 'SP' | 'OF' | 'SF' | 'ZF', index: 0 };
}

export function makeMachine(uses: MachineUses): Machine {
  let shown: Picture | undefined;
  let before: Picture | undefined;
  let marks = false;
  let first = 0;
  const watched: Cell[] = [];
  const isWatched = (cell: Cell) => watched.some((each) => nameOf(each) === nameOf(cell));

  // --- One cell
  const about = h('div', { class: 'about' });
  const details = dialog('machine', about);
  const row = (name: string, value: string) => [h('dt', {}, name), h('dd', {}, value)];

  function fieldsOf(found: Word): HTMLElement[] {
    const fields = [...row(t('instruction'), found.instruction), ...row(t('operation'), '#' + hex(found.value).slice(0, 2))];
    fields.push(...row(t('firstField'), String((found.value >> 4) & 15)), ...row(t('secondField'), String(found.value & 15)));
    if (found.wordCount === 2) fields.push(...row(t('addressField'), '#' + hex(found.second)));
    return fields;
  }
  function changeText(outcome: Outcome): string {
    if (outcome.why !== 'found') return outcome.why === 'notFound' ? t('nobody') : '';
    const place = (outcome.label ? outcome.label + ': ' : '#' + hex(outcome.address ?? 0) + ': ') + (outcome.text ?? '');
    return t('changer', outcome.moment ?? 0, place, (outcome.line ?? -1) + 1, '#' + hex(outcome.before ?? 0), '#' + hex(outcome.after ?? 0));
  }
  async function tell(cell: Cell) {
    if (!shown) return;
    const found = cell.kind === 'word' ? await uses.wordAt(cell.index) : undefined;
    const value = found ? found.value : valueOf(shown.state, cell);
    const title = found ? t('wordAt', hex(cell.index)) + (found.label ? ' ' + found.label : '') : nameOf(cell);
    const heading = details.querySelector('h2')!;
    heading.textContent = title;
    details.setAttribute('aria-label', title);
    const isFlag = cell.kind === 'OF' || cell.kind === 'SF' || cell.kind === 'ZF';
    const values = isFlag ? row(nameOf(cell), String(value)) : formats.flatMap((format) => row(t(format), formatted(value & 0xffff, format)));
    const answer = h('p', { class: 'answer', role: 'status' });
    const follow = button('goThere', () => {});
    follow.hidden = true;
    const ask = button('who', async () => {
      const outcome = await uses.who(cell);
      answer.textContent = changeText(outcome);
      follow.hidden = outcome.why !== 'found';
      follow.onclick = () => {
        uses.go(outcome.moment ?? 0);
        details.close();
      };
    });
    const watch = h('button', { type: 'button', 'aria-pressed': isWatched(cell) }, t('stopWhenChanged'));
    watch.setAttribute('aria-pressed', String(isWatched(cell)));
    watch.onclick = () => {
      setWatch(cell, !isWatched(cell));
      watch.setAttribute('aria-pressed', String(isWatched(cell)));
    };
    about.replaceChildren(
      h('dl', {}, ...values, ...(found?.isInstruction ? fieldsOf(found) : [])),
      h('div', { class: 'row' }, ask, watch),
      answer,
      follow,
    );
    details.showModal();
  }
  function setWatch(cell: Cell, isOn: boolean) {
    const at = watched.findIndex((each) => nameOf(each) === nameOf(cell));
    if (isOn && at < 0) watched.push(cell);
    if (!isOn && at >= 0) watched.splice(at, 1);
    uses.watch(cell, isOn);
    show();
  }
  const styleOf = (cell: Cell, isChanged: boolean) => 'cell' + (isChanged ? ' changed' : '') + (isWatched(cell) ? ' watched' : '');
  const cellButton = (name: string, style: string, text: string) => h('button', { type: 'button', class: style, 'data-cell': name }, text);
  const dataOf = (target: EventTarget | null, key: string) => (target instanceof HTMLElement ? target.closest<HTMLElement>(`[data-${key}]`)?.dataset[key] : undefined);
  function cellPressed(event: Event) {
    const name = dataOf(event.target, 'cell');
    if (name) void tell(cellOf(name));
  }
  const changed = (cell: Cell) => marks && before !== undefined && shown !== undefined && valueOf(before.state, cell) !== valueOf(shown.state, cell);

  // --- Registers
  const titles = inEachLanguage(h('tr'), (row) => update(row, [h('th', { scope: 'col' }, t('register')), ...formats.map((format) => h('th', { scope: 'col', class: format }, t(format)))]));
  const registerRows = h('tbody');
  const table = h('table', { class: 'registers' }, h('thead', {}, titles), registerRows);
  const others = h('div', { class: 'others' });
  const watchList = h('ul', { class: 'watches' });
  const nothing = h('p', { class: 'hint' }, word('notLoaded'));
  const registers = region('registers', { class: 'panel', id: 'registers' }, nothing, table, others, watchList);
  registers.addEventListener('click', cellPressed);
  watchList.addEventListener('click', (event) => {
    const name = dataOf(event.target, 'watched');
    if (name) setWatch(cellOf(name), false);
  });

  function registerData(index: number, value: number) {
    const cell: Cell = { kind: 'GR', index };
    return { name: nameOf(cell), value, style: styleOf(cell, false), changed: changed(cell) };
  }
  function registerRow({ name, value, style, changed }: ReturnType<typeof registerData>) {
    const columns = formats.map((format) => h('td', { class: format }, formatted(value, format)));
    return h('tr', { class: changed ? 'changed' : '' }, h('th', { scope: 'row' }, cellButton(name, style, name)), ...columns);
  }
  function showRegisters(state: State) {
    updateRows(registerRows, state.gr.map((value, index) => registerData(index, value)), registerRow);
    const pr = h('span', { class: marks && before?.state.pr !== state.pr ? 'fact changed' : 'fact' }, h('b', {}, 'PR'), ' ' + hex(state.pr));
    const other = (kind: 'SP' | 'OF' | 'SF' | 'ZF', text: string) => cellButton(kind, styleOf({ kind, index: 0 }, changed({ kind, index: 0 })), kind + ' ' + text);
    const flags = [other('OF', String(state.of)), other('SF', String(state.sf)), other('ZF', String(state.zf))];
    update(others, [pr, other('SP', hex(state.sp)), h('span', { class: 'fact' }, h('b', {}, t('flags'))), ...flags]);
    const items = watched.map((cell) => {
      const remove = h('button', { type: 'button', class: 'quiet', 'aria-label': t('remove') + ' ' + nameOf(cell), 'data-watched': nameOf(cell) }, '✕');
      return h('li', {}, t('watching', nameOf(cell)), ' ', remove);
    });
    update(watchList, items);
  }

  // --- Memory
  const place = named(h('input', { type: 'text', size: 9, autocomplete: 'off', spellcheck: 'false' }), 'goToAddress');
  const fault = h('span', { class: 'hint', role: 'status' });
  const lookForm = h('form', { class: 'look' }, place, fault);
  inEachLanguage(place, () => (place.placeholder = t('goToAddress')));
  const pages = h('span', { class: 'row' }, h('button', { type: 'button', class: 'quiet', 'aria-label': '−', onclick: () => lookAt(first - 64) }, '▲'), h('button', { type: 'button', class: 'quiet', 'aria-label': '+', onclick: () => lookAt(nextAddress()) }, '▼'));
  lookForm.append(pages);
  const rows = named(h('div', { class: 'memory', role: 'group' }), 'memory');
  const memory = region('memory', { class: 'panel', id: 'memory' }, lookForm, rows);
  rows.addEventListener('click', cellPressed);
  lookForm.addEventListener('submit', (event) => {
    event.preventDefault();
    const address = uses.placeOf(place.value.trim());
    fault.textContent = address === undefined ? t('noSuchPlace') : '';
    if (address !== undefined) lookAt(address);
  });
  function lookAt(address: number) {
    first = Math.max(0, Math.min(address, 0xffff));
    rows.scrollTop = 0;
    uses.look(first);
  }
  const nextAddress = () => {
    const last = shown?.memory.at(-1);
    return last ? last.address + last.words.length : first;
  };
  // The arrow keys go from word to word; Tab leaves them.
  rows.addEventListener('keydown', (event) => {
    const cells = [...rows.querySelectorAll<HTMLButtonElement>('button')];
    const at = cells.indexOf(document.activeElement as HTMLButtonElement);
    const steps: Record<string, number> = { ArrowRight: 1, ArrowDown: 1, ArrowLeft: -1, ArrowUp: -1, Home: -at, End: cells.length - 1 - at };
    const step = steps[event.key];
    if (at < 0 || step === undefined) return;
    event.preventDefault();
    cells[Math.max(0, Math.min(at + step, cells.length - 1))]?.focus();
  });
  function memoryData(each: MemoryRow, old: Map<number, number>, pr: number) {
    const cells = each.words.map((value, i) => {
      const cell: Cell = { kind: 'word', index: each.address + i };
      const was = old.get(cell.index);
      const style = styleOf(cell, marks && was !== undefined && was !== value) + (cell.index === pr ? ' next' : '');
      return { name: nameOf(cell), style, text: formatted(value, uses.format()) };
    });
    const isHere = each.address <= pr && pr < each.address + each.words.length;
    return { address: hex(each.address), cells, label: each.label ?? '', code: each.text ?? '', style: isHere ? 'mrow here' : 'mrow' };
  }
  function memoryRow({ address, cells, label, code, style }: ReturnType<typeof memoryData>) {
    return h(
      'div',
      { class: style },
      h('span', { class: 'address' }, address),
      h('span', { class: 'words' }, ...cells.map((cell) => cellButton(cell.name, cell.style, cell.text))),
      h('span', { class: 'label' }, label),
      h('span', { class: 'code' }, code),
    );
  }
  function showMemory(picture: Picture) {
    const old = new Map((before?.memory ?? []).flatMap((each) => each.words.map((value, i) => [each.address + i, value] as const)));
    const focused = document.activeElement instanceof HTMLElement ? document.activeElement.dataset['cell'] : undefined;
    updateRows(rows, picture.memory.map((each) => memoryData(each, old, picture.state.pr)), memoryRow);
    const cells = [...rows.querySelectorAll<HTMLButtonElement>('button')];
    const again = cells.find((each) => each.dataset['cell'] === focused) ?? cells.find((each) => each === document.activeElement) ?? cells[0];
    for (const each of cells) {
      const order = each === again ? '0' : '-1';
      if (each.getAttribute('tabindex') !== order) each.setAttribute('tabindex', order);
    }
    if (focused?.startsWith('#') && document.activeElement !== again) again?.focus();
  }

  // --- Stack
  const words = h('ol', { class: 'stack' });
  const stack = region('stack', { class: 'panel', id: 'stack' }, words);
  function showStack(state: State) {
    const items = state.stack.map((each) => {
      const call = each.routine === undefined ? '' : t('calledFrom', each.routine, (each.line ?? -1) + 1);
      return h('li', {}, h('span', { class: 'address' }, hex(each.address)), ' ', formatted(each.value, uses.format()), ' ', h('span', { class: 'code' }, call));
    });
    update(words, items.length > 0 ? items : [h('li', { class: 'hint' }, t('stackEmpty'))]);
  }

  function show() {
    nothing.hidden = shown !== undefined;
    table.hidden = others.hidden = lookForm.hidden = words.hidden = shown === undefined;
    if (!shown) return rows.replaceChildren();
    showRegisters(shown.state);
    showMemory(shown);
    showStack(shown.state);
  }
  inEachLanguage(registers, show);
  return {
    elements: { registers, memory, stack },
    watches: () => watched,
    show(picture, isMarked) {
      if (picture !== shown) before = shown;
      marks = isMarked;
      shown = picture;
      show();
    },
  };
}
