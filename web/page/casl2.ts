// The language for the editor. Its opcodes come from the engine's table, at build time.

import { HighlightStyle, StreamLanguage, syntaxHighlighting } from '@codemirror/language';
import { tags } from '@lezer/highlight';

interface LineState {
  part: 'label' | 'opcode' | 'operands';
}

export function casl2(opcodes: readonly string[]) {
  const known = new Set(opcodes);
  return [
    StreamLanguage.define<LineState>({
      name: 'casl2',
      startState: () => ({ part: 'label' }),
      token(stream, state) {
        if (stream.sol()) state.part = 'label';
        if (stream.eatSpace()) {
          if (state.part === 'label') state.part = 'opcode';
          return null;
        }
        if (stream.match(/^;.*/)) return 'comment';
        if (state.part !== 'operands') {
          const found = stream.match(/^[^\s;]+/) as RegExpMatchArray;
          if (state.part === 'label') return 'labelName';
          state.part = 'operands';
          return known.has(found[0]) ? 'keyword' : 'invalid';
        }
        if (stream.match(/^=?'(?:[^']|'')*'?/)) return 'string';
        if (stream.match(/^GR[0-7](?![A-Z0-9])/)) return 'typeName';
        if (stream.match(/^=?#[0-9A-F]+/) || stream.match(/^=?[+-]?[0-9]+/)) return 'number';
        if (stream.match(/^[A-Z][A-Z0-9]*/)) return 'variableName';
        stream.next();
        return null;
      },
    }),
    syntaxHighlighting(
      HighlightStyle.define([
        { tag: tags.comment, class: 'c-comment' },
        { tag: tags.keyword, class: 'c-opcode' },
        { tag: tags.labelName, class: 'c-label' },
        { tag: tags.string, class: 'c-string' },
        { tag: tags.number, class: 'c-number' },
        { tag: tags.typeName, class: 'c-register' },
      ]),
    ),
  ];
}
