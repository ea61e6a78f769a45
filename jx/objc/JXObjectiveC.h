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

// The name is a string literal, so that a formatter cannot add blanks to it.
#define JX_SWIFT_NAME(name) __attribute__((swift_name(name)))
/// The Swift overlay declares it with a type of Swift.
#define JX_REFINED_FOR_SWIFT __attribute__((swift_private))
#define JX_OBJC_UNAVAILABLE __attribute__((unavailable))
