// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// The application block "app": names and versions of the host application, of this library, of its
/// core and of the consent configuration. Belongs to the thread that executes events.
class JX_API JXApp : public JXAdditionalProperties {
 public:
  /// The one block of this process, filled when it is first asked for.
  static JXApp& sharedInstance();

  /// An object that is not initialised; hosts use `sharedInstance`.
  JXApp() = default;
  /// Fills the fields once per process and returns this object (see `tryBeginInit`); an object
  /// that is made after the shared one comes back as it is. Null when the base could not be
  /// initialised.
  JXApp* init();
  /// Fills the fields anew.
  JXApp* reinit();

  /// Reads the consent version anew, because consent may change at any moment.
  void refreshContent();
  /// A new object with the current consent version: the host's additional properties, then the
  /// fields over them.
  JXJsonObject getJsonObject();

  /// The application's name, "(unknown)" when it states none.
  const JXString& name() const { return name_; }
  void setName(const JXString& value) { name_ = value; }
  /// The version that a viewer sees.
  const JXString& version() const { return version_; }
  void setVersion(const JXString& value) { version_ = value; }
  /// The build number.
  const JXString& build() const { return build_; }
  void setBuild(const JXString& value) { build_ = value; }
  /// The bundle identifier, such as "com.example.tv".
  const JXString& nameSpace() const { return nameSpace_; }
  void setNameSpace(const JXString& value) { nameSpace_ = value; }
  /// The version of the library's core.
  const JXString& coreVersion() const { return coreVersion_; }
  void setCoreVersion(const JXString& value) { coreVersion_ = value; }
  /// The version of the library, as events tell it.
  const JXString& serverSideVersion() const { return serverSideVersion_; }
  void setServerSideVersion(const JXString& value) { serverSideVersion_ = value; }
  /// The version of the consent configuration, as the consent module states it.
  const JXString& consentVersion() const { return consentVersion_; }
  void setConsentVersion(const JXString& value) { consentVersion_ = value; }

 private:
  void writeOwnEntries(JXJsonSink& sink) const override;

  JXString name_;
  JXString version_;
  JXString build_;
  JXString nameSpace_;
  JXString coreVersion_;
  JXString serverSideVersion_;
  JXString consentVersion_;
};

}  // namespace jx
