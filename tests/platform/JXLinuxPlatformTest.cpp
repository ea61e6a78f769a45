// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLinuxPlatform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <clocale>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/ScopedEnvironment.h"
#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// A system with files and lists that the test provides.
class LinuxPlatform : public testing::Test {
 protected:
  JXLinuxPlatform& platform() {
    if (!platform_) {
      platform_ = std::make_unique<JXLinuxPlatform>(
          overrides_,
          JXLinuxSystem{environment_, root_.path(), [](const JXString&) { return std::nullopt; },
                        [this] {
                          ++kernelReads_;
                          return JXKernelNames{"Linux", "6.1.0", "aarch64"};
                        },
                        [this] {
                          ++networkReads_;
                          return reading_;
                        },
                        [this] { return now_; }});
    }
    return *platform_;
  }

  JXString userAgent() {
    JXString text("never called");
    platform().requestUserAgent([&text](const JXString& answer) { text = answer; });
    return text;
  }

  test::TemporaryFolder root_;
  JXHostOverrides overrides_;
  JXEnvironment environment_;
  JXNetworkReading reading_;
  std::chrono::steady_clock::time_point now_;
  std::atomic<int> kernelReads_{0};
  int networkReads_ = 0;
  std::unique_ptr<JXLinuxPlatform> platform_;
};

TEST_F(LinuxPlatform, ReadsTheGivenEnvironment) {
  environment_ = {{"LANG", "fr_CA.UTF-8"}, {"TZ", "Asia/Tokyo"}, {"HOME", "/home/tv"}};
  overrides_.bundle.identifier = "com.example.tv";
  EXPECT_THAT(platform().preferredLanguages(), ElementsAre(JXString("fr-CA")));
  EXPECT_EQ(platform().currencyCode(), JXString("CAD"));
  EXPECT_EQ(platform().currencySymbol(), JXString("$"));
  EXPECT_EQ(platform().defaultEncoding(), 4U);
  EXPECT_EQ(platform().timeZoneName(), JXString("Asia/Tokyo"));
  EXPECT_EQ(platform().defaultStorageFolder(),
            JXString("/home/tv/.local/state/jxserverside/com.example.tv"));
}

TEST_F(LinuxPlatform, ReturnsSystemAndHardware) {
  root_.write("etc/os-release", "NAME=\"Example OS\"\nVERSION_ID=4.2\n");
  root_.write("sys/firmware/devicetree/base/model", "Example Board\n");
  root_.write("sys/class/graphics/fb0/virtual_size", "1280,720\n");
  EXPECT_EQ(platform().systemName(), JXString("Example OS"));
  EXPECT_EQ(platform().systemVersion(), JXString("4.2"));
  EXPECT_EQ(platform().machineName(), JXString("aarch64"));
  EXPECT_EQ(platform().deviceModel(), JXString("Example Board"));
  EXPECT_EQ(platform().screenBounds().width, 1280);
  EXPECT_EQ(platform().screenBounds().height, 720);
}

TEST_F(LinuxPlatform, ReadsSystemInformationOnceForAllThreads) {
  root_.write("etc/os-release", "NAME=Before\n");
  JXLinuxPlatform& shared = platform();
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([&shared] { shared.machineName(); });
  for (std::thread& thread : threads)
    thread.join();
  root_.write("etc/os-release", "NAME=After\n");
  EXPECT_EQ(shared.systemName(), JXString("Before"));
  EXPECT_EQ(kernelReads_.load(), 1);
}

TEST_F(LinuxPlatform, ReturnsTheValuesOfTheApplication) {
  overrides_.bundle = {"com.example.tv", "Example TV", "100", "1.0"};
  overrides_.screen = {1920, 1080};
  const JXBundleInformation bundle = platform().bundleInformation();
  EXPECT_EQ(bundle.identifier, JXString("com.example.tv"));
  EXPECT_EQ(bundle.name, JXString("Example TV"));
  EXPECT_EQ(bundle.version, JXString("100"));
  EXPECT_EQ(bundle.shortVersion, JXString("1.0"));
  EXPECT_EQ(platform().screenBounds().width, 1920);
}

