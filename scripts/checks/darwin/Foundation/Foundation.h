// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's Foundation, as far as the library and the examples use it: declarations with the types,
// the nullability and the ownership of tvOS's headers. Those of GNUstep have neither nullability
// nor generics, and do not support automatic reference counting. A declaration that a source needs
// is added here.
#pragma once

#include <Foundation/NSObjCRuntime.h>

NS_ASSUME_NONNULL_BEGIN

@class NSString, NSMethodSignature, NSInvocation, NSDictionary<KeyType, ObjectType>, NSData,
    NSLocale, NSArray<ObjectType>, NSCoder;
typedef NSString* NSNotificationName;
typedef NSString* NSErrorUserInfoKey;
typedef NSString* NSKeyValueChangeKey;
typedef NSString* NSLocaleKey;

@protocol NSObject
- (BOOL)isEqual:(nullable id)object;
- (NSUInteger)hash;
- (Class)class;
- (Class)superclass;
- (instancetype)self;
- (BOOL)isKindOfClass:(Class)aClass;
- (BOOL)isMemberOfClass:(Class)aClass;
- (BOOL)conformsToProtocol:(Protocol*)protocol;
- (BOOL)respondsToSelector:(SEL)selector;
- (nullable id)performSelector:(SEL)selector;
- (nullable id)performSelector:(SEL)selector withObject:(nullable id)object;
- (instancetype)retain JX_MANUAL_COUNTING_ONLY;
- (oneway void)release JX_MANUAL_COUNTING_ONLY;
- (instancetype)autorelease JX_MANUAL_COUNTING_ONLY;
- (NSString*)description;
@end

@protocol NSCopying
- (id)copyWithZone:(nullable NSZone*)zone;
@end
@protocol NSMutableCopying
- (id)mutableCopyWithZone:(nullable NSZone*)zone;
@end
@protocol NSFastEnumeration
- (NSUInteger)countByEnumeratingWithState:(NSFastEnumerationState*)state
                                  objects:(id __unsafe_unretained _Nullable[_Nonnull])buffer
                                    count:(NSUInteger)length;
@end

__attribute__((objc_root_class))
@interface NSObject<NSObject> {
  Class isa;
}
+ (instancetype)new;
+ (instancetype)alloc;
- (instancetype)init;
- (void)dealloc;
- (id)copy;
- (id)mutableCopy;
+ (Class)class;
+ (BOOL)instancesRespondToSelector:(SEL)selector;
+ (nullable IMP)instanceMethodForSelector:(SEL)selector;
- (IMP)methodForSelector:(SEL)selector;
- (void)doesNotRecognizeSelector:(SEL)selector;
- (nullable NSMethodSignature*)methodSignatureForSelector:(SEL)selector;
- (void)forwardInvocation:(NSInvocation*)invocation;
@end
@interface NSObject (NSKeyValueObserving)
- (void)addObserver:(NSObject*)observer
         forKeyPath:(NSString*)keyPath
            options:(NSKeyValueObservingOptions)options
            context:(nullable void*)context;
- (void)removeObserver:(NSObject*)observer forKeyPath:(NSString*)keyPath;
- (void)observeValueForKeyPath:(nullable NSString*)keyPath
                      ofObject:(nullable id)object
                        change:(nullable NSDictionary<NSKeyValueChangeKey, id>*)change
                       context:(nullable void*)context;
@end

@interface NSString : NSObject <NSCopying, NSMutableCopying>
@property(readonly) NSUInteger length;
@property(nullable, readonly) const char* UTF8String;
@property(readonly, copy) NSString* uppercaseString;
@property(readonly, copy) NSString* lowercaseString;
@property(class, readonly) NSStringEncoding defaultCStringEncoding;
+ (instancetype)string;
+ (nullable instancetype)stringWithUTF8String:(const char*)bytes;
+ (instancetype)stringWithCharacters:(const unichar*)characters length:(NSUInteger)length;
+ (instancetype)stringWithFormat:(NSString*)format, ...;
- (nullable instancetype)initWithBytes:(const void*)bytes
                                length:(NSUInteger)length
                              encoding:(NSStringEncoding)encoding;
