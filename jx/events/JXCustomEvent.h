// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// An event that the application defines: a name, and any additional parameters. A class of the
/// application can derive from it and override `getJsonObject`.
class JX_API JXCustomEvent : public JXEvent {
 public:
  /// Creates an event with this name. With a null name, the event fails `verifyEvent` and is sent
  /// without "event_name".
  static std::shared_ptr<JXCustomEvent> initWithName(const JXString& name);
  /// Deleted, because an event of this class needs a name.
  static std::shared_ptr<JXCustomEvent> init() = delete;

  /// Returns the descriptor of this class: fields and conditions; the application chooses the event
  /// name. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXCustomEvent(InitKey) : JXCustomEvent() {}

 protected:
  JXCustomEvent() = default;
};

}  // namespace jx
