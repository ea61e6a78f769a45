// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/JXCoreInitialisation.h"

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/core/JXNetwork.h"
#include "jx/core/JXUser.h"
#include "jx/core/notifications/JXNotificationHub.h"

namespace jx {

std::shared_ptr<JXCoreInitialisation> JXCoreInitialisation::init() {
  const JXCoreCaller caller("JXCoreInitialisation::init()");
  JXCoreServices& services = JXCoreServices::sharedInstance();
  // Observes the default center before any listener does, so that the network manager receives a
  // state change before the facade acts on it.
  JXNotificationHub::sharedInstance();
  // Create the core's variables and identifiers before the library merges and sends them.
  JXCoreVariables::sharedInstance();
  // Creates and stores the identifier before the first event needs it.
  static_cast<void>(JXUser::sharedInstance().anonymous_id());
  JXNetwork::sharedInstance();
  services.start();
  return std::shared_ptr<JXCoreInitialisation>(new JXCoreInitialisation());
}

}  // namespace jx
