// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <dlfcn.h>

#include <atomic>

namespace jx::soak {

/// The function of this name in the C library, or that of a sanitizer, for a program or a library
/// that defines a function of the same name. Constant-initialised, because such a function may be
/// called before any constructor.
template <class Result, class... Parameters>
class RealFunction {
 public:
  explicit constexpr RealFunction(const char* name) : name_(name) {}
  Result operator()(Parameters... parameters) {
    void* function = function_.load();
    if (function == nullptr) {
      function = dlsym(RTLD_NEXT, name_);
      function_.store(function);
    }
    return reinterpret_cast<Result (*)(Parameters...)>(function)(parameters...);
  }

 private:
  const char* const name_;
  std::atomic<void*> function_{nullptr};
};

}  // namespace jx::soak
