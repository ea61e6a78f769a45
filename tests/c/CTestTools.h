// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

#include "jx/c/jx_object.h"
#include "jx/core/json/JXJsonReader.h"
#include "tests/support/JXEventTestTools.h"

namespace jx::test {

struct FreeObject {
  void operator()(jx_object* object) const { EXPECT_EQ(jx_object_free(object), JX_OK); }
};
/// A handle that is freed at the end of its scope.
using Object = std::unique_ptr<jx_object, FreeObject>;

/// Creates an event; for a class with modes with the last mode and the session "session".
inline Object makeEvent(const char* className, std::size_t modeCount = 0) {
  jx_object* event = nullptr;
  const auto mode = static_cast<std::uint32_t>(modeCount - 1);
  EXPECT_EQ(modeCount == 0 ? jx_event_create(className, &event)
                           : jx_event_create_with_mode(className, mode, "session", &event),
            JX_OK);
  return Object(event);
}

inline Object makeProduct(const char* id, const char* price) {
  jx_object* product = nullptr;
  EXPECT_EQ(jx_product_create(&product), JX_OK);
  EXPECT_EQ(jx_object_set_string(product, "ID", id), JX_OK);
  EXPECT_EQ(jx_object_set_number(product, "price", price), JX_OK);
  return Object(product);
}

inline Object makeItem(const char* id, std::int64_t quantity, const jx_object* product) {
  jx_object* item = nullptr;
  EXPECT_EQ(jx_item_create(&item), JX_OK);
  EXPECT_EQ(jx_object_set_string(item, "ID", id), JX_OK);
  EXPECT_EQ(jx_object_set_integer(item, "quantity", quantity), JX_OK);
  EXPECT_EQ(jx_object_set_product(item, "product", product), JX_OK);
  return Object(item);
}

/// Returns the object's JSON, with "event_id" replaced by "E".
inline std::string objectJson(const jx_object* object) {
  size_t length = 0;
  EXPECT_EQ(jx_object_json(object, nullptr, 0, &length), JX_ERROR_TOO_SMALL);
  std::string text(length + 1, '?');
  EXPECT_EQ(jx_object_json(object, text.data(), text.size(), &length), JX_OK);
  text.resize(length);
  const JXJsonObject json = JXJsonReader::read(text).value.object();
  EXPECT_TRUE(json.isPresent()) << text;
  JXJsonObject context = json.get("context").object();
  if (context.isPresent()) context.set("event_id", "E");
  return jsonText(json);
}

}  // namespace jx::test
