// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/c/jx_server_side.h"
#include "jx/facade/IJXFirebaseInstance.h"

namespace jx::c {

/// Brings the operations that the library performs on a Firebase instance to a C host's table.
/// Tells the host when it ends.
class JXCFirebase final : public IJXFirebaseInstance {
 public:
  explicit JXCFirebase(const jx_firebase& table) : table_(table) {}
  ~JXCFirebase() override;
  JXCFirebase(const JXCFirebase&) = delete;
  JXCFirebase& operator=(const JXCFirebase&) = delete;

  bool respondsToOperation(std::string_view operation) override;
  void performOperation(std::string_view operation, const JXJsonValue& first,
                        const JXJsonValue& second) override;
  /// From now on the host is told of the end.
  void own() { isOwned_ = true; }

 private:
  const jx_firebase table_;
  bool isOwned_ = false;
};

}  // namespace jx::c
