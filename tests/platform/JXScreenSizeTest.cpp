// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXScreenSize.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

class ScreenSize : public testing::Test {
 protected:
  void expectSize(const JXScreenBounds& stated, double width, double height) const {
    const JXScreenBounds size = screenSize(stated, root_.path());
    EXPECT_EQ(size.width, width);
    EXPECT_EQ(size.height, height);
  }
  void connector(const std::string& name, const std::string& status, const std::string& modes) {
    root_.write("sys/class/drm/" + name + "/status", status);
    root_.write("sys/class/drm/" + name + "/modes", modes);
  }

  test::TemporaryFolder root_;
};

TEST_F(ScreenSize, ReturnsZeroWithoutADisplay) { expectSize({}, 0, 0); }

TEST_F(ScreenSize, PrefersTheConfiguredSize) {
  connector("card0-HDMI-A-1", "connected\n", "3840x2160\n");
  expectSize({1280, 720.5}, 1280, 720.5);
}

TEST_F(ScreenSize, IgnoresAnInvalidConfiguredSize) {
  connector("card0-HDMI-A-1", "connected\n", "3840x2160\n1920x1080\n");
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
  for (const JXScreenBounds& stated :
       {JXScreenBounds{0, 0}, JXScreenBounds{0, 720}, JXScreenBounds{-1280, -720},
        JXScreenBounds{kInfinity, 720}, JXScreenBounds{1280, kNan}, JXScreenBounds{0.5, 0.5}}) {
    expectSize(stated, 3840, 2160);
  }
}

TEST_F(ScreenSize, UsesTheFirstConnectedDisplayWithAMode) {
  root_.write("sys/class/drm/card0/status", "connected\n");
  root_.write("sys/class/drm/version", "drm 1.1.0\n");
  connector("card0-DP-1", "disconnected\n", "640x480\n");
  connector("card0-DP-2", "connected\n", "");
  connector("card0-HDMI-A-1", "connected\n", "1920x1080i\n1280x720\n");
  connector("card1-HDMI-A-1", "connected\n", "800x600\n");
  expectSize({}, 1920, 1080);
}

TEST_F(ScreenSize, FallsBackToTheFrameBuffer) {
  root_.write("sys/class/graphics/fb0/virtual_size", "1920,1080\n");
  expectSize({}, 1920, 1080);
  connector("card0-DP-1", "connected\n", "1280x720\n");
  expectSize({}, 1280, 720);
}

TEST_F(ScreenSize, PrefersTheModeOfADoubleBufferedFrameBuffer) {
  root_.write("sys/class/graphics/fb0/virtual_size", "1920,2160\n");
  root_.write("sys/class/graphics/fb0/mode", "U:1920x1080p-60\n");
  expectSize({}, 1920, 1080);
}

TEST_F(ScreenSize, IgnoresInvalidModes) {
  for (const char* text : {"x", "1920", "1920x", "x1080", "0x0", "-1x-1", "\xff\xfe", "999999x1"}) {
    connector("card0-DP-1", "connected\n", text);
    expectSize({}, 0, 0);
  }
}

}  // namespace
}  // namespace jx
