// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "FirebaseBridge.h"

#include <string>
#include <utility>

#include "jx/core/json/JXJsonWriter.h"

namespace {

// Called once, when the ServerSide is created, with the name and value of a parameter.
constexpr std::string_view kSetDefault = "setDefaultEventParameters:parameters:";
// Called for each event, with its name and parameters.
constexpr std::string_view kLogEvent = "logEventWithName:parameters:";

}  // namespace

FirebaseBridge::FirebaseBridge(std::shared_ptr<AnalyticsRecorder> analytics)
    : analytics_(std::move(analytics)) {}

bool FirebaseBridge::respondsToOperation(std::string_view operation) {
  return operation == kSetDefault || operation == kLogEvent;
}

void FirebaseBridge::performOperation(std::string_view operation, const jx::JXJsonValue& first,
                                      const jx::JXJsonValue& second) {
  const std::string name = first.string().toStdString();
  if (operation == kSetDefault) {
    analytics_->setDefaultParameter(name, second.string().toStdString());
  } else if (operation == kLogEvent) {
    // The parameters are flat: a real bridge passes on each of second.object().entries().
    analytics_->logEvent(name,
                         jx::JXJsonWriter::write(second.object(), jx::JXJsonStyle::Pretty).text);
  }
}
