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

/// The viewer chose how the items are shipped.
class JX_API JXAddShippingInfoEvent final : public JXECommerceEvent {
 public:
  /// A new event named "add_shipping_info"; every other field is absent or empty.
  static std::shared_ptr<JXAddShippingInfoEvent> init();
  /// The items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXAddShippingInfoEvent> initWithItems_withValue_withCurrency(
      const JXList<std::shared_ptr<JXItem>>& items, const std::optional<JXDecimal>& value,
      const JXString& currency);

  /// The worth of what the event is about, in units of the currency.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The coupon code that was used.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The name of the kind of shipping that was chosen.
  const JXString& shippingTier() const { return shippingTier_; }
  void setShippingTier(const JXString& value) { shippingTier_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXAddShippingInfoEvent();

  std::optional<JXDecimal> value_;
  JXString coupon_;
  JXString shippingTier_;
};

}  // namespace jx
