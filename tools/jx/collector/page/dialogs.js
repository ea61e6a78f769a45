// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';

const KEYS = [
  ['↑ ↓', 'the event above, below'], ['Page Up, Page Down', 'a screen up, down'],
  ['Home, End', 'the newest, the oldest that is loaded'], ['Enter', 'open the event'],
  ['Escape', 'close what is open, then clear the filters'], ['/', 'filter by text'],
  ['p', 'pause, resume'], ['e, s', 'events, sessions'], ['?', 'these keys'],
];

/** Shows a dialog until it is closed; gives the value of the button that closed it. */
function ask(title, content, buttons) {
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

export function showKeys() {
  const table = element('table', { class: 'pairs keys' }, element('tbody', {},
    ...KEYS.map(([key, act]) => element('tr', {},
      element('th', { scope: 'row' }, element('kbd', {}, key)), element('td', {}, act)))));
  return ask('Keys', table, [['', 'Close', '']]);
}

/** Whether the reader really means it. */
export async function confirmReset(count) {
  const answer = await ask('Remove all events?', element('p', {},
    `${count} are removed from the collector for good. Export them first if somebody may still ` +
    'need them.'), [['', 'Keep them', ''], ['reset', 'Remove all', 'danger']]);
  return answer === 'reset';
}
