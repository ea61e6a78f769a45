// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Compares `execute:` of a purchase with four items in Objective-C with that in C++, in the same
// run. Prints microseconds, allocations and their ratio. The rounds of both alternate.
//
//   jx_bench_objc [ROUNDS]        default: 15 rounds of 500 events
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "bench/AllocationCount.h"
#include "bench/Events.h"
#include "bench/StartLibrary.h"
#import "jx/objc/JXServerSide.h"
#include "tests/support/TemporaryFolder.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kCalls = 500;

struct Cost {
  std::vector<double> microseconds;
  double allocations = 0;

  double median() {
    std::sort(microseconds.begin(), microseconds.end());
    return microseconds[microseconds.size() / 2];
  }
};

// The same values as those of jx::bench::purchase.
NSDecimalNumber* decimal(NSString* digits) {
  return [NSDecimalNumber decimalNumberWithString:digits];
}

JXItem* newItem(int position) {
  JXProduct* const product =
      [[[JXProduct alloc] initWithProductId:@"85123A"
                                   withName:@"WHITE HANGING HEART T-LIGHT HOLDER"
                                  withPrice:decimal(@"2.55")] autorelease];
  product.currency = @"GBP";
  [product.categories addObject:@"home"];
  [product.categories addObject:@"lighting"];
  JXItem* const item = [[JXItem alloc] initWithItemId:@"536365-0"
                                          withProduct:product
                                         withQuantity:6];
  item.list_position = [NSDecimalNumber decimalNumberWithMantissa:static_cast<unsigned>(position)
                                                         exponent:0
                                                       isNegative:NO];
  return item;
}

JXPurchaseEvent* newPurchase(int items) {
  JXPurchaseEvent* const event = [[JXPurchaseEvent alloc] init];
  event.ID = @"536365";
  event.currency = @"GBP";
  event.revenue = decimal(@"139.12");
  event.value = decimal(@"115.93");
  event.shippingAmount = decimal(@"4.95");
  event.taxAmount = decimal(@"23.19");
  event.type = @"online";
  event.paymentMethod = EJXPayementMethod_CARD;
  event.status = EJXPurchaseStatus_IN_PROGRESS;
  for (int i = 0; i < items; ++i)
    [event.items addObject:[newItem(i) autorelease]];
  return event;
}

// Measures each call of `use` on a value of `create`; the creation counts if `includesCreation`.
template <typename Create, typename Use>
void measure(Cost& cost, bool includesCreation, const Create& create, const Use& use) {
  for (int i = 0; i < kCalls; ++i) {
    @autoreleasepool {
      Clock::time_point begin = Clock::now();
      std::uint64_t before = jx::bench::mallocsOfThisThread();
      const auto event = create();
      if (!includesCreation) {
        begin = Clock::now();
        before = jx::bench::mallocsOfThisThread();
      }
      use(event);
      const std::chrono::duration<double, std::micro> passed = Clock::now() - begin;
      cost.microseconds.push_back(passed.count());
      cost.allocations = static_cast<double>(jx::bench::mallocsOfThisThread() - before);
    }
  }
}

void print(const char* name, Cost& objectiveC, Cost& cpp) {
  const double ours = objectiveC.median();
  const double theirs = cpp.median();
  std::printf("%-28s Objective-C %7.2f us, %4.0f allocations; C++ %6.2f us, %4.0f; ratio %.2f\n",
              name, ours, objectiveC.allocations, theirs, cpp.allocations, ours / theirs);
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::atoi(argv[1]) : 15;
  const jx::test::TemporaryFolder folder;
  jx::bench::LibraryOptions options;
  options.storageFolder = folder.path();
  const std::shared_ptr<jx::ServerSide> cpp = jx::bench::startLibrary(options);
  @autoreleasepool {
    ServerSide* const objectiveC = [[ServerSide alloc] initWithSiteID:1 andSourceKey:@"key"];
    Cost costs[2][2];
    for (int round = 0; round < rounds; ++round) {
      for (const bool includesCreation : {false, true}) {
        measure(
            costs[includesCreation][0], includesCreation,
            [] { return [newPurchase(4) autorelease]; },
            [&](JXPurchaseEvent* event) { [objectiveC execute:event]; });
        measure(
            costs[includesCreation][1], includesCreation, [] { return jx::bench::purchase(4); },
            [&](const std::shared_ptr<jx::JXEvent>& event) { cpp->execute(event); });
      }
    }
    print("execute, 4 items", costs[0][0], costs[0][1]);
    print("with the creation", costs[1][0], costs[1][1]);
    [objectiveC release];
  }
  return 0;
}