TEST_F(LinuxPlatform, ReturnsNullForValuesThatAreNotSet) {
  const JXBundleInformation bundle = platform().bundleInformation();
  EXPECT_EQ(bundle.identifier, JXString());
  EXPECT_EQ(bundle.name, JXString());
  EXPECT_EQ(bundle.version, JXString());
  EXPECT_EQ(bundle.shortVersion, JXString());
}

TEST_F(LinuxPlatform, HasNeitherAdvertisingNorASettingsStore) {
  root_.write("etc/machine-id", "0123456789abcdef0123456789abcdef\n");
  EXPECT_FALSE(platform().isAdvertisingTrackingAllowed());
  EXPECT_EQ(platform().advertisingIdentifier(), JXString());
  EXPECT_EQ(platform().vendorIdentifier(), JXString());
  EXPECT_FALSE(platform().isDeviceModified());
  EXPECT_EQ(platform().userDefaults(), nullptr);
}

TEST_F(LinuxPlatform, ReturnsTheConfiguredUserAgentUnchanged) {
  overrides_.userAgent = "Host/1.0 (a; b)";
  EXPECT_EQ(userAgent(), JXString("Host/1.0 (a; b)"));
}

TEST_F(LinuxPlatform, BuildsADefaultUserAgentFromTheSystem) {
  root_.write("etc/os-release", "NAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n");
  overrides_.userAgent = "";
  EXPECT_EQ(userAgent(), JXString("Debian-GNU-Linux/12 (aarch64)"));
}

TEST_F(LinuxPlatform, IgnoresAnEmptyUserAgentCallback) {
  platform().requestUserAgent(nullptr);
  EXPECT_EQ(kernelReads_.load(), 0);
}

TEST_F(LinuxPlatform, NeverCallsApplicationObservers) {
  int calls = 0;
  platform().observeApplication([&calls](const void*) { ++calls; },
                                [&calls](const void*) { ++calls; });
  EXPECT_EQ(calls, 0);
}

TEST_F(LinuxPlatform, RefreshesTheNetworkKindAfterOneSecond) {
  EXPECT_EQ(platform().networkKind(), JXNetworkKind::None);
  reading_.interfaces = {{"wlan0", true, false, true}};
  now_ += std::chrono::milliseconds(999);
  EXPECT_EQ(platform().networkKind(), JXNetworkKind::None);
  EXPECT_EQ(networkReads_, 1);
  now_ += std::chrono::milliseconds(1);
  EXPECT_EQ(platform().networkKind(), JXNetworkKind::Wifi);
  EXPECT_EQ(networkReads_, 2);
}

TEST_F(LinuxPlatform, ReadsAddressesInEachCall) {
  EXPECT_THAT(platform().interfaceAddresses(), IsEmpty());
  reading_.addresses = {
      {"eth0", JXInterfaceAddress::Family::IPv4, {192, 0, 2, 1}},
  };
  ASSERT_EQ(platform().interfaceAddresses().size(), 1U);
  EXPECT_EQ(platform().interfaceAddresses()[0].name, JXString("eth0"));
}

TEST_F(LinuxPlatform, ReturnsUUIDsAndTheProcessId) {
  EXPECT_EQ(platform().newUUID().size(), 36U);
  EXPECT_NE(platform().newUUID(), platform().newUUID());
  EXPECT_NE((std::uint64_t{platform().randomBits()} << 32 | platform().randomBits()),
            (std::uint64_t{platform().randomBits()} << 32 | platform().randomBits()));
  EXPECT_EQ(platform().processIdentifier(), ::getpid());
}

// The platform of this machine, with environment variables set by the test.
class SystemPlatform : public testing::Test {
 protected:
  SystemPlatform() {
    for (const char* name : kNames)
      environment_.unset(name);
  }

  static constexpr const char* kNames[] = {
      "LANGUAGE", "LC_ALL", "LC_MESSAGES", "LC_MONETARY", "LC_CTYPE",
      "LANG",     "TZ",     "TZDIR",       "HOME",        "XDG_STATE_HOME"};

