// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

namespace jx::test {

/// Behaviour of the disk of this process.
enum class DiskFault {
  None,
  ReadOnly,  ///< files cannot be created, written or removed
  Hanging,   ///< creating, writing and syncing files waits until the fault ends
};

/// Applies the fault to all calls of the C library that the library makes. The program defines
/// these functions itself. Pipes and sockets are not affected.
void setDiskFault(DiskFault fault);

}  // namespace jx::test
