// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreConstants.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCDelegates : public test::NotificationTest {};

TEST_F(ObjectiveCDelegates, ASenderPostsTheNotificationItself) {
  start();
  ::JXEventSender* const sender = make<::JXEventSender>();
  [sender setParent:nil];
  NotificationRecorder* const observer = recorder(@"quiz over");
  NSObject* const object = make<NSObject>();
  NSNotification* const notification = [NSNotification notificationWithName:@"quiz over"
                                                                     object:object];
  [sender send:notification];
  [sender send:nil];
  ASSERT_EQ([observer->_received count], 1u);
  EXPECT_EQ([observer->_received objectAtIndex:0], notification);
  EXPECT_TRUE(linesUpTo(3).empty());
  [sender send:static_cast<id>(@"a string")];
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCDelegates, ASenderPostsOnTheCenterThatWasSet) {
  ::ServerSide* const serverSide = create();
  ::JXEventSender* const sender = make<::JXEventSender>();
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  [sender setNotificationCenter:center];
  NotificationRecorder* const own = recorder(::kJXNotification_StoppingTheServerSide, center);
  NotificationRecorder* const other = recorder(::kJXNotification_StoppingTheServerSide);
  [sender send:[NSNotification notificationWithName: ::kJXNotification_StoppingTheServerSide
                                             object:nil]];
  EXPECT_EQ([own->_received count], 1u);
  EXPECT_EQ([other->_received count], 0u);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
  [center removeObserver:own];
}

TEST_F(ObjectiveCDelegates, AListenerPassesEachNotificationToItsParentOnce) {
  start();
  ::JXEventListener* const listener = make<::JXEventListener>();
  NotificationRecorder* const parent = make<NotificationRecorder>();
  [listener setParent:parent];
  [listener listen:@"quiz over"];
  [listener listen:@"quiz over"];
  [listener listen:nil];
  NSNotification* const notification = [NSNotification notificationWithName:@"quiz over"
                                                                     object:nil];
  [defaultCenter() postNotification:notification];
  ASSERT_EQ([parent->_received count], 1u);
  EXPECT_EQ([parent->_received objectAtIndex:0], notification);
  ::JXEventSender* const sender = make<::JXEventSender>();
  [sender send:notification];
  EXPECT_EQ([parent->_received count], 2u);
  post(@"another name");
  EXPECT_EQ([parent->_received count], 2u);
  [listener setParent:nil];
  post(@"quiz over");
  EXPECT_EQ([parent->_received count], 2u);
}

TEST_F(ObjectiveCDelegates, AListenerReceivesNotificationsOfOtherCenters) {
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  create(center);
  ::JXEventListener* const listener = make<::JXEventListener>();
  NotificationRecorder* const parent = make<NotificationRecorder>();
  [listener setParent:parent];
  [listener listen:@"quiz over"];
  post(@"quiz over", center);
  EXPECT_EQ([parent->_received count], 1u);
  [listener setParent:nil];
}

TEST_F(ObjectiveCDelegates, AListenerMovesToAnotherCenter) {
  create();
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  NotificationRecorder* const parent = make<NotificationRecorder>();
  ::JXEventListener* const listener = make<::JXEventListener>();
  [listener setParent:parent];
  [listener listen:@"moved"];
  post(@"moved", center);
  EXPECT_EQ([parent->_received count], 0u);
  [listener setNotificationCenter:center];
  post(@"moved", center);
  EXPECT_EQ([parent->_received count], 1u);
  [listener setNotificationCenter:nil];
  post(@"moved", center);
  EXPECT_EQ([parent->_received count], 1u);
  post(@"moved");
  EXPECT_EQ([parent->_received count], 2u);
  forgetLines();
  [listener setNotificationCenter:static_cast<id>(@"a string")];
  post(@"moved");
  EXPECT_EQ([parent->_received count], 3u);
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCDelegates, AListenerThatIsReleasedNoLongerCallsItsParent) {
  start();
  NotificationRecorder* const parent = make<NotificationRecorder>();
  ::JXEventListener* const listener = [[::JXEventListener alloc] init];
  [listener setParent:parent];
  [listener listen:@"quiz over"];
  [listener release];
  post(@"quiz over");
  EXPECT_EQ([parent->_received count], 0u);
}

