// Which source is open: the visitor's own, a sample, an exercise, an example, a file, one that came with a link.

import { button, h, inEachLanguage, named } from './dom.js';
import { library, type Exercise } from './library.js';
import type { Kept } from './storage.js';
import { currentLanguage, t, type TextKey } from './texts.js';

interface Source {
  id: string;
  name(): string;
  original(): string;
  exercise?: Exercise;
}
export interface Sources {
  element: HTMLElement;
  resetButton: HTMLElement;
  openFirst(): void;
  openText(id: string, text: string): void;
  noteText(text: string): void;
  exercise(): Exercise | undefined;
  fileName(): string;
}

const ownBegin = 'MAIN     START\n         RET\n         END\n';
const groups: [TextKey, Source[]][] = [
  ['samples', library.samples.map((each) => ({ id: 'sample:' + each.id, name: () => each.id, original: () => each.text }))],
  ['exercises', library.exercises.map((each) => ({ id: 'exercise:' + each.id, name: () => each.titles[currentLanguage()], original: () => each.start, exercise: each }))],
  ['guide', library.examples.map((each) => ({ id: 'example:' + each.id, name: () => each.titles[currentLanguage()], original: () => each.texts[currentLanguage()] }))],
];

export function makeSources(
  kept: Kept,
  uses: { show(id: string, text: string, exercise: Exercise | undefined): void; replace(text: string): void; leave(): void },
): Sources {
  const select = named(h('select', { class: 'sources' }), 'program');
  const isForeign = (id: string) => /^(file|shared):/.test(id);
  const anew = button('startAnew', () => uses.replace(find(kept.current).original()), { class: 'quiet' });
  const remove = button('removeSource', removeCurrent, { class: 'quiet' });
  const resetButton = h('div', { class: 'reset' }, anew, remove);
  function removeCurrent() {
    delete kept.texts[kept.current];
    open('own');
  }

  // Those that no list of ours holds: opened files and shared programs.
  const foreign = (): Source[] => Object.keys(kept.texts).filter(isForeign).map((id) => ({ id, name: () => nameOfForeign(id), original: () => kept.texts[id] ?? '' }));
  const nameOfForeign = (id: string) => (id.startsWith('file:') ? id.slice(5) : t('shared') + ' ' + id.slice(7));
  const own: Source = { id: 'own', name: () => t('own'), original: () => ownBegin };
  const all = () => [own, ...foreign(), ...groups.flatMap(([, sources]) => sources)];
  const find = (id: string) => all().find((each) => each.id === id) ?? own;

  function list() {
    const option = (each: Source) => h('option', { value: each.id }, each.name());
    const group = (key: TextKey, sources: Source[]) => h('optgroup', { label: t(key) }, ...sources.map(option));
    const opened = foreign();
    select.replaceChildren(option(own), ...(opened.length > 0 ? [group('files', opened)] : []), ...groups.map(([key, sources]) => group(key, sources)));
    select.value = kept.current;
  }
  function open(id: string) {
    const source = find(id);
    kept.current = source.id;
    list();
    anew.hidden = source === own || isForeign(source.id);
    remove.hidden = !isForeign(source.id);
    uses.show(source.id, kept.texts[source.id] ?? source.original(), source.exercise);
  }
  select.addEventListener('change', () => {
    uses.leave();
    open(select.value);
  });
  inEachLanguage(select, list);
  return {
    element: select,
    resetButton,
    openFirst: () => open(all().some((each) => each.id === kept.current) ? kept.current : 'sample:pn100'),
    openText(id, text) {
      uses.leave();
      kept.texts[id] = text;
      open(id);
    },
    noteText(text) {
      const source = find(kept.current);
      const isOriginal = !isForeign(source.id) && text === source.original();
      if (isOriginal) delete kept.texts[source.id];
      else kept.texts[source.id] = text;
    },
    exercise: () => find(kept.current).exercise,
    fileName() {
      const id = kept.current.replace(/^[a-z]+:/, '').replace(/[\\/:*?"<>|]/g, '_');
      return /\.[a-z]+$/i.test(id) ? id : id + '.txt';
    },
  };
}
