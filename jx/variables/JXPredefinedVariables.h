// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXSingleton.h"
#include "jx/core/notifications/JXEventListener.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Seconds of inactivity after which a new session starts.
inline constexpr std::int64_t kJXVisitDurationDefaultValue = 1800;

/// The predefined variables: named texts that tell where the installation, the process and the
/// device stand. Filled once when the object is first asked for, brought up to date before every
/// event, and persisted where they must outlive the process.
///
/// Made once per process and never destroyed. The store is thread-safe; everything else belongs to
/// the thread that executes events and the one that tells of background and foreground, which must
/// not run at the same time.
class JX_API JXPredefinedVariables : public JXSingleton, public IJXEventListenerDelegate {
 public:
  static JXPredefinedVariables& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXPredefinedVariables() = default;
  /// Runs the start-up once per process, and returns this object; see `mayInitialise` for a call
  /// while another runs. Null when the base could not be initialised.
  JXPredefinedVariables* init();
  /// Runs the whole start-up again on this object: the store is replaced, the counters and times
  /// start over, the persisted counters advance, and each background or foreground notification
  /// reaches the handlers once more than before.
  JXPredefinedVariables* reinit();
  ~JXPredefinedVariables() override;

  // Store: an object that has none, because it was not initialised or the host took it away, holds
  // nothing and ignores what it is given.

  /// Sets or replaces a variable; an absent value removes it.
  void addData_withValue(const JXString& key, const JXString& value);
  /// Adds every pair of the store; a null one is ignored.
  void addData(const std::shared_ptr<JXDynamicStore>& store);
  /// The variable's text, absent when it has none.
  JXString getData(const JXString& key) const;
  /// Removes the variable and returns what it held, absent when it held nothing.
  JXString removeData(const JXString& key);
  void clearData();

  // Time and chance

  std::int64_t now() const;    ///< seconds since the Unix epoch
  std::int64_t nowMs() const;  ///< milliseconds since the Unix epoch
  JXString nowMsString() const;
  JXString nowString() const;
  std::int32_t randomInt() const;  ///< random, never negative
  JXString randomString() const;

  // Texts of single variables, absent when there is none

  JXString phoneModel() const;
  JXString systemName() const;
  JXString systemVersion() const;
  JXString norvaneVersion() const;
  JXString applicationVersion() const;
  JXString applicationBuild() const;
  JXString manufacturer() const;
  JXString language() const;
  JXString charset() const;
  JXString uniqueIdentifier() const;
  JXString navNumberVisit() const;
  JXString numberSession() const;
  /// Start of the current visit, ms.
  JXString nav_TimestampCurrentVisitMs() const;
  /// Start of the current session, ms: the historic name says visit, and hosts rely on the value.
  JXString timestampCurrentVisitMs() const;
  JXString timestampLastCallMs() const;
  /// From the core's variables, where it is written first.
  JXString userAgent() const;

  // For the send path

  /// Marks the first event of the process with "TRUE" and every later one with "FALSE".
  void firstExecute();
  /// Brings call times, session duration, foreground and background times up to now.
  void computeTimeChangingVariables();
  /// Called after each event, so that only the first one of a session says that it is new.
  void resetNewSession();

  // For the host

  /// Makes the installation's unique identifier the anonymous id of the user block.
  void useLegacyUniqueIDForAnonymousID();
  /// Makes it the consent id.
  void useLegacyUniqueIDForConsentID();
  /// Moves the listener to another centre; null is the default one.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Address of "en0", else of "pdp_ip0", as dotted IPv4 text; "" when there is neither.
  JXString findDeviceIP() const;
  /// Stores `timeS` seconds under `key` and the same in milliseconds under `keyMs`.
  void addTimestamp_andTimestampeMs_withTime(const JXString& key, const JXString& keyMs,
                                             std::int64_t timeS);

  // Application notifications

  void didEnterBackground(const JXNotification& notification);
  void willEnterForeground(const JXNotification& notification);

  void onNotificationReceived(const JXNotification& notification) override;

  // Visits, sessions and calls: steps of the start-up and of each event. Times are decimal text.

