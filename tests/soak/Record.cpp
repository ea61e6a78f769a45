// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/soak/Record.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace jx::soak {
namespace {

// A letter, twenty digits and a newline.
constexpr std::size_t kRecordSize = 22;

}  // namespace

std::string textOf(Record::Kind kind, std::uint64_t number) {
  char text[kRecordSize + 1];
  std::snprintf(text, sizeof text, "%c%020llu\n", static_cast<char>(kind),
                static_cast<unsigned long long>(number));
  return text;
}

void writeRecord(Record::Kind kind, std::uint64_t number) {
  const std::string text = textOf(kind, number);
  if (::write(STDOUT_FILENO, text.data(), kRecordSize) != static_cast<ssize_t>(kRecordSize)) {
    ::_exit(99);
  }
}

std::vector<Record> recordsIn(const std::string& output) {
  std::vector<Record> records;
  for (std::size_t at = 0; at + kRecordSize <= output.size(); at += kRecordSize) {
    const std::string digits = output.substr(at + 1, kRecordSize - 2);
    records.push_back({static_cast<Record::Kind>(output[at]), std::stoull(digits)});
  }
  return records;
}

std::vector<std::uint64_t> numbersOf(const std::vector<Record>& records, Record::Kind kind) {
  std::vector<std::uint64_t> numbers;
  for (const Record& record : records) {
    if (record.kind == kind) numbers.push_back(record.number);
  }
  return numbers;
}

std::optional<std::uint64_t> lastOf(const std::vector<Record>& records, Record::Kind kind) {
  const std::vector<std::uint64_t> numbers = numbersOf(records, kind);
  return numbers.empty() ? std::nullopt : std::optional(numbers.back());
}

std::string prefixOf(Record::Kind kind) { return std::string(1, static_cast<char>(kind)); }

}  // namespace jx::soak
