// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// tvOS's CoreMedia, as far as the examples use it.
#pragma once

#import <Foundation/Foundation.h>

typedef struct {
  int64_t value;
  int32_t timescale;
  uint32_t flags;
  int64_t epoch;
} CMTime;
FOUNDATION_EXPORT double CMTimeGetSeconds(CMTime time);
