// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPublicKeyPin.h"

namespace jx {

bool isPublicKeyPin(std::string_view text) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (text.size() != 44 || text.back() != '=') return false;
  text.remove_suffix(1);
  if (text.find_first_not_of(kDigits) != std::string_view::npos) return false;
  // The last digit holds the hash's last four bits and two that are zero.
  return kDigits.find(text.back()) % 4 == 0;
}

}  // namespace jx
