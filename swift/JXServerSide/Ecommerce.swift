// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/ecommerce.toml by scripts/catalogue. Do not edit.
import Foundation
import JXServerSideObjC

extension JXViewItem {
  /// The revenue, in units of `currency`.
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
    set { __revenue = decimalNumber(newValue) }
  }
}

extension JXAddToWishlistEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }
}

extension JXAddToCartEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// Creates an event with this value and currency, without validating them, and appends the items
  /// to its own list; the caller's list is not stored.
  public convenience init(
    value: Decimal?,
    currency: String?,
    items: [JXItem]?
  ) {
    self.init(
      __value: decimalNumber(value),
      currency: currency,
      items: items)
  }
}

extension JXRemoveFromCartEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }
}

extension JXViewCartEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }
}

extension JXBeginCheckoutEvent {
  /// The revenue, in units of `currency`.
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
    set { __revenue = decimalNumber(newValue) }
  }

  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// Creates an event with these amounts and currency, without validating them, and appends the
  /// items to its own list; the caller's list is not stored.
  public convenience init(
    revenue: Decimal?,
    value: Decimal?,
    currency: String?,
    items: [JXItem]?
  ) {
    self.init(
      __revenue: decimalNumber(revenue),
      value: decimalNumber(value),
      currency: currency,
      items: items)
  }
}

extension JXAddShippingInfoEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// Creates an event with this value and currency, without validating them, and appends the items
  /// to its own list; the caller's list is not stored.
  public convenience init(
    items: [JXItem]?,
    value: Decimal?,
    currency: String?
  ) {
    self.init(
      __items: items,
      value: decimalNumber(value),
      currency: currency)
  }
}

extension JXAddPaymentInfoEvent {
  /// The revenue, in units of `currency`.
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
    set { __revenue = decimalNumber(newValue) }
  }
}

extension JXPurchaseEvent {
  /// The revenue, in units of `currency`.
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
    set { __revenue = decimalNumber(newValue) }
  }

  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// The shipping costs, in units of `currency`.
  public var shippingAmount: Decimal? {
    get { __shippingAmount?.decimalValue }
    set { __shippingAmount = decimalNumber(newValue) }
  }

  /// The tax, in units of `currency`.
  public var taxAmount: Decimal? {
    get { __taxAmount?.decimalValue }
    set { __taxAmount = decimalNumber(newValue) }
  }

  /// Creates an event with these values, without validating them, and appends the items to its own
  /// list; the caller's list is not stored.
  public convenience init(
    id: String?,
    revenue: Decimal?,
    value: Decimal?,
    currency: String?,
    type: String?,
    paymentMethod: String?,
    status: String?,
    items: [JXItem]?
  ) {
    self.init(
      __id: id,
      revenue: decimalNumber(revenue),
      value: decimalNumber(value),
      currency: currency,
      type: type,
      paymentMethod: paymentMethod,
      status: status,
      items: items)
  }
}

extension JXRefundEvent {
  /// The revenue, in units of `currency`.
  public var revenue: Decimal? {
    get { __revenue?.decimalValue }
    set { __revenue = decimalNumber(newValue) }
  }

  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// The shipping costs, in units of `currency`.
  public var shippingAmount: Decimal? {
    get { __shippingAmount?.decimalValue }
    set { __shippingAmount = decimalNumber(newValue) }
  }

  /// The tax, in units of `currency`.
  public var taxAmount: Decimal? {
    get { __taxAmount?.decimalValue }
    set { __taxAmount = decimalNumber(newValue) }
  }

  /// Creates an event with these values, without validating them. Its list of items is empty.
  public convenience init(
    id: String?,
    revenue: Decimal?,
    value: Decimal?,
    currency: String?,
    type: String?
  ) {
    self.init(
      __id: id,
      revenue: decimalNumber(revenue),
      value: decimalNumber(value),
      currency: currency,
      type: type)
  }

  /// Creates an event with these values, without validating them, and appends the items to its own
  /// list; the caller's list is not stored.
  public convenience init(
    id: String?,
    revenue: Decimal?,
    value: Decimal?,
    currency: String?,
    type: String?,
    items: [JXItem]?
  ) {
    self.init(
      __id: id,
      revenue: decimalNumber(revenue),
      value: decimalNumber(value),
      currency: currency,
      type: type,
      items: items)
  }
}
