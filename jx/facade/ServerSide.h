// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>

#include "jx/core/JXDynamicStore.h"
#include "jx/core/notifications/JXEventListener.h"
#include "jx/core/notifications/JXEventSender.h"
#include "jx/events/JXEvent.h"
#include "jx/facade/IJXFirebaseInstance.h"
#include "jx/facade/JXServerSideInitialisation.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Whether events are sent now.
enum EJXServerSideState : std::int32_t {
  EJXServerSideState_WAITING_FOR_CONSENT = 0,  ///< sent, with a marker in place of the user block
  EJXServerSideState_ENABLED = 1,              ///< sent with the user block
  EJXServerSideState_DISABLED = 2,             ///< `execute` does nothing
};

/// How the library starts, and whether it obeys a stop.
enum EJXDefaultBehaviour : std::int32_t {
  EJXDefaultBehaviour_DEFAULT = 0,         ///< waits for consent when a consent module is there
  EJXDefaultBehaviour_ALWAYS_ENABLED = 1,  ///< starts enabled; stops are ignored
  EJXDefaultBehaviour_DISABLED_BY_DEFAULT = 2,  ///< starts disabled until it is enabled
};

/// The one object that a host makes and keeps: takes events and has them delivered.
///
/// The host owns it. Every operation belongs to the thread that the host made it on, returns at
/// once, never throws and reports nothing; what goes wrong is a line in the log. The first one made
/// starts the library, with the JXCoreConfiguration that is in force then.
class JX_API ServerSide final : public IJXEventSenderDelegate, public IJXEventListenerDelegate {
 public:
  /// Sends an event. When this returns the event is in the outbox, which a killed process does not
  /// empty. Adds the permanent data to the event itself. Does nothing while disabled; a null event
  /// is logged.
  void execute(const std::shared_ptr<JXEvent>& event);

  /// Adds a datum to every event from now on, in the place of one of the same key. An absent value
  /// removes it.
  void addPermanentData_withValue(const JXString& key, const JXJsonValue& value);
  /// Absent when there is none.
  JXJsonValue getPermanentData(const JXString& key) const;
  /// Removes the datum and returns it. Event objects that were executed keep theirs.
  JXJsonValue removePermanentData(const JXString& key);

  /// @name Initialisers
  /// `siteID` is the host's site number, `sourceKey` its source key, which goes into the URL as it
  /// is. `defaultBehaviour` is an EJXDefaultBehaviour; any other value counts as DEFAULT. `center`
  /// is the centre that this object posts on, null the default one. `firebaseInstance` may be null
  /// and is kept.
  /// @{

