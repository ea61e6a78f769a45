// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
// A STAND-IN for tvOS's header, for scripts/checks/tvos: what the library may use of it.
#pragma once

#define TARGET_OS_TV 1
#define TARGET_OS_SIMULATOR 0
