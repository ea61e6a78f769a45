// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>
#include <string_view>

#include "AnalyticsRecorder.h"
#include "jx/facade/IJXFirebaseInstance.h"

// Implemented by an application that mirrors its events. The library calls operations by name, and
// this object forwards the calls to the analytics object.
class FirebaseBridge final : public jx::IJXFirebaseInstance {
 public:
  explicit FirebaseBridge(std::shared_ptr<AnalyticsRecorder> analytics);

  bool respondsToOperation(std::string_view operation) override;
  void performOperation(std::string_view operation, const jx::JXJsonValue& first,
                        const jx::JXJsonValue& second) override;

 private:
  std::shared_ptr<AnalyticsRecorder> analytics_;
};
