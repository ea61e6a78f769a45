// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Missing, empty and unusable CA files.

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/fault/ServerFault.h"

namespace jx::test {
namespace {

std::string contentOf(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

class CaFile : public ::testing::Test {
 protected:
  CaFile() {
    scenario.setup.caFile = path;
    fault.requestsRead = 0;
    fault.clientGoesFirst = true;
    fault.play = [](ServerScenario&) {};
    fault.heal = [](ServerScenario& healed) {
      healed.folder.write("ca.pem", contentOf(healed.server.caFile()));
    };
    fault.reason = "CA file " + path + " is missing or contains no certificates";
  }
  void expectRetries(const std::string& order, const std::string& name, const std::string& did) {
    fault.order = order;
    fault.fault = name;
    fault.did = did;
    expectDeliveryAfterFault(scenario, fault, HealedBefore::TheSameProcess);
  }

  ServerScenario scenario;
  const std::string path = scenario.folder.path("ca.pem");
  ServerFault fault;
};

TEST_F(CaFile, KeepsEventsQueuedWhileMissing) {
  expectRetries("2.05", "CA file missing", "the CA file was missing");
}

TEST_F(CaFile, KeepsEventsQueuedWhileEmpty) {
  scenario.folder.write("ca.pem", "");
  expectRetries("2.06", "CA file empty", "the CA file was empty");
}

TEST_F(CaFile, KeepsEventsQueuedWhileDamaged) {
  scenario.folder.write("ca.pem", "-----BEGIN CERTIFICATE-----\ninvalid\n");
  expectRetries("2.07", "CA file damaged", "the CA file contained an incomplete certificate");
}

TEST_F(CaFile, KeepsEventsQueuedWhileOfAnotherAuthority) {
  const JXTestAuthority other("another authority");
  scenario.folder.write("ca.pem", contentOf(other.caFile()));
  fault.reason = "SSL certificate problem: ";
  expectRetries("2.08", "CA file of another authority",
                "the CA file contained an authority that did not sign the server's certificate");
}

}  // namespace
}  // namespace jx::test
