// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's queues, as far as the library and the examples use them. They are Objective-C objects
// there, which automatic reference counting releases.
#pragma once

#import <Foundation/Foundation.h>

@protocol OS_dispatch_queue <NSObject>
@end
typedef NSObject<OS_dispatch_queue>* dispatch_queue_t;
@protocol OS_dispatch_queue_attr <NSObject>
@end
typedef NSObject<OS_dispatch_queue_attr>* dispatch_queue_attr_t;
typedef void (^dispatch_block_t)(void);

#define DISPATCH_QUEUE_SERIAL NULL

FOUNDATION_EXPORT dispatch_queue_t _Nonnull dispatch_queue_create(
    const char* _Nullable label, dispatch_queue_attr_t _Nullable attributes) NS_RETURNS_RETAINED;
FOUNDATION_EXPORT void dispatch_release(dispatch_queue_t _Nonnull queue) JX_MANUAL_COUNTING_ONLY;
FOUNDATION_EXPORT dispatch_queue_t _Nonnull dispatch_get_main_queue(void);
FOUNDATION_EXPORT void dispatch_async(dispatch_queue_t _Nonnull queue,
                                      dispatch_block_t _Nonnull block);
