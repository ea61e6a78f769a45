// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/session/JXTextEncoding.h"

namespace jx {
namespace {

struct NamedEncoding {
  std::uint32_t number;
  char name[13];  // needs no relocation
};

constexpr NamedEncoding kNamedEncodings[] = {
    {1, "ASCII"},
    {2, "NEXTSTEP"},
    {3, "EUC-JP"},
    {4, "UTF-8"},
    {5, "ISO-8859-1"},
    {6, "SYMBOL"},
    {7, "ASCII"},
    {8, "SHIFT-JIS"},
    {9, "ISO-8859-2"},
    {10, "UTF-16"},
    {11, "Windows-1251"},
    {12, "Windows-1252"},
    {13, "Windows-1253"},
    {14, "Windows-1254"},
    {15, "Windows-1250"},
    {21, "ISO-2022-JP"},
    {30, "MacRoman"},
    {0x8C000100, "UTF-32"},
    {0x90000100, "UTF-16BE"},
    {0x94000100, "UTF-16LE"},
    {0x98000100, "UTF-32BE"},
    {0x9C000100, "UTF-32LE"},
};

}  // namespace

std::string_view nameOfTextEncoding(std::uint32_t number) {
  for (const NamedEncoding& encoding : kNamedEncodings) {
    if (encoding.number == number) return encoding.name;
  }
  return "UTF-8";
}

}  // namespace jx
