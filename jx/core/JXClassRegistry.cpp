// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXClassRegistry.h"

#include "jx/core/JXForkedChild.h"
#include "jx/platform/JXRunTimeClasses.h"

namespace jx {
JXClassRegistry& JXClassRegistry::sharedInstance() {
  static JXClassRegistry* const instance = new JXClassRegistry();
  return *instance;
}

void JXClassRegistry::registerClass(const JXString& name) {
  if (!name.testString() || JXForkedChild::ignores("JXClassRegistry")) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  names_.insert(name.toStdString());
}

void JXClassRegistry::unregisterClass(const JXString& name) {
  if (JXForkedChild::ignores("JXClassRegistry")) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  names_.erase(name.toStdString());
}

bool JXClassRegistry::hasClass(const JXString& name) const {
  if (JXForkedChild::ignores("JXClassRegistry")) return false;
  const std::string wanted = name.toStdString();
  if (wanted.empty()) return false;
  {
    const std::lock_guard<std::mutex> lock(mutex_);
    if (names_.count(wanted) != 0) return true;
  }
  return JXRunTimeClasses::contains(wanted.c_str());
}

}  // namespace jx
