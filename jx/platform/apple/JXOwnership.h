// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

// The Objective-C sources compile with and without automatic reference counting: Swift packages
// always use it, and the run time of GCC, with which they are tested, does not support it. Objects
// that a framework releases with a function of its own are released by JX_RELEASE_BY.
// JX_WEAK is nil as soon as the object begins to end, on whichever thread. Run times without weak
// references, such as that of GCC, have no such value.
#if __has_feature(objc_arc_weak)
#define JX_WEAK __weak
#else
#define JX_WEAK __unsafe_unretained
#endif
#if __has_feature(objc_arc)
#define JX_RETAIN(object) (object)
#define JX_RELEASE(object) static_cast<void>(object)
#define JX_AUTORELEASE(object) (object)
#define JX_SUPER_DEALLOC() static_cast<void>(0)
#define JX_RELEASE_BY(function, object) static_cast<void>(object)
#else
#define JX_RETAIN(object) [(object) retain]
#define JX_RELEASE(object) [(object) release]
#define JX_AUTORELEASE(object) [(object) autorelease]
#define JX_SUPER_DEALLOC() [super dealloc]
#define JX_RELEASE_BY(function, object) function(object)
#endif
