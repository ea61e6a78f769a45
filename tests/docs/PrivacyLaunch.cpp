// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// One launch of an application in one consent state, in a separate process, on a platform that
// provides every value. Its events stay in the queue, because no server listens.
//
//   privacy_launch STATE_FOLDER enabled|waiting|disabled [user-defaults]
//
// The keys that it adds to an event begin with "app_". With "user-defaults", the platform stores
// the persisted values, as on tvOS, and the launch prints their keys, one per line.

#include <cstdio>
#include <memory>
#include <string>

#include "jx/JXServerSide.h"
#include "jx/core/JXClassRegistry.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXUser.h"
#include "tests/support/JXFakePlatform.h"

namespace {

using namespace jx;

void executeEvents(ServerSide& serverSide) {
  serverSide.waitForUserAgent();
  serverSide.addAdvertisingIDs();
  serverSide.addPermanentData_withValue("app_permanent", "value");
  JXUser::sharedInstance().setConsentID("consent");
  JXUser::sharedInstance().addAdditionalProperty_withStringValue("app_property", "value");
  JXCoreVariables::sharedInstance().addData_withValue(JX_ConsentVersion, "3");
  serverSide.execute(JXCustomEvent::initWithName("first"));
  JXApplication::applicationDidEnterBackground();
  JXApplication::applicationWillEnterForeground();
  serverSide.execute(JXCustomEvent::initWithName("second"));
}

// Stores values that the start of a process does not.
void restartSession() { JXPredefinedVariables::sharedInstance().reinit(); }

}  // namespace

int main(int argc, char** argv) {
  const std::string state = argc >= 3 ? argv[2] : "";
  const bool isDisabled = state == "disabled";
  if (!isDisabled && state != "enabled" && state != "waiting") {
    std::fprintf(stderr,
                 "usage: privacy_launch STATE_FOLDER enabled|waiting|disabled "
                 "[user-defaults]\n");
    return 2;
  }
  const auto platform = std::make_shared<test::JXFakePlatform>();
  platform->hasUserDefaults = argc == 4;
  platform->trackingAllowed = true;
  JXCoreConfiguration configuration;
  configuration.platform = platform;
  configuration.storageFolder = argv[1];
  configuration.collectionHost = "https://127.0.0.1:9";
  JXCoreConfiguration::set(configuration);
  if (state == "waiting") JXClassRegistry::sharedInstance().registerClass("JXMobileConsent");
  const auto serverSide = ServerSide::initWithSiteID_andSourceKey_andDefaultBehaviour(
      1, "source-key",
      isDisabled ? EJXDefaultBehaviour_DISABLED_BY_DEFAULT : EJXDefaultBehaviour_DEFAULT);
  executeEvents(*serverSide);
  if (state == "enabled") restartSession();
  for (const auto& [key, value] : platform->defaults.entries())
    std::printf("%s\n", key.c_str());
  return 0;
}
