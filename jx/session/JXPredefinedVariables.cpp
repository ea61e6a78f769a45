// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXPredefinedVariables.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <string>
#include <utility>

#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXStartGuard.h"
#include "jx/core/JXUser.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/session/JXPredefinedVariableNames.h"

namespace jx {
namespace {

// In the order of JXPredefinedVariables::Frequent.
constexpr std::string_view kFrequentNames[] = {
    kJXPredefinedVariable_FirstExecute,   kJXPredefinedVariable_IsNewSession,
    kJXPredefinedVariable_CurrentVisitMs, kJXPredefinedVariable_CurrentCallMs,
    kJXPredefinedVariable_LastCallMs,     kJXPredefinedVariable_SessionDurationMs,
    kJXPredefinedVariable_ForegroundTime, kJXPredefinedVariable_DeltaForegroundTime,
    kJXPredefinedVariable_BackgroundTime, kJXPredefinedVariable_DeltaBackgroundTime};

}  // namespace

std::atomic<int> JXPredefinedVariables::JX_INIT_STATE{kJXInitNever};

JXPredefinedVariables::~JXPredefinedVariables() {
  JXNotificationCenter::defaultCenter()->removeObserver(this);
  // The application may keep it longer than this object.
  if (listenerDelegate_) listenerDelegate_->setParent(nullptr);
}

JXPredefinedVariables* JXPredefinedVariables::init() {
  if (!tryBeginInit(JX_INIT_STATE, "JXPredefinedVariables")) return this;
  if (!baseInit()) return nullptr;
  const JXSessionLock lock;
  dynamicStore_ = JXDynamicStore::init();
  JX_INIT_STATE = kJXInitDone;

  resetUsage();

  listenerDelegate_ = JXEventListener::init();
  listenerDelegate_->setParent(this);
  listenerDelegate_->listen(kJXNotification_UserAgentAvailable);

  visitDuration_ = static_cast<std::uint64_t>(kJXVisitDurationDefaultValue) * 1000;
  predefinedVariableInitialisation();
  // Must follow the sequence above: when the visit logic runs for the first time in a process,
  // there is no pid to compare, so every process start counts as a new visit.
  pid_ = std::to_string(JXCoreServices::sharedInstance().platform().processIdentifier());

  observeApplicationNotifications();
  setVariable(kJXPredefinedVariable_DeltaBackgroundTime, "0");
  // Replaces the value of initApplicationVersion: this variable has always been "0" after start-up.
  // The persisted previous version stays for the next comparison.
  setVariable(kJXPredefinedVariable_ApplicationPreviousVersion, "0");
  setVariable(kJXPredefinedVariable_ForegroundTransitions,
              std::to_string(totalForegroundTransitions_));
  return this;
}

void JXPredefinedVariables::resetUsage() {
  totalForegroundTransitions_ = 1;
  totalForegroundTime_ = 0;
  deltaForeground_ = 0;
  totalBackgroundTime_ = 0;
  deltaBackground_ = 0;
  startUsage_ = 0;
  lastTime_ = unsignedNowMs();
}

JXPredefinedVariables* JXPredefinedVariables::reinit() {
  JX_INIT_STATE = kJXInitAgain;
  return init();
}

void JXPredefinedVariables::predefinedVariableInitialisation() {
  const JXUserDefaults::Changes batch;
  const JXString timeMs = nowMsString();
  initIsFirstVisit();  // reads the stored first visit, so before initApplicationVersion writes it
  setManufacturer();
  initLastCallLastVisit();  // reads the persisted last call, so before any event replaces it
  setNorvaneVersion();
  setVisitorIDCurrentCallUniqueID(timeMs);
  setLocalCharset();
  initScreenResolution();
  setApplicationBuild();
  setLocalModel();
  setLocalSysVersion();
  setLocalSysName();
  setLocalLanguage();
  setBundleIdentifier();
  setApplicationName();
  setRuntimeName();
  setModelAndVersion();
  setIsJailBroken();
  initApplicationVersion(timeMs);
  initColdStartNumber();
  setTimestamps(timeMs);
  initComScoreSession(timeMs);  // after the visit logic: its session is the visit's first
  currencyCode();
  currencySymbol();
}

void JXPredefinedVariables::observeApplicationNotifications() {
  const std::shared_ptr<JXNotificationCenter>& center = JXNotificationCenter::defaultCenter();
  center->addObserver(this, UIApplicationDidEnterBackgroundNotification,
                      [this](const JXNotification& n) { didEnterBackground(n); });
  center->addObserver(this, UIApplicationWillEnterForegroundNotification,
                      [this](const JXNotification& n) { willEnterForeground(n); });
}

void JXPredefinedVariables::addData_withValue(const JXString& key, const JXString& value) {
  const JXSessionLock lock;
  if (dynamicStore_) dynamicStore_->addData_withValue(key, value);
}

// Converts the key here instead of at each call.
void JXPredefinedVariables::setVariable(std::string_view key, const JXString& value) {
  addData_withValue(key, value);
}

void JXPredefinedVariables::addData(const std::shared_ptr<JXDynamicStore>& store) {
  const JXSessionLock lock;
  if (store && dynamicStore_) dynamicStore_->addData(*store);
}

void JXPredefinedVariables::addData(const JXJsonObject& entries) {
  const JXSessionLock lock;
  if (dynamicStore_) dynamicStore_->addData(entries);
}

JXString JXPredefinedVariables::getData(const JXString& key) const {
  const JXSessionLock lock;
  return dynamicStore_ ? dynamicStore_->getData(key).string() : JXString();
}

JXPredefinedVariables::Frequents::Frequents(JXPredefinedVariables& variables)
    : strings_(variables.dynamicStore_.get()), places_(variables.places_) {}

std::string_view JXPredefinedVariables::Frequents::view(Frequent variable) {
  return strings_.view(kFrequentNames[variable], places_[variable]);
}

JXString JXPredefinedVariables::Frequents::get(Frequent variable) {
  JXString value;
  strings_.read(kFrequentNames[variable], places_[variable], value);
  return value;
}

void JXPredefinedVariables::Frequents::set(Frequent variable, JXString value) {
  strings_.set(kFrequentNames[variable], places_[variable], std::move(value));
}

JXString JXPredefinedVariables::removeData(const JXString& key) {
  const JXSessionLock lock;
  return dynamicStore_ ? dynamicStore_->removeData(key).string() : JXString();
}

void JXPredefinedVariables::clearData() {
  const JXSessionLock lock;
  if (dynamicStore_) dynamicStore_->clearData();
}

std::int64_t JXPredefinedVariables::now() const {
  const auto instant = JXCoreVariables::sharedInstance().now().time_since_epoch();
  return std::chrono::floor<std::chrono::seconds>(instant).count();
}

std::int64_t JXPredefinedVariables::nowMs() const {
  return JXCoreVariables::sharedInstance().nowMs();
}

std::uint64_t JXPredefinedVariables::unsignedNowMs() const {
  return static_cast<std::uint64_t>(nowMs());
}

JXString JXPredefinedVariables::nowMsString() const {
  return JXCoreVariables::sharedInstance().nowMsString();
}

JXString JXPredefinedVariables::nowString() const {
  return JXCoreVariables::sharedInstance().nowString();
}

std::int32_t JXPredefinedVariables::randomInt() const {
  const auto draw =
      static_cast<std::int32_t>(JXCoreServices::sharedInstance().platform().randomBits());
  constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
  if (draw == kLowest) return std::numeric_limits<std::int32_t>::max();  // cannot be negated
  return draw < 0 ? -draw : draw;
}

JXString JXPredefinedVariables::randomString() const { return std::to_string(randomInt()); }

JXString JXPredefinedVariables::phoneModel() const { return getData(kJXPredefinedVariable_Model); }

JXString JXPredefinedVariables::systemName() const {
  return getData(kJXPredefinedVariable_SystemName);
}

JXString JXPredefinedVariables::systemVersion() const {
  return getData(kJXPredefinedVariable_SystemVersion);
}

JXString JXPredefinedVariables::norvaneVersion() const {
  return getData(kJXPredefinedVariable_NorvaneVersion);
}

JXString JXPredefinedVariables::applicationVersion() const {
  return getData(kJXPredefinedVariable_ApplicationVersion);
}

JXString JXPredefinedVariables::applicationBuild() const {
  return getData(kJXPredefinedVariable_ApplicationBuild);
}

JXString JXPredefinedVariables::manufacturer() const {
  return getData(kJXPredefinedVariable_Manufacturer);
}

JXString JXPredefinedVariables::language() const { return getData(kJXPredefinedVariable_Language); }

JXString JXPredefinedVariables::charset() const { return getData(kJXPredefinedVariable_Charset); }

JXString JXPredefinedVariables::uniqueIdentifier() const {
  return getData(kJXPredefinedVariable_UniqueID);
}

JXString JXPredefinedVariables::navNumberVisit() const {
  return getData(kJXPredefinedVariable_NumberVisits);
}

JXString JXPredefinedVariables::numberSession() const {
  return getData(kJXPredefinedVariable_NumberSessions);
}

JXString JXPredefinedVariables::nav_TimestampCurrentVisitMs() const {
  return getData(kJXPredefinedVariable_CurrentVisitMs);
}

JXString JXPredefinedVariables::timestampCurrentVisitMs() const {
  return getData(kJXPredefinedVariable_CurrentSessionMs);
}

JXString JXPredefinedVariables::timestampLastCallMs() const {
  return getData(kJXPredefinedVariable_LastCallMs);
}

JXString JXPredefinedVariables::userAgent() const {
  return JXCoreVariables::sharedInstance().getData(kJXPredefinedVariable_UserAgent);
}

void JXPredefinedVariables::firstExecute() {
  const JXSessionLock lock;
  Frequents variables(*this);
  variables.set(FirstExecute, variables.view(FirstExecute).empty() ? "TRUE" : "FALSE");
}

void JXPredefinedVariables::advance() {
  const JXSessionLock lock;
  firstExecute();
  computeTimeChangingVariables();
}

void JXPredefinedVariables::useLegacyUniqueIDForAnonymousID() {
  renewIfErased();
  JXUser::sharedInstance().setAnonymous_id(uniqueIdentifier());
}

void JXPredefinedVariables::useLegacyUniqueIDForConsentID() {
  renewIfErased();
  JXUser::sharedInstance().setConsentID(uniqueIdentifier());
}

void JXPredefinedVariables::changeNotificationCenter(
    const std::shared_ptr<JXNotificationCenter>& center) {
  if (const auto listener = listenerDelegate()) listener->setNotificationCenter(center);
}

void JXPredefinedVariables::onNotificationReceived(const JXNotification& notification) {
  if (notification.name.view() != kJXNotification_UserAgentAvailable) return;
  const JXString userAgent = notification.userInfo.get(kJXUserInfo_DataKey).string();
  if (userAgent.isPresent()) setVariable(kJXPredefinedVariable_UserAgent, userAgent);
}

}  // namespace jx
