// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "jx/platform/linux/JXOsRelease.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <string>

#include "tests/support/TemporaryFolder.h"

namespace jx {
namespace {

const JXKernelNames kKernel{"Linux", "6.1.0", "aarch64"};

class OsRelease : public testing::Test {
 protected:
  JXOsRelease release() const { return readOsRelease(root_.path(), kKernel); }

  test::TemporaryFolder root_;
};

TEST_F(OsRelease, ReadsNameAndVersion) {
  root_.write("etc/os-release",
              "PRETTY_NAME=\"Other\"\nNAME=\"Debian GNU/Linux\"\nVERSION_ID=\"12\"\n"
              "VERSION=\"12 (bookworm)\"\n");
  EXPECT_EQ(release().name, JXString("Debian GNU/Linux"));
  EXPECT_EQ(release().version, JXString("12"));
}

TEST_F(OsRelease, ParsesShellQuotes) {
  root_.write("etc/os-release", "NAME='It\"s TV'\nVERSION_ID=3.1\r\n");
  EXPECT_EQ(release().name, JXString("It\"s TV"));
  EXPECT_EQ(release().version, JXString("3.1"));
  root_.write("etc/os-release", "NAME=\"A \\\"TV\\\" \\$ \\\\\"\nVERSION_ID=\"\"\n");
  EXPECT_EQ(release().name, JXString("A \"TV\" $ \\"));
  EXPECT_EQ(release().version, JXString("6.1.0"));
}

TEST_F(OsRelease, UsesTheLastLineAndIgnoresComments) {
  root_.write("etc/os-release", "#NAME=No\nNAME=One\nNAME=Two\nMYNAME=Three");
  EXPECT_EQ(release().name, JXString("Two"));
}

TEST_F(OsRelease, FallsBackToTheVendorFile) {
  root_.write("usr/lib/os-release", "NAME=Vendor\nVERSION_ID=9\n");
  EXPECT_EQ(release().name, JXString("Vendor"));
  root_.write("etc/os-release", "NAME=Local\nVERSION_ID=1\n");
  EXPECT_EQ(release().name, JXString("Local"));
}

TEST_F(OsRelease, FallsBackToTheKernelWithoutAFile) {
  EXPECT_EQ(release().name, JXString("Linux"));
  EXPECT_EQ(release().version, JXString("6.1.0"));
}

TEST_F(OsRelease, FallsBackToTheKernelForInvalidFiles) {
  for (const std::string& content : {std::string(), std::string("NAME"), std::string("NAME="),
                                     std::string("NAME=\""), std::string("\xff\xfe\0\0", 4),
                                     "NAME=" + std::string(100000, 'x'), std::string("=\n=\n")}) {
    root_.write("etc/os-release", content);
    EXPECT_EQ(release().name, JXString("Linux")) << content.substr(0, 20);
    EXPECT_EQ(release().version, JXString("6.1.0"));
  }
}

TEST_F(OsRelease, DoesNotBlockOnAFifo) {
  root_.makeFolder("etc");
  ASSERT_EQ(::mkfifo(root_.path("etc/os-release").c_str(), 0600), 0);
  EXPECT_EQ(release().name, JXString("Linux"));
}

TEST(KernelNames, ReturnsTheNamesOfTheRunningKernel) {
  const JXKernelNames names = readKernelNames();
  EXPECT_EQ(names.system, JXString("Linux"));
  EXPECT_TRUE(names.release.testString());
  EXPECT_TRUE(names.machine.testString());
}

TEST(DeviceModel, PrefersTheDeviceTreeOverTheFirmware) {
  const test::TemporaryFolder root;
  EXPECT_EQ(readDeviceModel(root.path()), JXString());
  root.write("sys/class/dmi/id/product_name", "Example Box 9\n");
  EXPECT_EQ(readDeviceModel(root.path()), JXString("Example Box 9"));
  root.write("sys/firmware/devicetree/base/model", std::string("Example Board Rev 1\0", 20));
  EXPECT_EQ(readDeviceModel(root.path()), JXString("Example Board Rev 1"));
}

TEST(DeviceModel, IgnoresVendorPlaceholders) {
  const test::TemporaryFolder root;
  for (const char* text : {"", "\n", "   \n", "To be filled by O.E.M.\n", "Default string\n"}) {
    root.write("sys/class/dmi/id/product_name", text);
    EXPECT_EQ(readDeviceModel(root.path()), JXString()) << text;
  }
}

// Each event contains the model.
TEST(DeviceModel, IgnoresLongModels) {
  const test::TemporaryFolder root;
  root.write("sys/class/dmi/id/product_name", std::string(256, 'x') + "\n");
  EXPECT_EQ(readDeviceModel(root.path()), JXString(std::string(256, 'x')));
  root.write("sys/firmware/devicetree/base/model", std::string(257, 'y'));
  EXPECT_EQ(readDeviceModel(root.path()), JXString(std::string(256, 'x')));
}

}  // namespace
}  // namespace jx
