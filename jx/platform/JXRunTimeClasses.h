// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>

namespace jx {

/// Classes that the run time of the system finds by name. Thread-safe.
class JXRunTimeClasses {
 public:
  JXRunTimeClasses() = delete;

  /// Returns whether a class with this name is loaded.
  using Lookup = bool (*)(const char* name);

  /// Sets the function that looks up a class. Without it there are no classes.
  static void setLookup(Lookup lookup) noexcept { lookup_ = lookup; }
  /// Returns whether the run time has a class with this name.
  static bool contains(const char* name) {
    const Lookup lookup = lookup_;
    return lookup != nullptr && lookup(name);
  }

 private:
  static inline std::atomic<Lookup> lookup_{nullptr};
};

}  // namespace jx
