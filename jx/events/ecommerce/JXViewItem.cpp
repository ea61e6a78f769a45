// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
#include "jx/events/ecommerce/JXViewItem.h"

#include "jx/catalogue/JXEventPropertiesNames.h"

namespace jx {
namespace {

constexpr std::string_view kName = "view_item";

}  // namespace

JXViewItem::JXViewItem(InitKey) { setName(kName); }

std::shared_ptr<JXViewItem> JXViewItem::init() { return make<JXViewItem>(); }

std::shared_ptr<JXViewItem> JXViewItem::initWithItems(
    const JXList<std::shared_ptr<JXItem>>& items) {
  std::shared_ptr<JXViewItem> event = make<JXViewItem>();
  event->items_.appendAll(items);
  return event;
}

const JXEventClass& JXViewItem::eventClass() {
  static const auto& type =
      JXEventClass::of<JXViewItem>(JXECommerceEvent::eventClass(), "JXViewItem", {kName},
                                   {
                                       {JXE_CURRENCY, "currency", &JXViewItem::currency_},
                                       {JXE_REVENUE, "revenue", &JXViewItem::revenue_},
                                       {JXE_ITEMS, "items", &JXViewItem::items_},
                                   },
                                   {
                                       nonEmptyList(JXE_ITEMS),
                                       present(JXE_REVENUE),
                                       nonEmptyString(JXE_CURRENCY),
                                   });
  return type;
}

}  // namespace jx
