// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/core/transfer/JXPublicKeyPin.h"

namespace jx {

bool isPublicKeyPin(std::string_view string) {
  constexpr std::string_view kDigits =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (string.size() != 44 || string.back() != '=') return false;
  string.remove_suffix(1);
  if (string.find_first_not_of(kDigits) != std::string_view::npos) return false;
  // The last digit encodes the hash's last four bits, followed by two zero bits.
  return kDigits.find(string.back()) % 4 == 0;
}

std::string joinedPins(const std::vector<std::string>& pins) {
  constexpr const char* kPrefix = "sha256//";
  std::string joined;
  for (const std::string& pin : pins) {
    if (!isPublicKeyPin(pin)) continue;
    if (!joined.empty()) joined += ';';
    joined.append(kPrefix).append(pin);
  }
  return joined.empty() ? kPrefix + std::string(43, 'A') + "=" : joined;
}

}  // namespace jx
