// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXInstalledLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>

#include "jx/platform/linux/JXLocaleName.h"
#include "jx/platform/linux/JXSystemFiles.h"

namespace jx {
namespace {

JXString nullIfEmpty(std::string_view string) {
  return string.empty() ? JXString() : JXString(string);
}

JXString currencyCodeOf([[maybe_unused]] locale_t locale) {
#ifdef INT_CURR_SYMBOL
  // Three letters and the space that separates them from an amount.
  return nullIfEmpty(trimBlanks(nl_langinfo_l(INT_CURR_SYMBOL, locale)));
#else
  return nullptr;
#endif
}

JXString currencySymbolOf(locale_t locale) {
  std::string_view symbol = nl_langinfo_l(CRNCYSTR, locale);
  // The first character is the position of the symbol relative to the amount.
  if (!symbol.empty()) symbol.remove_prefix(1);
  return nullIfEmpty(symbol);
}

}  // namespace

std::optional<JXInstalledLocale> findInstalledLocale(const JXString& name) {
  // Only well-formed names are passed to the C library, which searches for a file of that name.
  const bool known = isPlainLocale(name.view()) ? name.size() < 32
                                                : !parseLocaleName(name.view()).language.empty();
  if (!known || name.view().find_first_of("/:") != std::string_view::npos) return std::nullopt;
  const locale_t locale = newlocale(LC_CTYPE_MASK | LC_MONETARY_MASK, name.c_str(), nullptr);
  if (locale == nullptr) return std::nullopt;
  JXInstalledLocale found;
  found.charset = nullIfEmpty(nl_langinfo_l(CODESET, locale));
  found.currencyCode = currencyCodeOf(locale);
  found.currencySymbol = currencySymbolOf(locale);
  freelocale(locale);
  return found;
}

}  // namespace jx
