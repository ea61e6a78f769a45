// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "JXObject.h"

NS_ASSUME_NONNULL_BEGIN

/// A store of JSON values by string key.
@protocol IJXDynamicStore <NSObject>
/// Sets or replaces a value; nil removes the key, a nil key is ignored.
- (void)addData:(nullable NSString*)key
      withValue:(nullable id)value JX_SWIFT_NAME("addData(_:value:)");
/// Returns the value of the key; nil when it is not set.
- (nullable id)getData:(nullable NSString*)key JX_SWIFT_NAME("data(_:)");
/// Removes the value and returns it; nil when it is not set.
- (nullable id)removeData:(nullable NSString*)key;
@end

/// The store that the library uses. Values are strings, numbers, arrays, dictionaries and NSNull;
/// they are copied. A value of another class is logged and ignored. Thread-safe; no operation
/// throws. Two objects are equal when they are the same store of the library.
JX_OBJC_SENDABLE_CLASS
@interface JXDynamicStore : JXObject <IJXDynamicStore>

/// Creates an empty store.
- (instancetype)init;
/// Adds every pair of another store, or of an NSDictionary with string keys, replacing values with
/// the same key; nil is ignored. An object of another class is logged and ignored.
- (void)addData:(nullable id)entries JX_SWIFT_NAME("addData(_:)");
/// Removes every pair.
- (void)clearData;

@end

NS_ASSUME_NONNULL_END
