// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace jx {

/// A host that requests are queued for, or were recently.
struct JXOutboxHost {
  std::uint32_t id = 0;      ///< identifies the host in this process only
  std::uint32_t failed = 0;  ///< queued requests that received a server error
};

/// The hosts of the requests in an outbox, each with its scheme and port. A request keeps the slot
/// of its host. Not synchronised.
class JXOutboxHosts {
 public:
  static constexpr std::size_t kMaxHosts = 256;
  /// Hosts without a request that are kept, so that their state survives an empty queue.
  static constexpr std::size_t kKept = 8;

  struct Host {
    std::string origin;  ///< see `originOf`
    /// Identifies the host in this process; 0: the slot is free.
    std::uint32_t id = 0;
    std::uint32_t requests = 0;
    std::uint32_t failed = 0;    ///< requests that received a server error
    std::uint64_t firstNew = 0;  ///< no queued request with a lower ID has never failed
    bool isValid = true;         ///< false: nothing is sent to it; see `kJXInvalidScheme`
  };

  /// `currentEndpoint`, unless empty, replaces the host of every request.
  explicit JXOutboxHosts(std::string currentEndpoint = {})
      : currentEndpoint_(std::move(currentEndpoint)) {}

  /// Returns the slot of the host of `url`. The slot is free again after the removal of a request,
  /// unless the new request was added before. When there are too many hosts, the last slot is that
  /// of all further ones.
  std::uint8_t slotOf(std::string_view url);
  /// Returns the URL to which the request is sent.
  std::string targetOf(std::string_view url) const;

  Host& at(std::uint8_t slot) { return hosts_[slot]; }
  /// Returns the slot of the host with this ID, or null.
  Host* find(std::uint32_t id);
  const std::vector<Host>& all() const { return hosts_; }
  /// Returns the hosts that requests may be sent to.
  std::vector<JXOutboxHost> sendable() const;
  /// Call this for each request that is added and removed.
  void added(std::uint8_t slot) { ++hosts_[slot].requests; }
  void removed(std::uint8_t slot);

 private:
  const std::string currentEndpoint_;
  std::vector<Host> hosts_;
  std::size_t used_ = 0;
  std::uint32_t lastId_ = 0;
  // The last result of `slotOf`, because nearly every request has the same host.
  std::string lastStart_;
  std::uint8_t lastSlot_ = 0;
};

}  // namespace jx
