// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace jx {

/// A number of slots, of which one client can hold only a part, so that it cannot lock out the
/// others. A client is an IPv4 address or an IPv6 network of 64 bits. Clients on loopback share the
/// rights of this machine: only the total applies to them, unless `limitsLoopback` is set.
/// Thread-safe.
class ClientSlots {
 public:
  ClientSlots(std::size_t total, std::size_t perClient, bool limitsLoopback = false)
      : total_(total), perClient_(perClient), limitsLoopback_(limitsLoopback) {}
  ClientSlots(const ClientSlots&) = delete;
  ClientSlots& operator=(const ClientSlots&) = delete;

  /// Releases one slot when destroyed. The slots must outlive it.
  class Slot {
   public:
    Slot(ClientSlots& slots, std::string client);
    ~Slot();
    Slot(const Slot&) = delete;
    Slot& operator=(const Slot&) = delete;

   private:
    ClientSlots& slots_;
    const std::string client_;
  };

  /// The slot, or why it is null: status 429 when the client holds its part, 503 when no slot is
  /// free.
  struct Acquired {
    std::shared_ptr<Slot> slot;
    int status = 0;
  };
  /// `address` is the IP address of the client as text.
  Acquired acquire(const std::string& address);

 private:
  const std::size_t total_;
  const std::size_t perClient_;
  const bool limitsLoopback_;
  std::mutex mutex_;
  std::size_t taken_ = 0;
  std::map<std::string, std::size_t> takenBy_;
};

/// Returns the part of an address that identifies its client; empty for a loopback address.
std::string clientOf(const std::string& address);

}  // namespace jx
