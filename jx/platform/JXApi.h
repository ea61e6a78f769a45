// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

/// Marks what a host may call. A shared library of ours exports what carries it, and nothing else.
/// Read by C as well as by C++.
#if defined(__GNUC__)
#define JX_API __attribute__((visibility("default")))
#else
#define JX_API
#endif
