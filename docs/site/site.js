// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
'use strict';

// The search runs in the browser, over window.jxIndex: [title, location, address, text]. An address
// is relative to this file.
(() => {
  const root = document.currentScript.src;
  const query = document.getElementById('query');
  const found = document.getElementById('found');
  const maxResults = 12;
  let chosen = -1;

  // Returns how well an entry matches the words, or 0 if one of them does not occur.
  function score([title, location, , text], words) {
    const name = title.toLowerCase();
    const place = location.toLowerCase();
    let sum = 0;
    for (const word of words) {
      if (name === word) sum += 100;
      else if (name.startsWith(word)) sum += 40;
      else if (name.includes(word)) sum += 20;
      else if (place.includes(word)) sum += 5;
      else if (text.toLowerCase().includes(word)) sum += 3;
      else return 0;
    }
    return sum + (text ? 4 : 0) - Math.min(title.length, 60) / 60;
  }

  function excerpt(text, words) {
    const at = text.toLowerCase().indexOf(words[0]);
    if (at < 0) return text.slice(0, 90);
    const from = Math.max(0, at - 30);
    return (from > 0 ? '… ' : '') + text.slice(from, from + 90);
  }

  function entry(item, words) {
    const line = document.createElement('li');
    const anchor = document.createElement('a');
    anchor.href = new URL(item[2], root).href;
    const title = document.createElement('b');
    title.textContent = item[0];
    const location = document.createElement('span');
    location.textContent = item[1];
    const text = document.createElement('small');
    text.textContent = excerpt(item[3], words);
    anchor.append(title, ' ', location, text);
    line.append(anchor);
    return line;
  }

  function show() {
    const words = query.value.toLowerCase().split(/[\s:.()]+/).filter(Boolean);
    const matches = !words.length ? [] : (window.jxIndex || [])
        .map((item) => [score(item, words), item]).filter(([value]) => value > 0)
        .sort((a, b) => b[0] - a[0]).slice(0, maxResults);
    found.replaceChildren(...matches.map(([, item]) => entry(item, words)));
    if (words.length && !matches.length) {
      const none = document.createElement('li');
      none.className = 'none';
      none.textContent = 'No results';
      found.append(none);
    }
    found.hidden = !words.length;
    chosen = -1;
  }

  function choose(step) {
    const links = found.querySelectorAll('a');
    if (!links.length) return;
    chosen = (chosen + step + links.length) % links.length;
    links.forEach((link, i) => link.classList.toggle('chosen', i === chosen));
    links[chosen].scrollIntoView({block: 'nearest'});
  }

  query.addEventListener('input', show);
  query.addEventListener('focus', show);
  query.addEventListener('keydown', (event) => {
    const links = found.querySelectorAll('a');
    if (event.key === 'ArrowDown') choose(1);
    else if (event.key === 'ArrowUp') choose(-1);
    else if (event.key === 'Enter' && links.length) links[Math.max(chosen, 0)].click();
    else if (event.key === 'Escape') query.blur();
    else return;
    event.preventDefault();
  });
  document.addEventListener('click', (event) => {
    if (!event.target.closest('.search') || event.target.closest('#found a')) found.hidden = true;
  });
  document.addEventListener('keydown', (event) => {
    if (event.key === 'Escape') found.hidden = true;
    if (event.key !== '/' || event.ctrlKey || event.metaKey) return;
    if (event.target.closest('input, textarea')) return;
    event.preventDefault();
    query.focus();
  });
})();

// The sidebar on a narrow screen.
(() => {
  const menu = document.getElementById('menu');
  menu.addEventListener('click', () => {
    const isOpen = document.body.classList.toggle('menu');
    menu.setAttribute('aria-expanded', String(isOpen));
  });
  document.querySelector('#navigation [aria-current]')?.scrollIntoView({block: 'nearest'});
})();

// Shows or hides the inherited members of a class. Doxygen's pages call this from their headings.
window.toggleInherit = (id) => {
  for (const row of document.querySelectorAll(`tr.inherit.${id}`)) row.classList.toggle('shown');
};
