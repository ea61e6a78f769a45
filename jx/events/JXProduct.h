// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "jx/catalogue/JXBlockClass.h"
#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One product of the application's catalogue. The application fills it. It must not be changed
/// while an event that contains it is being executed. A price that is NaN is not written and counts
/// as not set in `verifyProduct`.
class JX_API JXProduct final : public JXAdditionalProperties {
 public:
  /// Creates a product whose fields are all null; both lists are empty.
  static std::shared_ptr<JXProduct> init();
  /// Creates a product with these values, without validating them.
  static std::shared_ptr<JXProduct> initWithProductId_withName_withPrice(
      const JXString& productId, const JXString& name, const std::optional<JXDecimal>& price);

  /// Returns true if `ID` and `name` are non-empty strings and `price` is set. Any price but NaN is
  /// valid.
  bool verifyProduct() const;
  /// Returns a new object: the additional properties, then the fields, which override them.
  /// Categories are written as "category_1", "category_2" and so on by their position in the list.
  /// A null category is not written and its number is not used.
  JXJsonObject getJsonObject() const;

  /// The identifier of the product. Required.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The name of the product. Required.
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The unit price, in units of `currency`. Required.
  const std::optional<JXDecimal>& price() const { return price_; }
  void setPrice(const std::optional<JXDecimal>& value) { price_ = value; }
  /// The currency of the price, preferably an ISO 4217 code such as "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The product's categories, initially empty; callers may append to the list.
  const JXList<JXString>& categories() const { return categories_; }
  void setCategories(const JXList<JXString>& value) { categories_ = value; }
  /// The brand.
  const JXString& brand() const { return brand_; }
  void setBrand(const JXString& value) { brand_ = value; }
  /// The product's colors, initially empty; callers may append to the list.
  const JXList<JXString>& colors() const { return colors_; }
  void setColors(const JXList<JXString>& value) { colors_ = value; }
  /// The size, as a string.
  const JXString& size() const { return size_; }
  void setSize(const JXString& value) { size_ = value; }

  /// Returns the descriptor of this class: fields and conditions. Never destroyed.
  static const JXBlockClass& blockClass();
  /// Returns the fields in writing order. Never destroyed.
  static const JXFieldTable& fields() { return *blockClass().written; }
  /// Returns the conditions that `verifyProduct` tests, by JSON key.
  static const std::vector<JXCondition>& conditions() { return blockClass().conditions; }

  /// For the initialisers.
  explicit JXProduct(InitKey) {}

 private:
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString ID_;
  JXString name_;
  std::optional<JXDecimal> price_;
  JXString currency_;
  JXList<JXString> categories_;
  JXString brand_;
  JXList<JXString> colors_;
  JXString size_;
};

}  // namespace jx
