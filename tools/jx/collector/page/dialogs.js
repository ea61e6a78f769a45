// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';

const SHORTCUTS = [
  ['↑ ↓', 'previous event, next event'], ['Page Up, Page Down', 'one page up, down'],
  ['Home, End', 'newest event, oldest loaded event'], ['Enter', 'open the event'],
  ['Escape', 'close the menu or event, then clear the filters'], ['/', 'filter by text'],
  ['p', 'pause, resume'], ['e, s', 'events, sessions'], ['?', 'keyboard shortcuts'],
];

/** Shows a modal dialog. Resolves to the value of the button that closed it. */
function showDialog(title, content, buttons) {
  const dialog = element('dialog', { 'aria-label': title }, element('h2', {}, title), content,
    element('p', { class: 'acts' }, ...buttons.map(([value, text, kind]) =>
      button(text, () => dialog.close(value), { class: kind, value }))));
  document.body.append(dialog);
  dialog.showModal();
  return new Promise((resolve) => {
    dialog.addEventListener('close', () => {
      dialog.remove();
      resolve(dialog.returnValue);
    });
  });
}

export function showShortcuts() {
  const table = element('table', { class: 'pairs keys' }, element('tbody', {},
    ...SHORTCUTS.map(([key, act]) => element('tr', {},
      element('th', { scope: 'row' }, element('kbd', {}, key)), element('td', {}, act)))));
  return showDialog('Keyboard shortcuts', table, [['', 'Close', '']]);
}

/** Resolves to true when the user confirms. */
export async function confirmReset(count) {
  const result = await showDialog('Delete all events?', element('p', {},
    `${count} will be permanently deleted from the collector. Export them first if you may still ` +
    'need them.'), [['', 'Cancel', ''], ['reset', 'Delete all', 'danger']]);
  return result === 'reset';
}
