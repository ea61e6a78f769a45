// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import { button, element } from './dom.js';
import { grouped, shortId } from './format.js';
import { FILTERS } from './filters.js';

const TYPING_MS = 200;

/** The filter controls, and a chip for each filter that is set. */
export class FilterBar {
  constructor(form, chips, onChange) {
    Object.assign(this, { form, chips, onChange });
    this.filters = {};
    this.build();
  }

  build() {
    this.text = element('input', {
      id: 'filter-text', type: 'search', placeholder: 'Search bodies',
      'aria-label': 'Search event bodies', autocomplete: 'off', spellcheck: 'false',
      on: { input: () => this.typed() },
    });
    this.validities = [['', 'All'], ['true', 'Valid'], ['false', 'Invalid']].map(([value, label]) =>
      button(label, () => this.set('good', value), { 'data-good': value }));
    this.name = this.selectField('name', 'Name');
    this.class = this.selectField('class', 'Class');
    this.session = this.selectField('session', 'Session');
    this.form.append(this.text,
      element('div', { class: 'segments', role: 'group', 'aria-label': 'Validation' },
        ...this.validities),
      this.name, this.class, this.session);
    this.form.addEventListener('submit', (event) => {
      event.preventDefault();
      this.typedNow();
    });
  }

  selectField(key, label) {
    return element('select', {
      id: `filter-${key}`, 'aria-label': label,
      on: { change: (event) => this.set(key, event.target.value) },
    }, element('option', { value: '' }, `${label}: any`));
  }

  typed() {
    clearTimeout(this.timer);
    this.timer = setTimeout(() => this.typedNow(), TYPING_MS);
  }

  typedNow() {
    clearTimeout(this.timer);
    if (this.text.value !== (this.filters.text ?? '')) this.set('text', this.text.value);
  }

  set(key, value) {
    const filters = { ...this.filters };
    delete filters[key];
    if (value) filters[key] = value;
    this.onChange(filters);
  }

  /** Shows these filters without calling `onChange`. */
  show(filters) {
    this.filters = filters;
    if (document.activeElement !== this.text || !filters.text) this.text.value = filters.text ?? '';
    for (const validity of this.validities) {
      validity.setAttribute('aria-pressed', validity.dataset.good === (filters.good ?? ''));
    }
    for (const key of ['name', 'class', 'session']) this.select(key, filters[key] ?? '');
    this.showChips();
  }

  showChips() {
    const set = FILTERS.filter(([key]) => this.filters[key]);
    this.chips.hidden = set.length === 0;
    this.chips.replaceChildren(...set.map(([key, label]) => {
      const value = { true: 'valid', false: 'invalid' }[key === 'good' ? this.filters[key] : '']
        ?? this.filters[key];
      return button(`${label}: ${value} ×`, () => this.set(key, ''),
        { class: 'chip', 'data-filter': key, 'aria-label': `Remove filter ${label}: ${value}` });
    }), button('Clear all', () => this.onChange({}), { class: 'link', id: 'clear-filters' }));
  }

  // A value that is not in the list, for example from a shared URL, is added so that it is visible.
  select(key, value) {
    const field = this[key];
    if (value && ![...field.options].some((option) => option.value === value)) {
      field.append(element('option', { value }, key === 'session' ? shortId(value) : value));
    }
    field.value = value;
    field.classList.toggle('set', value !== '');
  }

  /** Sets the values of a list: [[value, label]]. */
  offer(key, values) {
    const field = this[key];
    const wanted = JSON.stringify(values);
    if (field.dataset.offered === wanted || document.activeElement === field) return;
    field.dataset.offered = wanted;
    field.replaceChildren(field.options[0],
      ...values.map(([value, label]) => element('option', { value }, label)));
    this.select(key, this.filters[key] ?? '');
  }

  offerNames(byName) {
    this.offer('name', byName.filter((one) => one.name !== null).map(({ name, count, bad }) =>
      [name, `${name} (${grouped(count)}${bad > 0 ? `, ${bad} invalid` : ''})`]));
  }
}
