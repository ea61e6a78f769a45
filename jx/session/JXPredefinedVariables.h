// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXSingleton.h"
#include "jx/core/notifications/JXEventListener.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// Time in the background, in seconds, after which a return to the foreground starts a new session.
inline constexpr std::int64_t kJXVisitDurationDefaultValue = 1800;
/// The manufacturer's name on every system: servers identify the device family by it.
inline constexpr std::string_view kJXManufacturerName = "Apple";

/// Predefined variables: named strings that describe the installation, the process and the device.
/// They are set on the first call of `sharedInstance`, updated before every event, and persisted
/// where later processes need them.
///
/// The shared object is created once per process and never destroyed. Every operation
/// is thread-safe: the state is guarded by the session's one lock (see JXSessionLock).
class JX_API JXPredefinedVariables : public JXSingleton, public IJXEventListenerDelegate {
 public:
  /// Returns the shared object of this process. The first call creates it and runs the start-up.
  static JXPredefinedVariables& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXPredefinedVariables() = default;
  /// Runs the start-up once per process and returns this object. Returns null if the base class
  /// cannot be initialised. Does not return while another `init` is running.
  JXPredefinedVariables* init();
  /// Runs the whole start-up again on this object: the store is replaced, counters and times are
  /// reset, and the persisted counters advance. Each background or foreground notification then
  /// calls the handlers once more often than before.
  JXPredefinedVariables* reinit();
  ~JXPredefinedVariables() override;

  /// @name Store
  /// Without a store (before `init`, or after `setDynamicStore(nullptr)`) every variable is null,
  /// and values that are added are ignored.
  /// @{

  /// Sets or replaces a variable; a null value removes it. A null key is ignored.
  void addData_withValue(const JXString& key, const JXString& value);
  /// Adds every entry of the store; a null store is ignored.
  void addData(const std::shared_ptr<JXDynamicStore>& store);
  /// Adds every entry of the object; a null object is ignored. A value that is not a string
  /// replaces the variable, which then reads as null.
  void addData(const JXJsonObject& entries);
  /// Does nothing, as for a null store or object.
  void addData(std::nullptr_t) {}
  /// Returns the variable; null if it is not set.
  JXString getData(const JXString& key) const;
  /// Locks the variables, to read several at one moment. The caller has the session's lock.
  JXDynamicStore::Strings strings() const { return JXDynamicStore::Strings(dynamicStore_.get()); }
  /// Removes the variable and returns its value; null if it was not set.
  JXString removeData(const JXString& key);
  /// Removes every variable.
  void clearData();

  /// @}
  /// @name Time and random numbers
  /// @{

  std::int64_t now() const;    ///< seconds since the Unix epoch
  std::int64_t nowMs() const;  ///< milliseconds since the Unix epoch
  /// Returns the milliseconds since the Unix epoch as a decimal string.
  JXString nowMsString() const;
  /// Returns the seconds since the Unix epoch, rounded down, as a decimal string.
  JXString nowString() const;
  std::int32_t randomInt() const;  ///< random, never negative
  /// Returns a random number as a decimal string.
  JXString randomString() const;

  /// @}
  /// @name Single variables, null if not set
  /// @{

  /// The hardware machine identifier; the name is historic.
  JXString phoneModel() const;
  /// The operating system name.
  JXString systemName() const;
  /// The operating system version.
  JXString systemVersion() const;
  /// The version of this library.
  JXString norvaneVersion() const;
  /// The application version shown to users; "" if it is not configured.
  JXString applicationVersion() const;
  /// The build number.
  JXString applicationBuild() const;
  /// The manufacturer's name.
  JXString manufacturer() const;
  /// The first part of the preferred language tag; "-" if the tag has no second part.
  JXString language() const;
  /// The name of the system's default text encoding.
  JXString charset() const;
  /// A random UUID, created at the first start of the installation.
  JXString uniqueIdentifier() const;
  /// Number of visits, including the current one.
  JXString navNumberVisit() const;
  /// Number of sessions, including the current one.
  JXString numberSession() const;
  /// Start of the current visit, ms since the Unix epoch.
  JXString nav_TimestampCurrentVisitMs() const;
  /// Start of the current session, ms since the Unix epoch. The name is historic; applications rely
  /// on the value.
  JXString timestampCurrentVisitMs() const;
  /// Time of the previous event, ms since the Unix epoch; see `kJXPredefinedVariable_LastCallMs`.
  JXString timestampLastCallMs() const;
  /// The user agent, read from the core's variables, which are updated first.
  JXString userAgent() const;

