// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// Base class of the objects of which a process has one. `sharedInstance` of each class returns it.
/// Other objects of the class have the same state.
JX_OBJC_CLASS
@interface JXSingleton : NSObject
@end

NS_ASSUME_NONNULL_END
