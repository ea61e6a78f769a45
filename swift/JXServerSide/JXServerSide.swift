// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// An application that imports JXServerSide also sees the Objective-C classes.
@_exported import JXServerSideObjC
