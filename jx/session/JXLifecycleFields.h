// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#pragma once

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXDynamicStore.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The fields of JXLifecycle. Thread-safe: the session's mutex guards them.
class JX_API JXLifecycleFields : public JXAdditionalProperties {
 public:
  /// A random UUID, created for each session.
  JXString sessionID() const { return JXSessionLock::read(sessionID_); }
  void setSessionID(const JXString& value) { JXSessionLock::write(sessionID_, value); }
  /// True for the first event of a session.
  bool isNewSession() const { return JXSessionLock::read(isNewSession_); }
  void setIsNewSession(bool value) { JXSessionLock::write(isNewSession_, value); }
  /// Time since the start of the visit, plus the usage time carried over from earlier processes, in
  /// ms. A decimal string.
  JXString sessionDuration() const { return JXSessionLock::read(sessionDuration_); }
  void setSessionDuration(const JXString& value) { JXSessionLock::write(sessionDuration_, value); }
  /// Start of the session, ms since the Unix epoch. A decimal string.
  JXString currentSession() const { return JXSessionLock::read(currentSession_); }
  void setCurrentSession(const JXString& value) { JXSessionLock::write(currentSession_, value); }
  /// Number of visits, including the current one. A decimal string.
  JXString visitNumber() const { return JXSessionLock::read(visitNumber_); }
  void setVisitNumber(const JXString& value) { JXSessionLock::write(visitNumber_, value); }
  /// Start of the visit, ms since the Unix epoch. A decimal string.
  JXString currentVisit() const { return JXSessionLock::read(currentVisit_); }
  void setCurrentVisit(const JXString& value) { JXSessionLock::write(currentVisit_, value); }
  /// First visit with this version of the application, ms since the Unix epoch. Null if no process
  /// has had a version. A decimal string.
  JXString currentVersionFirstVisit() const {
    return JXSessionLock::read(currentVersionFirstVisit_);
  }
  void setCurrentVersionFirstVisit(const JXString& value) {
    JXSessionLock::write(currentVersionFirstVisit_, value);
  }
  /// Number of sessions, including the current one. A decimal string.
  JXString sessionNumber() const { return JXSessionLock::read(sessionNumber_); }
  void setSessionNumber(const JXString& value) { JXSessionLock::write(sessionNumber_, value); }
  /// First visit of the installation: ms since the Unix epoch during that visit, seconds in all
  /// later visits. A decimal string.
  JXString firstVisit() const { return JXSessionLock::read(firstVisit_); }
  void setFirstVisit(const JXString& value) { JXSessionLock::write(firstVisit_, value); }
  /// Start of the last session of the previous visit, ms since the Unix epoch. In seconds if that
  /// session was the first one of the first visit. During the first visit: its own start, in ms. A
  /// decimal string.
  JXString lastVisit() const { return JXSessionLock::read(lastVisit_); }
  void setLastVisit(const JXString& value) { JXSessionLock::write(lastVisit_, value); }
  /// Time of the previous event, ms since the Unix epoch. For the first event of a process this is
  /// the last event of an earlier process, or the event's own time if there was none. A decimal
  /// string.
  JXString lastCall() const { return JXSessionLock::read(lastCall_); }
  void setLastCall(const JXString& value) { JXSessionLock::write(lastCall_, value); }
  /// Start of an earlier measured session, ms since the Unix epoch. The stored start becomes this
  /// value when a process starts more than 30 minutes after it; "0" until then. Sessions that begin
  /// on a return from the background do not change it. A decimal string.
  JXString lastSessionStart() const { return JXSessionLock::read(lastSessionStart_); }
  void setLastSessionStart(const JXString& value) {
    JXSessionLock::write(lastSessionStart_, value);
  }
  /// Last event of the previous session, ms since the Unix epoch. "0" in the first process of the
  /// installation; null in a later process if no earlier process executed an event. After a new
  /// session in the background: the last event of this process, or its start if there was none. A
  /// decimal string.
  JXString lastSessionLastHit() const { return JXSessionLock::read(lastSessionLastHit_); }
  void setLastSessionLastHit(const JXString& value) {
    JXSessionLock::write(lastSessionLastHit_, value);
  }
  /// Number of times that the application was in the foreground in this process, from 1. A decimal
  /// string.
  JXString foregroundTransitions() const { return JXSessionLock::read(foregroundTransitions_); }
  void setForegroundTransitions(const JXString& value) {
    JXSessionLock::write(foregroundTransitions_, value);
  }
  /// Time in the foreground in this process, ms. A decimal string.
  JXString foregroundTime() const { return JXSessionLock::read(foregroundTime_); }
  void setForegroundTime(const JXString& value) { JXSessionLock::write(foregroundTime_, value); }
  /// Time in the background in this process, ms. A decimal string.
  JXString backgroundTime() const { return JXSessionLock::read(backgroundTime_); }
  void setBackgroundTime(const JXString& value) { JXSessionLock::write(backgroundTime_, value); }
  /// True for the first event of the process.
  bool firstExecute() const { return JXSessionLock::read(firstExecute_); }
  void setFirstExecute(bool value) { JXSessionLock::write(firstExecute_, value); }
  /// True if no earlier process of this installation has stored the first visit of a version.
  bool isFirstVisit() const { return JXSessionLock::read(isFirstVisit_); }
  void setIsFirstVisit(bool value) { JXSessionLock::write(isFirstVisit_, value); }

 protected:
  JXLifecycleFields() : JXAdditionalProperties(Sharing::AnyThread) {}

  /// Copies the predefined variables to the fields. A string that is not a number leaves a number
  /// unchanged.
  void readVariables();
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString sessionID_;
  bool isNewSession_ = false;
  JXString sessionDuration_;
  JXString currentSession_;
  JXString visitNumber_;
  JXString currentVisit_;
  JXString currentVersionFirstVisit_;
  JXString sessionNumber_;
  JXString firstVisit_;
  JXString lastVisit_;
  JXString lastCall_;
  JXString lastSessionStart_;
  JXString lastSessionLastHit_;
  JXString foregroundTransitions_;
  JXString foregroundTime_;
  JXString backgroundTime_;
  bool firstExecute_ = false;
  bool isFirstVisit_ = false;

 private:
  JXDynamicStore::Place places_[18];  ///< of the variables in the store
};

}  // namespace jx
