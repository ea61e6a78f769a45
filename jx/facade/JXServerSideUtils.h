// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string_view>

#include "jx/core/json/JXJsonValue.h"
#include "jx/events/JXEvent.h"
#include "jx/platform/JXApi.h"

namespace jx {

/// Flattens an event for Firebase, which does not accept nested parameters.
class JX_API JXServerSideUtils {
 public:
  JXServerSideUtils() = delete;

  /// Returns the event's parameters: its JSON without the context and user blocks. Nested objects
  /// become JSON strings, items become flat objects, and other lists stay lists. The returned
  /// object is new; lists that the application supplied are shared with the event (see
  /// IJXFirebaseInstance).
  static JXJsonObject eventPropertiesToDictionary(const JXEvent& event);
  /// Returns an array with a flat object for each element of the "items" list of `dict`, numbered
  /// by "index" from 0. Empty if there is no such list. The name is historic: the result is not a
  /// dictionary.
  static JXJsonArray itemsToDict(const JXJsonObject& dict);
  /// Writes the product's entries to `target` and removes "product" from it.
  static void productToDict_into(const JXJsonObject& product, JXJsonObject& target);
  /// Stores the value under the key; a JSON object is stored as its JSON string.
  static void setProperty_forKey_intoPropertiesDict(const JXJsonValue& value, std::string_view key,
                                                    JXJsonObject& dict);
};

}  // namespace jx
