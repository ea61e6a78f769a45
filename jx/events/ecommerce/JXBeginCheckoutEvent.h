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
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer began the checkout.
class JX_API JXBeginCheckoutEvent final : public JXECommerceEvent {
 public:
  /// Creates an event named "begin_checkout"; all other fields are null or empty.
  static std::shared_ptr<JXBeginCheckoutEvent> init();
  /// Creates an event with these amounts and currency, without validating them, and appends the
  /// items to its own list; the caller's list is not stored.
  static std::shared_ptr<JXBeginCheckoutEvent> initWithRevenue_withValue_withCurrency_withItems(
      const std::optional<JXDecimal>& revenue, const std::optional<JXDecimal>& value,
      const JXString& currency, const JXList<std::shared_ptr<JXItem>>& items);

  /// The revenue, in units of `currency`.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }
  /// The monetary value of the event, in units of `currency`.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The coupon code used.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXBeginCheckoutEvent(InitKey);

 private:
  std::optional<JXDecimal> revenue_;
  std::optional<JXDecimal> value_;
  JXString coupon_;
};

}  // namespace jx
