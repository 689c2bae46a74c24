// The page: its parts, and what goes from one to the other.

import { compiledEngine, startWorker, type Client } from './client.js';
import { makeConsole } from './console.js';
import { button, dialog, h, inEachLanguage, languageChanged, named, region, word } from './dom.js';
import { makeEditor } from './editor.js';
import { pipelines, type ConsoleEntry, type LineInfo, type Picture, type Task } from './engine.js';
import { library, type Exercise } from './library.js';
import { makeMachine, rowsShown } from './machine.js';
import { formats, hex, type Format } from './numbers.js';
import { makeProblems } from './problems.js';
import { linkOf, sharedSource } from './share.js';
import { makeSources } from './sources.js';
import { keep, recall } from './storage.js';
import { currentLanguage, setLanguage, t, type TextKey } from './texts.js';
import { makeTime } from './time.js';

const kept = recall();
const settings = kept.settings;
setLanguage(settings.language);

let checker: Client;
let machineWorker: Client;
let lines: LineInfo[] = []; // of the text as it is, if it is sound
let isLoaded = false; // a program stands in the machine
let isStale = false; // it is not that of the text as it is
let edition = 0; // of the text
let picture: Picture | undefined;
let memoryFirst = 0;
let lastTask: { task: Task; back: boolean; pace: number } | undefined;

// --- Notices, which stay until they are taken away

const notices = h('div', { id: 'notices', role: 'status' });
let keepsNothing = false;
function notice(text: string, kind: 'good' | 'bad' = 'good') {
  const remove = h('button', { type: 'button', class: 'close', 'aria-label': t('close'), onclick: () => bar.remove() }, '✕');
  const bar = h('div', { class: 'notice ' + kind }, h('span', {}, text), remove);
  notices.replaceChildren(bar);
}

// --- The text

let saving: ReturnType<typeof setTimeout> | undefined;
function keepAll() {
  clearTimeout(saving);
  sources.noteText(editor.text());
  const done = keep(kept);
  if (!done && !keepsNothing) notice(t('storageFailed'), 'bad');
  keepsNothing = !done;
}

let isChecking = false;
let isCheckWanted = false;
async function check() {
  isCheckWanted = true;
  if (isChecking || !checker) return;
  isChecking = true;
  while (isCheckWanted) {
    isCheckWanted = false;
    const text = [editor.text(), settings.pipeline, settings.language] as const;
    const { good, diagnostics } = await checker.ask('check', ...text);
    if (isCheckWanted) continue;
    editor.showFaults(diagnostics);
    problems.show(diagnostics);
    document.documentElement.dataset['checked'] = String(performance.now());
    if (good) loadSoon();
    showTime();
    const found = good ? await checker.ask('lines', ...text) : [];
    if (isCheckWanted) continue;
    lines = found;
    editor.showLines(lines);
  }
  isChecking = false;
}

function textChanged() {
  ++edition;
  lines = [];
  clearTimeout(saving);
  saving = setTimeout(keepAll, 400);
  void check();
  if (isStale) return;
  isStale = true;
  showAll(false);
}

const editor = makeEditor(h('div', { class: 'editor' }), {
  opcodes: library.opcodes.map((each) => each.word),
  changed: textChanged,
  breakpointsChanged: () => void (isLoaded && !isStale && machineWorker.ask('setBreakpoints', editor.breakpoints())),
  explain: meaningOf,
  keys: [
    { key: 'Mod-Enter', run: () => time.runOrPause() },
    { key: 'F9', run: () => editor.toggleBreakpoint() },
    { key: 'F1', run: () => void tellMeaning() },
  ],
});

