// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXList.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/events/JXCondition.h"
#include "jx/events/JXFieldTable.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One article of the host's catalogue. A plain holder that the host fills; it must not be changed
/// while an event that holds it is being executed.
class JX_API JXProduct final : public JXAdditionalProperties {
 public:
  /// A new product without any field; both lists are empty.
  static std::shared_ptr<JXProduct> init();
  /// The arguments are kept as they are, unchecked.
  static std::shared_ptr<JXProduct> initWithProductId_withName_withPrice(
      const JXString& productId, const JXString& name, const std::optional<JXDecimal>& price);

  /// True when ID and name are usable texts and there is a price, whatever it is.
  bool verifyProduct() const;
  /// A new object: the host's extra properties, then the fields over them. Categories stand under
  /// "category_1", "category_2" and so on by their place in the list; an absent one leaves its
  /// number out.
  JXJsonObject getJsonObject() const;

  /// The identifier of the article. Required.
  const JXString& ID() const { return ID_; }
  void setID(const JXString& value) { ID_ = value; }
  /// The name of the article. Required.
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The price of one, in units of the currency. Required.
  const std::optional<JXDecimal>& price() const { return price_; }
  void setPrice(const std::optional<JXDecimal>& value) { price_ = value; }
  /// The currency of the price, best as its ISO 4217 code: "EUR".
  const JXString& currency() const { return currency_; }
  void setCurrency(const JXString& value) { currency_ = value; }
  /// The product's own list, empty at first: append to it.
  const JXList<JXString>& categories() const { return categories_; }
  void setCategories(const JXList<JXString>& value) { categories_ = value; }
  /// The brand.
  const JXString& brand() const { return brand_; }
  void setBrand(const JXString& value) { brand_ = value; }
  /// The product's own list, empty at first: append to it.
  const JXList<JXString>& colors() const { return colors_; }
  void setColors(const JXList<JXString>& value) { colors_ = value; }
  /// The size, as a text.
  const JXString& size() const { return size_; }
  void setSize(const JXString& value) { size_ = value; }

  /// The fields in writing order. Never destroyed.
  static const JXFieldTable& fields();
  /// What `verifyProduct` tests, by JSON key.
  static const std::vector<JXCondition>& conditions();

 private:
  JXProduct() = default;
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
