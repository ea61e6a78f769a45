// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>

#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXECommerceEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The viewer selected a payment method. Items are not required. The field table lists `coupon`
/// twice; it is written once, directly after `paymentMethod`.
class JX_API JXAddPaymentInfoEvent final : public JXECommerceEvent {
 public:
  /// Creates an event named "add_payment_info"; all other fields are null or empty.
  static std::shared_ptr<JXAddPaymentInfoEvent> init();
  /// Creates an event with this payment method, without validating it.
  static std::shared_ptr<JXAddPaymentInfoEvent> initWithPaymentMethod(
      const JXString& paymentMethod);

  /// The payment method: an `EJXPayementMethod_*` string or any other string. Not validated
  /// further.
  const JXString& paymentMethod() const { return paymentMethod_; }
  void setPaymentMethod(const JXString& value) { paymentMethod_ = value; }
  /// The coupon code used. Written once, directly after `paymentMethod`.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The revenue, in units of `currency`.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXAddPaymentInfoEvent(InitKey);

 private:
  JXString paymentMethod_;
  JXString coupon_;
  std::optional<JXDecimal> revenue_;
};

}  // namespace jx