// The first and the last line of the program that a line belongs to.
function programOf(line: number): [number, number] {
  let first = line;
  while (first > 0 && !lines[first - 1]?.ends) --first;
  let last = line;
  while (last < lines.length - 1 && !lines[last]?.ends) ++last;
  return [first, last];
}
function lineOfLabel(name: string, near: number): number {
  const [first, last] = programOf(near);
  const inside = lines.findIndex((each, i) => i >= first && i <= last && each.label === name);
  return inside >= 0 ? inside : lines.findIndex((each) => each.label === name);
}
async function meaningOf(name: string, line: number): Promise<string | undefined> {
  const opcode = library.opcodes.find((each) => each.word === name);
  if (opcode) return opcode.explanation >= 0 ? checker.ask('explanation', opcode.explanation, settings.language) : undefined;
  const info = lines[lineOfLabel(name, line)];
  if (!info) return undefined;
  const place = t('labelHover', name, hex(info.address), info.address);
  if (!isLoaded || isStale) return place;
  const { value } = await machineWorker.ask('wordAt', info.address);
  return place + '\n' + t('labelValue', hex(value), value);
}
const meaningText = h('pre', { tabindex: 0 });
const meaningDialog = dialog('meaningOfWord', meaningText);
async function tellMeaning() {
  const place = editor.wordAtCursor();
  const text = place ? await meaningOf(place.word, place.line) : undefined;
  if (!text) return;
  meaningText.textContent = text;
  meaningDialog.showModal();
}
function placeOf(text: string): number | undefined {
  if (/^#[0-9a-f]{1,4}$/i.test(text)) return parseInt(text.slice(1), 16);
  if (/^[0-9a-f]{4}$/i.test(text)) return parseInt(text, 16);
  if (/^[0-9]{1,5}$/.test(text)) return Number(text) <= 0xffff ? Number(text) : undefined;
  const name = text.toUpperCase();
  if (['PR', 'SP'].includes(name) && picture) return name === 'PR' ? picture.state.pr : picture.state.sp;
  return lines[lineOfLabel(name, Math.max(picture?.state.line ?? 0, 0))]?.address;
}

const problems = makeProblems({
  goTo: (line) => goTo(line),
  explanation: (index) => checker.ask('explanation', index, settings.language),
});
function goTo(line: number) {
  showTab('source');
  editor.goTo(line);
}

// --- The machine

// A sound source stands in the machine as long as nothing has been run, for its registers and memory to be looked at.
let loading: ReturnType<typeof setTimeout> | undefined;
function loadSoon() {
  clearTimeout(loading);
  const isFree = () => isStale && (!isLoaded || picture?.state.latest === 0);
  loading = setTimeout(() => inTurn(async () => void (isFree() && (await load()))), 100);
}
async function load(): Promise<boolean> {
  clearTimeout(loading);
  const loaded = edition;
  const { good, diagnostics } = await machineWorker.ask('load', editor.text(), settings.pipeline, settings.language);
  const isCurrent = loaded === edition; // nothing has been written since
  if (isCurrent) problems.show(diagnostics);
  if (!good) return false;
  isLoaded = true;
  isStale = !isCurrent;
  if (notices.textContent?.includes(t('cannotRun'))) notices.replaceChildren();
  void machineWorker.ask('setBreakpoints', editor.breakpoints());
  for (const cell of machine.watches()) void machineWorker.ask('setWatch', cell.kind, cell.index, true);
  showAll(false);
  return true;
}

async function unload() {
  isLoaded = false;
  picture = undefined;
  if (!machineWorker) return;
  await machineWorker.ask('unload');
  if (isLoaded) return;
  picture = undefined;
  showAll(false);
}

let marksChanges = false;
// What is asked of the machine waits for what was asked before it: that may be on its way to load the program.
let turn = Promise.resolve();
function inTurn(act: () => Promise<void>) {
  turn = turn.then(act).catch((fault: unknown) => notice(t('failed', String(fault)), 'bad'));
}
const perform = (...words: Parameters<typeof performNow>) => inTurn(() => performNow(...words));
async function performNow(task: Task, back: boolean, number: number, pace: number) {
  const isNew = isStale || !isLoaded || (task === 'run' && !back && picture?.state.isEnd);
  if (isNew && !(await load())) return refuse();
  marksChanges = !time.isDragging();
  lastTask = { task, back, pace };
  void machineWorker.ask('task', task, back, isNew && task === 'go' ? 1 : number, pace);
}
function refuse() {
  isStale = true;
  notice(t('cannotRun'), 'bad');
  showTab('source');
  showAll(false);
}
async function restart() {
  if (!(await load())) refuse();
}

const time = makeTime({
  task: perform,
  pause: () => void machineWorker.ask('pause'),
  restart: () => inTurn(restart),
  hasErrors: () => problems.errors() > 0,
  placeOf,
});
const machine = makeMachine({
  format: () => settings.format,
  look(first) {
    memoryFirst = first;
    void machineWorker.ask('look', memoryFirst, rowsShown);
  },
  placeOf,
  wordAt: (address) => machineWorker.ask('wordAt', address),
  who: (cell) => machineWorker.ask('who', cell.kind, cell.index),
  go: (moment) => perform('go', false, moment, 0),
  goTo: (line) => goTo(line),
  watch: (cell, isOn) => void machineWorker.ask('setWatch', cell.kind, cell.index, isOn),
});
const output = makeConsole({
  async type(line) {
    const isAnswer = picture?.state.wantsInput ?? false;
    await machineWorker.ask('type', line);
    goOnBehindInput(isAnswer);
  },
  async endInput() {
    const isAnswer = picture?.state.wantsInput ?? false;
    await machineWorker.ask('endInput');
    goOnBehindInput(isAnswer);
  },
  goTo: (line) => goTo(line),
  async saveDump() {
    const name = sources.fileName();
    const text = await machineWorker.ask('dump', name);
    const kind = picture?.state.latest === 0 ? '.assembled.txt' : '.result.txt';
    download(new TextEncoder().encode('\uFEFF' + text), name.replace(/\.[^.]*$/, '') + kind);
  },
});
function goOnBehindInput(isAnswer: boolean) {
  if (!isAnswer || !lastTask || lastTask.back || lastTask.task === 'go' || lastTask.task === 'step') return;
  const isWalk = lastTask.task === 'run' && lastTask.pace > 0;
  void machineWorker.ask('task', isWalk ? 'run' : 'resume', false, 0, lastTask.pace);
}

function showTime() {
  time.show(picture, isStale);
  document.body.classList.toggle('stale', isStale && picture !== undefined && (picture.state.latest > 0 || problems.errors() > 0));
}
function showAll(marks: boolean, found?: ConsoleEntry[]) {
  showTime();
  machine.show(picture, marks);
  output.show(picture?.state, found);
  if (!picture) return;
  const { state, running, counts } = picture;
  const isMoving = running && time.pace() === 0;
  editor.showRun(isStale || isMoving || state.isEnd ? -1 : state.line, isStale ? [] : counts);
}
function pictureCame(found: Picture) {
  picture = found;
  showAll(marksChanges && !found.running, found.console);
  const line = found.state.line;
  if (!isStale && !found.running && line >= 0 && found.state.now > 0) editor.reveal(line);
}

// --- Sources as files and links

function download(bytes: Uint8Array<ArrayBuffer>, name: string) {
  const address = URL.createObjectURL(new Blob([bytes]));
  h('a', { href: address, download: name }).click();
  setTimeout(() => URL.revokeObjectURL(address), 10_000);
}
async function save() {
  let bytes = new TextEncoder().encode('\uFEFF' + editor.text());
  if (settings.encoding === 'shiftJis') {
    const encoded = await checker.ask('encodeShiftJis', editor.text());
    if (encoded.lost) return notice(t('lostCharacter', encoded.lost), 'bad');
    bytes = encoded.bytes;
  }
  download(bytes, sources.fileName());
}
const mostOfFile = 1_000_000;
async function openFile(file: File) {
  const refuseFile = (why: string) => notice(t('notOpened', file.name, why), 'bad');
  if (file.size > mostOfFile) return refuseFile(t('fileTooLarge'));
  const bytes = await file.arrayBuffer().then((buffer) => new Uint8Array(buffer), () => undefined);
  if (!bytes) return refuseFile(t('fileUnreadable'));
  const decoded = await checker.ask('decode', bytes);
  if (decoded.invalid >= 0) return refuseFile(t('fileInvalid', decoded.code, decoded.invalid + 1));
  sources.openText('file:' + file.name, decoded.text);
  notice(t('opened', file.name, decoded.code));
}
const picker = h('input', { type: 'file', hidden: true, accept: '.txt,.cas,.casl,.asl,.asm,text/plain' });
picker.addEventListener('change', () => {
  const file = picker.files?.[0];
  if (file) void openFile(file);
  picker.value = '';
});
document.addEventListener('dragover', (event) => event.preventDefault());
document.addEventListener('drop', (event) => {
  const file = event.dataTransfer?.files[0];
  if (!file) return;
  event.preventDefault();
  void openFile(file);
});

const linkField = named(h('input', { type: 'text', readonly: true, class: 'link' }), 'linkLabel');
const copied = h('span', { role: 'status' });
const shareDialog = dialog(
  'share',
  h('p', {}, word('linkFits')),
  linkField,
  h(
    'div',
    { class: 'row' },
    button('copy', () => {
      linkField.select();
      void navigator.clipboard.writeText(linkField.value).then(
        () => (copied.textContent = t('copied')),
        () => document.execCommand('copy') && (copied.textContent = t('copied')),
      );
    }),
    copied,
  ),
);
async function share() {
  const link = await linkOf(editor.text());
  if (!link) return notice(t('sourceTooLong'), 'bad');
  copied.textContent = '';
  linkField.value = link;
  shareDialog.showModal();
  linkField.select();
}
async function openLink() {
  const shared = await sharedSource();
  if (!shared) return;
  history.replaceState(null, '', location.pathname + location.search);
  if ('why' in shared) return notice(t('linkBroken', t(shared.why)), 'bad');
  sources.openText('shared:' + shared.id, shared.source);
  notice(t('sharedArrived'));
}

// --- Exercises

const taskTitle = h('summary', {});
const taskText = h('div', { class: 'task-text' });
const verdict = h('pre', { class: 'verdict', role: 'status' });
async function grade() {
  const exercise = sources.exercise();
  if (!exercise) return;
  const { right, text } = await checker.ask('grade', editor.text(), settings.pipeline, settings.language, exercise.id, exercise.cases);
  verdict.className = 'verdict ' + (right ? 'right' : 'wrong');
  verdict.textContent = t(right ? 'allRight' : 'notAllRight') + '\n' + text;
  verdict.scrollIntoView({ block: 'nearest' });
}
const gradeButton = button('grade', () => void grade(), { class: 'primary' });
const taskPanel = region('task', { class: 'task', hidden: true }, h('details', { open: true }, taskTitle, taskText), gradeButton, verdict);
function showTask(exercise: Exercise | undefined) {
  taskPanel.hidden = !exercise;
  verdict.textContent = '';
  verdict.className = 'verdict';
  taskTitle.textContent = exercise ? exercise.titles[currentLanguage()] : '';
  // Our own text, made by the build.
  taskText.innerHTML = exercise ? exercise.tasks[currentLanguage()] : '';
}

const sources = makeSources(kept, {
  show(id, text, exercise) {
    editor.open(id, text);
    showTask(exercise);
    void unload();
    textChanged();
  },
  replace: (text) => editor.replace(text),
  leave: () => kept.current && sources.noteText(editor.text()),
});

// --- Settings

function choice<T extends string | number>(key: TextKey, values: readonly T[], say: (value: T) => string, chosen: () => T, choose: (value: T) => void) {
  const select = h('select', {});
  inEachLanguage(select, () => {
    select.replaceChildren(...values.map((value) => h('option', { value }, say(value))));
    select.value = String(chosen());
  });
  select.addEventListener('change', () => {
    choose(values[select.selectedIndex]!);
    keepAll();
  });
  return h('label', { class: 'choice' }, word(key), select);
}
const settingsDialog = dialog(
  'settings',
  choice('language', [0, 1] as const, (value) => (value === 0 ? '日本語' : 'English'), () => settings.language, changeLanguage),
  choice('pipeline', pipelines, (value) => value, () => settings.pipeline, (value) => {
    settings.pipeline = value;
    textChanged();
  }),
  choice('numberFormat', formats, (value: Format) => t(value), () => settings.format, (value) => {
    settings.format = value;
    showAll(false);
  }),
  choice('saveAs', ['utf8', 'shiftJis'] as const, (value) => t(value), () => settings.encoding, (value) => (settings.encoding = value)),
  h('details', { class: 'licences' }, h('summary', {}, word('licences')), h('pre', {}, document.getElementById('licences')!.textContent)),
);
function changeLanguage(language: 0 | 1) {
  settings.language = language;
  setLanguage(language);
  languageChanged();
  editor.languageChanged();
  showTask(sources.exercise());
  void machineWorker.ask('setLanguage', language);
  void check();
}

// --- Layout

const tabs = ['source', 'machine', 'output'] as const;
type Tab = (typeof tabs)[number];
const tabButtons = tabs.map((key) => {
  const element = button(key, () => showTab(key), { role: 'tab', id: 'tab-' + key, 'aria-controls': 'pane-' + key });
  element.addEventListener('keydown', (event) => {
    const step = event.key === 'ArrowRight' ? 1 : event.key === 'ArrowLeft' ? -1 : 0;
    if (step === 0) return;
    const next = tabs[(tabs.indexOf(key) + step + tabs.length) % tabs.length]!;
    showTab(next);
    document.getElementById('tab-' + next)!.focus();
  });
  return element;
});
function showTab(tab: Tab) {
  document.body.dataset['tab'] = tab;
  tabButtons.forEach((element, i) => {
    element.setAttribute('aria-selected', String(tabs[i] === tab));
    element.tabIndex = tabs[i] === tab ? 0 : -1;
  });
}

const sourceRegion = region('source', { class: 'panel', id: 'source' }, sources.resetButton, taskPanel, editor.view.dom.parentElement!);
const header = h(
  'header',
  { class: 'top' },
  h('h1', {}, word('title')),
  sources.element,
  h('div', { class: 'row' }, button('open', () => picker.click()), button('save', () => void save()), button('share', () => void share()), button('settings', () => settingsDialog.showModal())),
);
document.body.append(
  header,
  notices,
  named(h('nav', { class: 'tabs' }, named(h('div', { role: 'tablist' }, ...tabButtons), 'parts')), 'parts'),
  time.element,
  h(
    'main',
    {},
    h('div', { class: 'pane', id: 'pane-source' }, sourceRegion, problems.element),
    h('div', { class: 'pane', id: 'pane-machine' }, machine.elements.registers, machine.elements.memory, machine.elements.stack),
    h('div', { class: 'pane', id: 'pane-output' }, output.element),
  ),
  picker,
);
inEachLanguage(document, () => (document.title = t('title') + ' – ' + t('subtitle')));
showTab('source');

document.addEventListener('keydown', (event) => {
  if (document.querySelector('dialog[open]')) return;
  const key = (event.ctrlKey || event.metaKey ? 'Ctrl+' : '') + (event.shiftKey ? 'Shift+' : '') + event.key;
  const acts: Record<string, () => void> = {
    F8: time.step,
    'Shift+F8': time.stepBack,
    F10: time.over,
    'Shift+F10': time.out,
    'Ctrl+Enter': time.runOrPause,
    'Ctrl+Shift+Enter': time.continueBack,
  };
  const act = acts[key];
  if (!act || event.defaultPrevented) return;
  event.preventDefault();
  act();
});
addEventListener('unhandledrejection', (event) => notice(t('failed', String(event.reason)), 'bad'));
addEventListener('pagehide', keepAll);
addEventListener('hashchange', () => void openLink());

async function start() {
  const module = await compiledEngine();
  [checker, machineWorker] = await Promise.all([startWorker(module), startWorker(module, pictureCame)]);
  void machineWorker.ask('look', 0, rowsShown);
  void machineWorker.ask('setLanguage', settings.language);
  await openLink();
  void check();
}
sources.openFirst();
start().catch((fault: unknown) => notice(t('failed', String(fault)), 'bad'));
