// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Builds the request body of an event.
class JX_API JXPostData {
 public:
  JXPostData() = delete;

  /// Returns the event with its user and context blocks, as pretty-printed UTF-8 JSON.
  /// `serverSideState` is an `EJXServerSideState`: in the waiting-for-consent state the user block
  /// is replaced by a marker.
  static JXString getPostParameters_withServerSideState(const JXEvent& event,
                                                        std::int32_t serverSideState);
};

}  // namespace jx
