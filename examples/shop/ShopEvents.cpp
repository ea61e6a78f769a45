// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "ShopEvents.h"

#include "Catalogue.h"

namespace {

using Items = jx::JXList<std::shared_ptr<jx::JXItem>>;

jx::JXDecimal amount(int cents) { return jx::JXDecimal::fromString(price(cents)); }

std::shared_ptr<jx::JXItem> item(std::size_t article, int quantity) {
  const Article& sold = articles()[article];
  const auto product =
      jx::JXProduct::initWithProductId_withName_withPrice(sold.id, sold.name, amount(sold.cents));
  product->setCurrency(kCurrency);
  product->setCategories({sold.category});
  auto line = jx::JXItem::initWithItemId_withProduct_withQuantity(sold.id, product, quantity);
  line->setList_position(article + 1);
  return line;
}

Items items(const Cart& cart) {
  Items list;
  for (const auto& [article, quantity] : cart)
    list.append(item(article, quantity));
  return list;
}

}  // namespace

int centsOf(const Cart& cart) {
  int cents = 0;
  for (const auto& [article, quantity] : cart)
    cents += articles()[article].cents * quantity;
  return cents;
}

std::shared_ptr<jx::JXEvent> pageEvent(const std::string& type, const std::string& name) {
  auto event = jx::JXPageViewEvent::initWithType(type);
  event->setPageName(name);
  return event;
}

std::shared_ptr<jx::JXEvent> listEvent() {
  Items list;
  for (std::size_t article = 0; article < articles().size(); ++article)
    list.append(item(article, 1));
  auto event = jx::JXViewItemListEvent::initWithItems(list);
  event->setItemListName(kListName);
  return event;
}

std::shared_ptr<jx::JXEvent> selectEvent(std::size_t article) {
  auto event = jx::JXSelectItemEvent::initWithItems({item(article, 1)});
  event->setItemListName(kListName);
  return event;
}

std::shared_ptr<jx::JXEvent> viewEvent(std::size_t article) {
  auto event = jx::JXViewItem::initWithItems({item(article, 1)});
  event->setCurrency(kCurrency);
  event->setRevenue(amount(articles()[article].cents));
  return event;
}

std::shared_ptr<jx::JXEvent> addEvent(std::size_t article) {
  return jx::JXAddToCartEvent::initWithValue_withCurrency_withItems(
      amount(articles()[article].cents), kCurrency, {item(article, 1)});
}

std::shared_ptr<jx::JXEvent> removeEvent(std::size_t article, int quantity) {
  auto event = jx::JXRemoveFromCartEvent::initWithItems({item(article, quantity)});
  event->setCurrency(kCurrency);
  event->setValue(amount(articles()[article].cents * quantity));
  return event;
}

std::shared_ptr<jx::JXEvent> cartEvent(const Cart& cart) {
  auto event = jx::JXViewCartEvent::initWithItems(items(cart));
  event->setCurrency(kCurrency);
  event->setValue(amount(centsOf(cart)));
  return event;
}

std::shared_ptr<jx::JXEvent> checkoutEvent(const Cart& cart) {
  const jx::JXDecimal value = amount(centsOf(cart));
  return jx::JXBeginCheckoutEvent::initWithRevenue_withValue_withCurrency_withItems(
      value, value, kCurrency, items(cart));
}

std::shared_ptr<jx::JXEvent> paymentEvent(const Cart& cart, std::string_view method) {
  auto event = jx::JXAddPaymentInfoEvent::init();
  event->setPaymentMethod(method);
  event->setRevenue(amount(centsOf(cart)));
  event->setCurrency(kCurrency);
  event->setItems(items(cart));
  return event;
}

std::shared_ptr<jx::JXEvent> purchaseEvent(const Cart& cart, std::string_view method,
                                           const std::string& orderId) {
  auto event = jx::JXPurchaseEvent::init();
  event->setID(orderId);
  event->setRevenue(amount(centsOf(cart)));
  event->setValue(amount(centsOf(cart)));
  event->setCurrency(kCurrency);
  event->setType("shop");
  event->setPaymentMethod(method);
  event->setStatus(jx::EJXPurchaseStatus_IN_PROGRESS);
  event->setItems(items(cart));
  return event;
}
