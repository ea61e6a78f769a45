// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// The methods of the object to which a ServerSide mirrors its events. An object that has one of
/// them need not declare that it conforms to this protocol.
@protocol IJXFirebaseInstance <NSObject>
@optional
/// Called for each event with its name and its properties, which are a new dictionary without
/// nested dictionaries, on the thread that executes the event. An exception is logged.
- (void)logEventWithName:(nullable NSString*)name
              parameters:(nullable NSDictionary<NSString*, id>*)parameters
    JX_SWIFT_NAME("logEvent(name:parameters:)");
/// Called by each initialiser of a ServerSide, with "developer_id" and `JX_GCM_DEVELOPER_ID`.
- (void)setDefaultEventParameters:(nullable NSString*)name
                       parameters:(nullable id)value
    JX_SWIFT_NAME("setDefaultEventParameters(_:parameters:)");
@end

NS_ASSUME_NONNULL_END
