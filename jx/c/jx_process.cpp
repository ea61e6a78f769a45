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

using jx::c::Form;
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

jx_status addToBlock(const char* operation, uint32_t block, const char* key, const char* value,
                     Form form) {
  return jx::c::call(operation, [&]() -> Result {
    if (key == nullptr) return {JX_ERROR_NULL_ARGUMENT, "key must not be null"};
    jx::JXAdditionalProperties* const properties = blockOf(block);
    if (properties == nullptr)
      return {JX_ERROR_UNKNOWN_ENUMERATOR, std::to_string(block) + " is not a jx_block"};
    return jx::c::readEntry(key, value, form, [&](const jx::JXJsonValue& read) {
      jx::JXJsonObject entries;
      entries.set(key, read);
      properties->addAdditionalProperty(entries);
    });
  });
}

Result copyString(const jx::JXString& string, char* buffer, size_t capacity, size_t* length) {
  if (!string.isPresent()) return JX_ERROR_NOT_SET;
  return jx::c::copyOut(string.toStdString(), buffer, capacity, length);
}

template <typename Variables>
jx_status getVariable(const char* operation, const char* name, char* buffer, size_t capacity,
                      size_t* length) {
  return jx::c::call(operation, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    return copyString(Variables::sharedInstance().getData(name), buffer, capacity, length);
  });
}

template <typename Variables>
jx_status setVariable(const char* operation, const char* name, const char* value) {
  return jx::c::call(operation, [&]() -> Result {
    if (name == nullptr) return JX_ERROR_NULL_ARGUMENT;
    Variables::sharedInstance().addData_withValue(name, value);
    return JX_OK;
  });
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
  return addToBlock(__func__, block, key, value, Form::String);
}

jx_status jx_block_add_json(uint32_t block, const char* key, const char* json) {
  return addToBlock(__func__, block, key, json, Form::Json);
}

jx_status jx_get_variable(const char* name, char* buffer, size_t capacity, size_t* length) {
  return getVariable<jx::JXPredefinedVariables>(__func__, name, buffer, capacity, length);
}

jx_status jx_set_variable(const char* name, const char* value) {
  return setVariable<jx::JXPredefinedVariables>(__func__, name, value);
}

jx_status jx_get_core_variable(const char* name, char* buffer, size_t capacity, size_t* length) {
  return getVariable<jx::JXCoreVariables>(__func__, name, buffer, capacity, length);
}

jx_status jx_set_core_variable(const char* name, const char* value) {
  return setVariable<jx::JXCoreVariables>(__func__, name, value);
}
