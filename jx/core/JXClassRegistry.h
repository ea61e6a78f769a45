// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <set>
#include <string>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Names of optional modules that are present in this process: what a look-up of a class by its
/// name is on systems that have one. A module registers itself before the first `ServerSide` is
/// made, best while its static objects are constructed. Thread-safe; never destroyed.
class JX_API JXClassRegistry {
 public:
  /// The one registry of this process.
  static JXClassRegistry& sharedInstance();

  /// An absent or empty name is ignored.
  void registerClass(const JXString& name);
  /// Takes the name out; one that is not there is ignored.
  void unregisterClass(const JXString& name);
  /// True when the name is registered.
  bool hasClass(const JXString& name) const;

 private:
  JXClassRegistry() = default;

  mutable std::mutex mutex_;
  std::set<std::string> names_;
};

}  // namespace jx
