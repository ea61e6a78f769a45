// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXPlatform.h"

namespace jx {

/// The network block inside the device block: "connection_type" is "ethernet", "wifi", "cellular"
/// or "none". Asking the system costs more than an event may, so the kind is kept: it is read at
/// the start, when the application comes to the foreground, and by the transfer thread before it
/// connects. The kind is thread-safe; the additional properties are not. Never destroyed.
class JX_API JXNetwork final : public JXAdditionalProperties {
 public:
  /// The one block of this process.
  static JXNetwork& sharedInstance();

  /// A new object: the additional properties, then the kind over them.
  JXJsonObject getJsonObject() const;
  /// Asks the system for the kind of the connection in use.
  void refresh();

 private:
  JXNetwork();
  void writeOwnEntries(JXJsonSink& sink) const override;

  std::atomic<JXNetworkKind> kind_{JXNetworkKind::None};
};

}  // namespace jx
