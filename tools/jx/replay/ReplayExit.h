// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// Exit status in addition to those of every command: something was left undelivered.
inline constexpr int kExitUndelivered = 3;

}  // namespace jx
