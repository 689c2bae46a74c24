// Owns an engine. The page has two: one checks what is typed, the other one is the machine, so that neither waits for
// the other. A task of the machine is worked on in slices, between which questions are answered.

import createEngine from '../../build-web/wasm/web/engine/engine.js';
import type { Engine, FromWorker, Outcome, Question, Questions, Task, ToWorker, Why } from './engine.js';

const sliceTime = 20; // ms
const pictureTime = 100;
const unit = 1000; // instructions of the least budget

let engine: Engine;
const printed: string[] = [];
let isLoaded = false;
let view = { first: 0, rows: 32 };
let current = 0; // the task that is worked on; a later one ends it
let running = false;
let aim: number | undefined; // the moment that a task is on its way to
let shownConsole = ''; // the mark of the one that the page has
let budget = 100 * unit;

const post = (message: FromWorker) => self.postMessage(message);

function show(outcome?: Outcome) {
  if (!isLoaded) return;
  const mark = engine.consoleMark();
  const picture = {
    state: engine.state(),
    counts: engine.counts(),
    memory: engine.memoryRows(view.first, view.rows),
    running,
    ...(outcome ? { outcome } : {}),
    ...(mark === shownConsole ? {} : { console: engine.console() }),
  };
  shownConsole = mark;
  post({ kind: 'picture', picture });
}

// Lets waiting messages in.
const channel = new MessageChannel();
let goOn = () => {};
channel.port1.onmessage = () => goOn();
const turn = () => new Promise<void>((done) => ((goOn = done), channel.port2.postMessage(0)));
const sleep = (ms: number) => new Promise<void>((done) => setTimeout(done, ms));

// Works on what was begun. False if another task or a pause has come in between.
async function workOn(mine: number, isShown: boolean): Promise<boolean> {
  let shown = performance.now();
  for (;;) {
    const begun = performance.now();
    const done = engine.work(budget);
    const now = performance.now();
    if (done) return true;
    const took = Math.max(now - begun, 0.1);
    budget = Math.max(unit, Math.min(budget * 4, (budget * sliceTime) / took));
    if (isShown && now - shown > pictureTime) {
      show();
      shown = now;
    }
    await turn();
    if (mine !== current) return false;
  }
}

// So many instructions a second, up to a mark.
async function walk(mine: number, pace: number): Promise<Why | undefined> {
  let due = 1;
  let last = performance.now();
  for (;;) {
    const count = Math.floor(due);
    due -= count;
    const why = count > 0 ? engine.pace(count) : 'arrived';
    if (why !== 'arrived') return why;
    show();
    await sleep(Math.max(1000 / pace, pictureTime));
    if (mine !== current) return undefined;
    due += ((performance.now() - last) * pace) / 1000;
    last = performance.now();
  }
}

async function perform(task: Task, back: boolean, number: number, pace: number) {
  const mine = ++current;
  if (task === 'step') {
    number = Math.max(0, (aim ?? engine.state().now) + number);
    task = 'go';
  }
  aim = task === 'go' ? number : undefined;
  running = true;
  if (task === 'run' && !back && pace > 0) {
    const why = await walk(mine, pace);
    if (mine !== current || !why) return;
    running = false;
    show({ why });
    return;
  }
  engine.begin(task, back, number);
  if (!(await workOn(mine, task !== 'go'))) return;
  running = false;
  aim = undefined;
  show(engine.outcome());
}

function stop() {
  ++current;
  running = false;
  aim = undefined;
}

const answers: { [Q in Question]: (...words: Parameters<Questions[Q]>) => unknown } = {
  check: (...words) => engine.check(...words),
  lines: (...words) => engine.lines(...words),
  explanation: (...words) => engine.explanation(...words),
  decode: (bytes) => engine.decode(bytes),
  encodeShiftJis: (text) => engine.encodeShiftJis(text),
  grade(source, pipeline, language, name, cases) {
    const folder = '/' + name;
    if (!engine.FS.analyzePath(folder).exists) engine.FS.mkdir(folder);
    for (const file of cases) engine.FS.writeFile(folder + '/' + file.name, file.text);
    printed.length = 0;
    const right = engine.grade(source, pipeline, language, folder);
    return { right, text: printed.join('\n') };
  },
  load(...words) {
    stop();
    const loaded = engine.load(...words);
    isLoaded = loaded.good;
    shownConsole = '';
    show();
    return loaded;
  },
  unload() {
    stop();
    isLoaded = false;
  },
  task: (...words) => void (isLoaded && perform(...words)),
  async who(kind, index) {
    answers.pause();
    stop();
    const mine = current;
    running = true;
    engine.beginWho(kind, index);
    const done = await workOn(mine, false);
    if (done) running = false;
    return done ? engine.outcome() : { why: 'paused' };
  },
  pause() {
    if (!running) return;
    stop();
    show({ why: 'paused' });
  },
  look(first, rows) {
    view = { first, rows };
    if (!running) show();
  },
  wordAt: (address) => engine.wordAt(address),
  type(line) {
    engine.type(line);
    if (!running) show();
  },
  endInput() {
    engine.endInput();
    if (!running) show();
  },
  setBreakpoints: (lines) => isLoaded && engine.setBreakpoints(lines),
  setWatch: (...words) => isLoaded && engine.setWatch(...words),
  setLanguage(language) {
    engine.setLanguage(language);
    if (!running) show();
  },
  dump: (name) => engine.dump(name),
};

async function answer(id: number, question: Question, words: unknown[]) {
  try {
    const reply = await (answers[question] as (...words: unknown[]) => unknown)(...words);
    post({ kind: 'answer', id, answer: reply });
  } catch (fault) {
    post({ kind: 'fault', id, why: String(fault) });
  }
}

self.onmessage = async (event: MessageEvent<ToWorker>) => {
  const message = event.data;
  if ('id' in message) return void answer(message.id, message.question, message.words);
  engine = await createEngine({
    instantiateWasm(imports, done) {
      void WebAssembly.instantiate(message.module, imports).then((instance) => done(instance, message.module));
      return {};
    },
    print: (line) => printed.push(line),
    printErr: (line) => printed.push(line),
  });
  post({ kind: 'ready' });
};
