// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/events/JXItem.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Items were added to the wish list.
class JX_API JXAddToWishlistEvent final : public JXECommerceEvent {
 public:
  /// Creates an event named "add_to_wishlist"; all other fields are null or empty.
  static std::shared_ptr<JXAddToWishlistEvent> init();
  /// Creates an event and appends the items to its own list; the caller's list is not stored.
  static std::shared_ptr<JXAddToWishlistEvent> initWithItems(
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The monetary value of the event, in units of `currency`.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXAddToWishlistEvent(InitKey);

 private:
  std::optional<JXDecimal> value_;
};

}  // namespace jx
