// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>

#include "jx/core/JXDynamicStore.h"
#include "jx/core/JXForkedChild.h"
#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/events/JXEvent.h"
#include "jx/facade/IJXFirebaseInstance.h"
#include "jx/facade/JXServerSideInitialisation.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

class JXNewSessionClaim;
enum class JXStartState;

/// Specifies whether events are sent.
enum EJXServerSideState : std::int32_t {
  EJXServerSideState_WAITING_FOR_CONSENT = 0,  ///< sent, with a marker instead of the user block
  EJXServerSideState_ENABLED = 1,              ///< sent with the user block
  EJXServerSideState_DISABLED = 2,             ///< `execute` does nothing
};

/// Specifies the initial state, and whether stop requests are obeyed.
enum EJXDefaultBehaviour : std::int32_t {
  EJXDefaultBehaviour_DEFAULT = 0,         ///< waits for consent if a consent module is registered
  EJXDefaultBehaviour_ALWAYS_ENABLED = 1,  ///< starts enabled; stop requests are ignored
  EJXDefaultBehaviour_DISABLED_BY_DEFAULT = 2,  ///< starts disabled until it is enabled
};

/// The main SDK object. Create one and keep it while the application runs; it queues events and
/// delivers them.
///
/// The application owns it. Every operation may be called from any thread; an event belongs to one
/// thread at a time. Operations return at once, never throw and report no errors; failures are
/// logged. Creating the first
/// `ServerSide` starts the library with the current JXCoreConfiguration.
class JX_API ServerSide final : public IJXEventSenderDelegate, public IJXEventListenerDelegate {
 public:
  /// Queues an event for delivery. The event is stored before this returns and survives a killed
  /// process. Adds the permanent data to the event object itself. Does nothing while disabled. A
  /// null event is logged and ignored.
  void execute(const std::shared_ptr<JXEvent>& event);

  /// Adds a value to every subsequent event, replacing any value with the same key. A null value
  /// removes the key.
  void addPermanentData_withValue(const JXString& key, const JXJsonValue& value);
  /// Returns the value of the key; null when it is not set.
  JXJsonValue getPermanentData(const JXString& key) const;
  /// Removes the value and returns it; null when it is not set. Event objects that were already
  /// executed keep theirs.
  JXJsonValue removePermanentData(const JXString& key);

  /// @name Initialisers
  /// `siteID` is the site ID of the application. `sourceKey` is its source key, which is written to
  /// `url` unchanged and percent-encoded in the request. `defaultBehaviour` is an
  /// EJXDefaultBehaviour; any other value means DEFAULT. `center` is the notification centre that
  /// this object posts on; null means the default centre. `firebaseInstance` may be null; the
  /// object shares its ownership.
  /// @{

