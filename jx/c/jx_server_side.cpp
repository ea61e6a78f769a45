// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/jx_server_side.h"

#include <cstring>
#include <memory>
#include <string_view>

#include "jx/c/internal/JXCObject.h"
#include "jx/c/internal/JXCall.h"
#include "jx/facade/IJXFirebaseInstance.h"
#include "jx/facade/ServerSide.h"

namespace {

using jx::JXHandleKind;
using jx::JXJsonValue;
using jx::ServerSide;
using jx::c::Form;
using jx::c::JXCObject;
using jx::c::Result;

static_assert(int{jx::EJXDefaultBehaviour_DEFAULT} == JX_BEHAVIOUR_DEFAULT);
static_assert(int{jx::EJXDefaultBehaviour_ALWAYS_ENABLED} == JX_BEHAVIOUR_ALWAYS_ENABLED);
static_assert(int{jx::EJXDefaultBehaviour_DISABLED_BY_DEFAULT} == JX_BEHAVIOUR_DISABLED_BY_DEFAULT);
static_assert(int{jx::EJXServerSideState_WAITING_FOR_CONSENT} == JX_STATE_WAITING_FOR_CONSENT);
static_assert(int{jx::EJXServerSideState_ENABLED} == JX_STATE_ENABLED);
static_assert(int{jx::EJXServerSideState_DISABLED} == JX_STATE_DISABLED);

template <typename Body>
jx_status onServerSide(const char* operation, const jx_server_side* handle, const Body& body) {
  return jx::c::call(operation, [&]() -> Result {
    return jx::c::with<ServerSide>(handle, JXHandleKind::ServerSide, body);
  });
}

// For operations without arguments that cannot fail.
jx_status perform(const char* operation, const jx_server_side* handle,
                  void (ServerSide::*member)()) {
  return onServerSide(operation, handle, [&](ServerSide& serverSide) {
    (serverSide.*member)();
    return Result(JX_OK);
  });
}

// Forwards the library's calls of a Firebase instance to the functions of the application. The
// destructor calls `release`, if `enableRelease` was called.
class JXCFirebase final : public jx::IJXFirebaseInstance {
 public:
  explicit JXCFirebase(const jx_firebase& table) : table_(table) {}
  ~JXCFirebase() override {
    if (isReleaseEnabled_ && table_.release != nullptr) table_.release(table_.context);
  }
  JXCFirebase(const JXCFirebase&) = delete;
  JXCFirebase& operator=(const JXCFirebase&) = delete;

  bool respondsToOperation(std::string_view operation) override {
    if (operation == kSetDefaultEventParameters) return table_.set_default_parameter != nullptr;
    return operation == kLogEvent && table_.log_event != nullptr;
  }
  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override {
    const jx::JXString string = first.string();
    // `c_str` of a null string is "".
    const char* const name = string.isPresent() ? string.c_str() : nullptr;
    if (operation == kSetDefaultEventParameters) {
      table_.set_default_parameter(table_.context, name, second.string().c_str());
    } else {
      table_.log_event(table_.context, name, jx::c::jsonText(second).c_str());
    }
  }
  void enableRelease() { isReleaseEnabled_ = true; }

 private:
  static constexpr std::string_view kSetDefaultEventParameters =
      "setDefaultEventParameters:parameters:";
  static constexpr std::string_view kLogEvent = "logEventWithName:parameters:";

  const jx_firebase table_;
  bool isReleaseEnabled_ = false;
};

Result copied(const jx_firebase* table, std::shared_ptr<JXCFirebase>& bridge) {
  if (table == nullptr) return JX_OK;
  const size_t size = table->struct_size;
  if (!jx::c::isKnownSize<jx_firebase>(size)) return JX_ERROR_STRUCT_SIZE;
  jx_firebase complete = {};
  std::memcpy(&complete, table, size);
  bridge = std::make_shared<JXCFirebase>(complete);
  return JX_OK;
}

jx_status addPermanent(const char* operation, jx_server_side* handle, const char* key,
                       const char* value, Form form) {
  return onServerSide(operation, handle, [&](ServerSide& serverSide) {
    return jx::c::readEntry(key, value, form, [&](const JXJsonValue& read) {
      serverSide.addPermanentData_withValue(key, read);
    });
  });
}

}  // namespace

