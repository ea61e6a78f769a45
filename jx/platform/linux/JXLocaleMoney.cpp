// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXLocaleMoney.h"

#include <algorithm>

#include "jx/platform/linux/JXLocaleName.h"

namespace jx {
namespace {

bool isUtf8(const JXString& string, const JXString& charset) {
  const std::string_view view = string.view();
  const bool isAscii = std::all_of(view.begin(), view.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
  return isAscii || charset.view() == "UTF-8";
}

}  // namespace

JXMoney localeMoney(const JXEnvironment& environment, const JXInstalledLocaleLookup& installed) {
  const JXString name = effectiveLocale(environment, "LC_MONETARY");
  const JXLocaleName parsed = parseLocaleName(name.view());
  if (parsed.language.empty()) return {};
  const JXMoney money = territoryMoney(parsed.territory);
  const std::optional<JXInstalledLocale> found = installed(name);
  if (!found || !found->currencyCode.testString()) return money;
  if (found->currencySymbol.testString() && isUtf8(found->currencySymbol, found->charset)) {
    return {found->currencyCode, found->currencySymbol};
  }
  // The symbol is in another charset: use that of the territory, if it has the same currency.
  if (found->currencyCode == money.code) return money;
  return {found->currencyCode, found->currencyCode};
}

}  // namespace jx
