// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXSession.h"

#include <utility>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXSpinning.h"
#include "jx/core/json/JXJsonSink.h"
#include "jx/core/storage/JXErasures.h"

namespace jx {
namespace {

// The locks of this thread: an event locks the session more than ten times.
thread_local int sessionLocks = 0;

// Runs the start-up of `part` once and returns it. `operation` names it as the start of the core.
template <typename Once, typename Part>
Part& started(Once& once, Part& part, const char* operation) {
  return once.get([&part, operation] {
    const JXCoreCaller caller(operation);
    part.init();
    return &part;
  });
}

}  // namespace

JXSession::JXSession() { JXForkedChild::keepConsistent(mutex_); }

JXSession& JXSession::sharedInstance() {
  // Never destroyed: events may be executed while the process ends.
  static JXSession* const instance = new JXSession();
  return *instance;
}

JXPredefinedVariables& JXSession::variables() {
  renewIfErased();
  return started(variablesStart_, variables_, "JXPredefinedVariables::sharedInstance()");
}

JXDevice& JXSession::device() {
  renewIfErased();
  return started(deviceStart_, device_, "JXDevice::sharedInstance()");
}

JXApp& JXSession::app() { return started(appStart_, app_, "JXApp::sharedInstance()"); }

JXLifecycle& JXSession::lifecycle() {
  renewIfErased();
  return started(lifecycleStart_, lifecycle_, "JXLifecycle::sharedInstance()");
}

bool JXSession::renewIfErased() {
  // Nothing was read before the core started.
  if (!JXCoreServices::hasStarted()) return false;
  const std::uint64_t beginnings = JXCoreServices::sharedInstance().beginnings();
  if (beginnings == seenBeginnings_) return false;
  const JXSessionLock lock;
  // Set first, because the steps use the session.
  if (seenBeginnings_.exchange(beginnings) == beginnings) return false;
  forget();
  variables_.beginFirstVisit();
  // An application may have removed it from the device block.
  const bool beginsStoring =
      JXCoreServices::sharedInstance().beganLater() && !std::exchange(hasBegunLater_, true);
  if (device_.sdkID().isPresent() || beginsStoring) {
    device_.setSdkID(JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_SDKID));
  }
  return true;
}

void JXSession::forgetErased() {
  const JXSessionLock lock;
  if (JXCoreServices::sharedInstance().beginnings() != seenBeginnings_) forget();
}

void JXSession::forget() {
  const JXSessionLock lock;
  variables_.forgetStoredData();
  if (device_.sdkID().isPresent()) device_.setSdkID("");
  device_.setIDFA(nullptr);
  device_.setIDFV(nullptr);
  device_.setAdTrackingEnabled(nullptr);
}

void JXSession::writeContext(JXJsonSink& sink, JXNewSessionClaim* claim) {
  // Outside the lock: each part logs what its start-up reports.
  JXPredefinedVariables& variables = this->variables();
  JXDevice& device = this->device();
  JXApp& app = this->app();
  const JXSessionLock lock;
  if (claim != nullptr) advance(variables);
  device.refreshContent();
  if (claim != nullptr) lifecycle().setIsNewSession(claim->take());
  sink.block(JXD_DEVICE, device);
  app.refreshContent();
  sink.block(JXA_APP, app);
  sink.numberFromString(JX_EVENTTIMESTAMP, variables.currentCall());
}

void JXSession::advance(JXNewSessionClaim& claim) {
  JXPredefinedVariables& variables = this->variables();
  const JXSessionLock lock;
  advance(variables);
  claim.take();
}

// Storing the times notices an erase by another process, without a further system call for each
// event. The body contains no identifier and no count yet.
void JXSession::advance(JXPredefinedVariables& variables) {
  variables.advance();
  if (!renewIfErased()) return;
  variables.advance();
  JXErasureScope::restart(JXCoreServices::sharedInstance().erasures());
}

JXSessionLock::JXSessionLock() {
  if (sessionLocks == 0) lockSpinning(JXSession::sharedInstance().mutex_);
  ++sessionLocks;
}

JXSessionLock::~JXSessionLock() {
  if (--sessionLocks == 0) JXSession::sharedInstance().mutex_.unlock();
}

JXPredefinedVariables& JXPredefinedVariables::sharedInstance() {
  return JXSession::sharedInstance().variables();
}

JXDevice& JXDevice::sharedInstance() { return JXSession::sharedInstance().device(); }

JXApp& JXApp::sharedInstance() { return JXSession::sharedInstance().app(); }

JXLifecycle& JXLifecycle::sharedInstance() { return JXSession::sharedInstance().lifecycle(); }

JXNewSessionClaim::JXNewSessionClaim() : erasures_(JXCoreServices::sharedInstance().erasures()) {
  JXSession::sharedInstance().renewIfErased();
}

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
