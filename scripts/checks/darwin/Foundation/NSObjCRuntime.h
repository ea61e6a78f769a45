// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// The macros and plain types of tvOS's Foundation, as far as the library and the examples use them.
#pragma once

#include <stdbool.h>
#include <stdint.h>

#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#define NS_ENUM(type, name) \
  enum name : type name;    \
  enum name : type
#define NS_RETURNS_RETAINED __attribute__((ns_returns_retained))
#define NS_UNAVAILABLE __attribute__((unavailable))
#define NS_DESIGNATED_INITIALIZER __attribute__((objc_designated_initializer))
#define NS_REQUIRES_NIL_TERMINATION __attribute__((sentinel(0, 1)))
#if __has_feature(objc_arc)
#define JX_MANUAL_COUNTING_ONLY __attribute__((unavailable))
#else
#define JX_MANUAL_COUNTING_ONLY
#endif
#ifdef __cplusplus
#define FOUNDATION_EXPORT extern "C"
#else
#define FOUNDATION_EXPORT extern
#endif

#ifndef NULL
#define NULL nil
#endif
typedef bool BOOL;
#define YES __objc_yes
#define NO __objc_no
#ifdef __cplusplus
#define nil nullptr
#define Nil nullptr
#else
#define nil ((void*)0)
#define Nil ((void*)0)
#endif

typedef long NSInteger;
typedef unsigned long NSUInteger;
typedef unsigned short unichar;
typedef double CGFloat;
typedef double NSTimeInterval;
typedef struct _NSZone NSZone;
typedef struct _NSRange {
  NSUInteger location;
  NSUInteger length;
} NSRange;
typedef struct CGPoint {
  CGFloat x;
  CGFloat y;
} CGPoint;
typedef struct CGSize {
  CGFloat width;
  CGFloat height;
} CGSize;
typedef struct CGRect {
  CGPoint origin;
  CGSize size;
} CGRect;
typedef CGRect NSRect;
static inline CGRect CGRectMake(CGFloat x, CGFloat y, CGFloat width, CGFloat height) {
  CGRect rect = {{x, y}, {width, height}};
  return rect;
}
typedef struct {
  signed int _exponent : 8;
  unsigned int _length : 4;
  unsigned int _isNegative : 1;
  unsigned int _isCompact : 1;
  unsigned int _reserved : 18;
  unsigned short _mantissa[8];
} NSDecimal;
typedef struct {
  unsigned long state;
  id __unsafe_unretained _Nullable* _Nullable itemsPtr;
  unsigned long* _Nullable mutationsPtr;
  unsigned long extra[5];
} NSFastEnumerationState;
typedef id _Nullable (*IMP)(id _Nonnull, SEL _Nonnull, ...);
typedef NSUInteger NSStringEncoding;
#define NSNotFound ((NSInteger)(~0UL >> 1))
enum : NSStringEncoding { NSUTF8StringEncoding = 4 };
typedef NS_ENUM(NSInteger, NSComparisonResult) {
  NSOrderedAscending = -1L,
  NSOrderedSame,
  NSOrderedDescending
};
typedef NS_ENUM(NSUInteger, NSKeyValueObservingOptions) { NSKeyValueObservingOptionNew = 1 };
typedef NS_ENUM(NSUInteger, NSSearchPathDirectory) { NSCachesDirectory = 13 };
typedef NS_ENUM(NSUInteger, NSSearchPathDomainMask) { NSUserDomainMask = 1 };
