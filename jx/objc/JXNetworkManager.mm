// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#import "jx/objc/JXNetworkManager.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <memory>

#include "jx/core/transfer/JXNetworkManager.h"
#import "jx/objc/internal/JXHeldCore.h"
#import "jx/objc/internal/JXOwnership.h"

using Core = jx::JXNetworkManager;

@implementation JXNetworkManager

+ (JXNetworkManager*)sharedInstance {
  static JXNetworkManager* const instance = [[JXNetworkManager alloc] init];
  return instance;
}

- (void)setManagerState:(int32_t)state {
  Core::sharedInstance().setManagerState(state);
}

- (int32_t)managerState {
  return Core::sharedInstance().managerState();
}

- (void)changingSDKBehaviour:(BOOL)enabled {
  Core::sharedInstance().changingSDKBehaviour(enabled != NO);
}

- (void)waitForUserAgent {
  Core::sharedInstance().waitForUserAgent();
}

- (void)enableRunningInBackground {
  Core::sharedInstance().enableRunningInBackground();
}

- (void)setRunningInBackground:(BOOL)enabled {
  Core::sharedInstance().setRunningInBackground(enabled != NO);
}

- (BOOL)flush:(NSTimeInterval)seconds {
  // NaN counts as 0, and a day is longer than any caller waits.
  const double limited = seconds > 0 ? std::min(seconds, 86'400.0) : 0;
  const std::chrono::milliseconds deadline(static_cast<std::int64_t>(limited * 1'000));
  return Core::sharedInstance().flush(deadline) ? YES : NO;
}

- (void)purge {
  Core::sharedInstance().purge();
}

- (JXDeliveryCounters*)counters {
  const auto counters = std::make_shared<jx::JXDeliveryCounters>(Core::sharedInstance().counters());
  return JX_AUTORELEASE([[JXDeliveryCounters alloc] jx_initWithHeldCore:counters]);
}

@end
