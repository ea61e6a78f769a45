// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue by scripts/catalogue. Do not edit.
#include "jx/catalogue/JXContextBlocks.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"

namespace jx {
namespace {

using Kind = JXJsonValue::Kind;

const JXContextBlock& userBlock() {
  static const auto& block = *new JXContextBlock{JXE_USER,
                                                 {
                                                     {"anonymous_id", Kind::String, true, nullptr},
                                                     {"consent_id", Kind::String, false, nullptr},
                                                 },
                                                 JX_WAITING_FOR_CONSENT};
  return block;
}

const JXContextBlock& appBlock() {
  static const auto& block =
      *new JXContextBlock{JXA_APP,
                          {
                              {JXA_NAME, Kind::String, false, nullptr},
                              {JXA_VERSION, Kind::String, false, nullptr},
                              {JXA_BUILD, Kind::String, false, nullptr},
                              {JXA_NAMESPACE, Kind::String, false, nullptr},
                              {JXA_SERVERSIDEVERSION, Kind::String, false, nullptr},
                              {JXA_COREVERSION, Kind::String, false, nullptr},
                              {JXA_CONSENTVERSION, Kind::String, false, nullptr},
                          }};
  return block;
}

const JXContextBlock& lifecycleBlock() {
  static const auto& block =
      *new JXContextBlock{JXL_LIFECYCLE,
                          {
                              {JXL_SESSION_ID, Kind::String, true, nullptr},
                              {JXL_NEW_SESSION, Kind::Bool, true, nullptr},
                              {JXL_SESSION_DURATION, Kind::Number, false, nullptr},
                              {JXL_CURRENT_SESSION, Kind::Number, false, nullptr},
                              {JXL_VISIT_NUMBER, Kind::Number, false, nullptr},
                              {JXL_CURRENT_VISIT, Kind::Number, false, nullptr},
                              {JXL_CUR_VER_FIRST_VISIT, Kind::Number, false, nullptr},
                              {JXL_SESSION_NUMBER, Kind::Number, false, nullptr},
                              {JXL_FIRST_VISIT, Kind::Number, false, nullptr},
                              {JXL_LAST_VISIT, Kind::Number, false, nullptr},
                              {JXL_LAST_CALL, Kind::Number, false, nullptr},
                              {JXL_LAST_SESSION_START, Kind::Number, false, nullptr},
                              {JXL_LAST_SESSION_LAST_HIT, Kind::Number, false, nullptr},
                              {JXL_FOREGROUND_TRANSITIONS, Kind::Number, false, nullptr},
                              {JXL_FOREGROUND_TIME, Kind::Number, false, nullptr},
                              {JXL_BACKGROUND_TIME, Kind::Number, false, nullptr},
                              {JXL_FIRST_EXECUTE, Kind::Bool, true, nullptr},
                              {JXL_IS_FIRST_VISIT, Kind::Bool, true, nullptr},
                          }};
  return block;
}

const JXContextBlock& screenBlock() {
  static const auto& block =
      *new JXContextBlock{JXD_SCREEN,
                          {
                              {JXD_SCREEN_HEIGHT, Kind::Number, false, nullptr},
                              {JXD_SCREEN_WIDTH, Kind::Number, false, nullptr},
                          }};
  return block;
}

const JXContextBlock& osBlock() {
  static const auto& block = *new JXContextBlock{JXD_OS,
                                                 {
                                                     {JXD_OS_NAME, Kind::String, false, nullptr},
                                                     {JXD_OS_VERSION, Kind::String, false, nullptr},
                                                 }};
  return block;
}

const JXContextBlock& networkBlock() {
  static const auto& block =
      *new JXContextBlock{JXD_NETWORK,
                          {
                              {"connection_type", Kind::String, false, nullptr},
                          }};
  return block;
}

const JXContextBlock& deviceBlock() {
  static const auto& block =
      *new JXContextBlock{JXD_DEVICE,
                          {
                              {JXD_ADTRACKING, Kind::Bool, false, nullptr},
                              {JXD_USER_AGENT, Kind::String, false, nullptr},
                              {JXD_IDFA, Kind::String, false, nullptr},
                              {JXD_IDFV, Kind::String, false, nullptr},
                              {JXD_SDK_ID, Kind::String, false, nullptr},
                              {JXD_LANGUAGE, Kind::String, false, nullptr},
                              {JXD_REGION, Kind::String, false, nullptr},
                              {JXD_MANUFACTURER, Kind::String, false, nullptr},
                              {JXD_MODEL, Kind::String, false, nullptr},
                              {JXD_NAME, Kind::String, false, nullptr},
                              {JXD_TYPE, Kind::String, false, nullptr},
                              {JXD_NETWORK, Kind::Object, true, &networkBlock()},
                              {JXD_OS, Kind::Object, true, &osBlock()},
                              {JXD_SCREEN, Kind::Object, true, &screenBlock()},
                              {JXD_TIMEZONE, Kind::String, false, nullptr},
                              {JXL_LIFECYCLE, Kind::Object, true, &lifecycleBlock()},
                          }};
  return block;
}

const JXContextBlock& contextBlock() {
  static const auto& block =
      *new JXContextBlock{JXE_CONTEXT,
                          {
                              {JXE_EVENTID, Kind::String, true, nullptr},
                              {JXD_DEVICE, Kind::Object, true, &deviceBlock()},
                              {JXA_APP, Kind::Object, true, &appBlock()},
                              {JX_EVENTTIMESTAMP, Kind::Number, true, nullptr},
                          }};
  return block;
}

}  // namespace

const std::vector<const JXContextBlock*>& topLevelContextBlocks() {
  static const auto& blocks =
      *new std::vector<const JXContextBlock*>{&contextBlock(), &userBlock()};
  return blocks;
}

}  // namespace jx
