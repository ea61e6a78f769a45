// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx::test {

/// What happens at one of the calls of the C library that change files.
enum class FileCallFault {
  None,
  Kill,          ///< the process is killed; a write has written half of the bytes
  Fail,          ///< the call fails as on a full disk; a write has written half of the bytes
  FailThenKill,  ///< the call fails, and the process is killed `calls` calls later
};

/// Injects a fault at the call with this number, counted from 1 from now on, and at the calls after
/// it: at `calls` calls together. Also in libraries.
void injectFileCallFault(FileCallFault fault, int call, int calls = 1);
/// Returns whether all faults were injected.
bool isFileCallFaultOver();

}  // namespace jx::test
