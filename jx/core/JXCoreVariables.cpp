// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreVariables.h"

#include <string>
#include <string_view>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogDeferral.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/storage/JXErasures.h"
#include "jx/core/transfer/JXNetworkManager.h"

namespace jx {
namespace {

// ID of this installation of the library, created at the first start and persisted.
JXString persistedSdkId() {
  JXString id = JXUserDefaults::retrieveInfoFromUserDefaults(kJXPredefinedVariable_SDKID);
  if (!id.testString()) {
    id = JXCoreServices::sharedInstance().newIdentifier();
    JXUserDefaults::saveInfoToUserDefaults_forLabel(id, kJXPredefinedVariable_SDKID);
  }
  return id;
}

}  // namespace

JXCoreVariables& JXCoreVariables::sharedInstance() {
  static JXOnce<JXCoreVariables> once;
  return once.get([] {
    const JXCoreCaller caller("JXCoreVariables::sharedInstance()");
    return new JXCoreVariables();
  });
}

JXCoreVariables::JXCoreVariables()
    : dynamicStore_(JXDynamicStore::init()),
      seenBeginnings_(JXCoreServices::sharedInstance().beginnings()) {
  dynamicStore_->addData_withValue(kJXPredefinedVariable_SDKID, persistedSdkId());
}

// Replaces the identifiers after the stored data was erased, and creates them when they may be
// stored. Other variables stay: the user agent,
// and what the application added.
void JXCoreVariables::renewIdentifiers() const {
  if (JXForkedChild::ignores("JXCoreVariables")) return;
  const std::uint64_t beginnings = JXCoreServices::sharedInstance().beginnings();
  if (beginnings == seenBeginnings_) return;
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(renewal_);
  if (beginnings == seenBeginnings_) return;
  for (const std::string_view name : {kJXPredefinedVariable_IDFA, kJXPredefinedVariable_IDFV,
                                      kJXPredefinedVariable_isTrackingEnabled}) {
    dynamicStore_->removeData(name);
  }
  dynamicStore_->addData_withValue(kJXPredefinedVariable_SDKID, persistedSdkId());
  seenBeginnings_ = beginnings;
}

JXString JXCoreVariables::getData(const JXString& key) const {
  renewIdentifiers();
  return dynamicStore_->getData(key).string();
}

void JXCoreVariables::addData_withValue(const JXString& key, const JXString& value) {
  renewIdentifiers();
  dynamicStore_->addData_withValue(key, value);
}

std::int64_t JXCoreVariables::nowMs() const {
  return JXCoreServices::sharedInstance().clock().nowMs();
}

std::chrono::system_clock::time_point JXCoreVariables::now() const {
  return std::chrono::system_clock::time_point(std::chrono::milliseconds(nowMs()));
}

JXString JXCoreVariables::nowMsString() const { return std::to_string(nowMs()); }

JXString JXCoreVariables::nowString() const {
  return std::to_string(
      std::chrono::floor<std::chrono::seconds>(std::chrono::milliseconds(nowMs())).count());
}

void JXCoreVariables::setEnableSDKInBG(bool enabled) {
  enableSDKInBG_ = enabled;
  JXNetworkManager::sharedInstance().setRunningInBackground(enabled);
}

void JXCoreVariables::setIDFV() {
  addData_withValue(kJXPredefinedVariable_IDFV,
                    JXCoreServices::sharedInstance().platform().vendorIdentifier());
}

}  // namespace jx
