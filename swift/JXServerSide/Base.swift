// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/base.toml by scripts/catalogue. Do not edit.
import Foundation
import JXServerSideObjC

extension JXECommerceEvent {
  /// The event's list of items, initially empty; callers may append to it. Omits null elements.
  public var items: [JXItem] {
    get { (__items ?? []).compactMap { $0 as? JXItem } }
    set { __setItems(newValue) }
  }
}

extension JXVideoEvent {
  /// The position of the playhead, in the unit of `totalLength`.
  public var cursorPosition: Decimal? {
    get { __cursorPosition?.decimalValue }
    set { __cursorPosition = decimalNumber(newValue) }
  }

  /// The length of the video, preferably in seconds; written unchanged.
  public var totalLength: Decimal? {
    get { __totalLength?.decimalValue }
    set { __totalLength = decimalNumber(newValue) }
  }
}

extension JXItem {
  /// The position of the item in the list shown to the viewer.
  public var list_position: Decimal? {
    get { __list_position?.decimalValue }
    set { __list_position = decimalNumber(newValue) }
  }

  /// The discount, in units of the currency.
  public var discount: Decimal? {
    get { __discount?.decimalValue }
    set { __discount = decimalNumber(newValue) }
  }

  /// The quantity. Required.
  public var quantity: Decimal? {
    get { __quantity?.decimalValue }
    set { __quantity = decimalNumber(newValue) }
  }
}

extension JXProduct {
  /// The unit price, in units of `currency`. Required.
  public var price: Decimal? {
    get { __price?.decimalValue }
    set { __price = decimalNumber(newValue) }
  }

  /// The product's categories, initially empty; callers may append to the list. Omits null
  /// elements.
  public var categories: [String] {
    get { (__categories ?? []).compactMap { $0 as? String } }
    set { __setCategories(newValue) }
  }

  /// The product's colors, initially empty; callers may append to the list. Omits null elements.
  public var colors: [String] {
    get { (__colors ?? []).compactMap { $0 as? String } }
    set { __setColors(newValue) }
  }

  /// Creates a product with these values, without validating them.
  public convenience init(
    productId: String?,
    name: String?,
    price: Decimal?
  ) {
    self.init(
      __productId: productId,
      name: name,
      price: decimalNumber(price))
  }
}
