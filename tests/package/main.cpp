// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "jx/core/json/JXDecimal.h"

int main() { std::cout << jx::JXDecimal::fromString("12.50") << '\n'; }
