// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>

#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Builds the body of an event's request.
class JX_API JXPostData {
 public:
  JXPostData() = delete;

  /// The event with its user and context blocks, as pretty-printed UTF-8 JSON. `serverSideState` is
  /// an `EJXServerSideState`: while consent is awaited the user block is the marker for it.
  static JXString getPostParameters_withServerSideState(const JXEvent& event,
                                                        std::int32_t serverSideState);
};

}  // namespace jx