  /// @}
  /// @name For the send path
  /// @{

  /// Marks the first event of the process with "TRUE" and every later one with "FALSE".
  void firstExecute();
  /// Updates call times, session duration, foreground and background times to the current time.
  void computeTimeChangingVariables();
  /// Clears the new-session mark. Called after each event, so that only the first event of a
  /// session carries the mark.
  void resetNewSession();

  /// @}
  /// @name For the application
  /// @{

  /// Uses the installation's unique identifier as the anonymous ID of the user block.
  void useLegacyUniqueIDForAnonymousID();
  /// Uses the installation's unique identifier as the consent ID of the user block.
  void useLegacyUniqueIDForConsentID();
  /// Moves the listener to another notification centre; null means the default one.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Returns the IPv4 address of "en0", or of "pdp_ip0" if there is no "en0", in dotted notation;
  /// "" if there is neither.
  JXString findDeviceIP() const;
  /// Stores `timeS` seconds under `key` and the same in milliseconds under `keyMs`.
  void addTimestamp_andTimestampeMs_withTime(const JXString& key, const JXString& keyMs,
                                             std::int64_t timeS);

  /// @}
  /// @name Application notifications
  /// @{

  /// Adds the foreground time up to now and persists it for the next process.
  void didEnterBackground(const JXNotification& notification);
  /// Adds the background time, and starts a session if more than `visitDuration` has passed since
  /// the last background notification or the last event, whichever is later. Ignored if the
  /// application was not in the background.
  void willEnterForeground(const JXNotification& notification);

  /// Stores the user agent when it becomes available.
  void onNotificationReceived(const JXNotification& notification) override;

  /// @}
  /// @name Visits, sessions and calls: steps of the start-up and of each event
  /// Times are decimal strings, in milliseconds since the Unix epoch. A string that is not a number
  /// counts as the integer at its start, or as 0.
  /// @{

  /// Sets `kJXPredefinedVariable_IsFirstVisit`: "TRUE" if no earlier process has stored the first
  /// visit of a version, "FALSE" otherwise.
  void initIsFirstVisit();
  /// Sets the last hit of the previous session to the last event of an earlier process, if any.
  void initLastCallLastVisit();
  /// Stores the call time and the unique identifier, which is created if there is none yet.
  void setVisitorIDCurrentCallUniqueID(const JXString& timeMs);
  /// Increments and persists the number of process starts.
  void initColdStartNumber();
  /// Starts the first visit or the next one, or continues the visit of the same process.
  void setTimestamps(const JXString& timeMs);
  /// Starts visit and session 1. The dates persisted here are in seconds, because applications read
  /// them.
  void setFirstVisitUserDefaults(const JXString& timeMs);
  /// Starts the next visit and its first session. `firstVisit` is used if no date of the previous
  /// visit is stored.
  void newVisitUserDefaults_currentTime(const JXString& firstVisit, const JXString& timeMs);
  /// Reads the current visit of this process. No counter changes.
  void updateVisitUserDefaults(const JXString& timeMs);
  /// Starts the next session within the visit: sets number, start, identifier and new-session mark.
  void updateVariablesForNewSession(const JXString& timeMs);
  /// Stores the time since the start of the visit plus the usage time carried over from earlier
  /// processes, in ms. If the start of the visit is not set, logs at level 2 and stores nothing.
  void setSessionDuration(const JXString& timeMs);
  /// Sets the last call to the previous event and the current call to this event.
  void initNavTimestampCalls(const JXString& timeMs);

  /// @}
  /// @name Usage timing: steps of the start-up
  /// Times as above. Arithmetic is unsigned and wraps around if the clock was set back.
  /// @{

