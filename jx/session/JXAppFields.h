// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// Generated from jx/catalogue/context.toml by scripts/catalogue. Do not edit.
#pragma once

#include "jx/core/JXAdditionalProperties.h"
#include "jx/core/JXDynamicStore.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The fields of JXApp. Thread-safe: the session's mutex guards them.
class JX_API JXAppFields : public JXAdditionalProperties {
 public:
  /// The application's name; "(unknown)" if it is not configured.
  JXString name() const { return JXSessionLock::read(name_); }
  void setName(const JXString& value) { JXSessionLock::write(name_, value); }
  /// The version shown to users.
  JXString version() const { return JXSessionLock::read(version_); }
  void setVersion(const JXString& value) { JXSessionLock::write(version_, value); }
  /// The build number.
  JXString build() const { return JXSessionLock::read(build_); }
  void setBuild(const JXString& value) { JXSessionLock::write(build_, value); }
  /// The bundle identifier, such as "com.example.tv".
  JXString nameSpace() const { return JXSessionLock::read(nameSpace_); }
  void setNameSpace(const JXString& value) { JXSessionLock::write(nameSpace_, value); }
  /// The library version that events report.
  JXString serverSideVersion() const { return JXSessionLock::read(serverSideVersion_); }
  void setServerSideVersion(const JXString& value) {
    JXSessionLock::write(serverSideVersion_, value);
  }
  /// The version of the library's core.
  JXString coreVersion() const { return JXSessionLock::read(coreVersion_); }
  void setCoreVersion(const JXString& value) { JXSessionLock::write(coreVersion_, value); }
  /// The version of the consent configuration, set by the consent module.
  JXString consentVersion() const { return JXSessionLock::read(consentVersion_); }
  void setConsentVersion(const JXString& value) { JXSessionLock::write(consentVersion_, value); }

 protected:
  JXAppFields() : JXAdditionalProperties(Sharing::AnyThread) {}

  /// Copies the predefined variables to the fields. A string that is not a number leaves a number
  /// unchanged.
  void readVariables();
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString name_;
  JXString version_;
  JXString build_;
  JXString nameSpace_;
  JXString serverSideVersion_;
  JXString coreVersion_;
  JXString consentVersion_;

 private:
  JXDynamicStore::Place places_[4];  ///< of the variables in the store
};

}  // namespace jx
