// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

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
  /// The one object of this process, filled when it is first asked for.
  static JXPredefinedVariables& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXPredefinedVariables() = default;
  /// Runs the start-up once per process, and returns this object; see `tryBeginInit` for a call
  /// while another runs. Null when the base could not be initialised.
  JXPredefinedVariables* init();
  /// Runs the whole start-up again on this object: the store is replaced, the counters and times
  /// start over, the persisted counters advance, and each background or foreground notification
  /// reaches the handlers once more than before.
  JXPredefinedVariables* reinit();
  ~JXPredefinedVariables() override;

  /// @name Store
  /// An object that has none, because it was not initialised or the host took it away, holds
  /// nothing and ignores what it is given.
  /// @{

  /// Sets or replaces a variable; an absent value removes it.
  void addData_withValue(const JXString& key, const JXString& value);
  /// Adds every pair of the store; a null one is ignored.
  void addData(const std::shared_ptr<JXDynamicStore>& store);
  /// The variable's text, absent when it has none.
  JXString getData(const JXString& key) const;
  /// The texts of several variables as they stand at one moment; see `JXDynamicStore::getStrings`.
  void getStrings(const std::string_view* keys, std::size_t count, std::size_t* places,
                  JXString* texts) const;
  /// Removes the variable and returns what it held, absent when it held nothing.
  JXString removeData(const JXString& key);
  /// Removes every variable.
  void clearData();

  /// @}
  /// @name Time and chance
  /// @{

  std::int64_t now() const;    ///< seconds since the Unix epoch
  std::int64_t nowMs() const;  ///< milliseconds since the Unix epoch
  /// Decimal milliseconds since the Unix epoch.
  JXString nowMsString() const;
  /// Decimal seconds since the Unix epoch, rounded down.
  JXString nowString() const;
  std::int32_t randomInt() const;  ///< random, never negative
  /// The same as decimal text.
  JXString randomString() const;

  /// @}
  /// @name Texts of single variables, absent when there is none
  /// @{

  /// The hardware machine identifier, in spite of the name.
  JXString phoneModel() const;
  /// The name of the operating system.
  JXString systemName() const;
  /// The version of the operating system.
  JXString systemVersion() const;
  /// The version of this library.
  JXString norvaneVersion() const;
  /// The version that a viewer sees; "" when the application states none.
  JXString applicationVersion() const;
  /// The build number.
  JXString applicationBuild() const;
  /// The manufacturer's name.
  JXString manufacturer() const;
  /// The first part of the preferred language tag, "-" when none is known.
  JXString language() const;
  /// The name of the system's default text encoding.
  JXString charset() const;
  /// A random UUID made at the installation's first start.
  JXString uniqueIdentifier() const;
  /// How many visits there were, this one included.
  JXString navNumberVisit() const;
  /// How many sessions there were, this one included.
  JXString numberSession() const;
  /// Start of the current visit, ms.
  JXString nav_TimestampCurrentVisitMs() const;
  /// Start of the current session, ms: the historic name says visit, and hosts rely on the value.
  JXString timestampCurrentVisitMs() const;
  /// The event before, ms.
  JXString timestampLastCallMs() const;
  /// From the core's variables, where it is written first.
  JXString userAgent() const;

  /// @}
  /// @name For the send path
  /// @{

  /// Marks the first event of the process with "TRUE" and every later one with "FALSE".
  void firstExecute();
  /// Brings call times, session duration, foreground and background times up to now.
  void computeTimeChangingVariables();
  /// Called after each event, so that only the first one of a session says that it is new.
  void resetNewSession();

  /// @}
  /// @name For the host
  /// @{

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

  /// @}
  /// @name Application notifications
  /// @{

  /// Counts the foreground time up to now and keeps it for the next launch.
  void didEnterBackground(const JXNotification& notification);
  /// Counts the background time, and starts a session when it was longer than `visitDuration`.
  /// Ignored unless the application was in the background.
  void willEnterForeground(const JXNotification& notification);

  /// Stores the user agent when it becomes known.
  void onNotificationReceived(const JXNotification& notification) override;

  /// @}
  /// @name Visits, sessions and calls: steps of the start-up and of each event
  /// Times are decimal text, in milliseconds since the Unix epoch. A text that is no number counts
  /// by the integer that it begins with, else as 0.
  /// @{

  /// "TRUE" when no earlier process stored the first visit of a version, else "FALSE".
  void initIsFirstVisit();
  /// Makes the last event of the process before the last hit of the session before.
  void initLastCallLastVisit();
  /// Stores the time of the call, and the unique identifier, made when there is none yet.
  void setVisitorIDCurrentCallUniqueID(const JXString& timeMs);
  /// Counts this start of the process and persists the count.
  void initColdStartNumber();
  /// Decides whether this is the first visit, another one, or the same process again.
  void setTimestamps(const JXString& timeMs);
  /// Starts visit and session 1. What is persisted here is in seconds, and stays so for hosts that
  /// read it.
  void setFirstVisitUserDefaults(const JXString& timeMs);
  /// Starts the next visit, and with it the next session. `firstVisit` stands in where no time of
  /// the visit before was kept.
  void newVisitUserDefaults_currentTime(const JXString& firstVisit, const JXString& timeMs);
  /// Reads the visit that this process is in already; nothing is counted.
  void updateVisitUserDefaults(const JXString& timeMs);
  /// Starts the next session within the visit: count, start, identifier, and the mark of a new
  /// session.
  void updateVariablesForNewSession(const JXString& timeMs);
  /// Stores the time since the start of the visit and what earlier processes carried over, ms.
  /// Without a start of the visit it is logged at level 2 and nothing is stored.
  void setSessionDuration(const JXString& timeMs);
  /// Makes the event before the last call, and this one the current.
  void initNavTimestampCalls(const JXString& timeMs);

  /// @}
  /// @name Usage timing: steps of the start-up
  /// Times as above. Arithmetic is unsigned and wraps around when the clock was set back.
  /// @{

  /// Gives the session its identifier and, when the stored start is longer ago than
  /// `visitDuration`, a new start; carries usage times over.
  void initComScoreSession(const JXString& timeMs);
  /// Stores how long the application was away since the last launch went to the background; zeros
  /// when that is not known.
  void computeDeltaSinceLastLaunch(const JXString& timeMs);
  /// Stores the usage time that this launch begins with. `renewed`: the session was started anew,
  /// so the unmeasured foreground time is not part of it.
  void computeStartUsageTime(bool renewed);

  /// @}
  /// @name Environment: steps of the start-up
  /// @{

  /// Stores the manufacturer's name, "Apple" on every system: receivers tell the family of devices
  /// by it.
  void setManufacturer();
  /// Stores the version of this library.
  void setNorvaneVersion();
  /// Stores the name of the default text encoding.
  void setLocalCharset();
  /// Stores width and height of the main screen, whole points; "0" without a display.
  void initScreenResolution();
  /// Stores the build number when the application states one.
  void setApplicationBuild();
  /// Stores the marketing model of the device.
  void setLocalModel();
  /// Stores the version of the operating system.
  void setLocalSysVersion();
  /// Stores the name of the operating system.
  void setLocalSysName();
  /// Stores the first two parts of the preferred language tag; "-" for both when there are not two.
  void setLocalLanguage();
  /// Stores the application's bundle identifier.
  void setBundleIdentifier();
  /// Stores the application's name, "(unknown)" when it states none.
  void setApplicationName();
  /// Stores the name of the runtime, "tvos" on every system: receivers tell the family of devices
  /// by it.
  void setRuntimeName();
  /// Stores the hardware machine identifier.
  void setModelAndVersion();
  /// Stores "1" when the integrity probe finds the device modified, else "0".
  void setIsJailBroken();
  /// Stores the version that a viewer sees, and notices an update: the version before, and the
  /// first visit with this one.
  void initApplicationVersion(const JXString& timeMs);
  /// Reads the locale's currency code, stores it ("-" when there is none) and returns what was
  /// read.
  JXString currencyCode();
  /// Reads the locale's currency symbol, stores it and returns it.
  JXString currencySymbol();
  /// Name of the system's default text encoding.
  JXString getDefaultEncoding() const;

  /// @}
  /// @name Properties
  /// @{

  /// The store of all variables; null before `init`.
  const std::shared_ptr<JXDynamicStore>& dynamicStore() const { return dynamicStore_; }
  void setDynamicStore(std::shared_ptr<JXDynamicStore> store) { dynamicStore_ = std::move(store); }
  /// True from the background notification until the foreground one.
  bool isBackground() const { return isBackground_; }
  void setIsBackground(bool value) { isBackground_ = value; }
  /// How often the application was in the foreground in this process, from 1.
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
  /// The process identifier as text; absent until the start-up has run.
  const JXString& pid() const { return pid_; }
  void setPid(const JXString& pid) { pid_ = pid; }
  /// Background stay after which a new session starts, ms.
  std::uint64_t visitDuration() const { return visitDuration_; }
  void setVisitDuration(std::uint64_t ms) { visitDuration_ = ms; }
  /// What this object hears of the user agent through; null before `init`.
  std::shared_ptr<JXEventListener> listenerDelegate() const override { return listenerDelegate_; }
  void setListenerDelegate(std::shared_ptr<JXEventListener> listener) {
    listenerDelegate_ = std::move(listener);
  }
  /// @}

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
