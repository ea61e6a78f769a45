// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXApplication.h"
#import "tests/objc/NotificationTest.h"

namespace jx::objc {
namespace {

class ObjectiveCNotifications : public test::NotificationTest {};

TEST_F(ObjectiveCNotifications, PostsRequestsOnTheDefaultCenter) {
  ::ServerSide* const serverSide = create();
  NotificationRecorder* const observer = recorder(::kJXNotification_HTTPRequest);
  executeQuiz(serverSide);
  ASSERT_EQ(requests().size(), 1u);
  ASSERT_EQ([observer->_received count], 1u);
  NSNotification* const notification = [observer->_received objectAtIndex:0];
  EXPECT_EQ(text([notification name]), "JXNotification: HTTP Request");
  EXPECT_EQ([notification object], serverSide);
  NSDictionary* const userInfo = [notification userInfo];
  EXPECT_EQ([userInfo count], 2u);
  EXPECT_EQ(text([userInfo objectForKey: ::kJXUserInfo_URLKey]), requests()[0].url.toStdString());
  EXPECT_EQ(text([userInfo objectForKey: ::kJXUserInfo_POSTData]), requests()[0].text);
}

TEST_F(ObjectiveCNotifications, AppliesStopsAndEnablingsOnTheDefaultCenter) {
  ::ServerSide* const serverSide = create();
  forgetLines();
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
  executeQuiz(serverSide);
  EXPECT_TRUE(requests().empty());
  post(::kJXNotification_EnablingTheServerSide);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
  EXPECT_EQ(count({5, "Server-Side SDK is now deactivated"}), 1u);
  EXPECT_EQ(count({5, "Server-Side SDK is now activated"}), 1u);
  EXPECT_EQ(posted("JXNotification: Stopping The Server Side").size(), 1u);
}

TEST_F(ObjectiveCNotifications, AnAlwaysEnabledObjectIgnoresStops) {
  ::ServerSide* const serverSide = create(nil, ::EJXDefaultBehaviour_ALWAYS_ENABLED);
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
}

TEST_F(ObjectiveCNotifications, PostsItsOwnDecisionsOnce) {
  ::ServerSide* const serverSide = create();
  NotificationRecorder* const observer = recorder(::kJXNotification_StoppingTheServerSide);
  [observer observe: ::kJXNotification_EnablingTheServerSide on:defaultCenter()];
  [serverSide disableServerSide];
  [serverSide enableServerSide];
  ASSERT_EQ([observer->_received count], 2u);
  EXPECT_EQ([[observer->_received objectAtIndex:0] userInfo], nil);
  NSDictionary* const user =
      [[[observer->_received objectAtIndex:1] userInfo] objectForKey: ::kJXUserInfo_POSTData];
  EXPECT_NE([user objectForKey:@"anonymous_id"], nil);
  EXPECT_EQ(posted("JXNotification: Enabling The Server Side").size(), 1u);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
}

TEST_F(ObjectiveCNotifications, PostsOnTheCenterThatWasPassed) {
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  ::ServerSide* const serverSide = create(center);
  NotificationRecorder* const own = recorder(::kJXNotification_HTTPRequest, center);
  NotificationRecorder* const other = recorder(::kJXNotification_HTTPRequest);
  executeQuiz(serverSide);
  EXPECT_EQ([own->_received count], 1u);
  EXPECT_EQ([other->_received count], 0u);
  [serverSide changeNotificationCenter:nil];
  executeQuiz(serverSide);
  EXPECT_EQ([own->_received count], 1u);
  EXPECT_EQ([other->_received count], 1u);
  [center removeObserver:own];
}

TEST_F(ObjectiveCNotifications, AppliesStopsOnBothCenters) {
  NSNotificationCenter* const center = make<NSNotificationCenter>();
  ::ServerSide* const serverSide = create(center);
  post(::kJXNotification_StoppingTheServerSide);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
  post(::kJXNotification_EnablingTheServerSide, center);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_ENABLED);
  post(::kJXNotification_StoppingTheServerSide, center);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
}

TEST_F(ObjectiveCNotifications, AWrongClassSelectsTheDefaultCenter) {
  ::ServerSide* const serverSide = create(static_cast<id>(@"a string"));
  EXPECT_EQ(linesUpTo(3).size(), 1u);
  NotificationRecorder* const observer = recorder(::kJXNotification_HTTPRequest);
  executeQuiz(serverSide);
  EXPECT_EQ([observer->_received count], 1u);
}

TEST_F(ObjectiveCNotifications, AnObserverMayPostAnotherNotification) {
  ::ServerSide* const serverSide = create();
  NotificationRecorder* const observer = recorder(::kJXNotification_HTTPRequest);
  observer->_nextName = ::kJXNotification_StoppingTheServerSide;
  NotificationRecorder* const later = recorder(::kJXNotification_StoppingTheServerSide);
  [later observe: ::kJXNotification_HTTPRequest on:defaultCenter()];
  executeQuiz(serverSide);
  EXPECT_EQ(serverSide.serverSideState, ::EJXServerSideState_DISABLED);
  EXPECT_EQ(requests().size(), 1u);
  EXPECT_EQ([later count: ::kJXNotification_StoppingTheServerSide], 1u);
  EXPECT_EQ([later count: ::kJXNotification_HTTPRequest], 1u);
}

TEST_F(ObjectiveCNotifications, ARequestOfTheApplicationReachesTheLibraryOnce) {
  create();
  NSDictionary* const userInfo =
      [NSDictionary dictionaryWithObjectsAndKeys:@"https://127.0.0.1/x", ::kJXUserInfo_URLKey,
                                                 @"{\"a\":1}", ::kJXUserInfo_POSTData, nil];
  [defaultCenter() postNotificationName: ::kJXNotification_HTTPRequest
                                 object:nil
                               userInfo:userInfo];
  ASSERT_EQ(requests().size(), 1u);
  EXPECT_EQ(requests()[0].url, JXString("https://127.0.0.1/x"));
  EXPECT_EQ(requests()[0].text, "{\"a\":1}");
}

TEST_F(ObjectiveCNotifications, AnExceptionOfAnObserverIsLogged) {
  ::ServerSide* const serverSide = create();
  NotificationRecorder* const listening = make<NotificationRecorder>();
  listening->_raises = YES;
  ::JXEventListener* const listener = make<::JXEventListener>();
  [listener setParent:listening];
  [listener listen: ::kJXNotification_HTTPRequest];
  forgetLines();
  executeQuiz(serverSide);
  EXPECT_EQ(requests().size(), 1u);
  EXPECT_EQ([listening->_received count], 1u);
  EXPECT_EQ(count({3, "Observer of \"JXNotification: HTTP Request\" threw an exception: not ready; "
                      "ignored"}),
            1u);
  [listener setParent:nil];
}

TEST_F(ObjectiveCNotifications, DoesNotRepeatTheNotificationsOfTheSystem) {
  create();
  NotificationRecorder* const observer = recorder(@"UIApplicationDidEnterBackgroundNotification");
  [observer observe:@"UIApplicationWillEnterForegroundNotification" on:defaultCenter()];
  [observer observe: ::kJXNotification_OnBackground on:defaultCenter()];
  [observer observe: ::kJXNotification_OnForeground on:defaultCenter()];
  jx::JXApplication::applicationDidEnterBackground();
  jx::JXApplication::applicationWillEnterForeground();
  EXPECT_EQ([observer->_received count], 2u);
  EXPECT_EQ([observer count: ::kJXNotification_OnBackground], 1u);
  EXPECT_EQ([observer count: ::kJXNotification_OnForeground], 1u);
}

TEST_F(ObjectiveCNotifications, AnObserverMayKeepANotification) {
  NotificationRecorder* const observer = recorder(::kJXNotification_HTTPRequest);
  @autoreleasepool {
    executeQuiz(create());
  }
  NSNotification* const notification = [[[observer->_received objectAtIndex:0] copy] autorelease];
  EXPECT_EQ(text([[notification userInfo] objectForKey: ::kJXUserInfo_POSTData]),
            requests()[0].text);
  EXPECT_EQ([[notification object] siteID], 1234);
}

}  // namespace
}  // namespace jx::objc
