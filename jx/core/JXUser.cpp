// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"

#include <utility>

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/core/storage/JXErasures.h"

namespace jx {
namespace {

constexpr std::string_view kAnonymousIdKey = "#JX_ANONYMOUS_ID#";

}  // namespace

JXUser& JXUser::sharedInstance() {
  static JXOnce<JXUser> once;
  return once.get([] { return new JXUser(); });
}

JXUser::JXUser() : JXAdditionalProperties(Sharing::AnyThread) {}

JXJsonObject JXUser::getJsonObject() const {
  const JXCoreCaller caller("JXUser::getJsonObject()");
  return newJsonObject();
}

void JXUser::writeOwnEntries(JXJsonSink& sink) const {
  sink.text("anonymous_id", anonymous_id());
  sink.text("consent_id", consentID());
}

JXString JXUser::anonymous_id() const {
  if (JXForkedChild::ignores("JXUser::anonymous_id()")) return nullptr;
  const JXCoreCaller caller("JXUser::anonymous_id()");
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  const JXCoreServices& services = JXCoreServices::sharedInstance();
  const std::uint64_t beginnings = services.beginnings();
  const bool isNew = std::exchange(seenBeginnings_, beginnings) != beginnings;
  if (isUnsaved_ && services.mayStore()) {
    JXUserDefaults::saveInfoToUserDefaults_forLabel(anonymousId_, kAnonymousIdKey);
    isUnsaved_ = false;
  } else if (isNew) {
    anonymousId_ = nullptr;
  }
  // Read when it is first needed and not when the object is created: a consent module may set its
  // identifier before the application has set the configuration.
  if (!anonymousId_.testString()) {
    anonymousId_ = JXUserDefaults::retrieveInfoFromUserDefaults(kAnonymousIdKey);
  }
  if (!anonymousId_.testString()) {
    anonymousId_ = services.newIdentifier();
    JXUserDefaults::saveInfoToUserDefaults_forLabel(anonymousId_, kAnonymousIdKey);
  }
  return anonymousId_;
}

void JXUser::setAnonymous_id(const JXString& id) {
  if (!id.testString() || JXForkedChild::ignores("JXUser::setAnonymous_id()")) return;
  const JXCoreCaller caller("JXUser::setAnonymous_id()");
  const JXLogDeferral deferral;
  const std::lock_guard<std::mutex> lock(mutex_);
  JXCoreServices& services = JXCoreServices::sharedInstance();
  services.erasures().check();  // an erase that is noticed later would erase this ID
  seenBeginnings_ = services.beginnings();
  isUnsaved_ = !services.mayStore();
  anonymousId_ = id;
  JXUserDefaults::saveInfoToUserDefaults_forLabel(id, kAnonymousIdKey);
}

JXString JXUser::consentID() const {
  if (JXForkedChild::ignores("JXUser::consentID()")) return nullptr;
  const std::lock_guard<std::mutex> lock(mutex_);
  return consentId_;
}

void JXUser::setConsentID(const JXString& id) {
  if (JXForkedChild::ignores("JXUser::setConsentID()")) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  consentId_ = id;
}

}  // namespace jx
