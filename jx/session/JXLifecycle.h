// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The lifecycle block inside the device block: visit, session and usage time of an event. Each
/// serialisation copies the predefined variables to the fields, which keep these values until the
/// next one. Thread-safe.
class JX_API JXLifecycle final : public JXAdditionalProperties {
 public:
  /// Returns the shared block of this process.
  static JXLifecycle& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXLifecycle() : JXAdditionalProperties(Sharing::AnyThread) {}
  /// Returns this object on the first call in a process. Later calls never return, because a second
  /// lifecycle block must not exist. Returns null if the base class cannot be initialised.
  JXLifecycle* init();

  /// Copies the current variables into the fields.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

  /// True for the first event of the process.
  bool firstExecute() const { return JXSessionLock::read(firstExecute_); }
  void setFirstExecute(bool value) { JXSessionLock::write(firstExecute_, value); }
  /// True if no earlier process of this installation has stored the first visit of a version.
  bool isFirstVisit() const { return JXSessionLock::read(isFirstVisit_); }
  void setIsFirstVisit(bool value) { JXSessionLock::write(isFirstVisit_, value); }
  /// True for the first event of a session.
  bool isNewSession() const { return JXSessionLock::read(isNewSession_); }
  void setIsNewSession(bool value) { JXSessionLock::write(isNewSession_, value); }
  /// A random UUID, created for each session.
  JXString sessionID() const { return JXSessionLock::read(sessionID_); }
  void setSessionID(const JXString& value) { JXSessionLock::write(sessionID_, value); }
  // The following values are decimal strings.
  /// Time since the start of the visit, plus the usage time carried over from earlier processes, in
  /// ms.
  JXString sessionDuration() const { return JXSessionLock::read(sessionDuration_); }
  void setSessionDuration(const JXString& value) { JXSessionLock::write(sessionDuration_, value); }
  /// Start of the session, ms since the Unix epoch.
  JXString currentSession() const { return JXSessionLock::read(currentSession_); }
  void setCurrentSession(const JXString& value) { JXSessionLock::write(currentSession_, value); }
  /// Number of visits, including the current one.
  JXString visitNumber() const { return JXSessionLock::read(visitNumber_); }
  void setVisitNumber(const JXString& value) { JXSessionLock::write(visitNumber_, value); }
  /// Start of the visit, ms since the Unix epoch.
  JXString currentVisit() const { return JXSessionLock::read(currentVisit_); }
  void setCurrentVisit(const JXString& value) { JXSessionLock::write(currentVisit_, value); }
  /// First visit with this version of the application, ms since the Unix epoch. Null if no process
  /// has had a version.
  JXString currentVersionFirstVisit() const {
    return JXSessionLock::read(currentVersionFirstVisit_);
  }
  void setCurrentVersionFirstVisit(const JXString& value) {
    JXSessionLock::write(currentVersionFirstVisit_, value);
  }
  /// Number of sessions, including the current one.
  JXString sessionNumber() const { return JXSessionLock::read(sessionNumber_); }
  void setSessionNumber(const JXString& value) { JXSessionLock::write(sessionNumber_, value); }
  /// First visit of the installation: ms since the Unix epoch during that visit, seconds in all
  /// later visits.
  JXString firstVisit() const { return JXSessionLock::read(firstVisit_); }
  void setFirstVisit(const JXString& value) { JXSessionLock::write(firstVisit_, value); }
  /// Start of the last session of the previous visit, ms since the Unix epoch. In seconds if that
  /// session was the first one of the first visit. During the first visit: its own start, in ms.
  JXString lastVisit() const { return JXSessionLock::read(lastVisit_); }
  void setLastVisit(const JXString& value) { JXSessionLock::write(lastVisit_, value); }
  /// Time of the previous event, ms since the Unix epoch. For the first event of a process this is
  /// the last event of an earlier process, or the event's own time if there was none.
  JXString lastCall() const { return JXSessionLock::read(lastCall_); }
  void setLastCall(const JXString& value) { JXSessionLock::write(lastCall_, value); }
  /// Start of an earlier measured session, ms since the Unix epoch. The stored start becomes this
  /// value when a process starts more than 30 minutes after it; "0" until then. Sessions that begin
  /// on a return from the background do not change it.
  JXString lastSessionStart() const { return JXSessionLock::read(lastSessionStart_); }
  void setLastSessionStart(const JXString& value) {
    JXSessionLock::write(lastSessionStart_, value);
  }
  /// Last event of the previous session, ms since the Unix epoch. "0" in the first process of the
  /// installation; null in a later process if no earlier process executed an event. After a new
  /// session in the background: the last event of this process, or its start if there was none.
  JXString lastSessionLastHit() const { return JXSessionLock::read(lastSessionLastHit_); }
  void setLastSessionLastHit(const JXString& value) {
    JXSessionLock::write(lastSessionLastHit_, value);
  }
  /// Number of times that the application was in the foreground in this process, from 1.
  JXString foregroundTransitions() const { return JXSessionLock::read(foregroundTransitions_); }
  void setForegroundTransitions(const JXString& value) {
    JXSessionLock::write(foregroundTransitions_, value);
  }
  /// Time in the foreground in this process, ms.
  JXString foregroundTime() const { return JXSessionLock::read(foregroundTime_); }
  void setForegroundTime(const JXString& value) { JXSessionLock::write(foregroundTime_, value); }
  /// Time in the background in this process, ms.
  JXString backgroundTime() const { return JXSessionLock::read(backgroundTime_); }
  void setBackgroundTime(const JXString& value) { JXSessionLock::write(backgroundTime_, value); }

 private:
  void writeOwnEntries(JXJsonSink& sink) const override;

  static constexpr std::size_t kVariables = 18;

  std::size_t places_[kVariables] = {};  ///< positions of the variables in the store
  bool firstExecute_ = false;
  bool isFirstVisit_ = false;
  bool isNewSession_ = false;
  JXString sessionID_;
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
};

}  // namespace jx
