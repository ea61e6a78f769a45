// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// The version of this library, for a host that builds against several of them. Read by C as well
/// as by C++. Until 1.0 a new minor version may break a host; a new patch version does not.
/// (What the library tells the receiver about itself is `kJXServerSideVersion`.)
#define JX_VERSION_MAJOR 0
#define JX_VERSION_MINOR 1
#define JX_VERSION_PATCH 0
#define JX_VERSION_STRING "0.1.0"
