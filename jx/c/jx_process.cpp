// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The functions of jx_server_side.h that work on process-wide objects.
#include "jx/c/internal/JXCall.h"
#include "jx/c/jx_server_side.h"
#include "jx/core/JXApplication.h"
#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUser.h"
#include "jx/session/JXApp.h"
#include "jx/session/JXDevice.h"
#include "jx/session/JXLifecycle.h"
#include "jx/session/JXPredefinedVariables.h"

namespace {

using jx::JXJsonValue;
using jx::c::Result;

// For operations that cannot fail.
template <typename Body>
jx_status perform(const char* operation, const Body& body) {
  return jx::c::call(operation, [&] {
    body();
    return Result(JX_OK);
  });
}

jx::JXAdditionalProperties* blockOf(uint32_t block) {
  switch (block) {
    case JX_BLOCK_USER:
      return &jx::JXUser::sharedInstance();
    case JX_BLOCK_DEVICE:
      return &jx::JXDevice::sharedInstance();
    case JX_BLOCK_APP:
      return &jx::JXApp::sharedInstance();
    case JX_BLOCK_LIFECYCLE:
      return &jx::JXLifecycle::sharedInstance();
    case JX_BLOCK_NETWORK:
      return &jx::JXNetwork::sharedInstance();
  }
  return nullptr;
}

// `read` reads the value to add.
template <typename Read>
jx_status addToBlock(const char* operation, uint32_t block, const char* key, const Read& read) {
  return jx::c::call(operation, [&]() -> Result {
    if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
    jx::JXAdditionalProperties* const properties = blockOf(block);
    if (properties == nullptr)
      return {JX_ERROR_UNKNOWN_ENUMERATOR, std::to_string(block) + " is not a jx_block"};
    JXJsonValue value;
    Result result = read(value);
    if (result.status != JX_OK || !value.isPresent()) return result;
    jx::JXJsonObject entries;
    entries.set(key, value);
    properties->addAdditionalProperty(entries);
    return JX_OK;
  });
}

Result copyString(const jx::JXString& string, char* buffer, size_t capacity, size_t* length) {
  if (!string.isPresent()) return JX_ERROR_NOT_SET;
  return jx::c::copyOut(string.toStdString(), buffer, capacity, length);
}

}  // namespace

jx_status jx_application_did_enter_background(void) {
  return perform(__func__, [] { jx::JXApplication::applicationDidEnterBackground(); });
}

jx_status jx_application_will_enter_foreground(void) {
  return perform(__func__, [] { jx::JXApplication::applicationWillEnterForeground(); });
}

jx_status jx_register_module(const char* name) {
  return perform(__func__, [&] { jx::JXClassRegistry::sharedInstance().registerClass(name); });
}

jx_status jx_unregister_module(const char* name) {
  return perform(__func__, [&] { jx::JXClassRegistry::sharedInstance().unregisterClass(name); });
}

jx_status jx_set_anonymous_id(const char* id) {
  return perform(__func__, [&] { jx::JXUser::sharedInstance().setAnonymous_id(id); });
}

jx_status jx_get_anonymous_id(char* buffer, size_t capacity, size_t* length) {
  return jx::c::call(__func__, [&] {
    return copyString(jx::JXUser::sharedInstance().anonymous_id(), buffer, capacity, length);
  });
}

jx_status jx_set_consent_id(const char* id) {
  return perform(__func__, [&] { jx::JXUser::sharedInstance().setConsentID(id); });
}

jx_status jx_use_legacy_unique_id_for_anonymous_id(void) {
  return perform(__func__, [] {
    jx::JXPredefinedVariables::sharedInstance().useLegacyUniqueIDForAnonymousID();
  });
}

jx_status jx_use_legacy_unique_id_for_consent_id(void) {
  return perform(__func__, [] {
    jx::JXPredefinedVariables::sharedInstance().useLegacyUniqueIDForConsentID();
  });
}

jx_status jx_block_add(uint32_t block, const char* key, const char* value) {
  return addToBlock(__func__, block, key, [&](JXJsonValue& read) {
    read = JXJsonValue(value);
    return Result(JX_OK);
  });
}

jx_status jx_block_add_json(uint32_t block, const char* key, const char* json) {
  return addToBlock(__func__, block, key,
                    [&](JXJsonValue& read) { return jx::c::readJson(json, read); });
}

jx_status jx_get_variable(const char* name, char* buffer, size_t capacity, size_t* length) {
  return jx::c::call(__func__, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    return copyString(jx::JXPredefinedVariables::sharedInstance().getData(name), buffer, capacity,
                      length);
  });
}

jx_status jx_set_variable(const char* name, const char* value) {
  return jx::c::call(__func__, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    jx::JXPredefinedVariables::sharedInstance().addData_withValue(name, value);
    return JX_OK;
  });
}

jx_status jx_get_core_variable(const char* name, char* buffer, size_t capacity, size_t* length) {
  return jx::c::call(__func__, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    return copyString(jx::JXCoreVariables::sharedInstance().getData(name), buffer, capacity,
                      length);
  });
}

jx_status jx_set_core_variable(const char* name, const char* value) {
  return jx::c::call(__func__, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    jx::JXCoreVariables::sharedInstance().addData_withValue(name, value);
    return JX_OK;
  });
}
