// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Version of this library, for applications that build against several versions. Usable from C and
/// C++. Before 1.0, a new minor version may break an application; a new patch version does not.
/// (The version reported to the server is `kJXServerSideVersion`.)
#define JX_VERSION_MAJOR 0
#define JX_VERSION_MINOR 1
#define JX_VERSION_PATCH 0
#define JX_VERSION_STRING "0.1.0"
