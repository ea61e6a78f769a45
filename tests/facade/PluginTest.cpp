// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application that unloads the module that contains the library.

#include <gtest/gtest.h>

#include <chrono>

#include "tests/support/ChildProcess.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

using namespace std::chrono_literals;

TEST(Plugin, DeliversAfterItWasUnloaded) {
  const TemporaryFolder folder;
  JXTestServer server;
  server.refuse();
  ChildProcess host(JX_PLUGIN_HOST, {JX_PLUGIN, folder.path(), server.url(""), server.caFile()}, {},
                    ChildProcess::Input::Pipe);
  ASSERT_TRUE(host.waitForOutput("unloaded", 20s)) << host.wait(1s).errors;
  server.accept();
  EXPECT_TRUE(server.waitForRequests(1));
  host.closeInput();
  const ChildProcess::Result result = host.wait(20s);
  EXPECT_EQ(0, result.status) << result.errors;
  EXPECT_FALSE(result.timedOut);
}

}  // namespace
}  // namespace jx::test