  /// Sets the session identifier. Stores a new session start if the stored one is more than
  /// `visitDuration` ago. Carries usage times over.
  void initComScoreSession(const JXString& timeMs);
  /// Stores the time since an earlier process last went to the background; zeros if unknown.
  void computeDeltaSinceLastLaunch(const JXString& timeMs);
  /// Stores the usage time at the start of this process. `renewed` means that a new session was
  /// started, so the unmeasured foreground time is not included.
  void computeStartUsageTime(bool renewed);

  /// @}
  /// @name Environment: steps of the start-up
  /// @{

  /// Stores the manufacturer's name, "Apple" on every system: servers identify the device family by
  /// it.
  void setManufacturer();
  /// Stores the version of this library.
  void setNorvaneVersion();
  /// Stores the name of the system's default text encoding.
  void setLocalCharset();
  /// Stores the width and height of the main screen in whole points; "0" without a display.
  void initScreenResolution();
  /// Stores the build number if it is configured.
  void setApplicationBuild();
  /// Stores the marketing model of the device.
  void setLocalModel();
  /// Stores the operating system version.
  void setLocalSysVersion();
  /// Stores the operating system name.
  void setLocalSysName();
  /// Stores the first two parts of the preferred language tag; "-" for both if there are not two.
  void setLocalLanguage();
  /// Stores the application's bundle identifier.
  void setBundleIdentifier();
  /// Stores the application's name; "(unknown)" if it is not configured.
  void setApplicationName();
  /// Stores the runtime name, "tvos" on every system: servers identify the device family by it.
  void setRuntimeName();
  /// Stores the hardware machine identifier.
  void setModelAndVersion();
  /// Stores "1" if the integrity check finds the device modified, "0" otherwise.
  void setIsJailBroken();
  /// Stores the application version shown to users. After an update it also stores the previous
  /// version and the first visit with the new one.
  void initApplicationVersion(const JXString& timeMs);
  /// Reads the locale's currency code, stores it ("-" if there is none) and returns it as read.
  JXString currencyCode();
  /// Reads the locale's currency symbol, stores it and returns it.
  JXString currencySymbol();
  /// Returns the name of the system's default text encoding.
  JXString getDefaultEncoding() const;

  /// @}
  /// @name Properties
  /// @{

  /// The store of all variables; null before `init`.
  std::shared_ptr<JXDynamicStore> dynamicStore() const {
    return JXSessionLock::read(dynamicStore_);
  }
  void setDynamicStore(std::shared_ptr<JXDynamicStore> store) {
    JXSessionLock::write(dynamicStore_, std::move(store));
  }
  /// True from the background notification until the foreground one.
  bool isBackground() const { return JXSessionLock::read(isBackground_); }
  void setIsBackground(bool value) { JXSessionLock::write(isBackground_, value); }
  /// Number of times that the application was in the foreground in this process, from 1.
  std::int32_t totalForegroundTransitions() const {
    return JXSessionLock::read(totalForegroundTransitions_);
  }
  void setTotalForegroundTransitions(std::int32_t value) {
    JXSessionLock::write(totalForegroundTransitions_, value);
  }
  std::uint64_t totalForegroundTime() const {
    return JXSessionLock::read(totalForegroundTime_);
  }  ///< ms
  void setTotalForegroundTime(std::uint64_t ms) { JXSessionLock::write(totalForegroundTime_, ms); }
  std::uint64_t deltaForeground() const { return JXSessionLock::read(deltaForeground_); }  ///< ms
  void setDeltaForeground(std::uint64_t ms) { JXSessionLock::write(deltaForeground_, ms); }
  std::uint64_t totalBackgroundTime() const {
    return JXSessionLock::read(totalBackgroundTime_);
  }  ///< ms
  void setTotalBackgroundTime(std::uint64_t ms) { JXSessionLock::write(totalBackgroundTime_, ms); }
  std::uint64_t deltaBackground() const { return JXSessionLock::read(deltaBackground_); }  ///< ms
  void setDeltaBackground(std::uint64_t ms) { JXSessionLock::write(deltaBackground_, ms); }
  std::uint64_t lastTime() const {
    return JXSessionLock::read(lastTime_);
  }  ///< ms since the Unix epoch
  void setLastTime(std::uint64_t ms) { JXSessionLock::write(lastTime_, ms); }
  std::uint64_t startUsage() const { return JXSessionLock::read(startUsage_); }  ///< ms
  void setStartUsage(std::uint64_t ms) { JXSessionLock::write(startUsage_, ms); }
  /// The process ID as a string; null until the start-up has run.
  JXString pid() const { return JXSessionLock::read(pid_); }
  void setPid(const JXString& pid) { JXSessionLock::write(pid_, pid); }
  /// Time in the background after which a return to the foreground starts a new session, ms. Each
  /// start-up sets it to 30 minutes.
  std::uint64_t visitDuration() const { return JXSessionLock::read(visitDuration_); }
  void setVisitDuration(std::uint64_t ms) { JXSessionLock::write(visitDuration_, ms); }
  /// Returns the listener that receives the user agent; null before `init`.
  std::shared_ptr<JXEventListener> listenerDelegate() const override {
    return JXSessionLock::read(listenerDelegate_);
  }
  void setListenerDelegate(std::shared_ptr<JXEventListener> listener) {
    JXSessionLock::write(listenerDelegate_, std::move(listener));
  }
  /// @}

