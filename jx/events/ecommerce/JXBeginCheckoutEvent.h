// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
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

/// The checkout has begun.
class JX_API JXBeginCheckoutEvent final : public JXECommerceEvent {
 public:
  /// A new event named "begin_checkout"; every other field is absent or empty.
  static std::shared_ptr<JXBeginCheckoutEvent> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXBeginCheckoutEvent> initWithRevenue_withValue_withCurrency_withItems(
      const std::optional<JXDecimal>& revenue, const std::optional<JXDecimal>& value,
      const JXString& currency, const JXList<std::shared_ptr<JXItem>>& items);

  /// The revenue, in units of the currency.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }
  /// The worth of what the event is about, in units of the currency.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The coupon code that was used.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXBeginCheckoutEvent();

  std::optional<JXDecimal> revenue_;
  std::optional<JXDecimal> value_;
  JXString coupon_;
};

}  // namespace jx
