// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer logged in. Always valid.
class JX_API JXLoginEvent final : public JXEvent {
 public:
  /// Creates an event named "login"; all other fields are null or empty.
  static std::shared_ptr<JXLoginEvent> init();

  /// The login method, a free-form string such as "remote" or "phone".
  const JXString& method() const { return method_; }
  void setMethod(const JXString& value) { method_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXLoginEvent(InitKey);

 private:
  JXString method_;
};

}  // namespace jx
