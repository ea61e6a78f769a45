// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

/**
 * Reads JSON without losing precision: a number is kept as the received string, and a duplicate key
 * is kept twice. JSON.parse changes 1.10, 12345678901234567890 and duplicate keys, so it does not
 * show what the device sent.
 *
 * A value is {kind, text} for 'string' (decoded), 'number' (as received) and 'word' (true, false,
 * null), and {kind, members: [{key, value}]} for 'object' and 'array', where key is a string or an
 * index.
 */

const MAX_DEPTH = 600;
const NUMBER = /-?(?:0|[1-9]\d*)(?:\.\d+)?(?:[eE][+-]?\d+)?/y;
const WORD = /true|false|null/y;
const BLANK = /[ \t\r\n]*/y;

/** Describes why a string is not valid JSON, and the offset of the error. */
export class JsonError extends Error {
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
    throw new JsonError(message, this.at);
  }

  /** Returns the next character that is not whitespace, without consuming it. */
  peek() {
    this.match(BLANK);
    return this.text[this.at];
  }

  take(character) {
    if (this.peek() !== character) this.fail(`expected ${character}`);
    this.at += 1;
  }

  string() {
    const end = this.endOfString();
    let text;
    try {
      // A string contains no number that could lose precision, so JSON.parse can decode it.
      text = JSON.parse(this.text.slice(this.at, end));
    } catch {
      this.fail('unterminated string or invalid escape sequence');
    }
    this.at = end;
    return text;
  }

  /** Searches quote by quote: a regular expression runs out of stack on a string of megabytes. */
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
    if (depth > MAX_DEPTH) this.fail('the body is nested too deeply');
    const first = this.peek();
    if (first === undefined) this.fail('unexpected end of the body');
    if (first === '{') return this.container('object', '}', depth);
    if (first === '[') return this.container('array', ']', depth);
    if (first === '"') return { kind: 'string', text: this.string() };
    const word = this.match(WORD);
    if (word !== null) return { kind: 'word', text: word };
    const number = this.match(NUMBER);
    if (number !== null) return { kind: 'number', text: number };
    return this.fail('invalid value');
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
    if (this.peek() !== '"') this.fail('expected a key');
    const key = this.string();
    this.take(':');
    return { key, value: this.value(depth + 1) };
  }
}

/** Parses a JSON document. Throws a JsonError. */
export function readJson(text) {
  const reader = new Reader(text);
  const value = reader.value(0);
  if (reader.peek() !== undefined) reader.fail('unexpected data after the value');
  return value;
}

/** Returns the path of a member, such as items[0].product. */
export function pathOf(parent, key) {
  if (typeof key === 'number') return `${parent}[${key}]`;
  return parent === '' ? key : `${parent}.${key}`;
}

/** Returns the value of the last member with this key; undefined when there is none. */
export function memberOf(value, key) {
  return value?.members?.findLast((member) => member.key === key)?.value;
}

/** Returns a string in JSON notation, a number or word as received. */
export function shownValue(value) {
  if (value.kind === 'string') return JSON.stringify(value.text);
  if (value.members) return value.kind === 'array' ? '[]' : '{}';
  return value.text;
}
