// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/facade/JXServerSideInitialisation.h"

#include "jx/core/JXCoreInitialisation.h"
#include "jx/core/JXCoreVariables.h"
#include "jx/facade/JXState.h"
#include "jx/variables/JXPredefinedVariables.h"

namespace jx {

std::shared_ptr<JXServerSideInitialisation> JXServerSideInitialisation::init() {
  JXCoreInitialisation::init();
  JXState::sharedInstance();  // before the variables: the core hears of a change of state first
  JXPredefinedVariables::sharedInstance();
  // The core's variables are read as predefined ones from here on.
  JXPredefinedVariables::sharedInstance().addData(JXCoreVariables::sharedInstance().dynamicStore());
  return std::shared_ptr<JXServerSideInitialisation>(new JXServerSideInitialisation());
}

}  // namespace jx
