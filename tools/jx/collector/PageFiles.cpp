// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/PageFiles.h"

namespace jx {

const char* contentTypeOf(std::string_view fileName) {
  if (fileName.ends_with(".html")) return "text/html; charset=utf-8";
  if (fileName.ends_with(".js")) return "text/javascript; charset=utf-8";
  if (fileName.ends_with(".css")) return "text/css; charset=utf-8";
  if (fileName.ends_with(".svg")) return "image/svg+xml";
  return "application/octet-stream";
}

}  // namespace jx
