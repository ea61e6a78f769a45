// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "jx/core/JXLogger.h"
#include "jx/core/JXOutboxBounds.h"
#include "jx/core/transfer/JXDelivery.h"
#include "jx/core/transfer/JXHttpTransport.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXClock.h"
#include "jx/platform/JXPlatform.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Configuration of the core. Set it once, before the application creates its first `ServerSide`.
/// Every default suits a TV application.
struct JX_API JXCoreConfiguration {
  /// Folder of the event queue and of the persisted variables; created with mode 0700 when it does
  /// not exist. Default: null, the platform's folder for application state. Without any folder,
  /// events are kept in memory only.
  JXString storageFolder;
  /// True stores nothing on the device, and creates no identifier, until the viewer consents, which
  /// is when a ServerSide starts enabled or is enabled. Until then, events that are executed while
  /// waiting for consent are kept in memory (see JXOutboxBounds::maxInMemory) and contain no
  /// `sdk_id` and no `session_id`, and `addAdvertisingIDs` is ignored. Stored data of earlier
  /// processes is not read. Visits and counts begin with the consent. Default: false.
  bool storesOnlyWithConsent = false;
  /// Server that receives the events: a host name with an optional port, such as
  /// "collect.example.com:8443". An "https://" prefix is optional; "http://" is allowed only for
  /// loopback hosts and becomes https elsewhere. With an invalid host, logged at level 2, events
  /// are queued and not sent. Default: null or empty, the host given to the build as
  /// JX_COLLECTION_HOST.
  JXString collectionHost;
  /// True sends the queued events of other hosts to the collection host too: scheme, host and port
  /// of each URL are replaced when the event is sent. Set it when the host has changed, or to send
  /// events that were queued with an invalid host. Default: false, each event is sent to the host
  /// that was configured when it was executed.
  bool sendsQueueToCurrentHost = false;
  /// Path of a file of PEM certificates to trust instead of the system's certificates. Default:
  /// null, the system's certificates.
  JXString caFile;
  /// Public keys that the collection host may present, in addition to having a trusted certificate.
  /// Each is the SHA-256 hash of the key (its SubjectPublicKeyInfo in DER) in Base64, 44 characters
  /// long. Default: empty, any key. Include the next key too: after an unannounced key change,
  /// events stay queued until the application is updated. An invalid entry is logged at level 3 and
  /// matches no key; when all entries are invalid, nothing is sent. Plain http to a loopback host
  /// uses no key and is not affected.
  std::vector<std::string> pinnedPublicKeys;
  /// URL of the HTTP proxy, such as "http://proxy.example:3128"; "" uses no proxy. Default: null,
  /// the environment variables https_proxy, HTTPS_PROXY, ALL_PROXY and NO_PROXY. Loopback hosts are
  /// always connected directly.
  JXString proxy;

  /// Function that receives log messages; see JXLogSink for its thread and limits. Default: empty,
  /// messages are written to standard error.
  JXLogSink logSink;
  /// Highest level that is logged, from 0 (nothing) to 6 (everything); see JXLogger for the levels.
  /// Default: 3.
  int logLevel = 3;

  /// Limits of the event queue. Default: see JXOutboxBounds.
  JXOutboxBounds outboxBounds;
  /// Backoff, timeouts and delays of the delivery. Default: see JXRetryTimings.
  JXRetryTimings retryTimings;
  /// Function that is called with the outcome of each request; see JXDeliveryCallback for its
  /// thread and limits. Default: empty, outcomes are not reported.
  JXDeliveryCallback onDelivery;
  /// True neither stores nor sends requests. Observers of `kJXNotification_HTTPRequest` still
  /// receive each request, so an application can inspect it. Default: false.
  bool dryRun = false;

  /// Identifier, name and versions of the application, for platforms that do not provide them.
  /// Default: all null, the platform's values.
  JXBundleInformation bundle;
  /// Size of the main screen in points, for platforms that cannot report it. Default: 0 by 0, the
  /// platform's value.
  JXScreenBounds screen;
  /// User agent string of the device block, for platforms that have none. Default: null, the
  /// platform's user agent.
  JXString userAgent;

  /// Clock that provides the time of day; see JXClock for its threads and limits. Default: null,
  /// the system clock.
  std::shared_ptr<const JXClock> clock;
  /// HTTP client that sends the requests; see JXHttpTransport for its threads, lifetime and errors.
  /// `caFile`, `pinnedPublicKeys`, `proxy` and the timeouts of `retryTimings` configure only the
  /// built-in transport. Not used in a dry run. Default: null, the built-in transport with libcurl.
  std::shared_ptr<JXHttpTransport> transport;
  /// Interface to the operating system. Default: null, the platform that the library was built for.
  std::shared_ptr<JXPlatform> platform;

  /// Replaces the current configuration with a copy of `configuration` and returns true. Once the
  /// core has started, changes nothing, logs at level 3 which operation started it, and returns
  /// false. Thread-safe.
  static bool set(const JXCoreConfiguration& configuration);
  /// Returns a copy of the current configuration. Thread-safe.
  static JXCoreConfiguration current();
};

}  // namespace jx
