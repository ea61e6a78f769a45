// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/c/jx_server_side.h"
#include "jx/facade/IJXFirebaseInstance.h"

namespace jx::c {

/// Forwards the library's calls of a Firebase instance to the function table of a C application.
/// The destructor calls `release`, if `enableRelease` was called.
class JXCFirebase final : public IJXFirebaseInstance {
 public:
  explicit JXCFirebase(const jx_firebase& table) : table_(table) {}
  ~JXCFirebase() override;
  JXCFirebase(const JXCFirebase&) = delete;
  JXCFirebase& operator=(const JXCFirebase&) = delete;

  bool respondsToOperation(std::string_view operation) override;
  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override;
  void enableRelease() { isReleaseEnabled_ = true; }

 private:
  const jx_firebase table_;
  bool isReleaseEnabled_ = false;
};

}  // namespace jx::c
