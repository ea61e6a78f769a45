// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace jx::test {
namespace {

// Returns the standard output of the command; the test fails if its exit status is not 0.
std::string outputOf(const std::string& command) {
  std::FILE* const pipe = ::popen(command.c_str(), "r");
  EXPECT_NE(pipe, nullptr);
  if (pipe == nullptr) return {};
  std::string output;
  for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe))
    output.push_back(static_cast<char>(c));
  const int status = ::pclose(pipe);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << status;
  return output;
}

TEST(FirebaseExample, MirrorsAPurchaseWithTwoItemsAsFlatParameters) {
  const TemporaryFolder home;
  EXPECT_EQ(outputOf("XDG_STATE_HOME='" + home.path() + "' HOME='" + home.path() + "' '" +
                     JX_EXAMPLE_FIREBASE + "'"),
            R"(setDefaultParameter developer_id = jx_serverside
logEvent purchase
{
  "event_name": "purchase",
  "currency": "GBP",
  "id": "536365",
  "revenue": 45.64,
  "payment_method": "card",
  "items": [
    {
      "item_id": "1",
      "jx_item_quantity": 6,
      "jx_product_id": "85123A",
      "item_name": "Lantern",
      "jx_product_price": 3.39,
      "jx_product_colors": [],
      "index": 0
    },
    {
      "item_id": "2",
      "jx_item_quantity": 1,
      "jx_product_id": "71053",
      "item_name": "Lamp",
      "jx_product_price": 25.30,
      "jx_product_colors": [],
      "index": 1
    }
  ]
}
)");
}

}  // namespace
}  // namespace jx::test
