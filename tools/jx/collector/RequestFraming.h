// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <cstddef>
#include <string>

namespace jx {

/// True when the request head declares a body.
bool declaresBody(const httplib::Request& request);

/// Returns the status for a request whose body cannot be read: 400 for contradictory headers, 411
/// for an unknown length, 413 when it is longer than `maxBody`, 415 for an unsupported content
/// encoding or multipart form data, 501 for an unsupported transfer encoding. Returns 0 when it can
/// be read.
int framingError(const httplib::Request& request, std::size_t maxBody);

/// Parses the headers of a request head without decoding their values.
httplib::Headers headersAsSent(const std::string& head);

}  // namespace jx
