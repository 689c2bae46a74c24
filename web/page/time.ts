// The controls of time: run, step, both backwards, and a slider over the whole run.

import type { Picture, Task, Why } from './engine.js';
import { h, inEachLanguage, named, region, word } from './dom.js';
import { t, type TextKey } from './texts.js';

export interface TimeUses {
  task(task: Task, back: boolean, number: number, pace: number): void;
  pause(): void;
  restart(): void;
  placeOf(text: string): number | undefined; // of an address or a label
  hasErrors(): boolean; // the source as it is
}
export interface Time {
  element: HTMLElement;
  show(picture: Picture | undefined, isStale: boolean): void;
  run(): void;
  runOrPause(): void;
  step(): void;
  stepBack(): void;
  over(): void;
  out(): void;
  continueBack(): void;
  pace(): number;
  isDragging(): boolean; // the slider
}

const paces = [1, 2, 5, 10, 30, 100, 1000, 0];
const icons = {
  run: 'M5 3.5v13l11-6.5z',
  pause: 'M5 4h3.5v12H5zM11.5 4H15v12h-3.5z',
  stepBack: 'M15 4v12l-8-6zM4 4h2v12H4z',
  step: 'M5 4v12l8-6zM14 4h2v12h-2z',
  over: 'M3 12a7 6 0 0 1 12.6-3.2L18 7v6h-6l2-2.2A5 4.2 0 0 0 5 12zM8 14h4v3H8z',
  out: 'M9 17V8H5.5L10 3l4.500 5H11v9z',
  continueBack: 'M15 3.500v13L4 10z',
  restart: 'M10 3a7 7 0 1 1-6.600 4.700l1.900.600A5 5 0 1 0 10 5v3L5.500 4 10 0z',
} as const satisfies Partial<Record<TextKey, string>>;

function icon(path: string) {
  const svg = document.createElementNS('http://www.w3.org/2000/svg', 'svg');
  svg.setAttribute('viewBox', '0 0 20 20');
  svg.setAttribute('aria-hidden', 'true');
  const shape = document.createElementNS('http://www.w3.org/2000/svg', 'path');
  shape.setAttribute('d', path);
  svg.append(shape);
  return svg;
}

const reasons: Partial<Record<Why, TextKey>> = { breakpoint: 'atBreakpoint', watch: 'atWatch', start: 'atStart', paused: 'paused' };

