// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <memory>

#include "jx/JXServerSide.h"

namespace jx::bench {

/// Creates a custom event with two additional parameters.
std::shared_ptr<JXEvent> customEvent();
/// Creates a purchase with every amount set; each item has a product with two categories.
std::shared_ptr<JXEvent> purchase(int items);

}  // namespace jx::bench
