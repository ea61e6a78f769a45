// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "jx/platform/JXApi.h"
#include "jx/platform/JXString.h"

namespace jx {

/// Information about the application. On a system with bundles the default is the main bundle.
struct JX_API JXBundleInformation {
  JXString identifier;    ///< for example "com.example.tv"
  JXString name;          ///< name that is shown to the viewer
  JXString version;       ///< build number ("CFBundleVersion")
  JXString shortVersion;  ///< version shown to the viewer ("CFBundleShortVersionString")
};

/// Size of the main screen in points; 0 by 0 if there is no display.
struct JX_API JXScreenBounds {
  double width = 0;   ///< points
  double height = 0;  ///< points
};

/// Type of the current network connection.
enum class JXNetworkKind { None, Ethernet, Wifi, Cellular };

/// One entry of the system's list of network interfaces.
struct JX_API JXInterfaceAddress {
  /// Address family.
  enum class Family { IPv4, IPv6, Other };
  /// Name of the interface, such as "en0".
  JXString name;
  /// Family of the address.
  Family family = Family::Other;
  /// The four bytes after family and port in the socket address, in network byte order: the address
  /// itself for IPv4, the flow information for IPv6.
  std::uint8_t word[4] = {0, 0, 0, 0};
};

/// The settings store of the system, for systems that provide one per application. String values
/// only. Called on any thread.
class JX_API JXPlatformDefaults {
 public:
  virtual ~JXPlatformDefaults() = default;
  /// Returns the value of `key`; null if there is none.
  virtual JXString objectForKey(const JXString& key) = 0;
  /// Stores `value`; null removes the entry.
  virtual void setObject_forKey(const JXString& value, const JXString& key) = 0;
  /// Makes all changes durable.
  virtual void synchronize() = 0;

  /// Starts a batch: changes of this thread until `endChanges` may be stored together. They are
  /// readable immediately. Calls are paired and not nested.
  virtual void beginChanges() {}
  /// Stores the changes since `beginChanges`.
  virtual void endChanges() {}
};

/// Interface to the operating system. A null string means that the value is unavailable. Called on
/// the threads on which the application calls the library and, for `networkKind`, on the transfer
/// thread. No operation may throw or block for long.
class JX_API JXPlatform {
 public:
  virtual ~JXPlatform() = default;

  /// Returns the settings store of the system, owned by the platform. If null, the library stores
  /// the values in its own storage folder.
  virtual JXPlatformDefaults* userDefaults() = 0;
  /// Returns the default folder for the library's files; null if the system provides none.
  virtual JXString defaultStorageFolder() = 0;

  /// Returns language tags such as "fr-CA", most preferred first; empty if unknown.
  virtual std::vector<JXString> preferredLanguages() = 0;
  /// Returns the ISO 4217 code of the locale's currency.
  virtual JXString currencyCode() = 0;
  /// Returns the symbol of the locale's currency.
  virtual JXString currencySymbol() = 0;
  /// Returns the number of the default byte-string encoding, as listed in JXPredefinedVariables (4
  /// is UTF-8); 0 if unknown.
  virtual std::uint32_t defaultEncoding() = 0;
  /// Returns the IANA name of the time zone, such as "Asia/Tokyo".
  virtual JXString timeZoneName() = 0;

  /// Returns information about the application; null strings for unknown values.
  virtual JXBundleInformation bundleInformation() = 0;

  /// Returns the marketing name of the device model.
  virtual JXString deviceModel() = 0;
  /// Returns the name of the operating system.
  virtual JXString systemName() = 0;
  /// Returns the version of the operating system.
  virtual JXString systemVersion() = 0;
  /// Returns the hardware identifier of the machine, as reported by `uname`.
  virtual JXString machineName() = 0;
  /// Returns the size of the main screen in points.
  virtual JXScreenBounds screenBounds() = 0;

  /// Returns true if the viewer allows advertising tracking.
  virtual bool isAdvertisingTrackingAllowed() = 0;
  /// Returns the advertising identifier, a UUID; null if there is none. Called only if tracking is
  /// allowed.
  virtual JXString advertisingIdentifier() = 0;
  /// Returns the identifier that the applications of one vendor share on this device.
  virtual JXString vendorIdentifier() = 0;
  /// Returns true if the integrity probe detects a modified device.
  virtual bool isDeviceModified() = 0;

  /// Returns the type of the current network connection.
  virtual JXNetworkKind networkKind() = 0;
  /// Returns the addresses of all network interfaces; empty if unavailable.
  virtual std::vector<JXInterfaceAddress> interfaceAddresses() = 0;

  /// Requests the user agent. Calls `completion` once, on any thread, before or after this returns,
  /// with null if there is no user agent.
  virtual void requestUserAgent(std::function<void(const JXString&)> completion) = 0;

  /// Called with the application object of the system, for comparison only; null if it has none.
  using ApplicationCallback = std::function<void(const void* application)>;
  /// Registers functions that are called on the main thread when the application enters the
  /// background and before it returns to the foreground. Called once. Does nothing on a system
  /// without such notifications; there the application calls JXApplication itself.
  virtual void observeApplication(ApplicationCallback didEnterBackground,
                                  ApplicationCallback willEnterForeground) = 0;

  /// Returns a new random UUID: 36 characters, upper-case hexadecimal, hyphenated.
  virtual JXString newUUID() = 0;
  /// Returns 32 random bits.
  virtual std::uint32_t randomBits() = 0;
  /// Returns the ID of this process.
  virtual std::int32_t processIdentifier() = 0;
};

/// Creates the platform of the system that the library was built for. The arguments override the
/// values of the system; a system with bundles provides the values that are null in `bundle`.
JX_API std::shared_ptr<JXPlatform> makeSystemPlatform(const JXBundleInformation& bundle,
                                                      const JXScreenBounds& screen,
                                                      const JXString& userAgent);

}  // namespace jx
