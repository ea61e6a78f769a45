// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "jx/platform/linux/JXNetworkKind.h"
#include "jx/platform/posix/JXNetworkInterfaces.h"
#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

constexpr char kRouteHead[] = "Iface\tDestination\tGateway\tFlags\tRefCnt\tUse\tMetric\tMask\n";

std::string defaultRoute(const std::string& name, int metric) {
  return name + "\t00000000\t010200C0\t0003\t0\t0\t" + std::to_string(metric) +
         "\t00000000\t0\t0\t0\n";
}

class NetworkKind : public testing::Test {
 protected:
  void hardware(const std::string& name, const std::string& part = "device/vendor") {
    root_.write("sys/class/net/" + name + "/type", "1\n");
    root_.write("sys/class/net/" + name + "/" + part, "\n");
  }
  static JXNetworkInterface up(const std::string& name) { return {name, true, false, true}; }
  JXNetworkKind kind(const std::vector<JXNetworkInterface>& interfaces) const {
    return kindOfNetwork(interfaces, root_.path());
  }

  test::TemporaryFolder root_;
};

TEST_F(NetworkKind, ReturnsNoneWithoutAUsableInterface) {
  EXPECT_EQ(kind({}), JXNetworkKind::None);
  EXPECT_EQ(kind({{"lo", true, true, true}}), JXNetworkKind::None);
  hardware("eth0");
  EXPECT_EQ(kind({{"eth0", false, false, true}}), JXNetworkKind::None);
  EXPECT_EQ(kind({{"eth0", true, false, false}}), JXNetworkKind::None);
}

TEST_F(NetworkKind, ReturnsEthernetForAWiredDevice) {
  hardware("enp3s0");
  EXPECT_EQ(kind({{"lo", true, true, true}, up("enp3s0")}), JXNetworkKind::Ethernet);
}

TEST_F(NetworkKind, ReturnsWifiForAWirelessDevice) {
  hardware("wlan0", "wireless/status");
  EXPECT_EQ(kind({up("wlan0")}), JXNetworkKind::Wifi);
  hardware("mlan0", "phy80211/name");
  EXPECT_EQ(kind({up("mlan0")}), JXNetworkKind::Wifi);
  hardware("net1");
  root_.write("sys/class/net/net1/uevent", "DEVTYPE=wlan\nINTERFACE=net1\n");
  EXPECT_EQ(kind({up("net1")}), JXNetworkKind::Wifi);
}

TEST_F(NetworkKind, ReturnsCellularForModems) {
  hardware("wwan0");
  EXPECT_EQ(kind({up("wwan0")}), JXNetworkKind::Cellular);
  hardware("net2");
  root_.write("sys/class/net/net2/uevent", "DEVTYPE=wwan\n");
  EXPECT_EQ(kind({up("net2")}), JXNetworkKind::Cellular);
  hardware("usb7");
  root_.write("sys/class/net/usb7/type", "519\n");
  EXPECT_EQ(kind({up("usb7")}), JXNetworkKind::Cellular);
}

TEST_F(NetworkKind, ClassifiesByNameWithoutSys) {
  EXPECT_EQ(kind({up("wlan0")}), JXNetworkKind::Wifi);
  EXPECT_EQ(kind({up("wwan0")}), JXNetworkKind::Cellular);
  EXPECT_EQ(kind({up("eth0")}), JXNetworkKind::Ethernet);
  EXPECT_EQ(kind({up("docker0")}), JXNetworkKind::None);
}

TEST_F(NetworkKind, PrefersWiredOverWirelessOverCellular) {
  hardware("eth0");
  hardware("wlan0", "wireless/status");
  hardware("wwan0");
  EXPECT_EQ(kind({up("wwan0"), up("wlan0"), up("eth0")}), JXNetworkKind::Ethernet);
  EXPECT_EQ(kind({up("wwan0"), up("wlan0")}), JXNetworkKind::Wifi);
}

TEST_F(NetworkKind, PrefersTheDefaultRouteWithTheLowestMetric) {
  hardware("eth0");
  hardware("wlan0", "wireless/status");
  root_.write("proc/net/route",
              kRouteHead + defaultRoute("eth0", 700) + defaultRoute("wlan0", 600));
  EXPECT_EQ(kind({up("eth0"), up("wlan0")}), JXNetworkKind::Wifi);
  root_.write("proc/net/route",
              kRouteHead + defaultRoute("eth0", 100) + defaultRoute("wlan0", 600));
  EXPECT_EQ(kind({up("eth0"), up("wlan0")}), JXNetworkKind::Ethernet);
}

