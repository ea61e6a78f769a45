// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Properties of the system and the application, read once at start-up.

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "jx/core/JXCoreServices.h"
#include "jx/core/JXLogger.h"
#include "jx/session/JXPersistedString.h"
#include "jx/session/JXPredefinedVariableNames.h"
#include "jx/session/JXPredefinedVariables.h"
#include "jx/session/JXServerSideVersion.h"
#include "jx/session/JXTextEncoding.h"

namespace jx {
namespace {

// Fixed, because the server identifies the device family by it.
constexpr std::string_view kRuntimeName = "tvos";

JXPlatform& platform() { return JXCoreServices::sharedInstance().platform(); }

std::string truncatedToInteger(double points) {
  constexpr double kLargest = std::numeric_limits<std::int32_t>::max();
  if (std::isnan(points)) return "0";
  // Not std::fmax: C programs that link the static library need not link libm.
  return std::to_string(static_cast<std::int32_t>(std::clamp(points, -kLargest, kLargest)));
}

std::vector<std::string> splitAtHyphens(std::string_view tag) {
  std::vector<std::string> parts;
  for (;;) {
    const std::size_t hyphen = tag.find('-');
    parts.emplace_back(tag.substr(0, hyphen));
    if (hyphen == std::string_view::npos) return parts;
    tag.remove_prefix(hyphen + 1);
  }
}

std::string dottedNotation(const JXInterfaceAddress& address) {
  std::string dotted;
  for (const std::uint8_t byte : address.word) {
    if (!dotted.empty()) dotted.push_back('.');
    dotted.append(std::to_string(byte));
  }
  return dotted;
}

}  // namespace

void JXPredefinedVariables::setManufacturer() {
  setVariable(kJXPredefinedVariable_Manufacturer, kJXManufacturerName);
}

void JXPredefinedVariables::setNorvaneVersion() {
  setVariable(kJXPredefinedVariable_NorvaneVersion, kJXServerSideVersion);
}

void JXPredefinedVariables::setLocalCharset() {
  setVariable(kJXPredefinedVariable_Charset, getDefaultEncoding());
}

void JXPredefinedVariables::initScreenResolution() {
  const JXScreenBounds bounds = platform().screenBounds();
  setVariable(kJXPredefinedVariable_ScreenWidth, truncatedToInteger(bounds.width));
  setVariable(kJXPredefinedVariable_ScreenHeight, truncatedToInteger(bounds.height));
}

void JXPredefinedVariables::setApplicationBuild() {
  const JXString build = platform().bundleInformation().version;
  if (build.isPresent()) setVariable(kJXPredefinedVariable_ApplicationBuild, build);
}

void JXPredefinedVariables::setLocalModel() {
  setVariable(kJXPredefinedVariable_Device, platform().deviceModel());
}

void JXPredefinedVariables::setLocalSysVersion() {
  setVariable(kJXPredefinedVariable_SystemVersion, platform().systemVersion());
}

void JXPredefinedVariables::setLocalSysName() {
  setVariable(kJXPredefinedVariable_SystemName, platform().systemName());
}

void JXPredefinedVariables::setLocalLanguage() {
  const JXSessionLock lock;
  const std::vector<JXString> languages = platform().preferredLanguages();
  const std::vector<std::string> parts =
      splitAtHyphens(languages.empty() ? std::string_view() : languages.front().view());
  if (parts.size() >= 2) {
    setVariable(kJXPredefinedVariable_Language, parts[0]);
    // In a tag with a script, the second part is the script.
    setVariable(kJXPredefinedVariable_Region, parts[1]);
    return;
  }
  setVariable(kJXPredefinedVariable_Language, "-");
  setVariable(kJXPredefinedVariable_Region, "-");
  JXLogger::sharedInstance().logMessage_withLevel("Unable to get local language data", 5);
}

void JXPredefinedVariables::setBundleIdentifier() {
  setVariable(kJXPredefinedVariable_BundleID, platform().bundleInformation().identifier);
}

void JXPredefinedVariables::setApplicationName() {
  const JXString name = platform().bundleInformation().name;
  setVariable(kJXPredefinedVariable_ApplicationName,
              name.testString() ? name : JXString("(unknown)"));
}

void JXPredefinedVariables::setRuntimeName() {
  setVariable(kJXPredefinedVariable_RuntimeName, kRuntimeName);
}

void JXPredefinedVariables::setModelAndVersion() {
  setVariable(kJXPredefinedVariable_Model, platform().machineName());
}

void JXPredefinedVariables::setIsJailBroken() {
  setVariable(kJXPredefinedVariable_JailBroken, platform().isDeviceModified() ? "1" : "0");
}

void JXPredefinedVariables::initApplicationVersion(const JXString& timeMs) {
  const JXSessionLock lock;
  JXString version = platform().bundleInformation().shortVersion;
  if (!version.isPresent()) version = "";
  const JXString firstVisit = persistedString(kJXPredefinedVariable_CurVersionFirstVisitMs);
  if (firstVisit.testString()) {
    setVariable(kJXPredefinedVariable_CurVersionFirstVisitMs, firstVisit);
  }
  if (version.testString()) {
    const JXString lastSeen = persistedString(kJXPredefinedVariable_ApplicationVersion);
    const bool isFirstKnown = !lastSeen.testString();
    const bool isUpdate = !isFirstKnown && lastSeen != version;
    if (isUpdate) persistString(kJXPredefinedVariable_ApplicationPreviousVersion, lastSeen);
    if (isFirstKnown || isUpdate) {
      setVariable(kJXPredefinedVariable_CurVersionFirstVisitMs, timeMs);
      persistString(kJXPredefinedVariable_CurVersionFirstVisitMs, timeMs);
    }
    persistString(kJXPredefinedVariable_ApplicationVersion, version);
  }
  const JXString previous = persistedString(kJXPredefinedVariable_ApplicationPreviousVersion);
  if (previous.testString()) {
    setVariable(kJXPredefinedVariable_ApplicationPreviousVersion, previous);
  }
  setVariable(kJXPredefinedVariable_ApplicationVersion, version);
}

JXString JXPredefinedVariables::currencyCode() {
  const JXString code = platform().currencyCode();
  if (code.testString()) {
    setVariable(kJXPredefinedVariable_CurrencyCode, code);
  } else {
    setVariable(kJXPredefinedVariable_CurrencyCode, "-");
    JXLogger::sharedInstance().logMessage_withLevel("Unable to getData currency code ", 5);
  }
  return code;
}

JXString JXPredefinedVariables::currencySymbol() {
  const JXString symbol = platform().currencySymbol();
  setVariable(kJXPredefinedVariable_CurrencySymbol, symbol);
  return symbol;
}

JXString JXPredefinedVariables::getDefaultEncoding() const {
  return nameOfTextEncoding(platform().defaultEncoding());
}

JXString JXPredefinedVariables::findDeviceIP() const {
  std::string wifi;
  std::string cellular;
  for (const JXInterfaceAddress& address : platform().interfaceAddresses()) {
    if (address.family == JXInterfaceAddress::Family::Other) continue;
    // For IPv6 the word is the flow information, normally zero, so "0.0.0.0" replaces an address
    // found before. Kept for compatibility.
    if (address.name.view() == "en0") wifi = dottedNotation(address);
    if (address.name.view() == "pdp_ip0") cellular = dottedNotation(address);
  }
  return wifi.empty() ? cellular : wifi;
}

}  // namespace jx
