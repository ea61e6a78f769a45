// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A page or screen was shown. `pageType` is its type, `pageName` its name.
class JX_API JXPageViewEvent final : public JXEvent {
 public:
  /// Creates an event named "page_view"; all other fields are null or empty.
  static std::shared_ptr<JXPageViewEvent> init();
  /// Creates an event with this page type, without validating it.
  static std::shared_ptr<JXPageViewEvent> initWithType(const JXString& pageType);

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXPageViewEvent(InitKey);

 private:
};

}  // namespace jx
