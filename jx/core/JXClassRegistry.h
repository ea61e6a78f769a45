// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <mutex>
#include <set>
#include <string>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Names of the optional modules in this process. A module in C or C++ registers itself before the
/// first `ServerSide` is created, ideally while its static objects are constructed. A module that
/// is a class of Objective-C need not: it is found by the name of its class. Thread-safe; never
/// destroyed.
class JX_API JXClassRegistry {
 public:
  /// Returns the registry of this process.
  static JXClassRegistry& sharedInstance();

  /// Registers `name`; a null or empty name is ignored.
  void registerClass(const JXString& name);
  /// Removes `name`; a name that is not registered is ignored.
  void unregisterClass(const JXString& name);
  /// Returns whether `name` is registered, or is the name of a class of Objective-C.
  bool hasClass(const JXString& name) const;

 private:
  JXClassRegistry() = default;

  mutable std::mutex mutex_;
  std::set<std::string> names_;
};

}  // namespace jx
