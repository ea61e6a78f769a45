// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// The test of strings by which events are validated.
@interface NSString (JXServerSide)

/// Returns whether the string has at least one character. Sent to nil, it returns NO.
- (BOOL)testString;

@end

NS_ASSUME_NONNULL_END
