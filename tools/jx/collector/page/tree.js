// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';
import { counted } from './format.js';
import { pathOf, shownValue } from './json.js';

const OPEN_MEMBERS = 60;   // a value with more, counted through, begins folded
const SHOWN_MEMBERS = 200;
// What is alike in every event begins folded.
const FOLDED = new Set(['context', 'user']);

function isInside(path, key) {
  if (path === '') return key !== '';
  return key.startsWith(`${path}.`) || key.startsWith(`${path}[`);
}

/** Reasons by the path of the key that they are about. */
export class ReasonMap {
  constructor(reasons) {
    this.byPath = new Map();
    for (const reason of reasons) {
      this.byPath.set(reason.key, [...(this.byPath.get(reason.key) ?? []), reason]);
    }
  }

  at(path) {
    return this.byPath.get(path) ?? [];
  }

  /** Whether something is wrong inside `path`. */
  hasErrorInside(path) {
    return [...this.byPath].some(([key, reasons]) => isInside(path, key) &&
      reasons.some((reason) => reason.level === 'error'));
  }

  /** Reasons about members of `path` that are not there: [{path, key, reasons}]. */
  missingIn(path, members) {
    const there = members.map((member) => pathOf(path, member.key));
    const missing = [];
    for (const [key, reasons] of this.byPath) {
      const isThere = there.some((own) => key === own || isInside(own, key));
      if (!isInside(path, key) || isThere) continue;
      missing.push({ path: key, key: key.slice(path.length).replace(/^\./, ''), reasons });
    }
    return missing;
  }
}

export function reasonNotes(reasons) {
  return reasons.map((reason) => element('span', { class: `reason ${reason.level}` },
    element('span', { class: 'glyph', 'aria-label': reason.level },
      reason.level === 'error' ? '▲' : '◆'), ` ${reason.text}`));
}

function size(value) {
  return (value.members ?? []).reduce((sum, member) => sum + 1 + size(member.value), 0);
}

function preview(value) {
  if (value.members.length === 0) return value.kind === 'array' ? '[]' : '{}';
  if (value.kind === 'array') return `[ ${counted(value.members.length, 'entry', 'entries')} ]`;
  const keys = value.members.slice(0, 12).map((member) => member.key);
  return `{ ${keys.join(', ')}${value.members.length > keys.length ? ', …' : ''} }`;
}

/**
 * A JSON value as a tree whose branches fold. Branches are filled when they are opened first, so
 * that a body of megabytes costs nothing until somebody looks.
 */
export class JsonTree {
  constructor(reasons) {
    this.reasons = reasons;
    this.branches = new Set();
  }

  build(value) {
    const root = element('div', { class: 'tree' });
    root.append(...reasonNotes(this.reasons.at('')));
    if (value.members) root.append(this.memberList(value, ''));
    else root.append(this.leaf(value));
    return root;
  }

  foldAll(isOpen) {
    // Opening fills, which adds branches; a set is walked through to those too.
    for (const branch of this.branches) {
      if (isOpen) branch.fill();
      branch.node.open = isOpen;
    }
  }

  leaf(value) {
    const kind = value.kind === 'string' ? 'text' : value.kind;
    return element('span', { class: `value ${kind}` }, shownValue(value));
  }

  memberList(value, path) {
    const list = element('ul');
    // What lacks stands first: behind a long object nobody would find it.
    for (const missing of this.reasons.missingIn(path, value.members)) {
      list.append(element('li', { class: 'missing', 'data-path': missing.path },
        element('span', { class: 'key' }, missing.key),
        element('span', { class: 'value absent' }, 'absent'), ...reasonNotes(missing.reasons)));
    }
    this.appendMembers(list, value, path, 0);
    return list;
  }

  appendMembers(list, value, path, from) {
    const end = Math.min(value.members.length, from + SHOWN_MEMBERS);
    for (const member of value.members.slice(from, end)) {
      list.append(this.member(member, pathOf(path, member.key)));
    }
    if (end < value.members.length) {
      const more = element('li', {}, button(
        `Show more, ${value.members.length - end} are left`, () => {
          more.remove();
          this.appendMembers(list, value, path, end);
        }));
      list.append(more);
    }
  }

  member({ key, value }, path) {
    const reasons = this.reasons.at(path);
    const label = element('span', { class: typeof key === 'number' ? 'key index' : 'key' },
      String(key));
    const notes = reasonNotes(reasons);
    const attributes = {
      'data-path': path,
      class: reasons.some((reason) => reason.level === 'error') ? 'faulty' : null,
    };
    // An empty object that lacks something has a line to show.
    if (!value.members || (value.members.length === 0 && !this.reasons.hasErrorInside(path))) {
      return element('li', attributes, label, this.leaf(value), ...notes);
    }
    return element('li', attributes, this.branch(label, value, path, notes));
  }

  branch(label, value, path, notes) {
    const node = element('details', {}, element('summary', {}, label,
      element('span', { class: 'preview' }, preview(value)), ...notes));
    let isFilled = false;
    const fill = () => {
      if (isFilled) return;
      isFilled = true;
      node.append(this.memberList(value, path));
    };
    node.addEventListener('toggle', () => node.open && fill());
    this.branches.add({ node, fill });
    if (this.beginsOpen(value, path)) {
      fill();
      node.open = true;
    }
    return node;
  }

  beginsOpen(value, path) {
    if (this.reasons.hasErrorInside(path)) return true;
    return !FOLDED.has(path) && size(value) <= OPEN_MEMBERS;
  }
}
