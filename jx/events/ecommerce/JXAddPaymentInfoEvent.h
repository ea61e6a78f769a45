// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer chose how to pay. Items are not required.
class JX_API JXAddPaymentInfoEvent final : public JXECommerceEvent {
 public:
  /// A new event named "add_payment_info"; every other field is absent or empty.
  static std::shared_ptr<JXAddPaymentInfoEvent> init();
  /// The same with a payment method, which is kept as it is.
  static std::shared_ptr<JXAddPaymentInfoEvent> initWithPaymentMethod(
      const JXString& paymentMethod);

  /// One of the `EJXPayementMethod_*` texts, or any other: it is not checked.
  const JXString& paymentMethod() const { return paymentMethod_; }
  void setPaymentMethod(const JXString& value) { paymentMethod_ = value; }
  /// The coupon code that was used. Written twice, with one value.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The revenue, in units of the currency.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXAddPaymentInfoEvent();

  JXString paymentMethod_;
  JXString coupon_;
  std::optional<JXDecimal> revenue_;
};

}  // namespace jx
