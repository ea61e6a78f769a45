// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/JXConcat.h"

namespace jx {

std::string concat(std::initializer_list<std::string_view> parts) {
  std::size_t size = 0;
  for (const std::string_view part : parts)
    size += part.size();
  std::string joined;
  joined.reserve(size);
  for (const std::string_view part : parts)
    joined.append(part);
  return joined;
}

}  // namespace jx
