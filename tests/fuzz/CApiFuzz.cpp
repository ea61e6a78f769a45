// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "jx/c/jx.h"
#include "jx/core/json/JXDecimal.h"
#include "jx/core/json/JXJsonReader.h"
#include "jx/core/json/JXUtf8.h"
#include "tests/fuzz/CApiArguments.h"
#include "tests/fuzz/CApiLibrary.h"
#include "tests/fuzz/Fuzz.h"

namespace jx::fuzz {
namespace {

// Performs calls that the input decides.
class Caller : public CApiArguments {
 public:
  explicit Caller(Input input) : CApiArguments(input) {}

  void run() {
    constexpr std::size_t kMaxCalls = 100;
    for (std::size_t i = 0; i < kMaxCalls && !input_.isEmpty(); ++i) {
      const std::uint8_t group = input_.byte() % 8u;
      if (group < 2) create();
      if (group == 2) setField();
      if (group == 3) getField();
      if (group == 4) changeList();
      if (group == 5) useServerSide();
      if (group == 6) useObject();
      if (group == 7) useProcess();
      requireCount();
    }
    freeAll();
  }

 private:
  void create() {
    jx_object* made = nullptr;
    switch (input_.byte() % 8) {
      case 0:
        return keep(jx_event_create(text(), &made), made, Kind::Object);
      case 1: {
        const char* const type = text();
        const std::uint32_t mode = input_.byte() < 200 ? input_.byte() % 8u : UINT32_MAX;
        return keep(jx_event_create_with_mode(type, mode, text(), &made), made, Kind::Object);
      }
      case 2:
        return keep(jx_custom_event_create(text(), &made), made, Kind::Object);
      case 3:
        return keep(jx_item_create(&made), made, Kind::Object);
      case 4:
        return keep(jx_product_create(&made), made, Kind::Object);
      case 5:
        return createServerSide();
      case 6: {
        jx_observer* observer = nullptr;
        const char* const name = text();
        const bool hasHandler = input_.byte() != 0;
        return keep(
            jx_observer_create(name, hasHandler ? onNotification : nullptr, nullptr, &observer),
            observer, Kind::Observer);
      }
      default:
        const jx_class* const type = jx_class_at(input_.byte() % 40u);
        return keep(jx_event_create(type != nullptr ? type->name : nullptr, &made), made,
                    Kind::Object);
    }
  }
  void createServerSide() {
    jx_server_side* made = nullptr;
    const std::uint8_t form = input_.byte();
    const auto site = static_cast<std::int32_t>(form < 200 ? form : input_.number(4));
    jx_firebase firebase{sizeof firebase, nullptr, onFirebase, onFirebase, nullptr};
    if (form % 8 == 7) firebase.struct_size = input_.byte();
    if (form % 8 == 6) firebase.log_event = nullptr;
    const char* const key = text();
    keep(jx_server_side_create(site, key, input_.byte() % 4u, form % 2 == 0 ? nullptr : &firebase,
                               &made),
         made, Kind::ServerSide);
  }

  void setField() {
    jx_object* const to = object();
    const char* const name = field();
    const std::uint8_t which = input_.byte() % 9u;
    if (which == 0) return setString(to, name);
    if (which == 1) return setNumber(to, name);
    const std::uint64_t number = input_.number(8);
    double real = 0;
    std::memcpy(&real, &number, sizeof real);
    const auto integer = static_cast<std::int64_t>(number);
    if (which == 2) on(Kind::Object, jx_object_set_integer(to, name, integer));
    if (which == 3) on(Kind::Object, jx_object_set_double(to, name, real));
    if (which == 4) on(Kind::Object, jx_object_set_boolean(to, name, (number & 1) != 0));
    if (which == 5)
      on(Kind::Object, jx_object_set_enum(to, name, static_cast<uint32_t>(number % 16)));
    if (which == 6) {
      const std::array<const char*, 3> list{text(), text(), text()};
      on(Kind::Object,
         jx_object_set_strings(to, name, number % 5 == 4 ? nullptr : list.data(), number % 4));
    }
    if (which == 7) on(Kind::Object, jx_object_set_json(to, name, text()));
    if (which == 8) on(Kind::Object, jx_object_set_null(to, name));
  }
  void setString(jx_object* to, const char* name) {
    const char* const value = text();
    if (on(Kind::Object, jx_object_set_string(to, name, value)) != JX_OK) return;
    std::array<char, 256> found{};
    const jx_status status =
        checked(jx_object_get_string(to, name, found.data(), found.size(), nullptr));
    require(status == (value != nullptr ? JX_OK : JX_ERROR_NOT_SET), "exactly a string is set");
    require(value == nullptr || std::strcmp(found.data(), value) == 0, "a string is kept",
            found.data(), value != nullptr ? value : "");
  }
  void setNumber(jx_object* to, const char* name) {
    const char* const value = text();
    if (on(Kind::Object, jx_object_set_number(to, name, value)) != JX_OK) return;
    std::array<char, 512> found{};
    const jx_status status =
        checked(jx_object_get_number(to, name, found.data(), found.size(), nullptr));
    require(status == (value != nullptr ? JX_OK : JX_ERROR_NOT_SET), "exactly a number is set");
    if (value == nullptr) return;
    const std::string expected = JXDecimal::fromString(value).toString();
    require(found.data() == expected, "a number is kept", found.data(), expected);
  }

