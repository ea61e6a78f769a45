// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The lifecycle block inside the device block: where an event stands in the life of the
/// installation. Copies the predefined variables each time it is serialised; between two times its
/// fields keep what was copied last. Belongs to the thread that executes events.
class JX_API JXLifecycle final : public JXAdditionalProperties {
 public:
  /// The one block of this process.
  static JXLifecycle& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXLifecycle() = default;
  /// Returns this object the first time that it is called in a process, and never returns after
  /// that: a second lifecycle block must not exist.
  JXLifecycle* init();

  /// Copies the current variables into the fields.
  void refreshContent();
  /// A new object with the current values; the host's additional properties come first.
  JXJsonObject getJsonObject();

  /// True for the first event of the process.
  bool firstExecute() const { return firstExecute_; }
  void setFirstExecute(bool value) { firstExecute_ = value; }
  /// True when no earlier process of this installation stored the first visit of a version.
  bool isFirstVisit() const { return isFirstVisit_; }
  void setIsFirstVisit(bool value) { isFirstVisit_ = value; }
  /// True for the first event of a session.
  bool isNewSession() const { return isNewSession_; }
  void setIsNewSession(bool value) { isNewSession_ = value; }
  /// A random UUID, made anew for each session.
  const JXString& sessionID() const { return sessionID_; }
  void setSessionID(const JXString& value) { sessionID_ = value; }
  // Decimal texts: durations in milliseconds, instants in milliseconds since the Unix epoch.
  /// Since the start of the visit, and what earlier processes carried over; ms.
  const JXString& sessionDuration() const { return sessionDuration_; }
  void setSessionDuration(const JXString& value) { sessionDuration_ = value; }
  /// Start of the session, ms since the Unix epoch.
  const JXString& currentSession() const { return currentSession_; }
  void setCurrentSession(const JXString& value) { currentSession_ = value; }
  /// How many visits there were, this one included.
  const JXString& visitNumber() const { return visitNumber_; }
  void setVisitNumber(const JXString& value) { visitNumber_ = value; }
  /// Start of the visit, ms since the Unix epoch.
  const JXString& currentVisit() const { return currentVisit_; }
  void setCurrentVisit(const JXString& value) { currentVisit_ = value; }
  /// First visit with this version of the application, ms since the Unix epoch.
  const JXString& currentVersionFirstVisit() const { return currentVersionFirstVisit_; }
  void setCurrentVersionFirstVisit(const JXString& value) { currentVersionFirstVisit_ = value; }
  /// How many sessions there were, this one included.
  const JXString& sessionNumber() const { return sessionNumber_; }
  void setSessionNumber(const JXString& value) { sessionNumber_ = value; }
  /// First visit of the installation: ms since the Unix epoch during that visit, seconds later on.
  const JXString& firstVisit() const { return firstVisit_; }
  void setFirstVisit(const JXString& value) { firstVisit_ = value; }
  /// The visit before. Seconds since the Unix epoch when that was the first one, ms otherwise.
  const JXString& lastVisit() const { return lastVisit_; }
  void setLastVisit(const JXString& value) { lastVisit_ = value; }
  /// The event before, ms since the Unix epoch.
  const JXString& lastCall() const { return lastCall_; }
  void setLastCall(const JXString& value) { lastCall_ = value; }
  /// Start of the session before, ms since the Unix epoch; "0" when there was none.
  const JXString& lastSessionStart() const { return lastSessionStart_; }
  void setLastSessionStart(const JXString& value) { lastSessionStart_ = value; }
  /// The last event of the session before, ms since the Unix epoch; "0" when there was none.
  const JXString& lastSessionLastHit() const { return lastSessionLastHit_; }
  void setLastSessionLastHit(const JXString& value) { lastSessionLastHit_ = value; }
  /// How often the application was in the foreground in this process, from 1.
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

  std::size_t places_[kVariables] = {};  ///< of the variables in their store
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
