// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>
#include <vector>

struct Article {
  std::string id;
  std::string name;
  std::string category;
  std::string text;
  int cents = 0;
};

constexpr const char* kCurrency = "EUR";
constexpr const char* kListName = "harbour shop";

const std::vector<Article>& articles();
// Formats cents as "24.90". Amounts are never converted to binary floating point.
std::string price(int cents);
