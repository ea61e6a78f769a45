// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXSession.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonSink.h"

namespace jx {
namespace {

// Runs the start-up of `part` once and returns it.
template <typename Once, typename Part>
Part& started(Once& once, Part& part) {
  return once.get([&part] {
    part.init();
    return &part;
  });
}

}  // namespace

JXSession& JXSession::sharedInstance() {
  // Never destroyed: events may be executed while the process ends.
  static JXSession* const instance = new JXSession();
  return *instance;
}

JXPredefinedVariables& JXSession::variables() { return started(variablesStart_, variables_); }

JXDevice& JXSession::device() { return started(deviceStart_, device_); }

JXApp& JXSession::app() { return started(appStart_, app_); }

JXLifecycle& JXSession::lifecycle() { return started(lifecycleStart_, lifecycle_); }

void JXSession::writeContext(JXJsonSink& sink, JXNewSessionClaim* claim) {
  // Outside the lock: each part logs what its start-up reports.
  JXPredefinedVariables& variables = this->variables();
  JXDevice& device = this->device();
  JXApp& app = this->app();
  const JXSessionLock lock;
  if (claim != nullptr) variables.advance();
  device.refreshContent();
  if (claim != nullptr) lifecycle().setIsNewSession(claim->take());
  sink.block(JXD_DEVICE, device);
  app.refreshContent();
  sink.block(JXA_APP, app);
  sink.numberFromString(JX_EVENTTIMESTAMP, variables.frequent(JXPredefinedVariables::CurrentCall));
}

void JXSession::advance(JXNewSessionClaim& claim) {
  JXPredefinedVariables& variables = this->variables();
  const JXSessionLock lock;
  variables.advance();
  claim.take();
}

JXSessionLock::JXSessionLock() { JXSession::sharedInstance().mutex_.lock(); }

JXSessionLock::~JXSessionLock() { JXSession::sharedInstance().mutex_.unlock(); }

JXPredefinedVariables& JXPredefinedVariables::sharedInstance() {
  return JXSession::sharedInstance().variables();
}

JXDevice& JXDevice::sharedInstance() { return JXSession::sharedInstance().device(); }

JXApp& JXApp::sharedInstance() { return JXSession::sharedInstance().app(); }

JXLifecycle& JXLifecycle::sharedInstance() { return JXSession::sharedInstance().lifecycle(); }

JXNewSessionClaim::~JXNewSessionClaim() {
  if (session_) JXPredefinedVariables::sharedInstance().releaseNewSession(*session_, false);
}

bool JXNewSessionClaim::take() {
  session_ = JXPredefinedVariables::sharedInstance().claimNewSession();
  return session_.has_value();
}

void JXNewSessionClaim::keep() {
  if (!session_) return;
  JXPredefinedVariables::sharedInstance().releaseNewSession(*session_, true);
  session_.reset();
}

}  // namespace jx
