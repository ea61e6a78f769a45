// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/storage/JXOutboxHosts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace jx {
namespace {

// Adds a request and returns its slot.
std::uint8_t add(JXOutboxHosts& hosts, const std::string& url) {
  const std::uint8_t slot = hosts.slotOf(url);
  hosts.added(slot);
  return slot;
}

TEST(OutboxHosts, UrlsOfOneServerShareASlot) {
  JXOutboxHosts hosts;
  const std::uint8_t slot = add(hosts, "https://collect.example/a?s=1");
  for (const char* url :
       {"https://collect.example/b", "HTTPS://Collect.Example", "https://u:p@collect.example/",
        "https://collect.example:443/a", "https://collect.example?x"}) {
    EXPECT_EQ(add(hosts, url), slot) << url;
  }
}

TEST(OutboxHosts, SchemesHostsAndPortsHaveSlotsOfTheirOwn) {
  JXOutboxHosts hosts;
  std::vector<std::uint8_t> slots;
  for (const char* url : {"https://a.example/x", "https://b.example/x", "https://a.example:8443/x",
                          "http://a.example/x", "https://a.example.org/x", "no url", "no url 2"}) {
    const std::uint8_t slot = add(hosts, url);
    EXPECT_EQ(std::count(slots.begin(), slots.end(), slot), 0) << url;
    slots.push_back(slot);
  }
}

TEST(OutboxHosts, KeepsEightHostsWithoutARequest) {
  JXOutboxHosts hosts;
  for (int i = 0; i < 12; ++i)
    add(hosts, "https://h" + std::to_string(i) + ".example/");
  const std::uint32_t first = hosts.at(0).id;
  for (std::uint8_t slot = 0; slot < 12; ++slot)
    hosts.removed(slot);
  EXPECT_EQ(hosts.find(first), nullptr);
  int kept = 0;
  for (const JXOutboxHosts::Host& host : hosts.all())
    kept += host.id != 0 ? 1 : 0;
  EXPECT_EQ(kept, 8);
  EXPECT_EQ(add(hosts, "https://new.example/"), 0);
  EXPECT_EQ(hosts.at(0).origin, "https://new.example");
  EXPECT_NE(hosts.at(0).id, first);
}

TEST(OutboxHosts, FurtherHostsShareTheLastSlot) {
  JXOutboxHosts hosts;
  for (int i = 0; i < 256; ++i)
    EXPECT_EQ(add(hosts, "https://h" + std::to_string(i) + ".example/"), i);
  EXPECT_EQ(add(hosts, "https://h256.example/"), 255);
  EXPECT_EQ(add(hosts, "https://h257.example/"), 255);
  EXPECT_EQ(hosts.at(255).requests, 3u);
}

TEST(OutboxHosts, CurrentEndpointReplacesSchemeHostAndPort) {
  JXOutboxHosts hosts("http://127.0.0.1:8080");
  EXPECT_EQ(add(hosts, "https://a.example/x"), add(hosts, "https://b.example/x"));
  EXPECT_EQ(hosts.at(0).origin, "http://127.0.0.1:8080");
  EXPECT_EQ(hosts.targetOf("https://u:p@a.example:8443/x?k=http://c#d"),
            "http://127.0.0.1:8080/x?k=http://c#d");
  EXPECT_EQ(hosts.targetOf("https://a.example?x"), "http://127.0.0.1:8080?x");
  EXPECT_EQ(JXOutboxHosts().targetOf("https://a.example/x"), "https://a.example/x");
}

TEST(OutboxHosts, InvalidHostIsMarked) {
  JXOutboxHosts hosts;
  EXPECT_FALSE(hosts.at(add(hosts, "invalid://two%20words/x")).isValid);
  EXPECT_TRUE(hosts.at(add(hosts, "https://invalid/x")).isValid);
}

}  // namespace
}  // namespace jx