  void getField() {
    const jx_object* const from = object();
    const char* const name = field();
    const std::uint8_t which = input_.byte() % 7u;
    const std::size_t index = input_.byte() % 4u;
    bool boolean = false;
    uint32_t number = 0;
    if (which == 0) on(Kind::Object, jx_object_get_boolean(from, name, &boolean));
    if (which == 1) on(Kind::Object, jx_object_get_enum(from, name, &number));
    if (which < 2) return;
    read([&](char* buffer, std::size_t capacity, std::size_t* length) {
      jx_status status = JX_OK;
      if (which == 2) status = jx_object_get_string(from, name, buffer, capacity, length);
      if (which == 3) status = jx_object_get_number(from, name, buffer, capacity, length);
      if (which == 4) status = jx_object_get_json(from, name, buffer, capacity, length);
      if (which == 5)
        status = jx_object_list_get_string(from, name, index, buffer, capacity, length);
      if (which == 6) status = jx_object_list_get_json(from, name, index, buffer, capacity, length);
      return on(Kind::Object, status);
    });
  }

  void changeList() {
    jx_object* const to = object();
    const char* const name = field();
    const Handle target = last_;
    std::size_t before = 0;
    const bool isList = on(Kind::Object, jx_object_list_count(to, name, &before)) == JX_OK;
    const std::uint8_t position = input_.byte();
    const std::size_t index = position < 8 ? position : JX_LIST_END;
    const std::uint8_t which = input_.byte() % 9u;
    const char* const value = which < 3 ? text() : nullptr;
    const jx_object* const item = which > 6 ? object() : nullptr;
    const Handle added = last_;
    last_ = target;
    jx_status status = JX_OK;
    if (which == 0) status = jx_object_list_insert_string(to, name, index, value);
    if (which == 1) status = jx_object_list_insert_number(to, name, index, value);
    if (which == 2) status = jx_object_list_insert_json(to, name, index, value);
    if (which == 3) status = jx_object_list_insert_boolean(to, name, index, index == 0);
    if (which == 4) status = jx_object_list_insert_null(to, name, index);
    if (which == 5) status = jx_object_list_remove(to, name, index);
    if (which == 6) status = jx_object_list_clear(to, name);
    if (which == 7) status = jx_object_list_insert_item(to, name, index, item);
    if (which == 8) status = jx_object_add_item(to, name, item);
    on(Kind::Object, status);
    if (status != JX_OK) return;
    require(which < 7 || added.isLive, "only a live item is added");
    std::size_t after = 0;
    require(jx_object_list_count(to, name, &after) == JX_OK, "a list that was changed has a size");
    const bool addsNothing = which < 3 && value == nullptr;
    const std::size_t expected = which == 5 ? before - 1 : which == 6 ? 0 : before + 1;
    require(after == expected || (addsNothing && after == before), "a change adds one element",
            std::to_string(after), std::to_string(expected));
    require(isList || which == 6, "only a list is changed");
  }

  void useServerSide() {
    jx_server_side* const side = serverSide();
    const Handle target = last_;
    const std::uint8_t which = input_.byte() % 14u;
    const char* const key = which < 4 ? text() : nullptr;
    const char* const value = which < 2 ? text() : nullptr;
    jx_object* const event = which > 11 ? object() : nullptr;
    last_ = target;
    jx_state state = JX_STATE_ENABLED;
    jx_status status = JX_OK;
    if (which == 0) status = jx_set_permanent(side, key, value);
    if (which == 1) status = jx_set_permanent_json(side, key, value);
    if (which == 2) status = jx_remove_permanent(side, key);
    if (which == 3) {
      read([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return status = jx_get_permanent_json(side, key, buffer, capacity, length);
      });
    }
    if (which == 4) status = jx_enable(side);
    if (which == 5) status = jx_disable(side);
    if (which == 6) status = jx_get_state(side, &state);
    if (which == 7) status = jx_wait_for_user_agent(side);
    if (which == 8) status = jx_enable_running_in_background(side);
    if (which == 9) status = jx_add_advertising_ids(side);
    if (which == 10) status = jx_set_advertising_tracking_enabled(side);
    if (which == 11) status = jx_set_idfa(side);
    if (which > 11) status = jx_execute(side, event);
    on(Kind::ServerSide, status);
    require(state <= JX_STATE_DISABLED, "a state is one of the enumeration");
  }

