// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// One life of an installation of the fleet test: executes numbered events until its standard input
// ends, then waits until its queue is empty. Standard output is the ledger of the installation, a
// file that is opened for appending: each accepted event is one record, which survives a kill.
#include <poll.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <exception>
#include <random>
#include <string>
#include <vector>

#include "examples/shop/Catalogue.h"
#include "examples/shop/ShopEvents.h"
#include "jx/JXServerSide.h"
#include "tests/soak/Arguments.h"
#include "tests/soak/Record.h"

namespace {

using jx::soak::Record;
using jx::soak::writeRecord;
using std::chrono::milliseconds;

// An event that was executed just before a kill may have no record: the numbers of the next life
// begin after all numbers of this one, so that no number is used twice.
constexpr std::uint64_t kNumbersPerLife = 1'000'000;
constexpr std::uint64_t kBurst = 25;

struct Options {
  std::string state;
  std::string host;
  std::string caFile;
  std::uint64_t installation = 0;
  std::uint64_t life = 0;
  std::uint64_t perSecond = 10;  ///< events, on average
  std::uint64_t seed = 0;
  std::uint64_t drainSeconds = 120;
};

jx::JXCoreConfiguration configurationOf(const Options& options) {
  jx::JXCoreConfiguration configuration;
  configuration.storageFolder = options.state;
  configuration.collectionHost = options.host;
  configuration.caFile = options.caFile;
  configuration.logLevel = 2;
  // High limits, so that no event is dropped; one that is dropped nevertheless is recorded.
  configuration.outboxBounds.maxRequests = 10'000'000;
  configuration.outboxBounds.maxBytes = std::uint64_t{64} << 30;
  configuration.outboxBounds.maxInMemory = 1'000'000;
  // Short, so that a run of minutes contains many attempts.
  configuration.retryTimings.initialBackoff = milliseconds(200);
  configuration.retryTimings.maxBackoff = milliseconds(5'000);
  configuration.onDelivery = [](const jx::JXDelivery& delivery) {
    if (delivery.outcome == jx::JXDeliveryOutcome::Delivered) return;
    const bool isDropped = delivery.outcome == jx::JXDeliveryOutcome::Dropped;
    writeRecord(Record::Kind::Dropped, isDropped ? static_cast<std::uint64_t>(delivery.dropReason)
                                                 : static_cast<std::uint64_t>(delivery.status));
  };
  return configuration;
}

// The catalogue events of a shop, from 1 to 30 KB.
std::shared_ptr<jx::JXEvent> eventOf(std::uint64_t number) {
  const Cart small{{0, 1}, {number % articles().size(), 2}};
  Cart large;
  for (std::size_t article = 0; article < articles().size(); ++article)
    large[article] = static_cast<int>(article) + 1;
  switch (number % 8) {
    case 0:
      return purchaseEvent(large, "CARD", "order-" + std::to_string(number));
    case 1:
      return listEvent();
    case 2:
      return addEvent(number % articles().size());
    case 3:
      return cartEvent(small);
    case 4:
      return viewEvent(number % articles().size());
    default:
      return pageEvent("page", "page " + std::to_string(number % 20));
  }
}

class Installation {
 public:
  explicit Installation(const Options& options)
      : options_(options),
        number_(options.life * kNumbersPerLife),
        random_(options.seed * 1'000'003 + options.installation * 1'009 + options.life) {
    jx::JXCoreConfiguration::set(configurationOf(options));
    serverSide_ = jx::ServerSide::initWithSiteID_andSourceKey(1, "fleet");
  }

  void run() {
    while (!inputEndsWithin(pause())) {
      // Bursts fill the queue faster than it is emptied.
      const std::uint64_t count = random_() % kBurst == 0 ? kBurst : 1;
      for (std::uint64_t i = 0; i < count; ++i)
        executeOne();
    }
  }

  bool drain() const {
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(options_.drainSeconds);
    while (!jx::JXNetworkManager::sharedInstance().flush(milliseconds(1'000))) {
      if (std::chrono::steady_clock::now() > end) return false;
    }
    return true;
  }

 private:
  // Half of the events are in bursts.
  milliseconds pause() {
    const double mean = 2'000.0 / static_cast<double>(options_.perSecond);
    return milliseconds(static_cast<int>(std::exponential_distribution<>(1 / mean)(random_)));
  }

  static bool inputEndsWithin(milliseconds time) {
    pollfd input{STDIN_FILENO, POLLIN, 0};
    return ::poll(&input, 1, static_cast<int>(time.count())) > 0;
  }

  void executeOne() {
    const std::uint64_t number = number_++;
    const auto event = eventOf(number);
    event->addAdditionalParameter_withValue("fleet_installation", options_.installation);
    event->addAdditionalParameter_withValue("fleet_number", number);
    constexpr std::size_t kLargest = 24'000;
    if (number % 50 == 0) {
      const std::string padding(number * 7'919 % kLargest, 'p');
      event->addAdditionalParameter_withValue("fleet_padding", padding);
    }
    serverSide_->execute(event);
    writeRecord(Record::Kind::Executed, number);
  }

  const Options options_;
  std::uint64_t number_;
  std::mt19937_64 random_;
  std::shared_ptr<jx::ServerSide> serverSide_;
};

Options optionsOf(jx::soak::Arguments arguments) {
  Options options;
  options.state = arguments.text("state");
  options.host = arguments.text("host");
  options.caFile = arguments.text("ca");
  options.installation = arguments.number("installation", options.installation);
  options.life = arguments.number("life", options.life);
  options.perSecond = arguments.number("rate", options.perSecond);
  options.seed = arguments.number("seed", options.seed);
  options.drainSeconds = arguments.number("drain-seconds", options.drainSeconds);
  arguments.expectAllKnown();
  return options;
}

}  // namespace

int main(int count, char** words) {
  try {
    Installation installation(
        optionsOf(jx::soak::Arguments(std::vector<std::string>(words + 1, words + count))));
    installation.run();
    return installation.drain() ? 0 : 1;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "installation: %s\n", error.what());
    return 2;
  }
}
