// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
import Foundation
import JXServerSideObjC

extension JXNetworkManager {
  /// Waits until the queue is empty, for `seconds` at most; returns whether it is empty. Blocks no
  /// thread of the application.
  @available(tvOS 13.0, *)
  public func flush(_ seconds: TimeInterval) async -> Bool {
    await withCheckedContinuation { continuation in
      DispatchQueue.global(qos: .utility).async {
        continuation.resume(returning: self.__flush(seconds))
      }
    }
  }
}
