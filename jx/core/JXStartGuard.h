// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx {

/// The word that a process-wide object keeps beside it, so that `init` runs once and `reinit` can
/// ask for another run: 0 never initialised, 1 `init` is running, 2 initialised, 3 `reinit` asked
/// for a fresh initialisation. A plain integer, as the objects it guards are made on one thread.
enum JXInitState : int {
  kJXInitNever = 0,
  kJXInitRunning = 1,
  kJXInitDone = 2,
  kJXInitAgain = 3,
};

/// True when `init` has to run, and `state` is then 1. False when the object stands as it is. Does
/// not return while an `init` is running: a second one inside or beside the first is a misuse that
/// must never yield a half-made object.
bool tryBeginInit(int& state);

/// Stops the calling thread for ever.
[[noreturn]] void neverReturn();

}  // namespace jx
