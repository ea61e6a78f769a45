// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Shop.h"

// The page as text for a terminal of 80 by 24, with colours. `sent` are the names of the events of
// the last key.
std::string drawPage(const Shop& shop, const std::string& sent);
