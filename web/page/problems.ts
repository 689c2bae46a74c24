// What is said of the source, with the rule and the sound line behind each fault.

import type { Diagnostic } from './engine.js';
import { h, region, inEachLanguage } from './dom.js';
import { t, type TextKey } from './texts.js';

const kinds = ['error', 'warning', 'note', 'note'] as const satisfies readonly TextKey[];
const counts = ['errorCount', 'warningCount', 'noteCount'] as const satisfies readonly TextKey[];
const mostShown = 50;

export interface Problems {
  element: HTMLElement;
  show(diagnostics: Diagnostic[]): void;
  errors(): number;
}

export function makeProblems(uses: { goTo(line: number): void; explanation(index: number): Promise<string> }): Problems {
  const summary = h('p', { role: 'status', class: 'summary' });
  const list = h('ul', { class: 'problems' });
  const element = region('problems', { class: 'panel', id: 'problems' }, summary, list);
  let shown: Diagnostic[] | undefined;

  const errors = () => shown?.filter((each) => each.severity === 0).length ?? 0;
  function summarise() {
    if (!shown) return t('checking');
    const parts = counts.map((key, severity) => {
      const count = shown!.filter((each) => Math.min(each.severity, 2) === severity).length;
      return count > 0 ? t(key, count) : '';
    });
    return parts.filter((part) => part).join(' · ') || t('noProblems');
  }
  function explanationOf(each: Diagnostic) {
    const text = h('pre', {});
    const open = h('details', {}, h('summary', {}, t('explain')), text);
    open.addEventListener('toggle', () => {
      if (open.open && text.textContent === '') void uses.explanation(each.explanation).then((said) => (text.textContent = said));
    });
    return open;
  }
  function item(each: Diagnostic) {
    const kind = kinds[each.severity] ?? 'note';
    const head = each.line >= 0 ? t('atLine', each.line + 1) : '';
    const place = h('button', { type: 'button', class: 'place', onclick: () => uses.goTo(each.line) }, head);
    return h(
      'li',
      { class: kind },
      h('div', {}, h('strong', {}, t(kind)), ' ', each.line >= 0 && place, h('p', {}, each.lines.join('\n'))),
      each.explanation >= 0 && explanationOf(each),
    );
  }
  let last = '';
  function show() {
    if (summary.textContent !== summarise()) summary.textContent = summarise();
    element.classList.toggle('faulty', errors() > 0);
    const now = JSON.stringify([shown, t('explain')]);
    if (now === last) return;
    last = now;
    const all = shown ?? [];
    list.replaceChildren(...all.slice(0, mostShown).map(item));
    if (all.length > mostShown) list.append(h('li', {}, t('moreProblems', all.length - mostShown)));
  }
  inEachLanguage(element, show);
  return {
    element,
    errors,
    show(diagnostics) {
      shown = diagnostics;
      show();
    },
  };
}
