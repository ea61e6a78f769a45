// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXAppFields.h"

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXAppFields::readVariables() {
  const JXSessionLock lock;
  const JXDynamicStore::Strings strings = JXPredefinedVariables::sharedInstance().strings();
  strings.read(kJXPredefinedVariable_ApplicationName, places_[0], name_);
  strings.read(kJXPredefinedVariable_ApplicationVersion, places_[1], version_);
  strings.read(kJXPredefinedVariable_ApplicationBuild, places_[2], build_);
  strings.read(kJXPredefinedVariable_BundleID, places_[3], nameSpace_);
}

void JXAppFields::writeOwnEntries(JXJsonSink& sink) const {
  const JXSessionLock lock;
  sink.text(JXA_NAME, name_);
  sink.text(JXA_VERSION, version_);
  sink.text(JXA_BUILD, build_);
  sink.text(JXA_NAMESPACE, nameSpace_);
  sink.text(JXA_SERVERSIDEVERSION, serverSideVersion_);
  sink.text(JXA_COREVERSION, coreVersion_);
  sink.text(JXA_CONSENTVERSION, consentVersion_);
}

}  // namespace jx
