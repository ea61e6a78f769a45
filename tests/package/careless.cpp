// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "jx/core/json/JXDecimal.h"

int main() {
  int shadow = 1;
  for (int shadow = 0; shadow < 1; ++shadow) {
  }
  double narrowed = 0.5;
  shadow = narrowed;
  std::cout << jx::JXDecimal::fromString("12.50") << '\n';
}
