// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer performed a search.
class JX_API JXSearchEvent final : public JXEvent {
 public:
  /// Creates an event named "search"; all other fields are null or empty.
  static std::shared_ptr<JXSearchEvent> init();
  /// Creates an event with this search term, without validating it.
  static std::shared_ptr<JXSearchEvent> initWithSearchTerm(const JXString& searchTerm);

  /// The search term.
  const JXString& searchTerm() const { return searchTerm_; }
  void setSearchTerm(const JXString& value) { searchTerm_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXSearchEvent(InitKey);

 private:
  JXString searchTerm_;
};

}  // namespace jx
