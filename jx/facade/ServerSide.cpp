// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/ServerSide.h"

#include <exception>
#include <new>
#include <string>
#include <utility>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXExceptionLog.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/JXLogger.h"
#include "jx/core/JXUser.h"
#include "jx/core/notifications/JXPendingRequest.h"
#include "jx/core/notifications/JXPostScope.h"
#include "jx/core/storage/JXDeferredChanges.h"
#include "jx/core/transfer/JXNetworkManager.h"
#include "jx/facade/JXPostData.h"
#include "jx/facade/JXServerSideUtils.h"
#include "jx/platform/JXConcat.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXServerSideVersion.h"
#include "jx/session/JXSession.h"

namespace jx {
namespace {

constexpr std::string_view kConsentModule = "JXMobileConsent";
constexpr std::string_view kSetDefaultEventParameters = "setDefaultEventParameters:parameters:";
constexpr std::string_view kLogEvent = "logEventWithName:parameters:";

void logLine(std::string_view message, int level) {
  JXLogger::sharedInstance().logMessage_withLevel(message, level);
}

// Runs an operation of the interface. Exceptions (out of memory, thrown by the application's own
// event class) are logged with `failure` and never reach the application.
template <typename Operation>
void guarded(const char* failure, const Operation& operation) noexcept {
  try {
    operation();
  } catch (...) {
    logException(failure);
  }
}

}  // namespace

std::shared_ptr<ServerSide> ServerSide::initWithSiteID_andSourceKey(std::int32_t siteID,
                                                                    const JXString& sourceKey) {
  return initWithSiteID_andSourceKey_andDefaultBehaviour(siteID, sourceKey,
                                                         EJXDefaultBehaviour_DEFAULT);
}

std::shared_ptr<ServerSide> ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
    std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour) {
  return initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
      siteID, sourceKey, defaultBehaviour, nullptr);
}

std::shared_ptr<ServerSide> ServerSide::initWithSiteID_andSourceKey_andFirebaseInstance(
    std::int32_t siteID, const JXString& sourceKey,
    std::shared_ptr<IJXFirebaseInstance> firebaseInstance) {
  return initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
      siteID, sourceKey, EJXDefaultBehaviour_DEFAULT, std::move(firebaseInstance));
}

std::shared_ptr<ServerSide>
ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
    std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour,
    std::shared_ptr<IJXFirebaseInstance> firebaseInstance) {
  return initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
      siteID, sourceKey, nullptr, defaultBehaviour, std::move(firebaseInstance));
}

std::shared_ptr<ServerSide>
ServerSide::initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
    std::int32_t siteID, const JXString& sourceKey,
    const std::shared_ptr<JXNotificationCenter>& center, std::int32_t defaultBehaviour,
    std::shared_ptr<IJXFirebaseInstance> firebaseInstance) {
  std::shared_ptr<ServerSide> serverSide(new ServerSide());
  if (JXForkedChild::ignores("ServerSide init")) return serverSide;
  guarded("Server-Side SDK init failed", [&] {
    serverSide->start(siteID, sourceKey, center, defaultBehaviour, std::move(firebaseInstance));
  });
  return serverSide;
}

void ServerSide::start(std::int32_t siteID, const JXString& sourceKey,
                       const std::shared_ptr<JXNotificationCenter>& center,
                       std::int32_t defaultBehaviour,
                       std::shared_ptr<IJXFirebaseInstance> firebaseInstance) {
  const JXCoreCaller caller("an initialiser of ServerSide");
  initialisation_ = JXServerSideInitialisation::init();
  logLine(concat({"Server-Side SDK init with version ", kJXServerSideVersion}), 4);
  const std::string site = std::to_string(siteID);
  if (siteID != 0) logLine(concat({"Server-Side SDK init with siteID ", site}), 4);
  if (!sourceKey.testString()) {
    logLine("Server-Side SDK init without a source key; events are sent with an empty token", 3);
  }
  defaultBehaviour_ = defaultBehaviour;
  const JXString endpoint = JXCoreServices::sharedInstance().collectionEndpoint();
  setUrl(concat({endpoint.view(), "/events?jx_s=", site, "&token=", sourceKey.view()}));
  setPermanentStore(JXDynamicStore::init());
  JXNetworkManager::sharedInstance().serverSideStarted(this, url().view(), setInitialState());
  const std::shared_ptr<JXEventSender> sender = JXEventSender::init();
  sender->setParent(this);
  setSenderDelegate(sender);
  const std::shared_ptr<JXEventListener> listener = JXEventListener::init();
  listener->setParent(this);
  setListenerDelegate(listener);
  setFirebaseInstance(std::move(firebaseInstance));
  setDeveloperIdForFirebaseInstance();
  listener->listen(kJXNotification_EnablingTheServerSide);
  listener->listen(kJXNotification_StoppingTheServerSide);
  changeNotificationCenter(center);
  siteID_ = siteID;
}

