// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The lifecycle block inside the device block: visit, session and usage time of an event. Each
/// serialisation copies the predefined variables to the fields, which keep these values until the
/// next one. Use the block only on the thread that executes events.
class JX_API JXLifecycle final : public JXAdditionalProperties {
 public:
  /// Returns the shared block of this process.
  static JXLifecycle& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXLifecycle() = default;
  /// Returns this object on the first call in a process. Later calls never return, because a second
  /// lifecycle block must not exist. Returns null if the base class cannot be initialised.
  JXLifecycle* init();

  /// Copies the current variables into the fields.
  void refreshContent();
  /// Returns a new object with the current values. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

  /// True for the first event of the process.
  bool firstExecute() const { return firstExecute_; }
  void setFirstExecute(bool value) { firstExecute_ = value; }
  /// True if no earlier process of this installation has stored the first visit of a version.
  bool isFirstVisit() const { return isFirstVisit_; }
  void setIsFirstVisit(bool value) { isFirstVisit_ = value; }
  /// True for the first event of a session.
  bool isNewSession() const { return isNewSession_; }
  void setIsNewSession(bool value) { isNewSession_ = value; }
  /// A random UUID, created for each session.
  const JXString& sessionID() const { return sessionID_; }
  void setSessionID(const JXString& value) { sessionID_ = value; }
  // The following values are decimal strings.
  /// Time since the start of the visit, plus the usage time carried over from earlier processes, in
  /// ms.
  const JXString& sessionDuration() const { return sessionDuration_; }
  void setSessionDuration(const JXString& value) { sessionDuration_ = value; }
  /// Start of the session, ms since the Unix epoch.
  const JXString& currentSession() const { return currentSession_; }
  void setCurrentSession(const JXString& value) { currentSession_ = value; }
  /// Number of visits, including the current one.
  const JXString& visitNumber() const { return visitNumber_; }
  void setVisitNumber(const JXString& value) { visitNumber_ = value; }
  /// Start of the visit, ms since the Unix epoch.
  const JXString& currentVisit() const { return currentVisit_; }
  void setCurrentVisit(const JXString& value) { currentVisit_ = value; }
  /// First visit with this version of the application, ms since the Unix epoch. Null if no process
  /// has had a version.
  const JXString& currentVersionFirstVisit() const { return currentVersionFirstVisit_; }
  void setCurrentVersionFirstVisit(const JXString& value) { currentVersionFirstVisit_ = value; }
  /// Number of sessions, including the current one.
  const JXString& sessionNumber() const { return sessionNumber_; }
  void setSessionNumber(const JXString& value) { sessionNumber_ = value; }
  /// First visit of the installation: ms since the Unix epoch during that visit, seconds in all
  /// later visits.
  const JXString& firstVisit() const { return firstVisit_; }
  void setFirstVisit(const JXString& value) { firstVisit_ = value; }
  /// Start of the last session of the previous visit, ms since the Unix epoch. In seconds if that
  /// session was the first one of the first visit. During the first visit: its own start, in ms.
  const JXString& lastVisit() const { return lastVisit_; }
  void setLastVisit(const JXString& value) { lastVisit_ = value; }
  /// Time of the previous event, ms since the Unix epoch. For the first event of a process this is
  /// the last event of an earlier process, or the event's own time if there was none.
  const JXString& lastCall() const { return lastCall_; }
  void setLastCall(const JXString& value) { lastCall_ = value; }
  /// Start of an earlier measured session, ms since the Unix epoch. The stored start becomes this
  /// value when a process starts more than 30 minutes after it; "0" until then. Sessions that begin
  /// on a return from the background do not change it.
  const JXString& lastSessionStart() const { return lastSessionStart_; }
  void setLastSessionStart(const JXString& value) { lastSessionStart_ = value; }
  /// Last event of the previous session, ms since the Unix epoch. "0" in the first process of the
  /// installation; null in a later process if no earlier process executed an event. After a new
  /// session in the background: the last event of this process, or its start if there was none.
  const JXString& lastSessionLastHit() const { return lastSessionLastHit_; }
  void setLastSessionLastHit(const JXString& value) { lastSessionLastHit_ = value; }
  /// Number of times that the application was in the foreground in this process, from 1.
  const JXString& foregroundTransitions() const { return foregroundTransitions_; }
  void setForegroundTransitions(const JXString& value) { foregroundTransitions_ = value; }
  /// Time in the foreground in this process, ms.
  const JXString& foregroundTime() const { return foregroundTime_; }
  void setForegroundTime(const JXString& value) { foregroundTime_ = value; }
  /// Time in the background in this process, ms.
  const JXString& backgroundTime() const { return backgroundTime_; }
  void setBackgroundTime(const JXString& value) { backgroundTime_ = value; }

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
