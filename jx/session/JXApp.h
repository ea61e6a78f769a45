// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include "jx/core/JXAdditionalProperties.h"
#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"
#include "jx/session/JXSessionLock.h"

namespace jx {

/// The application block "app": name and version of the application, and the versions of this
/// library, of its core and of the consent configuration. Thread-safe.
class JX_API JXApp : public JXAdditionalProperties {
 public:
  /// Returns the shared block of this process. The first call creates it and reads the values.
  static JXApp& sharedInstance();

  /// Creates an uninitialised object; applications use `sharedInstance`.
  JXApp() : JXAdditionalProperties(Sharing::AnyThread) {}
  /// Reads the values once per process and returns this object; an object created after the shared
  /// one is returned unchanged. Returns null if the base class cannot be initialised. Does not
  /// return while another `init` is running.
  JXApp* init();
  /// Reads the values again.
  JXApp* reinit();

  /// Reads the consent version again, because consent can change at any time.
  void refreshContent();
  /// Returns a new object with the current consent version. It contains the additional properties,
  /// overridden by the fields.
  JXJsonObject getJsonObject();

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
  /// The version of the library's core.
  JXString coreVersion() const { return JXSessionLock::read(coreVersion_); }
  void setCoreVersion(const JXString& value) { JXSessionLock::write(coreVersion_, value); }
  /// The library version that events report.
  JXString serverSideVersion() const { return JXSessionLock::read(serverSideVersion_); }
  void setServerSideVersion(const JXString& value) {
    JXSessionLock::write(serverSideVersion_, value);
  }
  /// The version of the consent configuration, set by the consent module.
  JXString consentVersion() const { return JXSessionLock::read(consentVersion_); }
  void setConsentVersion(const JXString& value) { JXSessionLock::write(consentVersion_, value); }

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
