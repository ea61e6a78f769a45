// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <functional>
#include <string>

namespace jx {

/// An event to store in the log of the broker. The strings may contain any bytes, except `eventId`
/// and `diagnostics`, which are printable ASCII.
struct LogEntry {
  bool isInvalid = false;   ///< belongs to the stream of events that did not pass validation
  std::string site;         ///< site ID in decimal digits; "" if the request contains none
  std::string name;         ///< of the event; "" without one
  std::string eventId;      ///< by which the broker drops repeats; "" without one
  std::string session;      ///< session ID; "" without one
  std::string diagnostics;  ///< JSON array of the validation errors of an invalid event
  std::string body;         ///< as the television sent it
};

struct LogResult {
  /// Why an entry is not stored. TooLarge: the broker never stores an entry of this size.
  enum class Cause { Refused, Unavailable, Timeout, Full, TooLarge };

  bool isStored = false;
  bool isRepeat = false;  ///< stored before, within the window of the broker
  std::string error;      ///< of an entry that is not stored
  Cause cause = Cause::Refused;
};

/// A log that keeps entries durably. Thread-safe.
class EventLog {
 public:
  virtual ~EventLog() = default;

  /// Called once, on any thread, also during `append`.
  using Stored = std::function<void(const LogResult& result)>;
  /// Stores an entry. Does not block. An entry that is reported as not stored may be stored
  /// nevertheless: the client sends it again, and the broker drops the repeat.
  virtual void append(const LogEntry& entry, Stored stored) = 0;
  /// Returns whether entries can be stored now.
  virtual bool isReady() const = 0;
};

}  // namespace jx