TEST_F(ObjectiveCDelegates, AParentWithoutTheMethodIsLoggedAndIgnored) {
  start();
  ::JXEventListener* const listener = make<::JXEventListener>();
  [listener setParent:static_cast<id>(@"a string")];
  [listener listen:@"quiz over"];
  post(@"quiz over");
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  EXPECT_EQ(count({3, "Listener parent has no method onNotificationReceived:; ignored"}), 1u);
}

TEST_F(ObjectiveCDelegates, ReceivesANotificationDirectly) {
  ::ServerSide* const serverSide = create();
  [serverSide
      onNotificationReceived:[NSNotification
                                 notificationWithName: ::kJXNotification_StoppingTheServerSide
                                               object:nil]];
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
  forgetLines();
  [serverSide onNotificationReceived:nil];
  EXPECT_TRUE(linesUpTo(3).empty());
  [serverSide onNotificationReceived:static_cast<id>(@"a string")];
  EXPECT_EQ(linesUpTo(3).size(), 1u);
}

TEST_F(ObjectiveCDelegates, ReplacesTheSender) {
  ::ServerSide* const serverSide = create();
  EXPECT_TRUE([serverSide.senderDelegate isEqual:serverSide.senderDelegate]);
  serverSide.senderDelegate = nil;
  executeQuiz(serverSide);
  EXPECT_TRUE(requests().empty());
  ::JXEventSender* const sender = make<::JXEventSender>();
  serverSide.senderDelegate = sender;
  EXPECT_TRUE([serverSide.senderDelegate isEqual:sender]);
  executeQuiz(serverSide);
  EXPECT_EQ(requests().size(), 1u);
}

TEST_F(ObjectiveCDelegates, TheListenerKeepsAParentThatIsSetLater) {
  ::ServerSide* const serverSide = create();
  NotificationRecorder* const parent = make<NotificationRecorder>();
  @autoreleasepool {
    EXPECT_EQ(serverSide.listenerDelegate, serverSide.listenerDelegate);
    [serverSide.listenerDelegate setParent:parent];
  }
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ([parent->_received count], 1u);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
  [serverSide.listenerDelegate setParent:serverSide];
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ([parent->_received count], 1u);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
}

TEST_F(ObjectiveCDelegates, AListenerDoesNotRepeatTheNotificationsOfTheSystem) {
  create();
  int transitions = 0;
  jx::JXNotificationCenter::defaultCenter()->addObserver(
      &transitions, jx::kJXNotification_OnBackground,
      [&](const JXNotification&) { ++transitions; });
  ::JXEventListener* const listener = make<::JXEventListener>();
  [listener listen:@"UIApplicationDidEnterBackgroundNotification"];
  // The platform passes it to the library; here, there is none for UIKit.
  post(@"UIApplicationDidEnterBackgroundNotification");
  EXPECT_EQ(transitions, 0);
  jx::JXNotificationCenter::defaultCenter()->removeObserver(&transitions);
}

TEST_F(ObjectiveCDelegates, ReplacesTheListener) {
  ::ServerSide* const serverSide = create();
  EXPECT_TRUE([serverSide.listenerDelegate isEqual:serverSide.listenerDelegate]);
  NotificationRecorder* const parent = make<NotificationRecorder>();
  @autoreleasepool {
    ::JXEventListener* const listener = make<::JXEventListener>();
    [listener setParent:parent];
    [listener listen: ::kJXNotification_StoppingTheServerSide];
    serverSide.listenerDelegate = listener;
  }
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ([parent->_received count], 1u);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
  serverSide.listenerDelegate = nil;
  EXPECT_EQ(serverSide.listenerDelegate, nil);
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ([parent->_received count], 1u);
}

}  // namespace
}  // namespace jx::objc
