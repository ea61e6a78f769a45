// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <UIKit/UIKit.h>

@interface AppDelegate : UIResponder <UIApplicationDelegate>

@property(nonatomic, strong, nullable) UIWindow* window;

@end
