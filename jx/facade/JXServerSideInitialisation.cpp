// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXServerSideInitialisation.h"

#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXCoreServices.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/facade/JXState.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

std::shared_ptr<JXServerSideInitialisation> JXServerSideInitialisation::init() {
  const JXCoreCaller caller("JXServerSideInitialisation::init()");
  JXCoreInitialisation::init();
  JXState::sharedInstance();  // before the variables, so that the core is notified of a transition
                              // first
  JXPredefinedVariables::sharedInstance();
  // From here on the core's variables are also predefined variables.
  JXPredefinedVariables::sharedInstance().addData(JXCoreVariables::sharedInstance().dynamicStore());
  return std::shared_ptr<JXServerSideInitialisation>(new JXServerSideInitialisation());
}

}  // namespace jx
