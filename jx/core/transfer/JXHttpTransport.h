// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// One POST of a JSON body. Send it with "Content-Type: application/json; charset=utf-8".
struct JX_API JXHttpRequest {
  /// Identifies the request while it is in flight. A retry of the same event may use the same ID.
  std::uint64_t id = 0;
  /// URL as queued. The source key is not percent-encoded yet: it may contain blanks, `#`, `+` and
  /// non-ASCII bytes. The scheme has not been checked.
  std::string url;
  /// Body in UTF-8. Each attempt must send exactly these bytes.
  std::string body;
};

/// Result of one attempt to send a request.
struct JX_API JXAttemptResult {
  /// Status of the HTTP response; 0 without a response. 2xx means delivered. Without a response and
  /// for 408, 425, 429 and 503, the host backs off; for any other 5xx, only the request waits. It
  /// is rejected for any other status. A value below 100 counts as 0.
  int status = 0;
  /// True rejects the request, because it can never be sent, for example because of its URL.
  bool neverSendable = false;
  /// True if the response came over a connection that carries several requests at a time, such as
  /// one of HTTP/2. Allows more requests to this host.
  bool isMultiplexed = false;
};

/// Result of a request; returns the request to the library.
struct JX_API JXHttpResult {
  /// The request that was passed to `start`. Its ID must not change. The body is only read to
  /// report the event ID; when it was dropped, deliveries are reported without an ID.
  JXHttpRequest request;
  /// Outcome of the attempt. A `status` other than 0 takes precedence in the log.
  JXAttemptResult outcome;
  /// Value of the response's Retry-After header: seconds or an HTTP date. Null: no such header. An
  /// invalid value is ignored.
  JXString retryAfter;
  /// Error message for the log when there is no response; empty: "no response". Must not contain
  /// the URL, which contains the source key.
  std::string reason;
  /// Value of the response's Date header, with which a Retry-After date is compared. Null or
  /// invalid: it is compared with the device's clock, and the wait is at most `maxBackoff`.
  JXString date;
};

/// Sends HTTP requests for the transfer thread. The built-in transport uses libcurl; an application
/// or a test replaces it with `JXCoreConfiguration::transport`.
///
/// The library uses one transport per process, with at most eight requests at a time and at most
/// four to one host. Four more are sent to a host whose last response was multiplexed. Send them
/// side by side: otherwise a host that does not respond delays the others. `start`, `poll` and
/// `abortAll` are called on the transfer thread only, never two at once; `wakeUp` is called on any
/// thread, also during the others. No lock of the library is locked during `start`, `poll` and
/// `abortAll`. They may call any operation of the library; JXNetworkManager::flush does not wait
/// then. `wakeUp`, `suspend` and `resume` must not call the library.
///
/// The library shares ownership of the transport until the process ends and never destroys it. At
/// process exit it calls `wakeUp` and then `abortAll`, the last operation. When an operation does
/// not return within 250 ms, the exit continues without `abortAll`, and results that it returns
/// later are ignored. Requests without a result stay in the queue for the next process. The exit of
/// a forked child process calls no operation.
///
/// An exception of `start` or `poll` is caught and logged at level 3. The library then calls
/// `abortAll`, requeues all requests in flight and sends them again after a backoff, so none is
/// lost. When exceptions repeat, it waits for up to one second before the next call.
class JX_API JXHttpTransport {
 public:
  virtual ~JXHttpTransport() = default;

  /// Starts a request and returns without waiting for the network. Each started request ends with
  /// exactly one result of `poll`, or with `abortAll`. The transport must limit the time of a
  /// request: the library sets no time limit, and a request without a result is not retried in this
  /// process.
  virtual void start(JXHttpRequest request) = 0;
  /// Advances the requests and returns their results, which may be none. Without a result, waits
  /// first until there is one, `wakeUp` is called or `timeout` has passed. A null timeout waits
  /// without limit; 0 does not wait. Returning early is allowed, but the library calls `poll` again
  /// at once, so a `poll` that never waits uses a whole CPU core.
  ///
  /// A result for a request that is not in flight is logged at level 3 and ignored.
  virtual std::vector<JXHttpResult> poll(std::optional<std::chrono::milliseconds> timeout) = 0;
  /// Ends the current `poll`, or the next one when none is running. Must not wait. Calls before
  /// the next `poll` count as one.
  virtual void wakeUp() noexcept = 0;
  /// Aborts all requests and discards their results, including those that `poll` has not returned
  /// yet. Called when consent is withdrawn, on a purge, after an exception and at process exit. The
  /// requests may be started again later, with the same IDs.
  virtual void abortAll() noexcept = 0;

  /// Ends all sending at once: after it returns, no byte of a request is written to the network
  /// until `resume` is called, neither of the requests in flight nor of one that is started in the
  /// meantime. Called when consent is withdrawn and on a purge, on the thread of the application,
  /// at any time, also during the other operations. Must not wait for the network. The library then
  /// calls `abortAll` on the transfer thread, before `resume`; results of requests that ended
  /// because of the suspension must not be returned by `poll`. Does nothing by default; the
  /// requests in flight of such a transport are only aborted, so data of them may be sent for a
  /// short time after a stop.
  virtual void suspend() noexcept {}
  /// Ends `suspend`. Called on the transfer thread, after `abortAll`.
  virtual void resume() noexcept {}
};

}  // namespace jx
