// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "PlaybackTranslator.h"

#include <utility>

namespace {

template <typename Value>
bool replace(Value& value, const Value& by) {
  return std::exchange(value, by) != by;
}

}  // namespace

PlaybackTranslator::PlaybackTranslator(std::function<std::string()> newSession)
    : newSession_(std::move(newSession)) {}

PlaybackTranslator::Events PlaybackTranslator::translate(const PlayerChange& change) {
  using Kind = PlayerChange::Kind;
  switch (change.kind) {
    case Kind::FilmOpened:
      open();
      break;
    case Kind::Position:
      moveTo(change.number);
      break;
    case Kind::Paused:
      setPaused(change.isOn);
      break;
    case Kind::Buffering:
      setBuffering(change.isOn);
      break;
    case Kind::SeekBegan:
      if (playing_ && !seek_) seek_.emplace();
      break;
    case Kind::SeekEnded:
      endSeek(change.number);
      break;
    case Kind::Finished:
      finish();
      break;
    case Kind::Failed:
      fail(change.text);
      break;
    case Kind::Left:
      leave();
      break;
    default:
      updateState(change);
  }
  return std::exchange(events_, {});
}

void PlaybackTranslator::updateState(const PlayerChange& change) {
  using Kind = PlayerChange::Kind;
  switch (change.kind) {
    case Kind::PlayerName:
      film_.player = change.text;
      break;
    case Kind::FilmName:
      film_.name = change.text;
      break;
    case Kind::FilmTitle:
      film_.title = change.text;
      break;
    case Kind::Length:
      film_.length = change.number;
      break;
    case Kind::Bitrate:
      film_.bitrate = change.number;
      break;
    case Kind::FrameRate:
      film_.frameRate = change.number;
      break;
    case Kind::Height:
      film_.height = change.number;
      break;
    case Kind::Volume:
      if (replace(film_.volume, change.number)) send(jx::EJXVideoSettingMode_VOLUME);
      break;
    case Kind::Muted:
      if (replace(film_.muted, change.isOn)) send(jx::EJXVideoSettingMode_VOLUME);
      break;
    case Kind::Speed:
      if (replace(film_.speed, change.number)) send(jx::EJXVideoSettingMode_SPEED);
      break;
    case Kind::FullScreen:
      if (replace(film_.fullScreen, change.isOn)) {
        send(change.isOn ? jx::EJXVideoSettingMode_FULLSCREEN_ON
                         : jx::EJXVideoSettingMode_FULLSCREEN_OFF);
      }
      break;
    default:
      break;
  }
}

// Settings of the viewer are kept for the next film.
void PlaybackTranslator::open() {
  leave();
  film_.name.clear();
  film_.title.clear();
  film_.length.reset();
  film_.bitrate.reset();
  film_.frameRate.reset();
  film_.height.reset();
  film_.position = 0;
  film_.buffering = false;
  waitedForLength_ = false;
}

void PlaybackTranslator::begin() {
  playing_ = true;
  quarterReached_ = {};
  film_.session = newSession_();
  send(jx::EJXVideoPlaybackMode_START);
  send(jx::EJXVideoContentMode_START);
  if (film_.paused) send(jx::EJXVideoPlaybackMode_PAUSE);
  if (film_.buffering) send(jx::EJXVideoPlaybackMode_BUFFER_START);
}

void PlaybackTranslator::setPaused(bool paused) {
  if (!replace(film_.paused, paused) || !playing_) return;
  send(paused ? jx::EJXVideoPlaybackMode_PAUSE : jx::EJXVideoPlaybackMode_RESUME);
}

void PlaybackTranslator::setBuffering(bool buffering) {
  if (!replace(film_.buffering, buffering) || !playing_) return;
  send(buffering ? jx::EJXVideoPlaybackMode_BUFFER_START
                 : jx::EJXVideoPlaybackMode_BUFFER_COMPLETE);
}

void PlaybackTranslator::moveTo(double position) {
  if (!playing_) {
    film_.position = position;
    // Name, length and position are reported in any order, and a live stream has no length.
    if (film_.name.empty()) return;
    if (film_.length || std::exchange(waitedForLength_, true)) begin();
    return;
  }
  if (seek_) {
    if (!seek_->target) announceSeek(position);
    return;
  }
  const double before = std::exchange(film_.position, position);
  passQuarters(before, position);
}

// The event contains the position before the seek and the target.
void PlaybackTranslator::announceSeek(double target) {
  seek_->target = target;
  send(jx::EJXVideoPlaybackMode_SEEK_START)->setSeekPosition(decimal(target));
}

void PlaybackTranslator::endSeek(double position) {
  if (!seek_) return;
  if (!seek_->target) announceSeek(position);
  film_.position = position;
  send(jx::EJXVideoPlaybackMode_SEEK_COMPLETE)->setSeekPosition(decimal(*seek_->target));
  seek_.reset();
}

void PlaybackTranslator::passQuarters(double from, double to) {
  if (!film_.length) return;
  for (std::size_t i = 0; i < quarterReached_.size(); ++i) {
    const double quarter = *film_.length * static_cast<double>(i + 1) / 4;
    if (quarterReached_[i] || from >= quarter || to < quarter) continue;
    quarterReached_[i] = true;
    send(jx::EJXVideoContentMode_QUARTER_REACHED);
  }
}

void PlaybackTranslator::finish() {
  if (!playing_) return;
  if (seek_ && seek_->target) endSeek(*seek_->target);
  seek_.reset();
  send(jx::EJXVideoContentMode_COMPLETE);
  send(jx::EJXVideoPlaybackMode_COMPLETE);
  playing_ = false;
}

void PlaybackTranslator::fail(const std::string& reason) {
  if (!playing_) film_.session = newSession_();
  const auto event = send(jx::EJXVideoPlaybackMode_ERROR);
  event->setInterruptionMethod("error");
  event->addAdditionalParameter_withValue("error", reason);
  playing_ = false;
  seek_.reset();
}

// There is no event for leaving: it is reported as a pause without a later resume.
void PlaybackTranslator::leave() {
  if (playing_ && !film_.paused) {
    send(jx::EJXVideoPlaybackMode_PAUSE)->setInterruptionMethod("quit");
  }
  playing_ = false;
  seek_.reset();
}

std::shared_ptr<jx::JXVideoPlaybackEvent> PlaybackTranslator::send(jx::EJXVideoPlaybackMode mode) {
  auto event = playbackEvent(mode, film_);
  events_.push_back(event);
  return event;
}

void PlaybackTranslator::send(jx::EJXVideoContentMode mode) {
  events_.push_back(contentEvent(mode, film_));
}

// Settings that are reported before the film starts are not changes by the viewer.
void PlaybackTranslator::send(jx::EJXVideoSettingMode mode) {
  if (playing_) events_.push_back(settingEvent(mode, film_));
}
