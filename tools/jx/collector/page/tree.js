// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';
import { counted } from './format.js';
import { pathOf, shownValue } from './json.js';

const OPEN_MEMBERS = 60;   // a value with more descendants is collapsed initially
const SHOWN_MEMBERS = 200;
// Blocks that are similar in every event are collapsed initially.
const COLLAPSED = new Set(['context', 'user']);

function isInside(path, key) {
  if (path === '') return key !== '';
  return key.startsWith(`${path}.`) || key.startsWith(`${path}[`);
}

/** Diagnostics by the path of their key. */
export class DiagnosticMap {
  constructor(diagnostics) {
    this.byPath = new Map();
    for (const one of diagnostics) {
      this.byPath.set(one.key, [...(this.byPath.get(one.key) ?? []), one]);
    }
  }

  at(path) {
    return this.byPath.get(path) ?? [];
  }

  /** Returns whether a descendant of `path` has an error. */
  hasErrorInside(path) {
    return [...this.byPath].some(([key, diagnostics]) => isInside(path, key) &&
      diagnostics.some((one) => one.level === 'error'));
  }

  /** Returns the diagnostics about missing members of `path`: [{path, key, diagnostics}]. */
  missingIn(path, members) {
    const present = members.map((member) => pathOf(path, member.key));
    const missing = [];
    for (const [key, diagnostics] of this.byPath) {
      const isPresent = present.some((own) => key === own || isInside(own, key));
      if (!isInside(path, key) || isPresent) continue;
      missing.push({ path: key, key: key.slice(path.length).replace(/^\./, ''), diagnostics });
    }
    return missing;
  }
}

export function diagnosticLabels(diagnostics) {
  return diagnostics.map(({ level, text }) => element('span', { class: `reason ${level}` },
    element('span', { class: 'glyph', 'aria-label': level === 'error' ? 'error' : 'warning' },
      level === 'error' ? '▲' : '◆'), ` ${text}`));
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
 * Shows a JSON value as a tree with collapsible branches. A branch is filled when it is first
 * expanded, so that a body of megabytes opens fast.
 */
export class JsonTree {
  constructor(diagnostics) {
    this.diagnostics = diagnostics;
    this.branches = new Set();
  }

  build(value) {
    const root = element('div', { class: 'tree' });
    root.append(...diagnosticLabels(this.diagnostics.at('')));
    if (value.members) root.append(this.memberList(value, ''));
    else root.append(this.leaf(value));
    return root;
  }

  toggleAll(isOpen) {
    // Filling a branch adds branches; iterating a set includes them.
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
    // Missing keys come first: after a long object they would be overlooked.
    for (const missing of this.diagnostics.missingIn(path, value.members)) {
      list.append(element('li', { class: 'missing', 'data-path': missing.path },
        element('span', { class: 'key' }, missing.key),
        element('span', { class: 'value absent' }, 'missing'),
        ...diagnosticLabels(missing.diagnostics)));
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
        `Show more (${value.members.length - end} remaining)`, () => {
          more.remove();
          this.appendMembers(list, value, path, end);
        }));
      list.append(more);
    }
  }

  member({ key, value }, path) {
    const diagnostics = this.diagnostics.at(path);
    const label = element('span', { class: typeof key === 'number' ? 'key index' : 'key' },
      String(key));
    const labels = diagnosticLabels(diagnostics);
    const attributes = {
      'data-path': path,
      class: diagnostics.some((one) => one.level === 'error') ? 'faulty' : null,
    };
    // An empty object with missing keys is shown as a branch.
    if (!value.members || (value.members.length === 0 && !this.diagnostics.hasErrorInside(path))) {
      return element('li', attributes, label, this.leaf(value), ...labels);
    }
    return element('li', attributes, this.branch(label, value, path, labels));
  }

  branch(label, value, path, labels) {
    const node = element('details', {}, element('summary', {}, label,
      element('span', { class: 'preview' }, preview(value)), ...labels));
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
    if (this.diagnostics.hasErrorInside(path)) return true;
    return !COLLAPSED.has(path) && size(value) <= OPEN_MEMBERS;
  }
}