JXStartState ServerSide::setInitialState() {
  if (defaultBehaviour_ == EJXDefaultBehaviour_DISABLED_BY_DEFAULT) {
    serverSideState_ = EJXServerSideState_DISABLED;
    logLine("Starting Server-Side SDK as 'Disabled by default'", 5);
    return JXStartState::Disabled;
  }
  if (defaultBehaviour_ == EJXDefaultBehaviour_ALWAYS_ENABLED) {
    serverSideState_ = EJXServerSideState_ENABLED;
    logLine("Starting Server-Side SDK as 'Always Enabled'", 5);
    return JXStartState::AlwaysEnabled;
  }
  if (JXClassRegistry::sharedInstance().hasClass(kConsentModule)) {
    logLine("Starting Server-Side SDK and waiting for consent", 5);
    serverSideState_ = EJXServerSideState_WAITING_FOR_CONSENT;
    return JXStartState::WaitingForConsent;
  }
  logLine("Starting Server-Side SDK", 5);
  serverSideState_ = EJXServerSideState_ENABLED;
  return JXStartState::Enabled;
}

ServerSide::~ServerSide() {
  if (JXForkedChild::isCurrent()) return;
  JXNotificationCenter::defaultCenter()->removeObserver(this);
  // The application may keep either of them longer than this object.
  if (listenerDelegate_) listenerDelegate_->setParent(nullptr);
  if (senderDelegate_) senderDelegate_->setParent(nullptr);
  JXNetworkManager::sharedInstance().serverSideEnded(this);
}

void ServerSide::setDefaultBehaviour(std::int32_t value) {
  defaultBehaviour_ = value;
  JXNetworkManager::sharedInstance().setAlwaysEnabled(this,
                                                      value == EJXDefaultBehaviour_ALWAYS_ENABLED);
}

void ServerSide::setUrl(const JXString& value) {
  write(url_, value);
  JXNetworkManager::sharedInstance().serverSideMoved(this, value.view());
}

void ServerSide::setListenerDelegate(std::shared_ptr<JXEventListener> value) {
  const std::shared_ptr<JXEventListener> previous = listenerDelegate();
  if (previous && previous != value) previous->setParent(nullptr);
  write(listenerDelegate_, std::move(value));
}

void ServerSide::execute(const std::shared_ptr<JXEvent>& event) {
  // Read once, so that one event is sent in one state.
  const std::int32_t state = serverSideState_;
  if (state == EJXServerSideState_DISABLED || JXForkedChild::ignores("execute()")) return;
  if (!event) {
    logLine("execute() called with a null event; ignored", 3);
    return;
  }
  guarded("execute() failed", [&] { send(*event, state); });
}

void ServerSide::send(JXEvent& event, std::int32_t state) {
  JXNewSessionClaim claim;
  if (!composeAndPost(event, state, claim)) return;
  claim.keep();
  mirrorToFirebase(event);
}

// Returns false if the event was dropped because memory is exhausted.
bool ServerSide::composeAndPost(JXEvent& event, std::int32_t state, JXNewSessionClaim& claim) {
  // The outbox writes the values that the event changes with the event.
  const JXDeferredChanges changes;
  JXString body;
  try {
    body = compose(event, state, claim);
  } catch (const std::bad_alloc&) {
    if (JXNetworkManager::sharedInstance().dropOutOfMemory()) return false;
    throw;
  }
  if (const auto sender = senderDelegate()) {
    JXNotification notification{kJXNotification_HTTPRequest, this, nullptr};
    const JXString url = this->url();
    const JXPendingRequest request(notification, url, body);
    sender->send(notification);
  }
  return true;
}

JXString ServerSide::compose(JXEvent& event, std::int32_t state, JXNewSessionClaim& claim) {
  const bool isDetailLogged = JXLogger::sharedInstance().printsLevel(6);
  if (isDetailLogged) logLine(concat({"Server-Side SDK sending event: ", event.name().view()}), 6);
  if (const auto store = permanentStore()) event.addAdditionalProperty(*store);
  JXString body = JXPostData::executionBody(event, state, claim);
  if (isDetailLogged) logLine(concat({"Event payload: ", body.view()}), 6);
  return body;
}

void ServerSide::mirrorToFirebase(const JXEvent& event) {
  const std::shared_ptr<IJXFirebaseInstance> firebase = firebaseInstance();
  if (!firebase) return;
  // Guarded separately: the event has been queued, so execute() has not failed.
  guarded("Firebase mirroring failed", [&] {
    if (!firebase->respondsToOperation(kLogEvent)) return;
    firebase->performOperation(kLogEvent, event.name(),
                               JXServerSideUtils::eventPropertiesToDictionary(event));
  });
}

void ServerSide::addPermanentData_withValue(const JXString& key, const JXJsonValue& value) {
  guarded("addPermanentData_withValue() failed", [&] {
    if (const auto store = permanentStore()) store->addData_withValue(key, value);
  });
}

JXJsonValue ServerSide::getPermanentData(const JXString& key) const {
  const auto store = permanentStore();
  return store ? store->getData(key) : JXJsonValue();
}

