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
  static std::shared_ptr<JXPageViewEvent> init();
  static std::shared_ptr<JXPageViewEvent> initWithType(const JXString& pageType);

  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXPageViewEvent();
};

}  // namespace jx
