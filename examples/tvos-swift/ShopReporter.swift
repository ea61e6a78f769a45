// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import Foundation
import JXServerSide

/// Sends the events of a screen that shows a film and sells it, while the viewer consents. It
/// depends on no user interface. Use it on the main thread.
final class ShopReporter {
  private let serverSide: ServerSide
  private let film: JXProduct
  private var quantity: Int32 = 0
  private var isScreenReported = false

  /// The film has an ID, a name, a price and a currency.
  init(serverSide: ServerSide, film: JXProduct) {
    self.serverSide = serverSide
    self.film = film
  }

  /// Starts sending. The first consent reports the screen: `page_view`, then `view_item`.
  func giveConsent() {
    serverSide.enableServerSide()
    if isScreenReported { return }
    isScreenReported = true
    sendPageView()
    sendViewItem()
  }

  /// Stops sending, also in later starts of the application, until the next `giveConsent`.
  func withdrawConsent() {
    serverSide.disableServerSide()
  }

  private func sendPageView() {
    let event = JXPageViewEvent(type: "film")
    event.pageName = film.name
    send(event)
  }

  private func sendViewItem() {
    let event = JXViewItem()
    event.items = items(quantity: 1)
    event.currency = film.currency
    event.revenue = film.price
    send(event)
  }

  /// Puts the film into the cart once more: `add_to_cart`.
  func addToCart() {
    quantity += 1
    let event = JXAddToCartEvent()
    event.items = items(quantity: 1)
    event.currency = film.currency
    event.value = film.price
    send(event)
  }

  /// Buys the content of the cart and empties it: `purchase`. Does nothing if the cart is empty.
  func buy(orderID: String) {
    if quantity == 0 { return }
    let event = JXPurchaseEvent()
    event.ID = orderID
    event.items = items(quantity: quantity)
    event.currency = film.currency
    event.revenue = price(of: quantity)
    event.value = event.revenue
    event.type = "film"
    event.paymentMethod = "card"
    event.status = EJXPurchaseStatus_IN_PROGRESS
    send(event)
    quantity = 0
  }

  private func items(quantity: Int32) -> [JXItem] {
    return [JXItem(itemId: film.ID, product: film, quantity: quantity)]
  }

  /// Returns a decimal, because binary floating point cannot represent amounts such as 4.99.
  private func price(of quantity: Int32) -> Decimal? {
    guard let price = film.price else { return nil }
    return price * Decimal(quantity)
  }

  private func send(_ event: JXEvent) {
    if let condition = event.firstFailedCondition() {
      print("\(type(of: event)) is not valid: \(condition)")
    }
    serverSide.execute(event)
  }
}