  void useObject() {
    const Handle handle = pick();
    last_ = handle;
    auto* const object = static_cast<jx_object*>(handle.token);
    switch (input_.byte() % 5) {
      case 0:
        return free(handle);
      case 1:
        on(Kind::Object, jx_object_verify(object));
        return;
      case 2: {
        const char* const key = text();
        on(Kind::Object, jx_object_add_parameter(object, key, text()));
        return;
      }
      case 3: {
        const char* const key = text();
        on(Kind::Object, jx_object_add_parameter_json(object, key, text()));
        return;
      }
      default:
        const auto json = read([&](char* buffer, std::size_t capacity, std::size_t* length) {
          return on(Kind::Object, jx_object_json(object, buffer, capacity, length));
        });
        if (!json) return;
        require(isUtf8(*json) && JXJsonReader::read(*json).value.object().isPresent(),
                "an object is written as JSON", *json, {});
        require(jx_class_named(jx_object_class(object)) != nullptr, "an object has a class");
    }
  }

  void useProcess() {
    const std::uint8_t which = input_.byte() % 26u;
    if (which < 8) return useBlocks(which);
    if (which < 16) return useQueue(which - 8);
    const char* const value = which < 20 ? text() : nullptr;
    const bool isConsent = value != nullptr && std::string_view(value) == "JXMobileConsent";
    if (which == 16 && isConsent) checked(jx_register_module(value));
    if (which == 17) checked(jx_unregister_module(value));
    if (which == 18) checked(jx_set_anonymous_id(value));
    if (which == 19) checked(jx_set_consent_id(value));
    if (which == 20) checked(jx_use_legacy_unique_id_for_anonymous_id());
    if (which == 21) checked(jx_use_legacy_unique_id_for_consent_id());
    if (which == 22) checked(jx_application_did_enter_background());
    if (which == 23) checked(jx_application_will_enter_foreground());
    if (which == 24) jx_set_log_level(static_cast<int32_t>(input_.number(4)));
    if (which == 25) clockMs = static_cast<std::int64_t>(input_.number(8));
  }
  void useBlocks(std::uint8_t which) {
    // Few keys, because the blocks and variables stay until the process ends.
    constexpr std::array<const char*, 8> kKeys{
        nullptr, "", "a", "name", "os", "#JX_CURRENT_CALL_MS#", "#JX_SESSION_ID#", "#JX_IDFA#"};
    const char* const key = kKeys[input_.byte() % kKeys.size()];
    const std::uint32_t block = input_.byte() % 8u;
    if (which == 0) checked(jx_block_add(block, key, text()));
    if (which == 1) checked(jx_block_add_json(block, key, text()));
    if (which == 2) checked(jx_set_variable(key, text()));
    if (which == 3) checked(jx_set_core_variable(key, text()));
    if (which < 4) return;
    read([&](char* buffer, std::size_t capacity, std::size_t* length) {
      if (which == 4) return checked(jx_get_core_variable(key, buffer, capacity, length));
      if (which == 5) return checked(jx_get_anonymous_id(buffer, capacity, length));
      return checked(jx_get_variable(key, buffer, capacity, length));
    });
  }
  void useQueue(std::uint8_t which) {
    jx_counters counters;
    jx_configuration configuration;
    const std::size_t size = input_.byte() < 128 ? sizeof counters : input_.number(2);
    if (which == 0) checked(jx_counters_get(&counters, std::min(size, sizeof counters)));
    if (which == 1) checked(jx_counters_get(nullptr, size));
    if (which == 2) checked(jx_flush(-static_cast<std::int64_t>(input_.number(8) >> 1)));
    if (which == 3) checked(jx_purge());
    if (which == 4) {
      read([&](char* buffer, std::size_t capacity, std::size_t* length) {
        return checked(jx_erase_all(buffer, capacity, length));
      });
    }
    if (which == 5) {
      jx_configuration_init(&configuration, sizeof configuration);
      const jx_status status = checked(jx_configure(&configuration));
      require(status == JX_ERROR_TOO_LATE, "a started library cannot be configured");
    }
    if (which < 6) return;
    const char* const name = text();
    isPosting = true;
    checked(jx_post_notification(name, text()));
    isPosting = false;
  }
};

}  // namespace
}  // namespace jx::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  jx::fuzz::configureLibrary();
  jx::fuzz::Caller({data, size}).run();
  return 0;
}