JXJsonValue ServerSide::removePermanentData(const JXString& key) {
  const auto store = permanentStore();
  return store ? store->removeData(key) : JXJsonValue();
}

void ServerSide::waitForUserAgent() {
  if (JXForkedChild::ignores("waitForUserAgent()")) return;
  guarded("waitForUserAgent() failed",
          [] { JXNetworkManager::sharedInstance().waitForUserAgent(); });
}

void ServerSide::enableRunningInBackground() {
  if (JXForkedChild::ignores("enableRunningInBackground()")) return;
  guarded("enableRunningInBackground() failed", [] {
    JXCoreVariables::sharedInstance().setEnableSDKInBG(true);
    JXNetworkManager::sharedInstance().enableRunningInBackground();
    logLine("Server-Side SDK is now enabled to run in background", 5);
  });
}

void ServerSide::enableServerSide() {
  if (JXForkedChild::ignores("enableServerSide()")) return;
  guarded("enableServerSide() failed", [this] {
    JXJsonObject userInfo;
    userInfo.set(kJXUserInfo_POSTData, JXUser::sharedInstance().getJsonObject());
    if (const auto sender = senderDelegate()) {
      sender->send({kJXNotification_EnablingTheServerSide, this, userInfo});
    }
  });
}

void ServerSide::disableServerSide() {
  if (defaultBehaviour_ == EJXDefaultBehaviour_ALWAYS_ENABLED) return;
  if (JXForkedChild::ignores("disableServerSide()")) return;
  guarded("disableServerSide() failed", [this] {
    if (const auto sender = senderDelegate()) {
      sender->send({kJXNotification_StoppingTheServerSide, this, nullptr});
    }
  });
}

void ServerSide::addAdvertisingIDs() {
  if (JXForkedChild::ignores("addAdvertisingIDs()")) return;
  guarded("addAdvertisingIDs() failed", [this] {
    if (!JXCoreServices::sharedInstance().mayStore()) {
      logLine("addAdvertisingIDs() called before the viewer consented; ignored", 3);
      return;
    }
    JXCoreVariables::sharedInstance().setIDFV();
    setAdvertisingTrackingEnabled();  // stores the permission that the next step reads
    setIDFA();
    JXDevice::sharedInstance().setAdvertisingIds();
  });
}

void ServerSide::setAdvertisingTrackingEnabled() {
  const bool isAllowed = JXCoreServices::sharedInstance().platform().isAdvertisingTrackingAllowed();
  JXCoreVariables::sharedInstance().addData_withValue(kJXPredefinedVariable_isTrackingEnabled,
                                                      isAllowed ? "1" : "0");
}

void ServerSide::setIDFA() {
  JXCoreVariables& variables = JXCoreVariables::sharedInstance();
  JXString identifier = STATIC_IDFA;
  if (variables.getData(kJXPredefinedVariable_isTrackingEnabled) == JXString("1")) {
    identifier = JXCoreServices::sharedInstance().platform().advertisingIdentifier();
  }
  variables.addData_withValue(kJXPredefinedVariable_IDFA, identifier);
}

void ServerSide::changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center) {
  if (const auto sender = senderDelegate()) sender->setNotificationCenter(center);
}

void ServerSide::onNotificationReceived(const JXNotification& notification) {
  if (notification.name.view() == kJXNotification_StoppingTheServerSide) {
    // Checked here too, because the notification may come from another sender.
    if (defaultBehaviour_ == EJXDefaultBehaviour_ALWAYS_ENABLED) return;
    if (applyDecision(notification, EJXServerSideState_DISABLED)) {
      logLine("Server-Side SDK is now deactivated", 5);
    }
  } else if (notification.name.view() == kJXNotification_EnablingTheServerSide) {
    if (applyDecision(notification, EJXServerSideState_ENABLED)) {
      logLine("Server-Side SDK is now activated", 5);
      // If data may be stored only with consent, the first visit begins now.
      static_cast<void>(JXPredefinedVariables::sharedInstance());
    }
  }
}

// Ignores a decision that another thread's later one has overtaken on the way from the network
// manager, so that both end in the same state.
bool ServerSide::applyDecision(const JXNotification& notification, std::int32_t state) {
  if (JXForkedChild::ignores("ServerSide::onNotificationReceived()")) return false;
  const std::lock_guard<std::mutex> lock(mutex_);
  const std::uint64_t decision = JXPostScope::decisionOf(notification);
  if (decision != 0 && decision < lastDecision_) return false;
  if (decision != 0) lastDecision_ = decision;
  serverSideState_ = state;
  return true;
}

void ServerSide::setDeveloperIdForFirebaseInstance() {
  // Guarded separately: initialisation must continue if the application's object throws.
  guarded("setDeveloperIdForFirebaseInstance() failed", [this] {
    const std::shared_ptr<IJXFirebaseInstance> firebase = firebaseInstance();
    if (!firebase || !firebase->respondsToOperation(kSetDefaultEventParameters)) return;
    firebase->performOperation(kSetDefaultEventParameters, "developer_id", JX_GCM_DEVELOPER_ID);
  });
}

}  // namespace jx
