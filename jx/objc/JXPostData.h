// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

@class JXEvent;

NS_ASSUME_NONNULL_BEGIN

/// Bodies of requests. No operation throws.
JX_OBJC_CLASS
@interface JXPostData : NSObject

/// Returns the event with its user and context blocks, as pretty-printed JSON; nil for nil. The
/// state is an EJXServerSideState: while consent is awaited, a marker replaces the user block.
+ (nullable NSString*)getPostParameters:(nullable JXEvent*)event
                    withServerSideState:(int32_t)serverSideState
    JX_SWIFT_NAME("postParameters(_:serverSideState:)");
- (instancetype)init JX_OBJC_UNAVAILABLE;
+ (instancetype)new JX_OBJC_UNAVAILABLE;

@end

NS_ASSUME_NONNULL_END