  /// Uses default behaviour 0 and no Firebase instance. Never returns null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey(std::int32_t siteID,
                                                                 const JXString& sourceKey);
  /// Uses no Firebase instance. Never returns null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey_andDefaultBehaviour(
      std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour);
  /// Uses default behaviour 0. Never returns null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// Posts on the default centre. Never returns null.
  static std::shared_ptr<ServerSide>
  initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// Sets every parameter. Never returns null.
  static std::shared_ptr<ServerSide>
  initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey,
      const std::shared_ptr<JXNotificationCenter>& center, std::int32_t defaultBehaviour,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// @}

  /// Pauses delivery until the user agent is known, for 10 seconds at most.
  void waitForUserAgent();
  /// Allows delivery while the application is in the background.
  void enableRunningInBackground();
  /// Withdraws consent, for every ServerSide that is not always enabled: new events are ignored;
  /// queued events stay queued. When this returns, nothing of them is sent any more, in later
  /// processes neither, until an enabling. Waits for neither network nor disk (see
  /// JXNetworkManager::changingSDKBehaviour). Does nothing for an object that is always enabled.
  void disableServerSide();
  /// Gives consent, for every ServerSide: new events are sent, and so are the queued events, also
  /// those that earlier processes left because of a stop.
  void enableServerSide();

  /// Reads the vendor identifier, the tracking permission and the advertising identifier, and
  /// copies them to the device block. Call it after the viewer has answered the tracking prompt.
  void addAdvertisingIDs();
  /// Stores "1" when the system allows advertising tracking, "0" otherwise.
  void setAdvertisingTrackingEnabled();
  /// Moves the posts of this object to another notification centre; null means the default one.
  /// Notifications that the object listens for are still received.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Stores the advertising identifier when the stored permission is "1", `STATIC_IDFA` otherwise.
  void setIDFA();
  /// Handles the stop and enable notifications of any sender. Called on the posting thread.
  void onNotificationReceived(const JXNotification& notification) override;
  /// Passes the developer ID to the Firebase instance, if there is one and it supports the
  /// operation. Each initialiser calls this.
  void setDeveloperIdForFirebaseInstance();

  ~ServerSide() override;
  ServerSide(const ServerSide&) = delete;
  ServerSide& operator=(const ServerSide&) = delete;

  /// Returns the object that started the library for this one. Applications do not need it.
  std::shared_ptr<JXServerSideInitialisation> initialisation() const {
    return read(initialisation_);
  }
  void setInitialisation(std::shared_ptr<JXServerSideInitialisation> value) {
    write(initialisation_, std::move(value));
  }
  /// Returns the site ID. Setting it does not change `url`.
  std::int32_t siteID() const { return siteID_; }
  void setSiteID(std::int32_t value) { siteID_ = value; }
  /// Returns an EJXServerSideState. The setter only decides whether `execute` sends; it posts no
  /// notification. Use `enableServerSide` and `disableServerSide` instead.
  std::int32_t serverSideState() const { return serverSideState_; }
  void setServerSideState(std::int32_t value) { serverSideState_ = value; }
  /// Returns an EJXDefaultBehaviour. Setting it later changes only whether stop requests are
  /// ignored.
  std::int32_t defaultBehaviour() const { return defaultBehaviour_; }
  void setDefaultBehaviour(std::int32_t value);
  /// Returns the URL that events are posted to, with site ID and source key. A new URL applies to
  /// subsequent events.
  JXString url() const { return read(url_); }
  void setUrl(const JXString& value);
  /// Returns the store of the permanent data. With a null store there is no permanent data, and
  /// values that are added are ignored.
  std::shared_ptr<JXDynamicStore> permanentStore() const { return read(permanentStore_); }
  void setPermanentStore(std::shared_ptr<JXDynamicStore> value) {
    write(permanentStore_, std::move(value));
  }
  /// Returns the sender of requests and state changes. With a null sender nothing is sent.
  std::shared_ptr<JXEventSender> senderDelegate() const override { return read(senderDelegate_); }
  void setSenderDelegate(std::shared_ptr<JXEventSender> value) {
    write(senderDelegate_, std::move(value));
  }
  /// Returns the listener through which this object receives state changes.
  std::shared_ptr<JXEventListener> listenerDelegate() const override {
    return read(listenerDelegate_);
  }
  /// Replaces the listener. The previous one no longer calls this object; the new one is used
  /// unchanged, with the parent and the names that the application set.
  void setListenerDelegate(std::shared_ptr<JXEventListener> value);
  /// Returns the object that events are mirrored to; may be null.
  std::shared_ptr<IJXFirebaseInstance> firebaseInstance() const { return read(firebaseInstance_); }
  void setFirebaseInstance(std::shared_ptr<IJXFirebaseInstance> value) {
    write(firebaseInstance_, std::move(value));
  }

 private:
  ServerSide() = default;
  void start(std::int32_t siteID, const JXString& sourceKey,
             const std::shared_ptr<JXNotificationCenter>& center, std::int32_t defaultBehaviour,
             std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  JXStartState setInitialState();
  bool applyDecision(const JXNotification& notification, std::int32_t state);
  void send(JXEvent& event, std::int32_t state);
  bool composeAndPost(JXEvent& event, std::int32_t state, JXNewSessionClaim& claim);
  JXString compose(JXEvent& event, std::int32_t state, JXNewSessionClaim& claim);
  void mirrorToFirebase(const JXEvent& event);

  template <typename Value>
  Value read(const Value& field) const {
    if (JXForkedChild::ignores("ServerSide")) return Value{};
    const std::lock_guard<std::mutex> lock(mutex_);
    return field;
  }
  template <typename Value>
  void write(Value& field, Value value) {
    if (JXForkedChild::ignores("ServerSide")) return;
    const std::lock_guard<std::mutex> lock(mutex_);
    // The previous value ends after the lock is released: it may be an object of the application.
    std::swap(field, value);
  }

  mutable std::mutex mutex_;  ///< guards the fields below that are not atomic
  std::shared_ptr<JXServerSideInitialisation> initialisation_;
  std::atomic<std::int32_t> siteID_{0};
  std::atomic<std::int32_t> serverSideState_{EJXServerSideState_WAITING_FOR_CONSENT};
  std::atomic<std::int32_t> defaultBehaviour_{EJXDefaultBehaviour_DEFAULT};
  JXString url_;
  std::shared_ptr<JXDynamicStore> permanentStore_;
  std::shared_ptr<JXEventSender> senderDelegate_;
  std::shared_ptr<JXEventListener> listenerDelegate_;
  std::shared_ptr<IJXFirebaseInstance> firebaseInstance_;
  std::uint64_t lastDecision_ = 0;  ///< number of the stop or enabling that was applied last
};

}  // namespace jx
