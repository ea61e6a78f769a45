// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXNetworkKind.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <sstream>
#include <string_view>

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
  const std::string folder = root + "/sys/class/net/" + name;
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

// Returns the names of the interfaces of default routes, the preferred route first.
std::vector<std::string> defaultRoutes(const std::string& root) {
  std::vector<std::pair<std::uint64_t, std::string>> routes;
  const JXString table = readSystemFile(root + "/proc/net/route");
  std::istringstream lines(table.toStdString());
  std::string line;
  while (std::getline(lines, line)) {
    std::istringstream columns(line);
    std::string name, destination, gateway, flags, references, uses, mask;
    std::uint64_t metric = 0;
    columns >> name >> destination >> gateway >> flags >> references >> uses >> metric >> mask;
    if (columns && destination == "00000000" && mask == "00000000")
      routes.emplace_back(metric, name);
  }
  const JXString table6 = readSystemFile(root + "/proc/net/ipv6_route");
  std::istringstream lines6(table6.toStdString());
  while (std::getline(lines6, line)) {
    std::istringstream columns(line);
    std::string destination, length, source, sourceLength, hop, references, uses, flags, name;
    std::uint64_t metric = 0;
    columns >> destination >> length >> source >> sourceLength >> hop >> std::hex >> metric >>
        references >> uses >> flags >> name;
    if (columns && length == "00" && name != "lo") routes.emplace_back(metric, name);
  }
  std::stable_sort(routes.begin(), routes.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  names.reserve(routes.size());
  for (const auto& route : routes)
    names.push_back(route.second);
  return names;
}

JXNetworkKind kindOf(Class type) {
  if (type == Class::Wireless) return JXNetworkKind::Wifi;
  if (type == Class::Cellular) return JXNetworkKind::Cellular;
  return JXNetworkKind::Ethernet;
}

struct Candidate {
  bool isVirtual;
  std::size_t route;  // index among the default routes; their number if it has none
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
  const std::vector<std::string> routes = defaultRoutes(root);
  std::optional<Candidate> best;
  for (const JXNetworkInterface& entry : interfaces) {
    if (!entry.isUp || entry.isLoopback || !entry.hasAddress) continue;
    const Class type = classOf(entry.name, root);
    const auto place = std::find(routes.begin(), routes.end(), entry.name);
    if (type == Class::Bridge && place == routes.end()) continue;
    const Candidate candidate{type == Class::Virtual || type == Class::Bridge,
                              static_cast<std::size_t>(place - routes.begin()), type};
    if (!best || candidate.isBetterThan(*best)) best = candidate;
  }
  return best ? kindOf(best->type) : JXNetworkKind::None;
}

}  // namespace jx
