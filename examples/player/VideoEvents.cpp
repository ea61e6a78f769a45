// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "VideoEvents.h"

#include <cmath>

namespace {

std::optional<jx::JXDecimal> ifKnown(const std::optional<double>& number) {
  if (!number) return std::nullopt;
  return decimal(*number);
}

// Sets the fields of all video events. The session is an argument of the initialiser.
void describe(jx::JXVideoEvent& event, const FilmState& film) {
  event.setCursorPosition(decimal(film.position));
  event.setTotalLength(decimal(film.length.value_or(0)));
  event.setVideoTitle(film.title.empty() ? film.name : film.title);
}

jx::JXDecimal sound(const FilmState& film) { return decimal(film.muted ? 0 : film.volume); }

jx::JXString imageQuality(const FilmState& film) {
  if (!film.height) return nullptr;
  return decimal(*film.height).toString() + "p";
}

}  // namespace

jx::JXDecimal decimal(double number) {
  return jx::JXDecimal::fromDouble(std::round(number * 1000) / 1000);
}

std::shared_ptr<jx::JXVideoPlaybackEvent> playbackEvent(jx::EJXVideoPlaybackMode mode,
                                                        const FilmState& film) {
  auto event = jx::JXVideoPlaybackEvent::initWithMode_andSessionId(mode, film.session);
  describe(*event, film);
  event->contentAssetID().append(film.name);
  event->setVideoPlayer(film.player);
  event->setFullScreen(film.fullScreen);
  event->setSound(sound(film));
  event->setImageQuality(imageQuality(film));
  event->setBitrate(ifKnown(film.bitrate));
  event->setFramerate(ifKnown(film.frameRate));
  return event;
}

std::shared_ptr<jx::JXVideoContentEvent> contentEvent(jx::EJXVideoContentMode mode,
                                                      const FilmState& film) {
  auto event = jx::JXVideoContentEvent::initWithMode_andSessionId(mode, film.session);
  describe(*event, film);
  event->setContentAssetID(film.name);
  event->setBitrate(ifKnown(film.bitrate));
  event->setFramerate(ifKnown(film.frameRate));
  return event;
}

std::shared_ptr<jx::JXVideoSettingEvent> settingEvent(jx::EJXVideoSettingMode mode,
                                                      const FilmState& film) {
  auto event = jx::JXVideoSettingEvent::initWithMode_andSessionId(mode, film.session);
  describe(*event, film);
  event->setContentAssetID(film.name);
  event->setFullScreen(film.fullScreen);
  event->setSound(sound(film));
  event->setImageQuality(imageQuality(film));
  // Setting events require it, and the player measures it only a second after a seek.
  event->setBitrate(decimal(film.bitrate.value_or(0)));
  event->setFramerate(ifKnown(film.frameRate));
  return event;
}