  void initIsFirstVisit();
  void initLastCallLastVisit();
  void setVisitorIDCurrentCallUniqueID(const JXString& timeMs);
  void initColdStartNumber();
  void setTimestamps(const JXString& timeMs);
  void setFirstVisitUserDefaults(const JXString& timeMs);
  void newVisitUserDefaults_currentTime(const JXString& firstVisit, const JXString& timeMs);
  void updateVisitUserDefaults(const JXString& timeMs);
  void updateVariablesForNewSession(const JXString& timeMs);
  void setSessionDuration(const JXString& timeMs);
  void initNavTimestampCalls(const JXString& timeMs);

  // Usage timing: steps of the start-up

  void initComScoreSession(const JXString& timeMs);
  void computeDeltaSinceLastLaunch(const JXString& timeMs);
  void computeStartUsageTime(bool renewed);

  // Environment: steps of the start-up

  void setManufacturer();
  void setNorvaneVersion();
  void setLocalCharset();
  void initScreenResolution();
  void setApplicationBuild();
  void setLocalModel();
  void setLocalSysVersion();
  void setLocalSysName();
  void setLocalLanguage();
  void setBundleIdentifier();
  void setApplicationName();
  void setRuntimeName();
  void setModelAndVersion();
  void setIsJailBroken();
  void initApplicationVersion(const JXString& timeMs);
  /// Reads the locale's currency code, stores it ("-" when there is none) and returns what was
  /// read.
  JXString currencyCode();
  /// Reads the locale's currency symbol, stores it and returns it.
  JXString currencySymbol();
  /// Name of the system's default text encoding.
  JXString getDefaultEncoding() const;

  // Properties

  const std::shared_ptr<JXDynamicStore>& dynamicStore() const { return dynamicStore_; }
  void setDynamicStore(std::shared_ptr<JXDynamicStore> store) { dynamicStore_ = std::move(store); }
  bool isBackground() const { return isBackground_; }
  void setIsBackground(bool value) { isBackground_ = value; }
  std::int32_t totalForegroundTransitions() const { return totalForegroundTransitions_; }
  void setTotalForegroundTransitions(std::int32_t value) { totalForegroundTransitions_ = value; }
  std::uint64_t totalForegroundTime() const { return totalForegroundTime_; }  ///< ms
  void setTotalForegroundTime(std::uint64_t ms) { totalForegroundTime_ = ms; }
  std::uint64_t deltaForeground() const { return deltaForeground_; }  ///< ms
  void setDeltaForeground(std::uint64_t ms) { deltaForeground_ = ms; }
  std::uint64_t totalBackgroundTime() const { return totalBackgroundTime_; }  ///< ms
  void setTotalBackgroundTime(std::uint64_t ms) { totalBackgroundTime_ = ms; }
  std::uint64_t deltaBackground() const { return deltaBackground_; }  ///< ms
  void setDeltaBackground(std::uint64_t ms) { deltaBackground_ = ms; }
  std::uint64_t lastTime() const { return lastTime_; }  ///< ms since the Unix epoch
  void setLastTime(std::uint64_t ms) { lastTime_ = ms; }
  std::uint64_t startUsage() const { return startUsage_; }  ///< ms
  void setStartUsage(std::uint64_t ms) { startUsage_ = ms; }
  const JXString& pid() const { return pid_; }
  void setPid(const JXString& pid) { pid_ = pid; }
  /// Background stay after which a new session starts, ms.
  std::uint64_t visitDuration() const { return visitDuration_; }
  void setVisitDuration(std::uint64_t ms) { visitDuration_ = ms; }
  std::shared_ptr<JXEventListener> listenerDelegate() const override { return listenerDelegate_; }
  void setListenerDelegate(std::shared_ptr<JXEventListener> listener) {
    listenerDelegate_ = std::move(listener);
  }

 private:
  void predefinedVariableInitialisation();
  void observeApplicationNotifications();
  std::uint64_t unsignedNowMs() const;
  JXString countedUp(const JXString& count);

  std::shared_ptr<JXDynamicStore> dynamicStore_;
  bool isBackground_ = false;
  std::int32_t totalForegroundTransitions_ = 1;
  std::uint64_t totalForegroundTime_ = 0;
  std::uint64_t deltaForeground_ = 0;
  std::uint64_t totalBackgroundTime_ = 0;
  std::uint64_t deltaBackground_ = 0;
  std::uint64_t lastTime_ = 0;
  std::uint64_t startUsage_ = 0;
  JXString pid_;
  std::uint64_t visitDuration_ = 0;
  std::shared_ptr<JXEventListener> listenerDelegate_;
};

}  // namespace jx
