// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import * as api from './api.js';
import { firstSteps, noMatches } from './blank.js';
import { EventDetail } from './detail.js';
import { confirmReset, showShortcuts } from './dialogs.js';
import { byId, oncePerFrame } from './dom.js';
import { EventFeed } from './feed.js';
import { FilterBar } from './filterbar.js';
import { queryOf, readHash, writeHash } from './filters.js';
import { counted, grouped, shortId, timeOfDay } from './format.js';
import { installKeys } from './keyboard.js';
import { EventList } from './list.js';
import { Notices } from './notices.js';
import { Overview } from './overview.js';
import { SessionView } from './sessions.js';
import { StreamClient } from './stream.js';

const SESSIONS_REFRESH_MS = 1500;

/** Connects the components. The URL fragment defines the view; components change it. */
class Inspector {
  constructor() {
    this.place = readHash(location.hash);
    this.feed = new EventFeed((change) => this.feedChanged(change),
      (error) => this.notices.showError(`Could not load the events: ${error.message}`));
    this.list = new EventList(byId('events'), this.feed, (id) => this.go({ event: id }, true));
    this.detail = new EventDetail(byId('detail'), {
      onClose: () => this.go({ event: null }, true),
      onOpen: (id) => this.go({ event: id }, true),
      onFilter: (key, value) => this.go(
        { view: 'events', filters: { ...this.place.filters, [key]: value } }),
      onSession: (session) => this.go({ view: 'sessions', filters: { session } }, true),
    });
    this.sessions = new SessionView(byId('sessions'), {
      onChoose: (session) => this.go({ filters: { session } }),
      onOpen: (id) => this.go({ event: id }, true),
      onList: (session) => this.go({ view: 'events', filters: { session } }, true),
    });
    this.bar = new FilterBar(byId('filters'), byId('chips'), (filters) => this.go({ filters }));
    this.overview = new Overview({
      counters: byId('counters'),
      chart: byId('minutes'),
      onSummary: (result) => this.summaryChanged(result),
    });
    this.stream = new StreamClient({
      prepare: () => this.prepare(),
      onEvent: (type, data) => this.onStreamEvent(type, data),
      onState: (state) => this.connectionChanged(state),
    });
    this.notices = new Notices(byId('notices'), () => this.stream.retryNow());
    this.classes = new Set();
    // Updates the controls around the list once per frame, regardless of the number of events.
    this.showFeed = oncePerFrame(() => {
      this.bar.offer('class', [...this.classes].filter(Boolean).sort().map((one) => [one, one]));
      this.showPause();
      this.showBlank();
    });
    this.wire();
  }

  wire() {
    byId('pause').addEventListener('click', () => this.togglePause());
    byId('reset').addEventListener('click', () => this.reset());
    byId('help').addEventListener('click', () => showShortcuts());
    document.addEventListener('pointerdown', (event) => {
      if (!byId('export').contains(event.target)) byId('export').open = false;
    });
    // Back, forward, and a URL entered by the user.
    addEventListener('popstate', () => this.apply(readHash(location.hash)));
    installKeys({
      onEscape: () => this.escape(),
      onPause: () => this.togglePause(),
      onHelp: () => showShortcuts(),
      onView: (view) => this.go({ view }, true),
      list: this.list,
    });
  }

  start() {
    this.apply(this.place, true);
    this.stream.run();
  }

  /** Changes the view. With `isStep`, the browser's back button returns to the previous one. */
  go(change, isStep = false) {
    const place = { ...this.place, ...change };
    const hash = writeHash(place);
    if (hash !== writeHash(this.place)) {
      history[isStep ? 'pushState' : 'replaceState'](null, '', hash);
    }
    this.apply(place);
  }

  apply(place, isFirst = false) {
    const was = this.place;
    this.place = place;
    this.bar.show(place.filters);
    const filters = new URLSearchParams(queryOf(place.filters)).toString();
    const isOtherList = new URLSearchParams(queryOf(was.filters)).toString() !== filters;
    if (isOtherList && !isFirst) this.loadList();
    this.showView(place);
    for (const kind of ['ndjson', 'har']) {
      byId(`export-${kind}`).href = `/api/export.${kind}?${filters}`;
    }
    this.list.markOpen(place.event);
    byId('main').classList.toggle('split', place.event !== null);
    if (place.event === null) this.detail.close();
    else this.detail.open(place.event);
  }

