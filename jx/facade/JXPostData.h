// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXJsonTextSink;
class JXNewSessionClaim;

/// Builds the request body of an event. Thread-safe; the event belongs to the calling thread.
class JX_API JXPostData {
 public:
  JXPostData() = delete;

  /// Returns the event with its user and context blocks, as pretty-printed UTF-8 JSON.
  /// `serverSideState` is an `EJXServerSideState`: in the waiting-for-consent state the user block
  /// is replaced by a marker.
  static JXString getPostParameters_withServerSideState(const JXEvent& event,
                                                        std::int32_t serverSideState);

 private:
  friend class ServerSide;

  /// Returns the same for an event that is executed: the predefined variables advance to this
  /// moment, and the event claims the new-session mark.
  static JXString executionBody(const JXEvent& event, std::int32_t serverSideState,
                                JXNewSessionClaim& claim);
  static JXString bodyOf(const JXEvent& event, std::int32_t serverSideState,
                         JXNewSessionClaim* claim);
  /// Writes the body in one pass, without a JSON object. The event is serialised by its tables.
  static void writeBody(const JXEvent& event, std::int32_t serverSideState,
                        JXNewSessionClaim* claim, JXJsonTextSink& sink);
};

}  // namespace jx
