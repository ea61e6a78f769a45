// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/demo/ArrivalTable.h"

#include <algorithm>
#include <array>
#include <ctime>

#include "tools/jx/Printable.h"

namespace jx {
namespace {

constexpr std::size_t kTime = 8;
constexpr std::size_t kName = 23;
constexpr std::size_t kId = 8;
constexpr std::size_t kSize = 7;
constexpr std::size_t kGaps = 4 * 2;
constexpr std::size_t kBeforeDetails = kTime + kName + kId + kSize + kGaps;

std::string timeOfDay(std::int64_t ms) {
  if (ms == 0) return "-";
  const std::time_t seconds = ms / 1000;
  std::tm parts{};
  std::array<char, 16> text{};
  if (::localtime_r(&seconds, &parts) == nullptr) return "-";
  std::strftime(text.data(), text.size(), "%H:%M:%S", &parts);
  return text.data();
}

std::string row(const std::string& time, const std::string& name, const std::string& id,
                const std::string& size, const std::string& details, const TerminalStyle& style) {
  const std::string right = std::string(size.size() < kSize ? kSize - size.size() : 0, ' ') + size;
  const std::size_t room = style.width > kBeforeDetails ? style.width - kBeforeDetails : 1;
  return padded(time, kTime) + "  " + style.bold(padded(shortened(name, kName), kName)) + "  " +
         style.dim(padded(id.substr(0, kId), kId)) + "  " + right + "  " +
         shortened(details, room) + "\n";
}

}  // namespace

std::string arrivalTable(const std::vector<Arrival>& arrivals, const TerminalStyle& style) {
  TerminalStyle plain = style;
  plain.coloured = false;
  std::string head = row("time", "event", "event_id", "bytes", "summary", plain);
  head.pop_back();
  std::string table = style.dim(head) + "\n";
  for (const Arrival& arrival : arrivals) {
    if (arrival.opensSession) table += style.dim("-- new session") + "\n";
    table += row(timeOfDay(arrival.timestampMs), arrival.name.empty() ? "-" : arrival.name,
                 arrival.eventId, std::to_string(arrival.bytes), arrival.details, style);
  }
  return table;
}

}  // namespace jx
