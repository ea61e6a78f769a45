// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "MobileConsent.h"

#include <fstream>
#include <random>
#include <sstream>
#include <utility>

#include "jx/JXServerSide.h"
#include "jx/core/notifications/JXEventSender.h"

namespace {

constexpr const char* kVersion = "2.1.0";

// The library checks for a consent module by this name. Registered before main, so that no
// ServerSide is created earlier.
[[maybe_unused]] const bool isRegistered = [] {
  jx::JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  return true;
}();

std::string randomId() {
  std::random_device random;
  std::ostringstream id;
  id << std::hex << random() << random();
  return id.str();
}

}  // namespace

MobileConsent::MobileConsent(std::string file) : file_(std::move(file)) {
  std::ifstream stored(file_);
  std::string word;
  stored >> word >> id_;
  if (word == "agreed") decision_ = Decision::Agreed;
  if (word == "refused") decision_ = Decision::Refused;
}

void MobileConsent::start() {
  jx::JXCoreVariables::sharedInstance().addData_withValue(jx::JX_ConsentVersion, kVersion);
  if (decision_ != Decision::Open) notifyLibrary();
}

void MobileConsent::agree() {
  if (decision_ != Decision::Agreed) id_ = randomId();
  decision_ = Decision::Agreed;
  save();
  notifyLibrary();
}

void MobileConsent::refuse() {
  id_.clear();
  decision_ = Decision::Refused;
  save();
  notifyLibrary();
}

void MobileConsent::notifyLibrary() const {
  jx::JXUser& user = jx::JXUser::sharedInstance();
  const bool agreed = decision_ == Decision::Agreed;
  // Set the ID first, so that no event is sent without it.
  user.setConsentID(agreed ? jx::JXString(id_) : jx::JXString());
  jx::JXJsonObject userInfo;
  if (agreed) userInfo.set(jx::kJXUserInfo_POSTData, user.getJsonObject());
  jx::JXEventSender::init()->send({agreed ? jx::kJXNotification_EnablingTheServerSide
                                          : jx::kJXNotification_StoppingTheServerSide,
                                   this, userInfo});
}

void MobileConsent::save() const {
  std::ofstream(file_) << (decision_ == Decision::Agreed ? "agreed " + id_ : "refused") << '\n';
}