TEST_F(NetworkKind, ReadsIPv6Routes) {
  hardware("eth0");
  hardware("wlan0", "wireless/status");
  const std::string zeros(32, '0');
  root_.write("proc/net/ipv6_route", zeros + " 00 " + zeros + " 00 " + zeros +
                                         " ffffffff 00000001 00000000 00200200 lo\n" + zeros +
                                         " 00 " + zeros + " 00 " + zeros +
                                         " 00000400 00000002 00000000 00450003 wlan0\n");
  EXPECT_EQ(kind({up("eth0"), up("wlan0")}), JXNetworkKind::Wifi);
}

TEST_F(NetworkKind, IgnoresInvalidRoutes) {
  hardware("eth0");
  hardware("wlan0", "wireless/status");
  root_.write("proc/net/route", "Iface\n\xff\xfe\nwlan0\t00000000\nwlan0 00000000 a b c d x\n\n");
  EXPECT_EQ(kind({up("wlan0"), up("eth0")}), JXNetworkKind::Ethernet);
}

TEST_F(NetworkKind, IgnoresBridgesOfLocalContainers) {
  root_.write("sys/class/net/docker0/bridge/bridge_id", "\n");
  root_.write("sys/class/net/veth12ab/type", "1\n");
  hardware("wlan0", "wireless/status");
  EXPECT_EQ(kind({up("docker0"), up("veth12ab"), up("wlan0")}), JXNetworkKind::Wifi);
  EXPECT_EQ(kind({up("docker0")}), JXNetworkKind::None);
}

TEST_F(NetworkKind, ReturnsEthernetInsideAContainer) {
  root_.write("sys/class/net/eth0/type", "1\n");
  EXPECT_EQ(kind({{"lo", true, true, true}, up("eth0")}), JXNetworkKind::Ethernet);
}

TEST_F(NetworkKind, ReturnsEthernetForABridgeWithTheDefaultRoute) {
  root_.write("sys/class/net/br0/bridge/bridge_id", "\n");
  root_.write("proc/net/route", kRouteHead + defaultRoute("br0", 0));
  EXPECT_EQ(kind({up("br0")}), JXNetworkKind::Ethernet);
}

TEST_F(NetworkKind, PrefersTheDeviceBelowAVpn) {
  root_.write("sys/class/net/tun0/type", "65534\n");
  hardware("wlan0", "wireless/status");
  root_.write("proc/net/route", kRouteHead + defaultRoute("tun0", 0) + defaultRoute("wlan0", 600));
  EXPECT_EQ(kind({up("tun0"), up("wlan0")}), JXNetworkKind::Wifi);
}

TEST(NetworkReading, ListsLoopbackInNetworkByteOrder) {
  const JXNetworkReading reading = readNetworkInterfaces();
  const auto loopback = std::find_if(reading.interfaces.begin(), reading.interfaces.end(),
                                     [](const auto& entry) { return entry.isLoopback; });
  ASSERT_NE(loopback, reading.interfaces.end());
  const JXString name(loopback->name);
  const auto address = std::find_if(
      reading.addresses.begin(), reading.addresses.end(), [&name](const JXInterfaceAddress& entry) {
        return entry.name == name && entry.family == JXInterfaceAddress::Family::IPv4;
      });
  ASSERT_NE(address, reading.addresses.end());
  EXPECT_EQ(std::to_array(address->word), (std::array<std::uint8_t, 4>{127, 0, 0, 1}));
}

TEST(NetworkReading, ReturnsTheFlowInformationForIPv6) {
  for (const JXInterfaceAddress& entry : readNetworkInterfaces().addresses) {
    if (entry.family == JXInterfaceAddress::Family::IPv4) continue;
    EXPECT_EQ(std::to_array(entry.word), (std::array<std::uint8_t, 4>{0, 0, 0, 0})) << entry.name;
  }
}

TEST(NetworkReading, ListsEachInterfaceOnce) {
  std::vector<std::string> names;
  for (const auto& entry : readNetworkInterfaces().interfaces)
    names.push_back(entry.name);
  std::sort(names.begin(), names.end());
  EXPECT_EQ(std::adjacent_find(names.begin(), names.end()), names.end());
  EXPECT_FALSE(names.empty());
}

}  // namespace
}  // namespace jx