 private:
  friend class JXNewSessionClaim;
  friend class JXSession;
  static std::atomic<int> JX_INIT_STATE;

  void setVariable(std::string_view key, const JXString& value);

  /// Calls `firstExecute` and `computeTimeChangingVariables`, for an event that is executed.
  void advance();
  /// Returns the time of the last `advance`. The caller has the lock.
  JXString currentCall() { return Frequents(*this).get(CurrentCall); }
  /// Claims the new-session mark for one event. Returns the session that it marks, or nothing when
  /// the session is not new or another event has the mark. The variable stays "1" until the event
  /// is posted, so that observers see it.
  std::optional<std::uint64_t> claimNewSession();
  /// Ends a claim. Clears the mark when the event was posted; otherwise the next event carries it.
  /// Does nothing when another session has begun.
  void releaseNewSession(std::uint64_t generation, bool isPosted);

  /// Removes the identifiers and the variables of visits, sessions and timing, after the stored
  /// data was erased. Other variables stay, also those of the application. Does nothing before
  /// `init`.
  void forgetStoredData();
  /// Sets them again, as the first start of an installation does. Does nothing before `init`.
  void beginFirstVisit();

  /// Begins the first visit if this or another process has erased the stored data.
  void renewIfErased();
  void resetUsage();
  void predefinedVariableInitialisation();
  void observeApplicationNotifications();
  std::uint64_t unsignedNowMs() const;
  void markNewSession();
  JXString nextCount(const JXString& count);

  /// The variables that every event reads or changes.
  enum Frequent : std::size_t {
    FirstExecute,
    IsNewSession,
    CurrentVisit,
    CurrentCall,
    LastCall,
    SessionDuration,
    ForegroundTime,
    DeltaForeground,
    BackgroundTime,
    DeltaBackground,
    kFrequentCount
  };
  /// These variables while the store is locked. The caller has the session's lock.
  class Frequents {
   public:
    explicit Frequents(JXPredefinedVariables& variables);
    std::string_view view(Frequent variable);
    JXString get(Frequent variable);
    void set(Frequent variable, JXString value);

   private:
    JXDynamicStore::Strings strings_;
    JXDynamicStore::Place* const places_;
  };
  void setSessionDuration(std::uint64_t time);
  bool moveCallTimes(const JXString& timeMs);

  std::shared_ptr<JXDynamicStore> dynamicStore_;
  JXDynamicStore::Place places_[kFrequentCount];  ///< of the frequent variables in the store
  std::uint64_t sessionGeneration_ = 0;           ///< counts the sessions of this process
  bool isNewSessionClaimed_ = false;              ///< an event on its way carries the mark
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