  static std::shared_ptr<JXPlatform> make() { return makeSystemPlatform({}, {}, nullptr); }

  // Calls every operation that reads system data.
  static void readEverything(JXPlatform& platform) {
    platform.userDefaults();
    platform.defaultStorageFolder();
    for (const JXString& tag : platform.preferredLanguages())
      EXPECT_LE(tag.size(), 35U);
    platform.currencyCode();
    platform.currencySymbol();
    platform.defaultEncoding();
    EXPECT_TRUE(platform.timeZoneName().testString());
    platform.bundleInformation();
    platform.deviceModel();
    EXPECT_TRUE(platform.systemName().testString());
    EXPECT_TRUE(platform.systemVersion().testString());
    EXPECT_TRUE(platform.machineName().testString());
    platform.screenBounds();
    platform.networkKind();
    platform.interfaceAddresses();
    platform.isDeviceModified();
  }

  test::ScopedEnvironment environment_;
};

TEST_F(SystemPlatform, ReadsLocaleAndTimeZoneVariables) {
  environment_.set("LANG", "fr_CA.UTF-8");
  environment_.set("TZ", "Asia/Tokyo");
  const auto platform = make();
  EXPECT_THAT(platform->preferredLanguages(), ElementsAre(JXString("fr-CA")));
  EXPECT_EQ(platform->currencyCode(), JXString("CAD"));
  EXPECT_EQ(platform->currencySymbol(), JXString("$"));
  EXPECT_EQ(platform->defaultEncoding(), 4U);
  EXPECT_EQ(platform->timeZoneName(), JXString("Asia/Tokyo"));
}

TEST_F(SystemPlatform, ReturnsNoLanguageAndCurrencyForTheCLocale) {
  environment_.set("LANG", "C");
  const auto platform = make();
  EXPECT_THAT(platform->preferredLanguages(), IsEmpty());
  EXPECT_EQ(platform->currencyCode(), JXString());
  EXPECT_EQ(platform->currencySymbol(), JXString());
  EXPECT_EQ(platform->defaultEncoding(), 1U);
}

TEST_F(SystemPlatform, StartsWithInvalidVariables) {
  const std::string values[] = {"",
                                "C",
                                std::string(10000, 'a'),
                                std::string(10000, ':'),
                                "fr_CA." + std::string(10000, 'x'),
                                "\xff\xfe\x01\x80",
                                "%s%n",
                                "../../../etc/passwd",
                                "/nonexistent/zone",
                                ":",
                                "/",
                                "/dev/tty",
                                "<",
                                "@@..__--"};
  for (const std::string& value : values) {
    for (const char* name : kNames)
      environment_.set(name, value);
    readEverything(*make());
    for (const char* name : kNames) {
      for (const char* other : kNames)
        environment_.unset(other);
      environment_.set("LANG", "fr_CA.UTF-8");
      environment_.set(name, value);
      readEverything(*make());
    }
  }
}

TEST_F(SystemPlatform, StartsWithoutAnyVariable) { readEverything(*make()); }

TEST_F(SystemPlatform, ReturnsUtcForAMissingTimeZone) {
  const test::TemporaryFolder folder;
  environment_.set("TZDIR", folder.path());
  environment_.set("TZ", ":Missing/Zone");
  EXPECT_EQ(make()->timeZoneName(), JXString("UTC"));
}

TEST_F(SystemPlatform, KeepsTheVariablesOfItsCreation) {
  environment_.set("LANG", "fr_CA.UTF-8");
  const auto platform = make();
  environment_.set("LANG", "ja_JP.UTF-8");
  EXPECT_THAT(platform->preferredLanguages(), ElementsAre(JXString("fr-CA")));
}

TEST_F(SystemPlatform, DoesNotChangeTheLocaleOfTheProcess) {
  ASSERT_NE(std::setlocale(LC_ALL, "C"), nullptr);
  environment_.set("LANG", "C.UTF-8");
  environment_.set("LC_MONETARY", "fr_CA.UTF-8");
  readEverything(*make());
  EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
}

}  // namespace
}  // namespace jx
