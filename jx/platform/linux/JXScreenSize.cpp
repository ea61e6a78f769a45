// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXScreenSize.h"

#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>

#include "jx/platform/JXConcat.h"
#include "jx/platform/linux/JXSystemFiles.h"

namespace jx {
namespace {

bool isSide(double side) { return std::isfinite(side) && side >= 1; }

// Removes a decimal number of at most five digits from the front of `text` and returns it; 0 if
// there is none.
int consumeSide(std::string_view& text) {
  int side = 0;
  for (int digits = 0; digits < 5 && !text.empty(); ++digits) {
    if (text.front() < '0' || text.front() > '9') break;
    side = side * 10 + (text.front() - '0');
    text.remove_prefix(1);
  }
  return side;
}

// Parses "1920x1080" or "1920,1080"; ignores a suffix ("i", "p-60").
std::optional<JXScreenBounds> parseSize(std::string_view text, char separator) {
  const int width = consumeSide(text);
  if (width == 0 || text.empty() || text.front() != separator) return std::nullopt;
  text.remove_prefix(1);
  const int height = consumeSide(text);
  if (height == 0) return std::nullopt;
  return JXScreenBounds{static_cast<double>(width), static_cast<double>(height)};
}

std::optional<JXScreenBounds> sizeOfDisplay(const std::string& root) {
  const std::string folder = root + "/sys/class/drm";
  for (const std::string& name : listSystemFolder(folder)) {
    const bool isConnector = name.compare(0, 4, "card") == 0 && name.find('-') != std::string::npos;
    if (!isConnector) continue;
    const std::string connector = concat({folder, "/", name});
    if (readSystemLine(connector + "/status").view() != "connected") continue;
    if (const auto size = parseSize(readSystemLine(connector + "/modes").view(), 'x')) return size;
  }
  return std::nullopt;
}

// Prefers the mode: a double-buffered frame buffer has a virtual size of twice the height.
std::optional<JXScreenBounds> sizeOfFrameBuffer(const std::string& root) {
  const std::string folder = root + "/sys/class/graphics/fb0";
  const JXString mode = readSystemLine(folder + "/mode");
  const std::size_t colon = mode.view().find(':');
  if (colon != std::string_view::npos) {
    if (const auto size = parseSize(mode.view().substr(colon + 1), 'x')) return size;
  }
  return parseSize(readSystemLine(folder + "/virtual_size").view(), ',');
}

}  // namespace

JXScreenBounds screenSize(const JXScreenBounds& configured, const std::string& root) {
  if (isSide(configured.width) && isSide(configured.height)) return configured;
  if (const auto size = sizeOfDisplay(root)) return *size;
  return sizeOfFrameBuffer(root).value_or(JXScreenBounds{});
}

}  // namespace jx
