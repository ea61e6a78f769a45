// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <optional>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXJsonTextSink;

/// The mark of a new session, taken by the event that carries it. The destructor gives the mark
/// back, unless the event was posted. Used on one thread.
class JX_API JXNewSessionClaim {
 public:
  JXNewSessionClaim() = default;
  ~JXNewSessionClaim();
  JXNewSessionClaim(const JXNewSessionClaim&) = delete;
  JXNewSessionClaim& operator=(const JXNewSessionClaim&) = delete;

  /// Takes the mark if there is one. Returns whether the event carries it.
  bool take();
  /// Clears the mark, because the event was posted.
  void keep();

 private:
  std::optional<std::uint64_t> session_;  ///< the session whose mark is taken
};

/// Builds the request body of an event. Thread-safe; the event belongs to the calling thread.
class JX_API JXPostData {
 public:
  JXPostData() = delete;

  /// Returns the event with its user and context blocks, as pretty-printed UTF-8 JSON.
  /// `serverSideState` is an `EJXServerSideState`: in the waiting-for-consent state the user block
  /// is replaced by a marker.
  static JXString getPostParameters_withServerSideState(const JXEvent& event,
                                                        std::int32_t serverSideState);
  /// Returns the same for an event that is executed: the predefined variables advance to this
  /// moment, and the event takes the mark of a new session, which `claim` then holds.
  static JXString executionBody(const JXEvent& event, std::int32_t serverSideState,
                                JXNewSessionClaim& claim);

 private:
  static JXString bodyOf(const JXEvent& event, std::int32_t serverSideState,
                         JXNewSessionClaim* claim);
  /// Writes the body in one pass, without a JSON object. The event is serialised by its tables.
  static void writeBody(const JXEvent& event, std::int32_t serverSideState,
                        JXNewSessionClaim* claim, JXJsonTextSink& sink);
};

}  // namespace jx
