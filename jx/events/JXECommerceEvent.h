// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/core/JXList.h"
#include "jx/events/JXEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Base of the shopping events: a currency and a list of items, which the classes below write each
/// in its own place. On its own it writes neither, and always verifies.
class JX_API JXECommerceEvent : public JXEvent {
 public:
  /// A new event without a name; `items` is empty.
  static std::shared_ptr<JXECommerceEvent> init();

  /// The currency of the amounts, best as its ISO 4217 code: "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The event's own list, empty at first: append to it.
  const JXList<std::shared_ptr<JXItem>>& items() const { return items_; }
  /// Keeps the very list; an absent one counts as holding nothing.
  void setItems(const JXList<std::shared_ptr<JXItem>>& value) { items_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 protected:
  JXECommerceEvent() = default;

  JXString currency_;
  JXList<std::shared_ptr<JXItem>> items_;
};

}  // namespace jx
