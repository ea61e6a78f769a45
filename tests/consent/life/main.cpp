// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application that a test controls: jx_consent_life FOLDER HOST
//
// Reads one command per line from standard input and prints "done N VALUE" after the Nth command:
//
//   module                       registers a consent module
//   create NAME BEHAVIOUR KEY    creates a ServerSide for site 1 and this source key
//   execute NAME EVENT           executes a custom event
//   enable NAME, disable NAME    calls enableServerSide or disableServerSide
//   state NAME                   the value is the ServerSide's state
//   disk none|readonly|hanging   changes the disk of this process
//   kill NAME                    disables the ServerSide and ends by SIGKILL at once, unless the
//   call
//                                took so long that it may not have waited for the disk; then the
//                                value is "slow"
//
// Ends like an application with the end of its input. Log messages go to standard error.

#include <signal.h>

#include <chrono>
#include <functional>
#include <iostream>
#include <map>
#include <memory>
#include <sstream>
#include <string>

#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConfiguration.h"
#include "jx/events/JXCustomEvent.h"
#include "jx/facade/ServerSide.h"
#include "tests/consent/life/DiskFaults.h"

namespace jx::test {
namespace {

using std::chrono::milliseconds;

// Shorter than the time for which a stop waits until it is recorded.
constexpr milliseconds kLongestWait{4};

class Application {
 public:
  // Returns the value to print. Throws for an unknown command or name.
  std::string run(const std::string& line) {
    std::istringstream words(line);
    std::string command;
    words >> command;
    return commands_.at(command)(words);
  }

 private:
  static std::string word(std::istream& words) {
    std::string next;
    words >> next;
    return next;
  }
  std::shared_ptr<ServerSide>& named(std::istream& words) { return sides_.at(word(words)); }

  std::string create(std::istream& words) {
    const std::string name = word(words);
    const int behaviour = std::stoi(word(words));
    sides_[name] =
        ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(1, word(words), behaviour);
    return "";
  }

  std::string execute(std::istream& words) {
    ServerSide& side = *named(words);
    side.execute(JXCustomEvent::initWithName(word(words)));
    return "";
  }

  std::string setDisk(std::istream& words) {
    static const std::map<std::string, DiskFault> kFaults{{"none", DiskFault::None},
                                                          {"readonly", DiskFault::ReadOnly},
                                                          {"hanging", DiskFault::Hanging}};
    setDiskFault(kFaults.at(word(words)));
    return "";
  }

  std::map<std::string, std::shared_ptr<ServerSide>> sides_;
  const std::map<std::string, std::function<std::string(std::istream&)>> commands_{
      {"module",
       [](std::istream&) {
         JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
         return std::string();
       }},
      {"create", [this](std::istream& words) { return create(words); }},
      {"execute", [this](std::istream& words) { return execute(words); }},
      {"enable",
       [this](std::istream& words) {
         named(words)->enableServerSide();
         return std::string();
       }},
      {"disable",
       [this](std::istream& words) {
         named(words)->disableServerSide();
         return std::string();
       }},
      {"state",
       [this](std::istream& words) { return std::to_string(named(words)->serverSideState()); }},
      {"disk", [this](std::istream& words) { return setDisk(words); }},
      {"kill",
       [this](std::istream& words) {
         const auto before = std::chrono::steady_clock::now();
         named(words)->disableServerSide();
         if (std::chrono::steady_clock::now() - before < kLongestWait) ::raise(SIGKILL);
         return std::string("slow");
       }},
  };
};

void configure(const std::string& folder, const std::string& host) {
  JXCoreConfiguration configuration;
  configuration.storageFolder = folder;
  configuration.collectionHost = host;
  configuration.proxy = "";
  configuration.retryTimings.initialBackoff = milliseconds(1);
  configuration.retryTimings.maxBackoff = milliseconds(5);
  configuration.retryTimings.syncDelay = milliseconds(5);
  JXCoreConfiguration::set(configuration);
}

}  // namespace
}  // namespace jx::test

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  jx::test::configure(argv[1], argv[2]);
  jx::test::Application application;
  std::string line;
  for (int number = 1; std::getline(std::cin, line); ++number) {
    const std::string value = application.run(line);
    std::cout << "done " << number << " " << value << std::endl;
  }
  return 0;
}
