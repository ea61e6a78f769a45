// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// The file of trusted certificates, as a device may find it.

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
    story.setup.caFile = path;
    fault.requestsRead = 0;
    fault.clientGoesFirst = true;
    fault.play = [](ServerStory&) {};
    fault.heal = [](ServerStory& told) {
      told.folder.write("ca.pem", contentOf(told.server.caFile()));
    };
    fault.reason = "CA file " + path + " is missing or contains no certificates";
  }
  void holds(const std::string& order, const std::string& name, const std::string& did) {
    fault.order = order;
    fault.fault = name;
    fault.did = did;
    tellStoryOfHolding(story, fault, HealedBefore::TheSameProcess);
  }

  ServerStory story;
  const std::string path = story.folder.path("ca.pem");
  ServerFault fault;
};

TEST_F(CaFile, AMissingOneHoldsUntilItIsThere) {
  holds("2.05", "CA file missing", "there was no file of certificates");
}

TEST_F(CaFile, AnEmptyOneHoldsUntilItIsFilled) {
  story.folder.write("ca.pem", "");
  holds("2.06", "CA file empty", "the file of certificates was empty");
}

TEST_F(CaFile, OneThatHoldsNoCertificatesHolds) {
  story.folder.write("ca.pem", "-----BEGIN CERTIFICATE-----\nrubbish\n");
  holds("2.07", "CA file damaged", "the file of certificates held half of one");
}

TEST_F(CaFile, OneOfAnotherAuthorityHoldsUntilItIsReplaced) {
  const JXTestAuthority other("another authority");
  story.folder.write("ca.pem", contentOf(other.caFile()));
  fault.reason = "SSL certificate problem: ";
  holds("2.08", "CA file of another authority",
        "the file of certificates named an authority that did not sign the server's");
}

}  // namespace
}  // namespace jx::test