  showView({ view, filters }) {
    const isSessions = view === 'sessions';
    byId('events').hidden = isSessions;
    byId('sessions').hidden = !isSessions;
    document.body.classList.toggle('shows-sessions', isSessions);
    for (const one of ['events', 'sessions']) {
      const link = byId(`view-${one}`);
      link.href = writeHash({ ...this.place, view: one, event: null });
      if (one === view) link.setAttribute('aria-current', 'page');
      else link.removeAttribute('aria-current');
    }
    const wanted = isSessions ? filters.session ?? '' : null;
    if (isSessions && wanted !== this.shownSession) this.sessions.show(filters.session);
    this.shownSession = wanted;
  }

  /** Reloads everything before each connection. Returns the ID of the newest event. */
  async prepare() {
    const newest = await api.listRows([['limit', 1]]);
    this.about = await api.about();
    this.overview.refreshSoon();
    this.loadList();
    if (this.place.view === 'sessions') this.sessions.show(this.place.filters.session);
    return newest.events.at(-1)?.id ?? 0;
  }

  async loadList() {
    await this.feed.load(this.place.filters);
    this.showPause();
  }

  onStreamEvent(type, data) {
    if (type === 'arrival') {
      this.classes.add(data.class ?? '');
      this.feed.arrive(data);
      this.sessionsChangedSoon();
    } else if (type === 'repeat') {
      this.feed.repeat(data.id, data.repeats);
    } else if (type === 'reset') {
      this.go({ event: null });
      this.loadList();
      this.sessionsChangedSoon();
    } else if (type === 'faults') {
      this.notices.showFaults(data);
      return;
    }
    this.overview.refreshSoon();
  }

  sessionsChangedSoon() {
    this.sessionsTimer ??= setTimeout(async () => {
      this.sessionsTimer = null;
      if (this.place.view === 'sessions') await this.sessions.show(this.place.filters.session);
      this.offerSessions();
    }, SESSIONS_REFRESH_MS);
  }

  async offerSessions() {
    const { sessions } = await api.listSessions().catch(() => ({ sessions: [] }));
    this.bar.offer('session', sessions.slice(0, 50).flatMap((one) => [
      [one.session, `${shortId(one.session)}, ${timeOfDay(one.first_ms)} (${grouped(one.events)})`],
      ...(one.video_sessions ?? []).map((video) =>
        [video.id, `\u00a0\u00a0video ${video.id} (${grouped(video.events)})`]),
    ]));
  }

  feedChanged(change) {
    this.list.update(change);
    if (change.isNew) {
      this.list.markOpen(this.place.event);
      for (const row of this.feed.rows) this.classes.add(row.class ?? '');
      this.offerSessions();
    }
    this.showFeed();
  }

  showBlank() {
    const isEmpty = this.feed.length === 0 && !this.feed.isLoading;
    const isFiltered = queryOf(this.place.filters).length > 0;
    if (!isEmpty || !this.about) this.list.showBlank(null);
    else if (isFiltered) this.list.showBlank(noMatches(() => this.go({ filters: {} })));
    else this.list.showBlank(firstSteps(this.about));
  }

  summaryChanged(result) {
    this.bar.offerNames(result.by_name ?? []);
  }

  connectionChanged(state) {
    this.notices.showConnection(state);
    byId('connection').textContent = state.isConnected ? 'live' : 'offline';
    byId('connection').classList.toggle('live', state.isConnected);
  }

  togglePause() {
    if (this.feed.isPaused) this.feed.resume();
    else this.feed.pause();
    this.showPause();
  }

  showPause() {
    const { isPaused, waiting } = this.feed;
    byId('pause').textContent = isPaused ? `Resume (${grouped(waiting)} new)` : 'Pause';
    byId('pause').setAttribute('aria-pressed', isPaused);
    byId('pause').classList.toggle('set', isPaused);
  }

  async reset() {
    try {
      const { events } = await api.summary();
      if (await confirmReset(counted(events, 'event'))) await api.reset();
    } catch (error) {
      this.notices.showError(`Could not delete the events: ${error.message}`);
    }
  }

  escape() {
    if (byId('export').open) byId('export').open = false;
    else if (this.place.event !== null) {
      this.go({ event: null }, true);
      byId('list').focus();
    } else if (queryOf(this.place.filters).length > 0) this.go({ filters: {} });
    else document.activeElement?.blur();
  }
}

new Inspector().start();
