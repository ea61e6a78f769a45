// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <httplib.h>

#include <cstddef>
#include <string>

namespace jx {

/// True when the head announces a body.
bool announcesBody(const httplib::Request& request);

/// The status with which a request is refused because of how its body is announced: 400 when it is
/// contradictory, 411 when its length is unknown, 413 when it is longer than `maxBody`, 415 when it
/// is packed in a way that is not unpacked here. 0 when the body can be read.
int framingRefusal(const httplib::Request& request, std::size_t maxBody);

/// The headers of a request head as they were sent: values are not decoded.
httplib::Headers headersAsSent(const std::string& head);

}  // namespace jx