- (instancetype)initWithCharacters:(const unichar*)characters length:(NSUInteger)length;
- (unichar)characterAtIndex:(NSUInteger)index;
- (void)getCharacters:(unichar*)buffer range:(NSRange)range;
- (BOOL)isEqualToString:(NSString*)string;
- (BOOL)hasPrefix:(NSString*)string;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding;
- (nullable NSData*)dataUsingEncoding:(NSStringEncoding)encoding allowLossyConversion:(BOOL)lossy;
- (NSString*)stringByAppendingString:(NSString*)string;
- (NSString*)stringByAppendingPathComponent:(NSString*)component;
@end
@interface NSMutableString : NSString
+ (instancetype)stringWithCapacity:(NSUInteger)capacity;
- (void)appendString:(NSString*)string;
- (void)appendFormat:(NSString*)format, ...;
@end

@interface NSData : NSObject <NSCopying, NSMutableCopying>
@property(readonly) NSUInteger length;
@property(readonly) const void* bytes;
+ (instancetype)dataWithBytes:(nullable const void*)bytes length:(NSUInteger)length;
@end

@interface NSNull : NSObject <NSCopying>
+ (NSNull*)null;
@end

@interface NSValue : NSObject <NSCopying>
@property(readonly) const char* objCType;
@property(nullable, readonly) void* pointerValue;
+ (NSValue*)valueWithPointer:(nullable const void*)pointer;
@end
@interface NSNumber : NSValue
@property(readonly) BOOL boolValue;
@property(readonly) int intValue;
@property(readonly) NSInteger integerValue;
@property(readonly) NSUInteger unsignedIntegerValue;
@property(readonly) long long longLongValue;
@property(readonly) unsigned long long unsignedLongLongValue;
@property(readonly) double doubleValue;
@property(readonly) NSDecimal decimalValue;
@property(readonly, copy) NSString* stringValue;
- (BOOL)isEqualToNumber:(NSNumber*)number;
- (NSComparisonResult)compare:(NSNumber*)number;
+ (NSNumber*)numberWithBool:(BOOL)value;
+ (NSNumber*)numberWithInt:(int)value;
+ (NSNumber*)numberWithInteger:(NSInteger)value;
+ (NSNumber*)numberWithUnsignedInteger:(NSUInteger)value;
+ (NSNumber*)numberWithLongLong:(long long)value;
+ (NSNumber*)numberWithUnsignedLongLong:(unsigned long long)value;
+ (NSNumber*)numberWithDouble:(double)value;
@end
@interface NSDecimalNumber : NSNumber
@property(class, readonly, copy) NSDecimalNumber* zero;
@property(class, readonly, copy) NSDecimalNumber* one;
@property(class, readonly, copy) NSDecimalNumber* notANumber;
+ (NSDecimalNumber*)decimalNumberWithString:(nullable NSString*)string;
+ (NSDecimalNumber*)decimalNumberWithString:(nullable NSString*)string locale:(nullable id)locale;
+ (NSDecimalNumber*)decimalNumberWithDecimal:(NSDecimal)decimal;
+ (NSDecimalNumber*)decimalNumberWithMantissa:(unsigned long long)mantissa
                                     exponent:(short)exponent
                                   isNegative:(BOOL)isNegative;
- (NSDecimalNumber*)decimalNumberByMultiplyingBy:(NSDecimalNumber*)number;
@end
static inline BOOL NSDecimalIsNotANumber(const NSDecimal* number) {
  return number->_length == 0 && number->_isNegative;
}
FOUNDATION_EXPORT NSString* NSDecimalString(const NSDecimal* number, id _Nullable locale);
static inline NSRange NSMakeRange(NSUInteger location, NSUInteger length) {
  NSRange range = {location, length};
  return range;
}

