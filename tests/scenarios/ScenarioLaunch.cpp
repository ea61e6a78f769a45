// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// One launch of an installation, in a separate process. It reads steps from standard input, one per
// line. For each event it prints the predefined variables that the event was built from, as one
// line of JSON.
//
//   scenario_launch STATE_FOLDER START_MS VERSION|-
//
// Steps: "event NAME", "advance MS", "clock MS", "background", "foreground", "reinit",
// "kill_in_event NAME" (SIGKILL while the event is passed to the core), "persisted" (prints the
// persisted strings). Before the start, "persist KEY STRING" and "forget KEY" change what an
// earlier launch has persisted.

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>

#include "jx/JXServerSide.h"
#include "jx/core/JXUserDefaults.h"
#include "jx/core/JXUtils.h"
#include "jx/core/notifications/JXNotificationCenter.h"
#include "jx/core/storage/JXDefaultsFile.h"
#include "jx/platform/JXManualClock.h"

namespace {

using namespace jx;

constexpr std::string_view kPersisted[] = {
    kJXUserDefaultsKey_UniqueID,
    kJXDateFirstVisitFormat,
    kJXDateLastVisitFormat,
    kJXDateCurrentVisitFormat,
    kJXNumberColdStarts,
    kJXNumberSessions,
    kJXLastPID,
    kJXTimeSinceLastMeasurement,
    kJXSessionStartTimestamp,
    kJXLastSessionStartTimestamp,
    kJXExitTimestamp,
    kJXUsageDuration,
    kJXLastForegroundTime,
    kJXLastBackgroundTime,
    kJXPredefinedVariable_ColdStarts,
    kJXPredefinedVariable_LastCallMs,
    kJXPredefinedVariable_ApplicationVersion,
    kJXPredefinedVariable_ApplicationPreviousVersion,
    kJXPredefinedVariable_CurVersionFirstVisitMs,
};

class Launch {
 public:
  Launch(std::string folder, std::int64_t startMs, const std::string& version)
      : folder_(std::move(folder)), clock_(std::make_shared<JXManualClock>(startMs)) {
    configuration_.storageFolder = folder_;
    configuration_.clock = clock_;
    configuration_.dryRun = true;
    if (version != "-") configuration_.bundle.shortVersion = version;
  }

  void run(std::istream& steps) {
    for (std::string line; std::getline(steps, line);)
      step(line);
    start();
  }

 private:
  void step(const std::string& line) {
    std::istringstream words(line);
    std::string verb;
    words >> verb >> std::ws;
    std::string rest;
    std::getline(words, rest);
    if (verb == "persist" || verb == "forget") {
      changeDefaults(verb, rest);
      return;
    }
    start();
    if (verb == "event") {
      serverSide_->execute(JXCustomEvent::initWithName(rest));
    } else if (verb == "advance") {
      clock_->advance(std::stoll(rest));
    } else if (verb == "clock") {
      clock_->set(std::stoll(rest));
    } else if (verb == "background") {
      JXApplication::applicationDidEnterBackground();
    } else if (verb == "foreground") {
      JXApplication::applicationWillEnterForeground();
    } else if (verb == "reinit") {
      JXPredefinedVariables::sharedInstance().reinit();
    } else if (verb == "kill_in_event") {
      killsInEvent_ = true;
      serverSide_->execute(JXCustomEvent::initWithName(rest));
    } else if (verb == "persisted") {
      print(persistedStrings());
    } else {
      std::cerr << "unknown step: " << line << "\n";
      std::exit(2);
    }
  }

  void start() {
    if (serverSide_) return;
    JXCoreConfiguration::set(configuration_);
    serverSide_ = ServerSide::initWithSiteID_andSourceKey(1, "key");
    JXNotificationCenter::defaultCenter()->addObserver(
        this, kJXNotification_HTTPRequest, [this](const JXNotification&) {
          if (killsInEvent_) std::raise(SIGKILL);
          print(JXPredefinedVariables::sharedInstance().dynamicStore()->entries());
        });
  }

  // Only before the start, because the library locks the file afterwards.
  void changeDefaults(const std::string& verb, const std::string& rest) const {
    const std::size_t space = rest.find(' ');
    JXDefaultsFile file(folder_ + "/defaults");
    if (verb == "forget") {
      file.setObject_forKey(nullptr, rest);
    } else {
      const std::string value = space == std::string::npos ? "" : rest.substr(space + 1);
      file.setObject_forKey(value, rest.substr(0, space));
    }
  }

  JXJsonObject persistedStrings() const {
    JXJsonObject strings;
    for (const std::string_view key : kPersisted) {
      strings.set(key, JXUserDefaults::retrieveInfoFromUserDefaults(key));
    }
    return strings;
  }

  static void print(const JXJsonObject& object) {
    std::cout << JXUtils::jsonDictionaryToString(object).view() << std::endl;
  }

  const std::string folder_;
  const std::shared_ptr<JXManualClock> clock_;
  JXCoreConfiguration configuration_;
  std::shared_ptr<ServerSide> serverSide_;
  bool killsInEvent_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: scenario_launch STATE_FOLDER START_MS VERSION|-\n";
    return 2;
  }
  Launch(argv[1], std::atoll(argv[2]), argv[3]).run(std::cin);
  return 0;
}
