// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { byId } from './dom.js';

function isTyping(target) {
  return target.matches?.('input, select, textarea');
}

/** Installs the keyboard shortcuts of the page; the list handles its own keys. */
export function installKeys({ onEscape, onPause, onHelp, onView, list }) {
  document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || document.querySelector('dialog[open]')) {
      return;
    }
    if (event.key === 'Escape') {
      onEscape();
      event.preventDefault();
      return;
    }
    if (isTyping(event.target)) return;
    const actions = {
      '/': () => byId('filter-text').focus(),
      p: onPause,
      '?': onHelp,
      e: () => onView('events'),
      s: () => onView('sessions'),
    };
    const isFree = document.activeElement === document.body;
    if (actions[event.key]) actions[event.key]();
    else if (isFree && /^Arrow(Down|Up)$/.test(event.key)) list.focusAndSteer(event);
    else return;
    event.preventDefault();
  });
}
