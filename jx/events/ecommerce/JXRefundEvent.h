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

/// Money given back for a purchase. It counts as complete as soon as it names an item.
class JX_API JXRefundEvent final : public JXECommerceEvent {
 public:
  /// A new event named "refund"; every other field is absent or empty.
  static std::shared_ptr<JXRefundEvent> init();
  /// The arguments are kept as they are, unchecked. The event has no items yet.
  static std::shared_ptr<JXRefundEvent> initWithID_withRevenue_withValue_withCurrency_withType(
      const JXString& ID, const std::optional<JXDecimal>& revenue,
      const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type);
  /// The same, and the items are appended to the event's own list; the caller's list is not kept.
  static std::shared_ptr<JXRefundEvent>
  initWithID_withRevenue_withValue_withCurrency_withType_withItems(
      const JXString& ID, const std::optional<JXDecimal>& revenue,
      const std::optional<JXDecimal>& value, const JXString& currency, const JXString& type,
      const JXList<std::shared_ptr<JXItem>>& items);

  /// The identifier of the order that is given back.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The revenue, in units of the currency.
  const std::optional<JXDecimal>& revenue() const { return revenue_; }
  void setRevenue(const std::optional<JXDecimal>& value) { revenue_ = value; }
  /// The worth of what the event is about, in units of the currency.
  const std::optional<JXDecimal>& value() const { return value_; }
  void setValue(const std::optional<JXDecimal>& value) { value_ = value; }
  /// What the shipping costs, in units of the currency.
  const std::optional<JXDecimal>& shippingAmount() const { return shippingAmount_; }
  void setShippingAmount(const std::optional<JXDecimal>& value) { shippingAmount_ = value; }
  /// The tax, in units of the currency.
  const std::optional<JXDecimal>& taxAmount() const { return taxAmount_; }
  void setTaxAmount(const std::optional<JXDecimal>& value) { taxAmount_ = value; }
  /// The coupon code that was used.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// A free text for the kind of transaction.
  const JXString& type() const { return type_; }
  void setType(const JXString& value) { type_ = value; }
  /// An address that belongs to the transaction.
  const JXString& url() const { return url_; }
  void setUrl(const JXString& value) { url_ = value; }

  /// What tells this class from the others: names, fields, conditions. Never destroyed.
  static const JXEventClass& eventClass();
  const JXEventClass& ownEventClass() const override { return eventClass(); }

 private:
  JXRefundEvent();

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
