// Elements, and texts that follow the language.

import { t, type TextKey } from './texts.js';

type Child = Node | string | false | undefined;
type Attributes = Record<string, string | number | boolean | ((event: Event) => void) | undefined>;

// Attributes by name; one that begins with "on" is called for that event. Children that are strings become text.
export function h<K extends keyof HTMLElementTagNameMap>(tag: K, attributes: Attributes = {}, ...children: Child[]): HTMLElementTagNameMap[K] {
  const element = document.createElement(tag);
  for (const [name, value] of Object.entries(attributes)) {
    if (typeof value === 'function') element.addEventListener(name.slice(2), value);
    else if (value === true) element.setAttribute(name, '');
    else if (value !== false && value !== undefined) element.setAttribute(name, String(value));
  }
  element.append(...children.filter((child) => child !== false && child !== undefined));
  return element;
}

// What is done now and whenever the language changes.
const followers: (() => void)[] = [];
export function inEachLanguage<T>(what: T, say: (what: T) => void): T {
  followers.push(() => say(what));
  say(what);
  return what;
}
export function languageChanged() {
  for (const say of followers) say();
}

export const word = (key: TextKey) => inEachLanguage(document.createTextNode(''), (node) => (node.data = t(key)));
export function named<E extends Element>(element: E, key: TextKey, hint?: TextKey): E {
  return inEachLanguage(element, () => {
    element.setAttribute('aria-label', t(key));
    if (hint) element.setAttribute('title', t(hint));
  });
}

export function button(key: TextKey, act: () => void, attributes: Attributes = {}): HTMLButtonElement {
  return h('button', { type: 'button', onclick: act, ...attributes }, word(key));
}

// A part of the page with a heading, which names it.
export function region(key: TextKey, attributes: Attributes, ...children: Child[]): HTMLElement {
  const heading = h('h2', {}, word(key));
  return named(h('section', attributes, heading, ...children), key);
}

// Makes the children those of new ones by changing what differs in them, so that focus, reading place and a click that
// has begun stay. Who listens to a child does so at the parent, since the old ones stay.
export function update(parent: Element, children: Node[]) {
  children.forEach((fresh, i) => updateChild(parent, i, fresh));
  while (parent.childNodes.length > children.length) parent.lastChild!.remove();
}
function updateChild(parent: Element, i: number, fresh: Node) {
  const old = parent.childNodes[i];
  if (!old) parent.append(fresh);
  else if (old.nodeName !== fresh.nodeName) old.replaceWith(fresh);
  else if (old instanceof Element && fresh instanceof Element) updateElement(old, fresh);
  else if (old.nodeValue !== fresh.nodeValue) old.nodeValue = fresh.nodeValue;
}
function updateElement(old: Element, fresh: Element) {
  for (const name of old.getAttributeNames()) if (!fresh.hasAttribute(name)) old.removeAttribute(name);
  for (const name of fresh.getAttributeNames()) if (old.getAttribute(name) !== fresh.getAttribute(name)) old.setAttribute(name, fresh.getAttribute(name)!);
  update(old, [...fresh.childNodes]);
}

// The same for many rows, each of which shows its plain data and nothing else: one whose data are as before is not even
// made.
const shownData = new WeakMap<Node, string>();
export function updateRows<Data>(parent: Element, rows: Data[], make: (row: Data) => HTMLElement) {
  rows.forEach((row, i) => {
    const data = JSON.stringify(row);
    const old = parent.childNodes[i];
    if (old && shownData.get(old) === data) return;
    updateChild(parent, i, make(row));
    shownData.set(parent.childNodes[i]!, data);
  });
  while (parent.childNodes.length > rows.length) parent.lastChild!.remove();
}

export function dialog(key: TextKey, ...children: Child[]): HTMLDialogElement {
  const closing = h('button', { type: 'button', class: 'close', onclick: () => element.close() }, '✕');
  named(closing, 'close');
  const heading = h('h2', {}, word(key));
  const element = named(h('dialog', {}, h('header', {}, heading, closing), ...children), key);
  element.addEventListener('click', (event) => {
    if (event.target === element) element.close();
  });
  document.body.append(element);
  return element;
}
