// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObjectiveC.h"

NS_ASSUME_NONNULL_BEGIN

/// Base class of the objects that hold an object of the C++ library. Two objects are equal when
/// they hold the same one. Applications create objects of its subclasses only.
JX_OBJC_CLASS
@interface JXObject : NSObject {
 @private
  void* _core[2];  // A shared pointer: headers for Objective-C cannot name C++ types.
}
@end

NS_ASSUME_NONNULL_END
