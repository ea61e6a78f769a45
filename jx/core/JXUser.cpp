// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXUser.h"

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/json/JXJsonSink.h"

namespace jx {
namespace {

constexpr std::string_view kAnonymousIdKey = "#JX_ANONYMOUS_ID#";

}  // namespace

JXUser& JXUser::sharedInstance() {
  static JXUser* const instance = new JXUser();
  return *instance;
}

JXUser::JXUser() {
  anonymousId_ = JXUserDefaults::retrieveInfoFromUserDefaults(kAnonymousIdKey);
  if (!anonymousId_.testString()) {
    setAnonymous_id(JXCoreServices::sharedInstance().platform().newUUID());
  }
}

JXJsonObject JXUser::getJsonObject() const { return newJsonObject(); }

void JXUser::writeOwnEntries(JXJsonSink& sink) const {
  sink.text("anonymous_id", anonymous_id());
  sink.text("consent_id", consentID());
}

JXString JXUser::anonymous_id() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return anonymousId_;
}

void JXUser::setAnonymous_id(const JXString& id) {
  if (!id.testString()) return;
  const std::lock_guard<std::mutex> lock(mutex_);
  anonymousId_ = id;
  JXUserDefaults::saveInfoToUserDefaults_forLabel(id, kAnonymousIdKey);
}

JXString JXUser::consentID() const {
  const std::lock_guard<std::mutex> lock(mutex_);
  return consentId_;
}

void JXUser::setConsentID(const JXString& id) {
  const std::lock_guard<std::mutex> lock(mutex_);
  consentId_ = id;
}

}  // namespace jx
