// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <CLI/CLI.hpp>

namespace jx {

/// Returns a validator for names that a certificate can contain.
CLI::Validator certifiableName();

/// Adds the `ca` command, which shows, renews and exports the certificate authority of the
/// collector, to the `collector` command. When the command line selects it, parsing runs it and
/// sets `exitStatus`.
void addCaCommand(CLI::App& collector, int& exitStatus);

}  // namespace jx