@interface NSArray<__covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSFastEnumeration>
@property(readonly) NSUInteger count;
@property(nullable, nonatomic, readonly) ObjectType firstObject;
@property(nullable, nonatomic, readonly) ObjectType lastObject;
- (ObjectType)objectAtIndex:(NSUInteger)index;
- (ObjectType)objectAtIndexedSubscript:(NSUInteger)index;
- (NSUInteger)indexOfObjectIdenticalTo:(ObjectType)object;
- (BOOL)containsObject:(ObjectType)object;
+ (instancetype)array;
+ (instancetype)arrayWithObject:(ObjectType)object;
+ (instancetype)arrayWithArray:(NSArray<ObjectType>*)array;
+ (instancetype)arrayWithObjects:(ObjectType)first, ... NS_REQUIRES_NIL_TERMINATION;
@end
@interface NSMutableArray<ObjectType> : NSArray <ObjectType>
- (void)addObject:(ObjectType)object;
- (void)insertObject:(ObjectType)object atIndex:(NSUInteger)index;
- (void)removeLastObject;
- (void)removeObjectAtIndex:(NSUInteger)index;
- (void)removeObjectIdenticalTo:(ObjectType)object;
- (void)removeObject:(ObjectType)object;
- (void)removeAllObjects;
- (void)replaceObjectAtIndex:(NSUInteger)index withObject:(ObjectType)object;
+ (instancetype)arrayWithCapacity:(NSUInteger)capacity;
@end

@interface NSDictionary<__covariant KeyType, __covariant ObjectType>
    : NSObject <NSCopying, NSMutableCopying, NSFastEnumeration>
@property(readonly) NSUInteger count;
@property(readonly, copy) NSArray<KeyType>* allKeys;
@property(readonly, copy) NSArray<ObjectType>* allValues;
- (nullable ObjectType)objectForKey:(KeyType)key;
- (nullable ObjectType)objectForKeyedSubscript:(KeyType)key;
+ (instancetype)dictionary;
+ (instancetype)dictionaryWithObject:(ObjectType)object forKey:(KeyType<NSCopying>)key;
+ (instancetype)dictionaryWithDictionary:(NSDictionary<KeyType, ObjectType>*)dictionary;
@end
@interface NSMutableDictionary<KeyType, ObjectType> : NSDictionary <KeyType, ObjectType>
- (void)removeObjectForKey:(KeyType)key;
- (void)addEntriesFromDictionary:(NSDictionary<KeyType, ObjectType>*)dictionary;
- (void)setDictionary:(NSDictionary<KeyType, ObjectType>*)dictionary;
- (void)setObject:(ObjectType)object forKey:(KeyType<NSCopying>)key;
- (void)setObject:(nullable ObjectType)object forKeyedSubscript:(KeyType<NSCopying>)key;
- (void)removeAllObjects;
+ (instancetype)dictionaryWithCapacity:(NSUInteger)capacity;
@end
@interface NSSet<__covariant ObjectType> : NSObject <NSCopying, NSMutableCopying, NSFastEnumeration>
@property(readonly) NSUInteger count;
- (BOOL)containsObject:(ObjectType)object;
- (instancetype)initWithObjects:(ObjectType)first, ... NS_REQUIRES_NIL_TERMINATION;
+ (instancetype)set;
+ (instancetype)setWithObject:(ObjectType)object;
@end
@interface NSMutableSet<ObjectType> : NSSet <ObjectType>
- (void)addObject:(ObjectType)object;
- (void)removeObject:(ObjectType)object;
@end

@interface NSDate : NSObject <NSCopying>
@property(readonly) NSTimeInterval timeIntervalSince1970;
+ (instancetype)date;
+ (instancetype)dateWithTimeIntervalSince1970:(NSTimeInterval)seconds;
@end
@interface NSMethodSignature : NSObject
@property(readonly) NSUInteger numberOfArguments;
- (const char*)getArgumentTypeAtIndex:(NSUInteger)index;
@end
@interface NSInvocation : NSObject
+ (NSInvocation*)invocationWithMethodSignature:(NSMethodSignature*)signature;
@property SEL selector;
- (void)setArgument:(void*)argumentLocation atIndex:(NSInteger)index;
- (void)invokeWithTarget:(id)target;
@end
@interface NSException : NSObject <NSCopying>
@property(readonly, copy) NSString* name;
@property(nullable, readonly, copy) NSString* reason;
@end
@interface NSError : NSObject <NSCopying>
@property(readonly, copy) NSString* localizedDescription;
@end
@interface NSTimer : NSObject
+ (NSTimer*)scheduledTimerWithTimeInterval:(NSTimeInterval)interval
                                    target:(id)target
                                  selector:(SEL)selector
                                  userInfo:(nullable id)userInfo
                                   repeats:(BOOL)repeats;
