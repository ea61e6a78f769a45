// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::test {

/// What the fakes of the frameworks say; tests set it before they ask the platform. A null pointer
/// is a value that the system does not have.
struct FakeDevice {
  const char* model = "Apple TV";
  const char* systemName = "tvOS";
  const char* systemVersion = "12.4";
  const char* vendorIdentifier = "6F9619FF-8B86-D011-B42D-00C04FC964FF";
  bool hasScreen = true;
  double width = 1920;
  double height = 1080;
};
FakeDevice& fakeDevice();

struct FakeAdvertising {
  const char* identifier = "EA7583CD-A667-48BC-B806-42ECB2B48606";
  bool isTrackingEnabled = false;
  unsigned long authorisation = 0;  ///< 0 not determined, 1 restricted, 2 denied, 3 authorised
};
FakeAdvertising& fakeAdvertising();

/// The numbers of the Network framework.
struct FakePath {
  bool isSatisfied = true;
  int interfaceType = 3;
};
/// Tells a monitor that runs, on a thread of its own, and returns when it has heard. Monitors
/// started later hear it at their start.
void tellFakePath(const FakePath& path);
/// Monitors started from now on hear nothing until told.
void forgetFakePath();
int runningFakeMonitors();

/// Posts the notification on Foundation's default centre, as the application does.
void postFakeDidEnterBackground();
void postFakeWillEnterForeground();

}  // namespace jx::test
