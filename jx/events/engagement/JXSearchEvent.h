// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer searched.
class JX_API JXSearchEvent final : public JXEvent {
 public:
  /// A new event named "search"; every other field is absent or empty.
  static std::shared_ptr<JXSearchEvent> init();
  /// The same with what was searched for, which is kept as it is.
  static std::shared_ptr<JXSearchEvent> initWithSearchTerm(const JXString& searchTerm);

  /// What the viewer searched for.
  const JXString& searchTerm() const { return searchTerm_; }
  void setSearchTerm(const JXString& value) { searchTerm_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXSearchEvent();

  JXString searchTerm_;
};

}  // namespace jx