- (void)invalidate;
@end
@interface NSURL : NSObject <NSCopying>
+ (nullable instancetype)URLWithString:(NSString*)string;
@end

@interface NSBundle : NSObject
@property(class, readonly, strong) NSBundle* mainBundle;
@property(nullable, readonly, copy) NSString* bundleIdentifier;
- (nullable id)objectForInfoDictionaryKey:(NSString*)key;
@end
@interface NSLocale : NSObject <NSCopying>
@property(class, readonly, copy) NSLocale* currentLocale;
@property(class, readonly, copy) NSArray<NSString*>* preferredLanguages;
- (nullable id)objectForKey:(NSLocaleKey)key;
@end
FOUNDATION_EXPORT NSLocaleKey const NSLocaleCurrencyCode;
FOUNDATION_EXPORT NSLocaleKey const NSLocaleCurrencySymbol;
@interface NSTimeZone : NSObject <NSCopying>
@property(class, readonly, copy) NSTimeZone* localTimeZone;
@property(readonly, copy) NSString* name;
@end
@interface NSUserDefaults : NSObject
@property(class, readonly, strong) NSUserDefaults* standardUserDefaults;
- (nullable id)objectForKey:(NSString*)key;
- (void)setObject:(nullable id)object forKey:(NSString*)key;
- (void)removeObjectForKey:(NSString*)key;
- (BOOL)boolForKey:(NSString*)key;
- (void)setBool:(BOOL)value forKey:(NSString*)key;
- (BOOL)synchronize;
@end
@interface NSUUID : NSObject <NSCopying>
@property(readonly, copy) NSString* UUIDString;
+ (instancetype)UUID;
@end

@interface NSNotification : NSObject <NSCopying>
@property(readonly, copy) NSNotificationName name;
@property(nullable, readonly, strong) id object;
@property(nullable, readonly, copy) NSDictionary* userInfo;
+ (instancetype)notificationWithName:(NSNotificationName)name object:(nullable id)object;
+ (instancetype)notificationWithName:(NSNotificationName)name
                              object:(nullable id)object
                            userInfo:(nullable NSDictionary*)userInfo;
@end
@interface NSNotificationCenter : NSObject
@property(class, readonly, strong) NSNotificationCenter* defaultCenter;
- (void)addObserver:(id)observer
           selector:(SEL)selector
               name:(nullable NSNotificationName)name
             object:(nullable id)object;
- (void)postNotification:(NSNotification*)notification;
- (void)postNotificationName:(NSNotificationName)name object:(nullable id)object;
- (void)postNotificationName:(NSNotificationName)name
                      object:(nullable id)object
                    userInfo:(nullable NSDictionary*)userInfo;
- (void)removeObserver:(id)observer;
- (void)removeObserver:(id)observer
                  name:(nullable NSNotificationName)name
                object:(nullable id)object;
@end

FOUNDATION_EXPORT void NSLog(NSString* format, ...) __attribute__((format(__NSString__, 1, 2)));
FOUNDATION_EXPORT NSString* NSStringFromClass(Class aClass);
FOUNDATION_EXPORT NSString* NSStringFromSelector(SEL selector);
FOUNDATION_EXPORT SEL NSSelectorFromString(NSString* name);
FOUNDATION_EXPORT Class _Nullable NSClassFromString(NSString* name);
FOUNDATION_EXPORT NSArray<NSString*>* NSSearchPathForDirectoriesInDomains(
    NSSearchPathDirectory directory, NSSearchPathDomainMask domains, BOOL expandTilde);

NS_ASSUME_NONNULL_END

#include <dispatch/dispatch.h>
