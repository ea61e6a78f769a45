// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#include "jx/session/JXAppFields.h"

#include <iterator>
#include <string_view>
#include <utility>

#include "jx/catalogue/JXEventPropertiesNames.h"
#include "jx/core/JXCoreConstants.h"
#include "jx/core/json/JXJsonTreeSink.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"

namespace jx {

void JXAppFields::readVariables() {
  static constexpr std::string_view kNames[] = {
      kJXPredefinedVariable_ApplicationName, kJXPredefinedVariable_ApplicationVersion,
      kJXPredefinedVariable_ApplicationBuild, kJXPredefinedVariable_BundleID};
  JXString values[std::size(kNames)];
  const JXSessionLock lock;
  JXPredefinedVariables::sharedInstance().getStrings(kNames, std::size(kNames), places_, values);
  name_ = std::move(values[0]);
  version_ = std::move(values[1]);
  build_ = std::move(values[2]);
  nameSpace_ = std::move(values[3]);
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
