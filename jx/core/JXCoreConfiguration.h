// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jx/core/JXLogger.h"
#include "jx/core/JXOutboxBounds.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

/// What a host may choose about the core, once, before it makes its first `ServerSide`. Every field
/// has a default that suits a TV application.
struct JX_API JXCoreConfiguration {
  /// Folder of the queue and of the persisted variables; made (mode 0700) when it is missing.
  /// Absent: the system's folder for the application's state.
  JXString storageFolder;
  /// Where events go: host with an optional port, such as "collect.example.com". "https://" may
  /// stand before it; "http://" only before a loopback host. Absent: the build's
  /// JX_COLLECTION_HOST.
  JXString collectionHost;
  /// File of PEM certificates to trust instead of the system's.
  JXString caFile;
  /// Public keys that the collection host may show, beside having a trusted certificate: each the
  /// SHA-256 of the key (its SubjectPublicKeyInfo in DER) in Base64, 44 characters. Name the next
  /// key too, or a changed one holds every event until the application is updated. Empty: any key.
  /// One that is no such text is logged at level 3 and matches no key; when none of them is one,
  /// nothing is sent. Plain http to loopback shows no key and is not held up.
  std::vector<std::string> pinnedPublicKeys;
  /// Proxy such as "http://proxy.example:3128"; "" for none; absent: what the environment variables
  /// https_proxy, HTTPS_PROXY, ALL_PROXY and NO_PROXY say. Loopback is reached without a proxy.
  JXString proxy;

  /// Receives log lines (see JXLogSink); empty: standard error.
  JXLogSink logSink;
  /// Highest level that is logged; 0 logs nothing, 6 everything.
  int logLevel = 3;

  /// What the queue may hold.
  JXOutboxBounds outboxBounds;
  /// When a request is tried again.
  JXRetryTimings retryTimings;
  /// Told what became of each request (see JXDeliveryCallback for thread and limits).
  JXDeliveryCallback onDelivery;
  /// True: requests are neither stored nor sent. Observers of `kJXNotification_HTTPRequest` still
  /// see each of them, so a host can look at what would be sent.
  bool dryRun = false;

  /// What the application states about itself, where the system does not know it.
  JXBundleInformation bundle;
  /// Size of the main screen in points, where the system cannot tell; 0 by 0 leaves it to the
  /// system.
  JXScreenBounds screen;
  /// Text for the device block's user agent, where the system has none.
  JXString userAgent;

  /// The time of day; null: the system's.
  std::shared_ptr<const JXClock> clock;
  /// The operating system; null: the one that the library was built for.
  std::shared_ptr<JXPlatform> platform;

  /// Makes `configuration` the one in force. Returns false and logs a line at level 3 when the core
  /// has started already; nothing is changed then. Thread-safe.
  static bool set(const JXCoreConfiguration& configuration);
  /// The configuration in force, a copy.
  static JXCoreConfiguration current();
};

}  // namespace jx
