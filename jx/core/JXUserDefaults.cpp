// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUserDefaults.h"

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"

namespace jx {

JXString JXUserDefaults::retrieveInfoFromUserDefaults(const JXString& key) {
  const JXCoreCaller caller("JXUserDefaults::retrieveInfoFromUserDefaults()");
  JXPlatformDefaults* const defaults = standardUserDefaults();
  return defaults != nullptr && key.isPresent() ? defaults->objectForKey(key) : JXString();
}

void JXUserDefaults::saveInfoToUserDefaults_forLabel(const JXString& value, const JXString& label) {
  const JXCoreCaller caller("JXUserDefaults::saveInfoToUserDefaults_forLabel()");
  JXPlatformDefaults* const defaults = standardUserDefaults();
  if (defaults == nullptr || !label.isPresent()) return;
  defaults->setObject_forKey(value, label);
  JXCoreServices::sharedInstance().userDefaultsChanged();
}

JXUserDefaults::Changes::Changes() : defaults_(standardUserDefaults()) {
  if (defaults_ != nullptr) defaults_->beginChanges();
}

JXUserDefaults::Changes::~Changes() {
  try {
    if (defaults_ != nullptr) defaults_->endChanges();
  } catch (...) {
    // Out of memory. The store keeps the values and writes them at its next maintenance.
  }
}

JXPlatformDefaults* JXUserDefaults::standardUserDefaults() {
  // Its values may be locked by a thread of the parent.
  if (JXForkedChild::ignores("JXUserDefaults")) return nullptr;
  return JXCoreServices::sharedInstance().userDefaults();
}

}  // namespace jx
