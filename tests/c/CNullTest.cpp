// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Passes null to every pointer parameter of every function, one at a time.

#include <gtest/gtest.h>

#include "jx/c/jx.h"
#include "tests/c/CTestTools.h"

namespace jx::test {
namespace {

void ignore(void*, const char*, const char*) {}

TEST(CNull, ObjectFunctionsRejectNullHandles) {
  char text[8];
  EXPECT_EQ(jx_object_set_string(nullptr, "ID", "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_number(nullptr, "value", "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_number(nullptr, "value", nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_integer(nullptr, "value", 1), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_double(nullptr, "value", 1), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_boolean(nullptr, "f", true), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_enum(nullptr, "adType", 0), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_strings(nullptr, "colors", nullptr, 1), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_product(nullptr, "product", nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_add_item(nullptr, "items", nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_json(nullptr, "value", "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_set_null(nullptr, "value"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_add_parameter(nullptr, "a", "b"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_add_parameter_json(nullptr, "a", "1"), JX_ERROR_NULL_HANDLE);
  bool boolean = false;
  uint32_t number = 0;
  size_t count = 0;
  EXPECT_EQ(jx_object_get_string(nullptr, "ID", text, sizeof text, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_get_number(nullptr, "a", text, sizeof text, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_get_boolean(nullptr, "a", &boolean), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_get_enum(nullptr, "a", &number), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_get_json(nullptr, "a", text, sizeof text, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_count(nullptr, "a", &count), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_get_string(nullptr, "a", 0, text, sizeof text, nullptr),
            JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_get_json(nullptr, "a", 0, text, sizeof text, nullptr),
            JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_string(nullptr, "a", 0, "a"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_number(nullptr, "a", 0, "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_boolean(nullptr, "a", 0, true), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_null(nullptr, "a", 0), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_json(nullptr, "a", 0, "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_insert_item(nullptr, "a", 0, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_remove(nullptr, "a", 0), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_list_clear(nullptr, "a"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_verify(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_json(nullptr, text, sizeof text, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_object_class(nullptr), nullptr);
}

TEST(CNull, ServerSideFunctionsRejectNullHandles) {
  eventPlatform();
  const Object event = makeEvent("JXEvent");
  char text[8];
  jx_state state = JX_STATE_ENABLED;
  EXPECT_EQ(jx_execute(nullptr, event.get()), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_set_permanent(nullptr, "a", "b"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_set_permanent_json(nullptr, "a", "1"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_get_permanent_json(nullptr, "a", text, sizeof text, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_remove_permanent(nullptr, "a"), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_enable(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_disable(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_get_state(nullptr, &state), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_wait_for_user_agent(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_enable_running_in_background(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_add_advertising_ids(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_set_advertising_tracking_enabled(nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_set_idfa(nullptr), JX_ERROR_NULL_HANDLE);
}

TEST(CNull, ServerSideFunctionsRejectNullAndOtherObjects) {
  eventPlatform();
  jx_server_side* serverSide = nullptr;
  EXPECT_EQ(jx_server_side_create(1, "key", JX_BEHAVIOUR_DEFAULT, nullptr, nullptr),
            JX_ERROR_NULL_ARGUMENT);
  // Without a source key the library starts and logs a message.
  ASSERT_EQ(jx_server_side_create(1, nullptr, UINT32_MAX, nullptr, &serverSide), JX_OK);
  const Object item = makeItem("1", 1, nullptr);
  EXPECT_EQ(jx_execute(serverSide, nullptr), JX_ERROR_NULL_HANDLE);
  EXPECT_EQ(jx_execute(serverSide, item.get()), JX_ERROR_WRONG_CLASS);
  EXPECT_STREQ(jx_error_detail(), "event must be an event, not a JXItem");
  EXPECT_EQ(jx_execute(serverSide, reinterpret_cast<jx_object*>(serverSide)),
            JX_ERROR_WRONG_HANDLE);
  EXPECT_EQ(jx_set_permanent(serverSide, nullptr, "b"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_set_permanent_json(serverSide, nullptr, "1"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_set_permanent_json(serverSide, "a", "1 2"), JX_ERROR_INVALID_JSON);
  EXPECT_EQ(jx_get_permanent_json(serverSide, nullptr, nullptr, 0, nullptr),
            JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_remove_permanent(serverSide, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_get_state(serverSide, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_server_side_free(serverSide), JX_OK);
}

TEST(CNull, OtherFunctionsRejectNullArguments) {
  eventPlatform();
  jx_observer* observer = nullptr;
  EXPECT_EQ(jx_observer_create(nullptr, &ignore, nullptr, &observer), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_observer_create("name", nullptr, nullptr, &observer), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_observer_create("name", &ignore, nullptr, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_post_notification(nullptr, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_configuration_init(nullptr, sizeof(jx_configuration)), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_configure(nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_counters_get(nullptr, sizeof(jx_counters)), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_block_add(JX_BLOCK_USER, nullptr, "b"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_block_add_json(JX_BLOCK_USER, nullptr, "1"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_get_variable(nullptr, nullptr, 0, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_set_variable(nullptr, "a"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_get_core_variable(nullptr, nullptr, 0, nullptr), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_set_core_variable(nullptr, "a"), JX_ERROR_NULL_ARGUMENT);
  EXPECT_EQ(jx_register_module(nullptr), JX_OK);
  EXPECT_EQ(jx_unregister_module(nullptr), JX_OK);
  EXPECT_EQ(jx_set_consent_id(nullptr), JX_OK);
}

}  // namespace
}  // namespace jx::test
