// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <type_traits>
#include <vector>

#include "jx/catalogue/JXBlockClass.h"
#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXProduct.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One item of an e-commerce event: a product with its quantity, discount, list position and other
/// attributes. The application fills it. It must not be changed while an event that contains it is
/// being executed. An amount that is NaN is not written and counts as not set in `verifyItem`.
class JX_API JXItem final : public JXAdditionalProperties {
 public:
  /// Creates an item with an empty product.
  static std::shared_ptr<JXItem> init();
  /// Creates an item with these values, without validating them; a null product stays null.
  static std::shared_ptr<JXItem> initWithItemId_withProduct_withQuantity(
      const JXString& itemId, const std::shared_ptr<JXProduct>& product, std::int32_t quantity);
  /// Deleted for floating point and for integers that do not fit: pass a `std::int32_t`, or set
  /// `quantity` to a `JXDecimal`.
  template <typename Number, typename = std::enable_if_t<detail::isLossyAs<Number, std::int32_t>>>
  static std::shared_ptr<JXItem> initWithItemId_withProduct_withQuantity(
      const JXString& itemId, const std::shared_ptr<JXProduct>& product, Number quantity) = delete;

  /// Returns true if `ID` is a non-empty string, `product` is set and valid, and `quantity` is set.
  /// Any quantity but NaN is valid.
  bool verifyItem() const;
  /// Returns a new object: the additional properties, then the fields, which override them. The
  /// product is nested under "product".
  JXJsonObject getJsonObject() const;

  /// The identifier of the item, in addition to that of its product. Required.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The product; shared with the application, not copied. Required.
  const std::shared_ptr<JXProduct>& product() const { return product_; }
  void setProduct(const std::shared_ptr<JXProduct>& value) { product_ = value; }
  /// The variant of the product.
  const JXString& variant() const { return variant_; }
  void setVariant(const JXString& value) { variant_ = value; }
  /// The position of the item in the list shown to the viewer.
  const std::optional<JXDecimal>& list_position() const { return list_position_; }
  void setList_position(const std::optional<JXDecimal>& value) { list_position_ = value; }
  /// The discount, in units of the currency.
  const std::optional<JXDecimal>& discount() const { return discount_; }
  void setDiscount(const std::optional<JXDecimal>& value) { discount_ = value; }
  /// The quantity. Required.
  const std::optional<JXDecimal>& quantity() const { return quantity_; }
  void setQuantity(const std::optional<JXDecimal>& value) { quantity_ = value; }
  /// The coupon code used for this item.
  const JXString& coupon() const { return coupon_; }
  void setCoupon(const JXString& value) { coupon_ = value; }
  /// The shop or affiliate that supplies the item.
  const JXString& affiliation() const { return affiliation_; }
  void setAffiliation(const JXString& value) { affiliation_ = value; }

  /// Returns the descriptor of this class: fields and conditions. Never destroyed.
  static const JXBlockClass& blockClass();
  /// Returns the fields in writing order. Never destroyed.
  static const JXFieldTable& fields() { return *blockClass().written; }
  /// Returns the conditions that `verifyItem` tests, by JSON key. In addition, the product must be
  /// valid.
  static const std::vector<JXCondition>& conditions() { return blockClass().conditions; }

  /// For the initialisers.
  explicit JXItem(InitKey) {}

 private:
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