export function makeTime(uses: TimeUses): Time {
  const speed = named(h('select', { class: 'speed' }), 'speed');
  inEachLanguage(speed, () => {
    const chosen = speed.value || '0';
    speed.replaceChildren(...paces.map((pace) => h('option', { value: pace }, pace === 0 ? t('fullSpeed') : t('perSecond', pace))));
    speed.value = chosen;
  });
  const pace = () => Number(speed.value);
  const control = (key: keyof typeof icons, hint: TextKey, act: () => void, style = '') => {
    const label = h('span', { class: 'label' });
    inEachLanguage(label, () => (label.textContent = t(key)));
    const element = h('button', { type: 'button', class: 'control ' + style, onclick: act }, label);
    element.prepend(icon(icons[key]));
    return named(element, key, hint);
  };
  const acts = {
    run: () => uses.task('run', false, 0, pace()),
    step: () => uses.task('step', false, 1, 0),
    stepBack: () => uses.task('step', false, -1, 0),
    over: () => uses.task('over', false, 0, 0),
    out: () => uses.task('out', false, 0, 0),
    continueBack: () => uses.task('run', true, 0, 0),
  };
  const controls = {
    run: control('run', 'runHint', acts.run, 'primary'),
    pause: control('pause', 'pauseHint', () => uses.pause()),
    stepBack: control('stepBack', 'stepBackHint', acts.stepBack),
    step: control('step', 'stepHint', acts.step),
    over: control('over', 'overHint', acts.over),
    out: control('out', 'outHint', acts.out),
    continueBack: control('continueBack', 'continueBackHint', acts.continueBack),
    restart: control('restart', 'restartHint', () => uses.restart()),
  };
  const slider = named(h('input', { type: 'range', min: 0, max: 0, value: 0, step: 1 }), 'slider');
  slider.addEventListener('input', () => uses.task('go', false, Number(slider.value), 0));
  const place = named(h('input', { type: 'text', size: 12, autocomplete: 'off', spellcheck: 'false' }), 'untilPlace');
  inEachLanguage(place, () => (place.placeholder = t('untilPlace')));
  const until = named(h('button', { type: 'submit', class: 'control' }, word('until')), 'until', 'untilHint');
  const noPlace = h('span', { role: 'status', class: 'hint' });
  const untilForm = h('form', { class: 'look' }, place, until, noPlace);
  untilForm.addEventListener('submit', (event) => {
    event.preventDefault();
    const address = uses.placeOf(place.value.trim());
    noPlace.textContent = address === undefined ? t('noSuchPlace') : '';
    if (address !== undefined) uses.task('until', false, address, 0);
  });
  const moment = h('span', { class: 'moment' });
  const status = h('p', { role: 'status', class: 'status' });
  const element = region('time', { class: 'panel', id: 'time' }, h('div', { class: 'controls' }, ...Object.values(controls)), h('div', { class: 'line' }, slider, moment, speed), untilForm, status);

  let shown: Picture | undefined;
  let isStale = false;
  let reason: Why | undefined;

  function statusText(): string {
    if (!shown) return '';
    if (isStale && !shown.running) return uses.hasErrors() ? t('cannotRun') : shown.state.latest > 0 ? t('stale') : t('ready');
    if (shown.running) return t('running');
    const state = shown.state;
    if (state.isFault) return t('faulted');
    if (state.isEnd) return t('ended');
    if (state.wantsInput) return t('wantsInput');
    const key = reason ? reasons[reason] : undefined;
    if (key) return t(key);
    return state.now === 0 ? t('ready') : t('stopped');
  }
  function show() {
    const state = shown?.state;
    const running = shown?.running ?? false;
    const past = !shown || isStale;
    controls.pause.disabled = !running;
    controls.run.disabled = running;
    controls.stepBack.disabled = controls.continueBack.disabled = running || past || state!.now === 0;
    controls.step.disabled = controls.over.disabled = controls.out.disabled = until.disabled = running || (!past && state!.isEnd);
    controls.restart.disabled = !shown;
    slider.disabled = past || state!.latest === 0;
    if (state) {
      slider.max = String(state.latest);
      if (!dragging) slider.value = String(state.now);
    }
    const position = state ? t('moment', state.now.toLocaleString('en'), state.latest.toLocaleString('en')) : '';
    moment.textContent = position;
    slider.setAttribute('aria-valuetext', position);
    if (status.textContent !== statusText()) status.textContent = statusText();
    element.classList.toggle('alert', state !== undefined && state.wantsInput && !running);
  }
  let dragging = false;
  slider.addEventListener('pointerdown', () => (dragging = true));
  addEventListener('pointerup', () => (dragging = false));
  inEachLanguage(element, show);
  const unless = (control: HTMLButtonElement, act: () => void) => () => void (control.disabled || act());
  return {
    element,
    pace,
    isDragging: () => dragging,
    show(picture, stale) {
      shown = picture;
      isStale = stale;
      if (picture?.outcome) reason = picture.outcome.why;
      else if (picture?.running) reason = undefined;
      show();
    },
    run: unless(controls.run, acts.run),
    runOrPause: () => (controls.run.disabled ? uses.pause() : acts.run()),
    step: unless(controls.step, acts.step),
    stepBack: unless(controls.stepBack, acts.stepBack),
    over: unless(controls.over, acts.over),
    out: unless(controls.out, acts.out),
    continueBack: unless(controls.continueBack, acts.continueBack),
  };
}