jx_status jx_server_side_create(int32_t site_id, const char* source_key, uint32_t behaviour,
                                const jx_firebase* firebase, jx_server_side** server_side) {
  return jx::c::call(__func__, [&]() -> Result {
    if (server_side == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *server_side = nullptr;
    std::shared_ptr<JXCFirebase> bridge;
    Result result = copied(firebase, bridge);
    if (result.status != JX_OK) return result;
    auto created = ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
        site_id, source_key, static_cast<int32_t>(behaviour), bridge);
    result = jx::c::give(JXHandleKind::ServerSide, std::move(created), server_side);
    if (result.status == JX_OK && bridge) bridge->enableRelease();
    return result;
  });
}

jx_status jx_server_side_free(jx_server_side* server_side) {
  return jx::c::call(__func__, [&] { return jx::c::end(server_side, JXHandleKind::ServerSide); });
}

jx_status jx_execute(jx_server_side* server_side, jx_object* event) {
  return onServerSide(__func__, server_side, [&](ServerSide& serverSide) {
    return jx::c::with<JXCObject>(event, JXHandleKind::Object, [&](JXCObject& object) -> Result {
      const std::shared_ptr<jx::JXEvent> inside = object.event();
      if (inside == nullptr) {
        return {JX_ERROR_WRONG_CLASS,
                std::string("event must be an event, not a ") + object.className()};
      }
      serverSide.execute(inside);
      return JX_OK;
    });
  });
}

jx_status jx_set_permanent(jx_server_side* server_side, const char* key, const char* value) {
  return addPermanent(__func__, server_side, key, value, Form::String);
}

jx_status jx_set_permanent_json(jx_server_side* server_side, const char* key, const char* json) {
  return addPermanent(__func__, server_side, key, json, Form::Json);
}

jx_status jx_get_permanent_json(const jx_server_side* server_side, const char* key, char* buffer,
                                size_t capacity, size_t* length) {
  return onServerSide(__func__, server_side, [&](ServerSide& serverSide) -> Result {
    if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
    const JXJsonValue value = serverSide.getPermanentData(key);
    if (!value.isPresent()) return JX_ERROR_NOT_SET;
    return jx::c::copyOut(jx::c::jsonText(value), buffer, capacity, length);
  });
}

jx_status jx_remove_permanent(jx_server_side* server_side, const char* key) {
  return onServerSide(__func__, server_side, [&](ServerSide& serverSide) -> Result {
    if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
    return serverSide.removePermanentData(key).isPresent() ? JX_OK : JX_ERROR_NOT_SET;
  });
}

jx_status jx_enable(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::enableServerSide);
}

jx_status jx_disable(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::disableServerSide);
}

jx_status jx_get_state(const jx_server_side* server_side, jx_state* state) {
  return onServerSide(__func__, server_side, [&](ServerSide& serverSide) -> Result {
    if (state == nullptr) return JX_ERROR_NULL_ARGUMENT;
    *state = static_cast<jx_state>(serverSide.serverSideState());
    return JX_OK;
  });
}

jx_status jx_wait_for_user_agent(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::waitForUserAgent);
}

jx_status jx_enable_running_in_background(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::enableRunningInBackground);
}

jx_status jx_add_advertising_ids(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::addAdvertisingIDs);
}

jx_status jx_set_advertising_tracking_enabled(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::setAdvertisingTrackingEnabled);
}

jx_status jx_set_idfa(jx_server_side* server_side) {
  return perform(__func__, server_side, &ServerSide::setIDFA);
}
