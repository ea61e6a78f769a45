// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Flattens an event for Firebase, which takes no nested parameters.
class JX_API JXServerSideUtils {
 public:
  JXServerSideUtils() = delete;

  /// The event's parameters: its JSON without the context and user blocks, nested objects as JSON
  /// text, items as flat objects.
  static JXJsonObject eventPropertiesToDictionary(const JXEvent& event);
  /// A flat object for each element of the "items" list of `dict`, with its "index" from 0; empty
  /// when there is no such list. An array, whatever the historic name says.
  static JXJsonArray itemsToDict(const JXJsonObject& dict);
  /// Writes the product's entries into `target` and takes "product" out of it.
  static void productToDict_into(const JXJsonObject& product, JXJsonObject& target);
  /// Stores the value under the key, a JSON object as its text.
  static void setProperty_forKey_intoPropertiesDict(const JXJsonValue& value, std::string_view key,
                                                    JXJsonObject& dict);
};

}  // namespace jx
