// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

NS_ASSUME_NONNULL_BEGIN

/// Starts the library, with the current configuration. Each ServerSide does this; applications need
/// not.
JX_OBJC_CLASS
@interface JXServerSideInitialisation : JXObject

/// Starts what has not started yet.
- (instancetype)init;

@end

NS_ASSUME_NONNULL_END
