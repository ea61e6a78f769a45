// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import <Foundation/Foundation.h>

// Annotations that the headers of this folder need and that some versions of Foundation lack.

#ifdef __cplusplus
#define JX_OBJC_EXTERN extern "C" __attribute__((visibility("default")))
#else
#define JX_OBJC_EXTERN extern __attribute__((visibility("default")))
#endif
#define JX_OBJC_CLASS __attribute__((visibility("default")))
/// A class whose objects any thread may use at any time: Swift passes them between tasks.
#if __has_attribute(swift_attr)
#define JX_OBJC_SENDABLE_CLASS JX_OBJC_CLASS __attribute__((swift_attr("@Sendable")))
#else
#define JX_OBJC_SENDABLE_CLASS JX_OBJC_CLASS
#endif

// The name is a string literal, so that a formatter cannot add blanks to it.
#define JX_SWIFT_NAME(name) __attribute__((swift_name(name)))
/// The Swift overlay declares it with a type of Swift.
#define JX_REFINED_FOR_SWIFT __attribute__((swift_private))
#define JX_OBJC_UNAVAILABLE __attribute__((unavailable))
