// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXCondition.h"
#include "jx/events/JXFieldTable.h"
#include "jx/events/JXProduct.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One line of a shopping event: a product with its quantity, discount, position and the like. A
/// plain holder that the host fills; it must not be changed while an event that holds it is being
/// executed.
class JX_API JXItem final : public JXAdditionalProperties {
 public:
  /// With an empty product to fill in.
  static std::shared_ptr<JXItem> init();
  /// The arguments are kept as they are, unchecked; a null product stays null.
  static std::shared_ptr<JXItem> initWithItemId_withProduct_withQuantity(
      const JXString& itemId, const std::shared_ptr<JXProduct>& product, std::int32_t quantity);

  /// True when ID is a usable text, there is a product that verifies, and there is a quantity,
  /// whatever it is.
  bool verifyItem() const;
  /// A new object: the host's extra properties, then the fields over them, the product nested under
  /// "product".
  JXJsonObject getJsonObject() const;

  /// The line's own identifier, beside the product's. Required.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The article; shared with the host, not copied. Required.
  const std::shared_ptr<JXProduct>& product() const { return product_; }
  void setProduct(const std::shared_ptr<JXProduct>& value) { product_ = value; }
  /// The variant of the article.
  const JXString& variant() const { return variant_; }
  void setVariant(const JXString& value) { variant_ = value; }
  /// The place of the item in a list that is shown.
  const std::optional<JXDecimal>& list_position() const { return list_position_; }
  void setList_position(const std::optional<JXDecimal>& value) { list_position_ = value; }
  /// The amount that was taken off, in units of the currency.
  const std::optional<JXDecimal>& discount() const { return discount_; }
  void setDiscount(const std::optional<JXDecimal>& value) { discount_ = value; }
  /// How many. Required.
  const std::optional<JXDecimal>& quantity() const { return quantity_; }
  void setQuantity(const std::optional<JXDecimal>& value) { quantity_ = value; }
  /// The coupon code that was used for this line.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The shop or affiliate that the item comes from.
  const JXString& affiliation() const { return affiliation_; }
  void setAffiliation(const JXString& value) { affiliation_ = value; }

  /// The fields in writing order. Never destroyed.
  static const JXFieldTable& fields();
  /// What `verifyItem` tests, by JSON key; the product beside it must verify.
  static const std::vector<JXCondition>& conditions();

 private:
  JXItem() = default;
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString ID_;
  std::shared_ptr<JXProduct> product_;
  JXString variant_;
  std::optional<JXDecimal> list_position_;
  std::optional<JXDecimal> discount_;
  std::optional<JXDecimal> quantity_;
  JXString coupon_;
  JXString affiliation_;
};

}  // namespace jx
