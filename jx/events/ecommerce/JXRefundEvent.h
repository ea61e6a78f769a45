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

/// A refund for a purchase. It is valid if it contains at least one item.
class JX_API JXRefundEvent final : public JXECommerceEvent {
 public:
  /// Creates an event named "refund"; all other fields are null or empty.
  static std::shared_ptr<JXRefundEvent> init();
  /// Creates an event with these values, without validating them. Its list of items is empty.
  static std::shared_ptr<JXRefundEvent> initWithID_withRevenue_withValue_withCurrency_withType(
      const JXString& ID, const std::optional<JXDecimal>& revenue,
      const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type);
  /// Creates an event with these values, without validating them, and appends the items to its own
  /// list; the caller's list is not stored.
  static std::shared_ptr<JXRefundEvent>
  initWithID_withRevenue_withValue_withCurrency_withType_withItems(
      const JXString& ID, const std::optional<JXDecimal>& revenue,
      const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type,
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The identifier of the refunded order.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The revenue, in units of `currency`.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }
  /// The monetary value of the event, in units of `currency`.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// The shipping costs, in units of `currency`.
  const std::optional<JXDecimal>& shippingAmount() const { return shippingAmount_; }
  void setShippingAmount(const std::optional<JXDecimal>& value) { shippingAmount_ = value; }
  /// The tax, in units of `currency`.
  const std::optional<JXDecimal>& taxAmount() const { return taxAmount_; }
  void setTaxAmount(const std::optional<JXDecimal>& value) { taxAmount_ = value; }
  /// The coupon code used.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The type of the transaction, a free-form string.
  const JXString& type() const { return type_; }
  void setType(const JXString& value) { type_ = value; }
  /// A URL that belongs to the transaction.
  const JXString& url() const { return url_; }
  void setUrl(const JXString& value) { url_ = value; }

  /// Returns the descriptor of this class: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

  /// For the initialisers.
  explicit JXRefundEvent(InitKey);

 private:
  JXString ID_;
  std::optional<JXDecimal> revenue_;
  std::optional<JXDecimal> value_;
  std::optional<JXDecimal> shippingAmount_;
  std::optional<JXDecimal> taxAmount_;
  JXString coupon_;
  JXString type_;
  JXString url_;
};

}  // namespace jx
