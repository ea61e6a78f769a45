// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>

#include "jx/core/JXList.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Base of the e-commerce events: a currency and a list of items. Each derived class writes them in
/// its own order. This class itself writes neither and always passes validation.
class JX_API JXECommerceEvent : public JXEvent {
 public:
  /// Creates an event without a name; `items` is empty.
  static std::shared_ptr<JXECommerceEvent> init();

  /// The currency of the amounts, preferably an ISO 4217 code such as "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The event's list of items, initially empty; callers may append to it.
  const JXList<std::shared_ptr<JXItem>>& items() const { return items_; }
  /// Stores the list itself, not a copy. A null list counts as empty.
  void setItems(const JXList<std::shared_ptr<JXItem>>& value) { items_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXECommerceEvent(InitKey) : JXECommerceEvent() {}

 protected:
  JXECommerceEvent() = default;

  JXString currency_;
  JXList<std::shared_ptr<JXItem>> items_;
};

}  // namespace jx
