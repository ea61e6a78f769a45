// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

/// The network block inside the device block: "connection_type" is "ethernet", "wifi", "cellular"
/// or "none". Querying the system is too slow for each event, so the connection type is cached. It
/// is read at the start, when the application enters the foreground, and by the transfer thread
/// before it connects. Thread-safe; never destroyed.
class JX_API JXNetwork final : public JXAdditionalProperties {
 public:
  /// Returns the block of this process.
  static JXNetwork& sharedInstance();

  /// Returns a new JSON object: the additional properties, overridden by the connection type.
  JXJsonObject getJsonObject() const;
  /// Reads the type of the current connection from the system.
  void refresh();

 private:
  JXNetwork();
  void writeOwnEntries(JXJsonSink& sink) const override;

  std::atomic<JXNetworkKind> kind_{JXNetworkKind::None};
};

}  // namespace jx
