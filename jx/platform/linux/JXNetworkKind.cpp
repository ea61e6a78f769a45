// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXNetworkKind.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "jx/platform/JXConcat.h"
#include "jx/platform/linux/JXSystemFiles.h"

namespace jx {
namespace {

// In order of preference.
enum class Class { Wired, Wireless, Cellular, Virtual, Bridge };

bool startsWithAny(std::string_view name, std::initializer_list<std::string_view> prefixes) {
  return std::any_of(prefixes.begin(), prefixes.end(), [name](std::string_view prefix) {
    return name.substr(0, prefix.size()) == prefix;
  });
}

Class classByName(std::string_view name) {
  if (startsWithAny(name, {"wl", "ath", "ra0"})) return Class::Wireless;
  if (startsWithAny(name, {"wwan", "wwp", "rmnet", "ccmni", "pdp_ip"})) return Class::Cellular;
  if (startsWithAny(name, {"docker", "virbr", "br-"})) return Class::Bridge;
  if (startsWithAny(name, {"eth", "en"})) return Class::Wired;
  return Class::Virtual;
}

Class classOf(const std::string& name, const std::string& root) {
  const std::string folder = concat({root, "/sys/class/net/", name});
  if (!systemPathExists(folder)) return classByName(name);
  constexpr std::string_view kRawIp = "519";  // ARPHRD_RAWIP: modems without an Ethernet frame
  const JXString uevent = readSystemFile(folder + "/uevent");
  if (systemPathExists(folder + "/wireless") || systemPathExists(folder + "/phy80211") ||
      uevent.view().find("DEVTYPE=wlan") != std::string_view::npos) {
    return Class::Wireless;
  }
  if (classByName(name) == Class::Cellular || readSystemLine(folder + "/type").view() == kRawIp ||
      uevent.view().find("DEVTYPE=wwan") != std::string_view::npos) {
    return Class::Cellular;
  }
  if (systemPathExists(folder + "/bridge")) return Class::Bridge;
  return systemPathExists(folder + "/device") ? Class::Wired : Class::Virtual;
}

// Removes and returns the part of `text` before `separator`, or all of it.
std::string_view takeUntil(std::string_view& text, char separator) {
  const std::size_t end = std::min(text.find(separator), text.size());
  const std::string_view part = text.substr(0, end);
  text.remove_prefix(std::min(end + 1, text.size()));
  return part;
}

// The columns of a line, separated by blanks or tabs. Missing ones are empty.
class Columns {
 public:
  explicit Columns(std::string_view line) {
    constexpr std::string_view kBlanks = " \t\r";
    for (std::string_view& column : columns_) {
      line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
      column = line.substr(0, std::min(line.find_first_of(kBlanks), line.size()));
      line.remove_prefix(column.size());
    }
  }
  std::string_view operator[](std::size_t index) const { return columns_[index]; }
  // Returns the column as a number with digits of this base; nothing if it is not one.
  std::optional<std::uint64_t> number(std::size_t index, unsigned base) const {
    constexpr std::string_view kDigits = "0123456789abcdef";
    const std::string_view column = columns_[index];
    if (column.empty() || column.size() > 16) return std::nullopt;
    std::uint64_t number = 0;
    for (const char c : column) {
      const std::size_t digit = kDigits.substr(0, base).find(c);
      if (digit == std::string_view::npos) return std::nullopt;
      number = number * base + digit;
    }
    return number;
  }

 private:
  std::string_view columns_[10];
};

struct Route {
  std::string interface;
  std::uint64_t metric;
};

std::vector<Route> defaultRoutes(const std::string& root) {
  std::vector<Route> routes;
  const JXString table = readSystemFile(root + "/proc/net/route");
  for (std::string_view rest = table.view(); !rest.empty();) {
    // Interface, destination, gateway, flags, references, uses, metric, mask.
    const Columns columns(takeUntil(rest, '\n'));
    const std::optional<std::uint64_t> metric = columns.number(6, 10);
    if (metric && columns[1] == "00000000" && columns[7] == "00000000")
      routes.push_back({std::string(columns[0]), *metric});
  }
  const JXString table6 = readSystemFile(root + "/proc/net/ipv6_route");
  for (std::string_view rest = table6.view(); !rest.empty();) {
    // Destination, length, source, length, next hop, metric, references, uses, flags, interface.
    const Columns columns(takeUntil(rest, '\n'));
    const std::optional<std::uint64_t> metric = columns.number(5, 16);
    if (metric && columns[1] == "00" && !columns[9].empty() && columns[9] != "lo")
      routes.push_back({std::string(columns[9]), *metric});
  }
  return routes;
}

// The preference of a route: its metric, then its place in the list. Smaller is better.
using Rank = std::pair<std::uint64_t, std::size_t>;
constexpr Rank kNoRoute{UINT64_MAX, SIZE_MAX};

Rank bestRoute(const std::vector<Route>& routes, std::string_view interface) {
  Rank best = kNoRoute;
  for (std::size_t i = 0; i < routes.size(); ++i) {
    if (routes[i].interface == interface) best = std::min(best, Rank(routes[i].metric, i));
  }
  return best;
}

JXNetworkKind kindOf(Class type) {
  if (type == Class::Wireless) return JXNetworkKind::Wifi;
  if (type == Class::Cellular) return JXNetworkKind::Cellular;
  return JXNetworkKind::Ethernet;
}

struct Candidate {
  bool isVirtual;
  Rank route;
  Class type;

  bool isBetterThan(const Candidate& other) const {
    if (isVirtual != other.isVirtual) return !isVirtual;
    if (route != other.route) return route < other.route;
    return type < other.type;
  }
};

}  // namespace

JXNetworkKind kindOfNetwork(const std::vector<JXNetworkInterface>& interfaces,
                            const std::string& root) {
  const std::vector<Route> routes = defaultRoutes(root);
  std::optional<Candidate> best;
  for (const JXNetworkInterface& entry : interfaces) {
    if (!entry.isUp || entry.isLoopback || !entry.hasAddress) continue;
    const Class type = classOf(entry.name, root);
    const Rank route = bestRoute(routes, entry.name);
    if (type == Class::Bridge && route == kNoRoute) continue;
    const Candidate candidate{type == Class::Virtual || type == Class::Bridge, route, type};
    if (!best || candidate.isBetterThan(*best)) best = candidate;
  }
  return best ? kindOf(best->type) : JXNetworkKind::None;
}

}  // namespace jx
