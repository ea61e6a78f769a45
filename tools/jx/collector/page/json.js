// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

/**
 * Reads JSON without losing a digit: a number stays the text that was received, a key that stands
 * twice is there twice. What JSON.parse makes of 1.10, of 12345678901234567890 or of a repeated key
 * is not what the device sent.
 *
 * A value is {kind, text} for 'string' (decoded), 'number' (as received) and 'word' (true, false,
 * null), and {kind, members: [{key, value}]} for 'object' and 'array', where key is a text or an
 * index.
 */

const MAX_DEPTH = 600;
const NUMBER = /-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?/y;
const WORD = /true|false|null/y;
const BLANK = /[ \t\r\n]*/y;

/** What is wrong with a text that is no JSON, and where. */
export class JsonFault extends Error {
  constructor(message, offset) {
    super(message);
    this.offset = offset;
  }
}

class Reader {
  constructor(text) {
    this.text = text;
    this.at = 0;
  }

  match(pattern) {
    pattern.lastIndex = this.at;
    const found = pattern.exec(this.text);
    if (!found) return null;
    this.at = pattern.lastIndex;
    return found[0];
  }

  fail(message) {
    throw new JsonFault(message, this.at);
  }

  /** The next character that is no blank, which stays unread. */
  peek() {
    this.match(BLANK);
    return this.text[this.at];
  }

  take(character) {
    if (this.peek() !== character) this.fail(`${character} is expected`);
    this.at += 1;
  }

  string() {
    const end = this.endOfString();
    let text;
    try {
      // What stands between quotes holds no number to lose, so JSON.parse may decode it.
      text = JSON.parse(this.text.slice(this.at, end));
    } catch {
      this.fail('a text is not closed or has a wrong escape');
    }
    this.at = end;
    return text;
  }

  /** Searched quote by quote: a regular expression runs out of stack on a text of megabytes. */
  endOfString() {
    let end = this.at;
    for (;;) {
      end = this.text.indexOf('"', end + 1);
      if (end < 0) return this.text.length;
      let backslashes = 0;
      while (this.text[end - 1 - backslashes] === '\\') backslashes += 1;
      if (backslashes % 2 === 0) return end + 1;
    }
  }

  value(depth) {
    if (depth > MAX_DEPTH) this.fail('the body is nested too deeply to show');
    const first = this.peek();
    if (first === undefined) this.fail('the body ends too early');
    if (first === '{') return this.container('object', '}', depth);
    if (first === '[') return this.container('array', ']', depth);
    if (first === '"') return { kind: 'string', text: this.string() };
    const word = this.match(WORD);
    if (word !== null) return { kind: 'word', text: word };
    const number = this.match(NUMBER);
    if (number !== null) return { kind: 'number', text: number };
    return this.fail('no value begins like this');
  }

  container(kind, end, depth) {
    const members = [];
    this.at += 1;
    if (this.peek() !== end) {
      do {
        members.push(this.member(kind, members.length, depth));
      } while (this.peek() === ',' && (this.at += 1));
    }
    this.take(end);
    return { kind, members };
  }

  member(kind, index, depth) {
    if (kind === 'array') return { key: index, value: this.value(depth + 1) };
    if (this.peek() !== '"') this.fail('a key is expected');
    const key = this.string();
    this.take(':');
    return { key, value: this.value(depth + 1) };
  }
}

/** Throws a JsonFault. */
export function readJson(text) {
  const reader = new Reader(text);
  const value = reader.value(0);
  if (reader.peek() !== undefined) reader.fail('something stands behind the value');
  return value;
}

/** The path of a member: items[0].product */
export function pathOf(parent, key) {
  if (typeof key === 'number') return `${parent}[${key}]`;
  return parent === '' ? key : `${parent}.${key}`;
}

/** The value of the last member with this key; undefined when there is none. */
export function memberOf(value, key) {
  return value?.members?.findLast((member) => member.key === key)?.value;
}

/** A text as JSON writes it, a number or word as it is. */
export function shownValue(value) {
  if (value.kind === 'string') return JSON.stringify(value.text);
  if (value.members) return value.kind === 'array' ? '[]' : '{}';
  return value.text;
}
