// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#include "jx/events/JXProduct.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {

std::shared_ptr<JXProduct> JXProduct::init() { return make<JXProduct>(); }

std::shared_ptr<JXProduct> JXProduct::initWithProductId_withName_withPrice(
    const JXString& productId, const JXString& name, const std::optional<JXDecimal>& price) {
  std::shared_ptr<JXProduct> product = make<JXProduct>();
  product->setID(productId);
  product->setName(name);
  product->setPrice(price);
  return product;
}

bool JXProduct::verifyProduct() const { return blockClass().firstFailed(*this) == nullptr; }

JXJsonObject JXProduct::getJsonObject() const { return newJsonObject(); }

void JXProduct::writeOwnEntries(JXJsonSink& sink) const { blockClass().writeFields(*this, sink); }

const JXBlockClass& JXProduct::blockClass() {
  static const auto& fields = *new JXFieldTable{
      {JX_ID, "ID", &JXProduct::ID_},
      {JXP_SIZE, "size", &JXProduct::size_},
      {JXP_NAME, "name", &JXProduct::name_},
      {JXP_PRICE, "price", &JXProduct::price_},
      {JXE_CURRENCY, "currency", &JXProduct::currency_},
      {JXP_CATEGORY_N, "categories", JXNumberedStrings<JXProduct>{&JXProduct::categories_}},
      {JXP_BRAND, "brand", &JXProduct::brand_},
      {JXP_COLORS, "colors", &JXProduct::colors_},
  };
  static const auto& type = *new JXBlockClass{"JXProduct",
                                              nullptr,
                                              &fields,
                                              {
                                                  nonEmptyString(JX_ID),
                                                  nonEmptyString(JXP_NAME),
                                                  present(JXP_PRICE),
                                              }};
  return type;
}

}  // namespace jx
