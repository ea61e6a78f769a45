// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
#include "jx/events/JXItem.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {

std::shared_ptr<JXItem> JXItem::init() {
  std::shared_ptr<JXItem> item = make<JXItem>();
  item->setProduct(JXProduct::init());
  return item;
}

std::shared_ptr<JXItem> JXItem::initWithItemId_withProduct_withQuantity(
    const JXString& itemId, const std::shared_ptr<JXProduct>& product, std::int32_t quantity) {
  std::shared_ptr<JXItem> item = make<JXItem>();
  item->setID(itemId);
  item->setProduct(product);
  item->setQuantity(quantity);
  return item;
}

bool JXItem::verifyItem() const {
  return blockClass().firstFailed(*this) == nullptr && product_->verifyProduct();
}

JXJsonObject JXItem::getJsonObject() const { return newJsonObject(); }

void JXItem::writeOwnEntries(JXJsonSink& sink) const { blockClass().writeFields(*this, sink); }

const JXBlockClass& JXItem::blockClass() {
  static const auto& fields = *new JXFieldTable{
      {JX_ID, "ID", &JXItem::ID_},
      {JXI_QUANTITY, "quantity", &JXItem::quantity_},
      {JXI_VARIANT, "variant", &JXItem::variant_},
      {JXI_LISTPOSITION, "list_position", &JXItem::list_position_},
      {JXI_DISCOUNT, "discount", &JXItem::discount_},
      {JXE_COUPON, "coupon", &JXItem::coupon_},
      {JXI_AFFILIATION, "affiliation", &JXItem::affiliation_},
      {JXI_PRODUCT, "product", &JXItem::product_},
  };
  static const auto& type = *new JXBlockClass{"JXItem",
                                              nullptr,
                                              &fields,
                                              {
                                                  nonEmptyString(JX_ID),
                                                  present(JXI_PRODUCT),
                                                  present(JXI_QUANTITY),
                                              }};
  return type;
}

}  // namespace jx
