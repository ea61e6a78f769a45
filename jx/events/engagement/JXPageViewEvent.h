// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// A page or screen was shown: `pageType` says which kind, `pageName` which one.
class JX_API JXPageViewEvent final : public JXEvent {
 public:
  /// A new event named "page_view"; every other field is absent or empty.
  static std::shared_ptr<JXPageViewEvent> init();
  /// The same with the kind of page, which is kept as it is.
  static std::shared_ptr<JXPageViewEvent> initWithType(const JXString& pageType);

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXPageViewEvent();
};

}  // namespace jx
