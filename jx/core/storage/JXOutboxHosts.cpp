// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxHosts.h"

#include <algorithm>

#include "jx/core/JXCollectionEndpoint.h"

namespace jx {

std::uint8_t JXOutboxHosts::slotOf(std::string_view url) {
  if (!currentEndpoint_.empty()) url = currentEndpoint_;
  const std::string_view start = endpointOf(url);
  if (!lastStart_.empty() && start == lastStart_) return lastSlot_;
  const std::string origin = originOf(start);
  auto found = std::find_if(hosts_.begin(), hosts_.end(), [&](const Host& each) {
    return each.id != 0 && each.origin == origin;
  });
  if (found == hosts_.end()) {
    found =
        std::find_if(hosts_.begin(), hosts_.end(), [](const Host& each) { return each.id == 0; });
    if (found == hosts_.end() && hosts_.size() < kMaxHosts) {
      found = hosts_.insert(hosts_.end(), Host());
    }
    if (found == hosts_.end()) return kMaxHosts - 1;
    *found = Host();
    found->origin = origin;
    found->id = ++lastId_;
    found->isValid = origin.compare(0, kJXInvalidScheme.size(), kJXInvalidScheme) != 0;
    ++used_;
  }
  lastStart_.assign(start.data(), start.size());
  lastSlot_ = static_cast<std::uint8_t>(found - hosts_.begin());
  return lastSlot_;
}

std::string JXOutboxHosts::targetOf(std::string_view url) const {
  std::string target(currentEndpoint_);
  return target.append(url.substr(currentEndpoint_.empty() ? 0 : endpointOf(url).size()));
}

JXOutboxHosts::Host* JXOutboxHosts::find(std::uint32_t id) {
  const auto found = std::find_if(hosts_.begin(), hosts_.end(),
                                  [id](const Host& each) { return each.id == id && id != 0; });
  return found != hosts_.end() ? &*found : nullptr;
}

std::vector<JXOutboxHost> JXOutboxHosts::sendable() const {
  std::vector<JXOutboxHost> hosts;
  for (const Host& host : hosts_) {
    if (host.id != 0 && host.isValid) hosts.push_back({host.id, host.failed});
  }
  return hosts;
}

void JXOutboxHosts::removed(std::uint8_t slot) {
  Host& host = hosts_[slot];
  if (--host.requests != 0 || used_ <= kKept) return;
  host = Host();
  --used_;
  lastStart_.clear();
}

}  // namespace jx
