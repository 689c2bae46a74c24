#!/usr/bin/env python3
"""Writes src/text/Table932.inc, the table of code page 932, from Python's own codec.

Usage: tools/make_table932.py > src/text/Table932.inc

The two-byte characters are laid out in rows of 94, as the character set defines them: a lead byte holds two rows.
The rows for the user's own characters (lead bytes F0 to F9) and the single bytes follow a formula and are not here.
"""

import sys

LEADS = [*range(0x81, 0xA0), *range(0xE0, 0xFD)]
USER_ROWS = range(95, 115)
NEC_SELECTED_ROWS = range(89, 93)
NO_CHARACTER = "_"


def code_of(row, cell):
    """The two bytes of a character; row from 1, cell from 0."""
    lead = LEADS[(row - 1) // 2]
    if row % 2 == 0:
        return bytes([lead, 0x9F + cell])
    return bytes([lead, 0x40 + cell + (cell >= 0x3F)])


def character_at(row, cell):
    try:
        return code_of(row, cell).decode("cp932")
    except UnicodeDecodeError:
        return NO_CHARACTER


def check_second_codes(rows):
    """Every character of the NEC-selected rows has an IBM code or a better one; the program relies on it."""
    others = set("".join(text for row, text in rows.items() if row not in NEC_SELECTED_ROWS))
    for row in NEC_SELECTED_ROWS:
        assert set(rows[row]) <= others, row


def main():
    sys.stdout.reconfigure(encoding="utf-8")
    rows = {}
    for row in range(1, 2 * len(LEADS) + 1):
        text = "".join(character_at(row, cell) for cell in range(94))
        if row not in USER_ROWS and text != NO_CHARACTER * 94:
            rows[row] = text
    check_second_codes(rows)
    print("// Made by tools/make_table932.py. Rows of 94 two-byte characters of code page 932, two to a lead byte;")
    print('// "_" stands where there is no character. Rows that are not listed have none.')
    for row, text in rows.items():
        print(f'{{{row}, u"{text}"}},')


if __name__ == "__main__":
    main()
