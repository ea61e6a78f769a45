// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

// Both folders of Objective-C sources use the same macros.
#import "jx/platform/apple/JXOwnership.h"
