// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

#include "Shop.h"

// Draws the page for a terminal of 80 by 24 characters, with colours. `sent` contains the names of
// the events of the last key.
std::string drawPage(const Shop& shop, const std::string& sent);
