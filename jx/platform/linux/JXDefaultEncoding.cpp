// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXDefaultEncoding.h"

#include <string>

#include "jx/platform/linux/JXLocaleName.h"

namespace jx {
namespace {

struct CharsetNumber {
  char name[12];  // upper case, letters and digits only; needs no relocation
  std::uint32_t number;
};

constexpr std::uint32_t kAscii = 1;

constexpr CharsetNumber kCharsets[] = {{"UTF8", 4},
                                       {"ASCII", kAscii},
                                       {"USASCII", kAscii},
                                       {"ANSIX341968", kAscii},
                                       {"646", kAscii},
                                       {"ISO646US", kAscii},
                                       {"NEXTSTEP", 2},
                                       {"EUCJP", 3},
                                       {"UJIS", 3},
                                       {"ISO88591", 5},
                                       {"LATIN1", 5},
                                       {"SYMBOL", 6},
                                       {"SJIS", 8},
                                       {"SHIFTJIS", 8},
                                       {"CP932", 8},
                                       {"WINDOWS31J", 8},
                                       {"ISO88592", 9},
                                       {"LATIN2", 9},
                                       {"UTF16", 10},
                                       {"UCS2", 10},
                                       {"WINDOWS1251", 11},
                                       {"CP1251", 11},
                                       {"WINDOWS1252", 12},
                                       {"CP1252", 12},
                                       {"WINDOWS1253", 13},
                                       {"CP1253", 13},
                                       {"WINDOWS1254", 14},
                                       {"CP1254", 14},
                                       {"WINDOWS1250", 15},
                                       {"CP1250", 15},
                                       {"ISO2022JP", 21},
                                       {"MACROMAN", 30},
                                       {"MACINTOSH", 30},
                                       {"UTF32", 0x8C000100},
                                       {"UCS4", 0x8C000100},
                                       {"UTF16BE", 0x90000100},
                                       {"UTF16LE", 0x94000100},
                                       {"UTF32BE", 0x98000100},
                                       {"UTF32LE", 0x9C000100}};

std::string_view codesetOf(std::string_view localeName) {
  const std::size_t dot = localeName.find('.');
  if (dot == std::string_view::npos) return {};
  const std::string_view rest = localeName.substr(dot + 1);
  return rest.substr(0, rest.find('@'));
}

}  // namespace

std::uint32_t encodingNumber(std::string_view charset) {
  constexpr std::size_t kMaxLength = 64;
  std::string plain;
  for (const char c : charset.substr(0, kMaxLength)) {
    if (c >= 'a' && c <= 'z') {
      plain += static_cast<char>(c - 'a' + 'A');
    } else if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')) {
      plain += c;
    }
  }
  for (const CharsetNumber& known : kCharsets) {
    if (known.name == plain) return known.number;
  }
  return 0;
}

std::uint32_t defaultEncodingNumber(const JXEnvironment& environment,
                                    const JXInstalledLocaleLookup& installed) {
  const JXString name = effectiveLocale(environment, "LC_CTYPE");
  if (!name.isPresent()) return kAscii;
  const std::string_view codeset = codesetOf(name.view());
  if (!codeset.empty()) return encodingNumber(codeset);
  if (const std::optional<JXInstalledLocale> found = installed(name)) {
    return encodingNumber(found->charset.view());
  }
  return isPlainLocale(name.view()) ? kAscii : 0;
}

}  // namespace jx
