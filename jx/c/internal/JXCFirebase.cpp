// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/c/internal/JXCFirebase.h"

#include <string>

#include "jx/c/internal/JXCall.h"

namespace jx::c {
namespace {

constexpr std::string_view kSetDefaultEventParameters = "setDefaultEventParameters:parameters:";
constexpr std::string_view kLogEvent = "logEventWithName:parameters:";

}  // namespace

JXCFirebase::~JXCFirebase() {
  if (isReleaseEnabled_ && table_.release != nullptr) table_.release(table_.context);
}

bool JXCFirebase::respondsToOperation(std::string_view operation) {
  if (operation == kSetDefaultEventParameters) return table_.set_default_parameter != nullptr;
  return operation == kLogEvent && table_.log_event != nullptr;
}

void JXCFirebase::performOperation(std::string_view operation, const JXJsonValue& first,
                                   const JXJsonValue& second) {
  const JXString string = first.string();
  // `c_str` of a null string is "".
  const char* const name = string.isPresent() ? string.c_str() : nullptr;
  if (operation == kSetDefaultEventParameters) {
    table_.set_default_parameter(table_.context, name, second.string().c_str());
  } else {
    table_.log_event(table_.context, name, jsonText(second).c_str());
  }
}

}  // namespace jx::c