  /// Default behaviour 0, no Firebase instance. Never null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey(std::int32_t siteID,
                                                                 const JXString& sourceKey);
  /// No Firebase instance. Never null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey_andDefaultBehaviour(
      std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour);
  /// Default behaviour 0. Never null.
  static std::shared_ptr<ServerSide> initWithSiteID_andSourceKey_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// Posts on the default centre. Never null.
  static std::shared_ptr<ServerSide>
  initWithSiteID_andSourceKey_andDefaultBehaviour_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey, std::int32_t defaultBehaviour,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// States everything. Never null.
  static std::shared_ptr<ServerSide>
  initWithSiteID_andSourceKey_notificationCenter_andDefaultBehaviour_andFirebaseInstance(
      std::int32_t siteID, const JXString& sourceKey,
      const std::shared_ptr<JXNotificationCenter>& center, std::int32_t defaultBehaviour,
      std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  /// @}

  /// Holds requests until the user agent is known, at most 10 seconds.
  void waitForUserAgent();
  /// Lets events go out while the application is in the background.
  void enableRunningInBackground();
  /// Withdraws consent: events are ignored from now on and those queued are held. Does nothing for
  /// an object that is always enabled.
  void disableServerSide();
  /// Gives consent: events are sent from now on, and those held go out.
  void enableServerSide();

  /// Reads the vendor identifier, the tracking permission and the advertising identifier, and puts
  /// them into the device block. To be called once the viewer has answered the tracking prompt.
  void addAdvertisingIDs();
  /// Stores whether tracking is allowed, as "1" or "0".
  void setAdvertisingTrackingEnabled();
  /// Moves this object's posts to another centre; null is the default one. What it listens for
  /// still reaches it.
  void changeNotificationCenter(const std::shared_ptr<JXNotificationCenter>& center);
  /// Stores the advertising identifier when the stored permission is "1", and `STATIC_IDFA` when it
  /// is anything else.
  void setIDFA();
  /// Hears the stopping and the enabling notification, whoever posts them. Called on the thread
  /// that posts.
  void onNotificationReceived(const JXNotification& notification) override;
  /// Gives the Firebase instance its developer id, when there is one that takes it. Each
  /// initialiser does this.
  void setDeveloperIdForFirebaseInstance();

  ~ServerSide() override;
  ServerSide(const ServerSide&) = delete;
  ServerSide& operator=(const ServerSide&) = delete;

  /// Made with this object, so that the library is up; the host has no use for it.
  const std::shared_ptr<JXServerSideInitialisation>& initialisation() const {
    return initialisation_;
  }
  void setInitialisation(std::shared_ptr<JXServerSideInitialisation> value) {
    initialisation_ = std::move(value);
  }
  /// The site number. Setting it does not change `url`.
  std::int32_t siteID() const { return siteID_; }
  void setSiteID(std::int32_t value) { siteID_ = value; }
  /// An EJXServerSideState. Setting it decides whether `execute` sends, and tells nobody; use
  /// `enableServerSide` and `disableServerSide`.
  std::int32_t serverSideState() const { return serverSideState_; }
  void setServerSideState(std::int32_t value) { serverSideState_ = value; }
  /// An EJXDefaultBehaviour. Set after the start it changes only whether stops are ignored.
  std::int32_t defaultBehaviour() const { return defaultBehaviour_; }
  void setDefaultBehaviour(std::int32_t value) { defaultBehaviour_ = value; }
  /// Where events are posted, site number and source key included; set for events from now on.
  const JXString& url() const { return url_; }
  void setUrl(const JXString& value) { url_ = value; }
  /// The permanent data. Null takes none.
  const std::shared_ptr<JXDynamicStore>& permanentStore() const { return permanentStore_; }
  void setPermanentStore(std::shared_ptr<JXDynamicStore> value) {
    permanentStore_ = std::move(value);
  }
  /// What requests and changes of state are posted through. Null sends nothing.
  std::shared_ptr<JXEventSender> senderDelegate() const override { return senderDelegate_; }
  void setSenderDelegate(std::shared_ptr<JXEventSender> value) {
    senderDelegate_ = std::move(value);
  }
  /// What this object hears changes of state through.
  std::shared_ptr<JXEventListener> listenerDelegate() const override { return listenerDelegate_; }
  /// The listener that is replaced no longer calls this object; the new one is as the host made it.
  void setListenerDelegate(std::shared_ptr<JXEventListener> value);
  /// The object that events are mirrored to; null for none.
  const std::shared_ptr<IJXFirebaseInstance>& firebaseInstance() const { return firebaseInstance_; }
  void setFirebaseInstance(std::shared_ptr<IJXFirebaseInstance> value) {
    firebaseInstance_ = std::move(value);
  }

 private:
  ServerSide() = default;
  void start(std::int32_t siteID, const JXString& sourceKey,
             const std::shared_ptr<JXNotificationCenter>& center, std::int32_t defaultBehaviour,
             std::shared_ptr<IJXFirebaseInstance> firebaseInstance);
  void decideStartState();
  void send(JXEvent& event);
  void mirrorToFirebase(const JXEvent& event);

  std::shared_ptr<JXServerSideInitialisation> initialisation_;
  std::int32_t siteID_ = 0;
  std::int32_t serverSideState_ = EJXServerSideState_WAITING_FOR_CONSENT;
  std::int32_t defaultBehaviour_ = EJXDefaultBehaviour_DEFAULT;
  JXString url_;
  std::shared_ptr<JXDynamicStore> permanentStore_;
  std::shared_ptr<JXEventSender> senderDelegate_;
  std::shared_ptr<JXEventListener> listenerDelegate_;
  std::shared_ptr<IJXFirebaseInstance> firebaseInstance_;
};

}  // namespace jx
