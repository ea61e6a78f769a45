// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// An event of the host's own making: a name, and whatever parameters the host adds.
class JX_API JXCustomEvent final : public JXEvent {
 public:
  /// An absent name is kept as it is; the event then fails `verifyEvent` and is sent without
  /// "event_name".
  static std::shared_ptr<JXCustomEvent> initWithName(const JXString& name);

  /// What tells this class from the others: fields and conditions; the name is the host's. Never
  /// destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXCustomEvent() = default;
};

}  // namespace jx
