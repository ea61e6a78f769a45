// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's UIKit, as far as the library and the examples use it.
#pragma once

#import <Foundation/Foundation.h>

NS_ASSUME_NONNULL_BEGIN

@class UIApplication, UIWindow;
typedef NSString* UIApplicationLaunchOptionsKey;
typedef NS_ENUM(NSInteger, UIButtonType) { UIButtonTypeCustom = 0, UIButtonTypeSystem };
typedef NS_ENUM(NSUInteger, UIControlState) { UIControlStateNormal = 0 };
typedef NS_ENUM(NSUInteger, UIControlEvents) { UIControlEventPrimaryActionTriggered = 1 << 13 };

FOUNDATION_EXPORT NSNotificationName const UIApplicationDidEnterBackgroundNotification;
FOUNDATION_EXPORT NSNotificationName const UIApplicationWillEnterForegroundNotification;
FOUNDATION_EXPORT int UIApplicationMain(int argc, char* _Nullable argv[_Nonnull],
                                        NSString* _Nullable principalClassName,
                                        NSString* _Nullable delegateClassName);

@interface UIDevice : NSObject
@property(class, readonly, strong) UIDevice* currentDevice;
@property(nonatomic, readonly, strong) NSString* model;
@property(nonatomic, readonly, strong) NSString* systemName;
@property(nonatomic, readonly, strong) NSString* systemVersion;
@property(nullable, nonatomic, readonly, strong) NSUUID* identifierForVendor;
@end
@interface UIScreen : NSObject
@property(class, readonly, strong) UIScreen* mainScreen;
@property(nonatomic, readonly) CGRect bounds;
@end

@interface UIResponder : NSObject
@end
@protocol UIApplicationDelegate <NSObject>
@optional
- (BOOL)application:(UIApplication*)application
    didFinishLaunchingWithOptions:
        (nullable NSDictionary<UIApplicationLaunchOptionsKey, id>*)options;
- (void)applicationDidBecomeActive:(UIApplication*)application;
@property(nullable, nonatomic, strong) UIWindow* window;
@end

@interface UIView : UIResponder
@property(nonatomic) CGRect frame;
@property(nonatomic) CGRect bounds;
- (instancetype)initWithFrame:(CGRect)frame NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
- (void)addSubview:(UIView*)view;
@end
@interface UIControl : UIView
- (void)addTarget:(nullable id)target action:(SEL)action forControlEvents:(UIControlEvents)events;
@end
@interface UIButton : UIControl
+ (instancetype)buttonWithType:(UIButtonType)type;
- (void)setTitle:(nullable NSString*)title forState:(UIControlState)state;
@end

@interface UIViewController : UIResponder
@property(null_resettable, nonatomic, strong) UIView* view;
- (instancetype)initWithNibName:(nullable NSString*)name
                         bundle:(nullable NSBundle*)bundle NS_DESIGNATED_INITIALIZER;
- (nullable instancetype)initWithCoder:(NSCoder*)coder NS_DESIGNATED_INITIALIZER;
- (void)viewDidLoad;
- (void)viewDidAppear:(BOOL)animated;
- (void)viewDidDisappear:(BOOL)animated;
- (void)addChildViewController:(UIViewController*)child;
- (void)didMoveToParentViewController:(nullable UIViewController*)parent;
@end
@interface UIWindow : UIView
@property(nullable, nonatomic, strong) UIViewController* rootViewController;
- (void)makeKeyAndVisible;
@end

NS_ASSUME_NONNULL_END
