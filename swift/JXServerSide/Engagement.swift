// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/engagement.toml by scripts/catalogue. Do not edit.
import Foundation
import JXServerSideObjC

extension JXGenerateLeadEvent {
  /// The monetary value of the event, in units of `currency`.
  public var value: Decimal? {
    get { __value?.decimalValue }
    set { __value = decimalNumber(newValue) }
  }

  /// Creates an event with this value and currency, without validating them.
  public convenience init(
    value: Decimal?,
    currency: String?
  ) {
    self.init(
      __value: decimalNumber(value),
      currency: currency)
  }
}

extension JXSelectItemEvent {
  /// The event's list of items, initially empty; callers may append to it. Omits null elements.
  public var items: [JXItem] {
    get { (__items ?? []).compactMap { $0 as? JXItem } }
    set { __setItems(newValue) }
  }
}

extension JXViewItemListEvent {
  /// The event's list of items, initially empty; callers may append to it. Omits null elements.
  public var items: [JXItem] {
    get { (__items ?? []).compactMap { $0 as? JXItem } }
    set { __setItems(newValue) }
  }
}
