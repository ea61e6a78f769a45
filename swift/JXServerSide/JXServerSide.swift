// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import Foundation

// An application that imports JXServerSide also sees the Objective-C classes.
@_exported import JXServerSideObjC

/// Returns the number as the Objective-C interface has it, exactly.
func decimalNumber(_ value: Decimal?) -> NSDecimalNumber? {
  value.map { NSDecimalNumber(decimal: $0) }
}
