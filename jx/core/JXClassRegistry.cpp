// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXClassRegistry.h"

namespace jx {

JXClassRegistry& JXClassRegistry::sharedInstance() {
  static JXClassRegistry* const instance = new JXClassRegistry();
  return *instance;
}

void JXClassRegistry::registerClass(const JXString& name) {
  if (!name.testString()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  names_.insert(name.toStdString());
}

void JXClassRegistry::unregisterClass(const JXString& name) {
  const std::lock_guard<std::mutex> lock(mutex_);
  names_.erase(name.toStdString());
}

bool JXClassRegistry::hasClass(const JXString& name) const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return name.isPresent() && names_.count(name.toStdString()) != 0;
}

}  // namespace jx
