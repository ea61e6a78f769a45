// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "AppDelegate.h"

#import <AppTrackingTransparency/AppTrackingTransparency.h>

#import "FilmViewController.h"

@implementation AppDelegate {
  ServerSide* _serverSide;
}

- (BOOL)application:(UIApplication*)application
    didFinishLaunchingWithOptions:(NSDictionary*)options {
  // Created once, on the main thread. It sends nothing before the viewer consents.
  _serverSide = [[ServerSide alloc] initWithSiteID:1
                                      andSourceKey:@"source-key"
                               andDefaultBehaviour:EJXDefaultBehaviour_DISABLED_BY_DEFAULT];
  self.window = [[UIWindow alloc] initWithFrame:[UIScreen mainScreen].bounds];
  self.window.rootViewController = [[FilmViewController alloc] initWithServerSide:_serverSide];
  [self.window makeKeyAndVisible];
  return YES;
}

// The system shows the tracking prompt only while the application is active, and only once.
- (void)applicationDidBecomeActive:(UIApplication*)application {
  ServerSide* const serverSide = _serverSide;
  if (@available(tvOS 14, *)) {
    [ATTrackingManager requestTrackingAuthorizationWithCompletionHandler:^(
                           ATTrackingManagerAuthorizationStatus status) {
      dispatch_async(dispatch_get_main_queue(), ^{
        [serverSide addAdvertisingIDs];
      });
    }];
  } else {
    [serverSide addAdvertisingIDs];
  }
}

@end
