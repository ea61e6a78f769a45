// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

namespace jx::test {

/// Values of the fake frameworks; tests set them before they call the platform. A null pointer
/// means that the value is unavailable.
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

/// State of the fake network path, with the numbers of the Network framework.
struct FakePath {
  bool isSatisfied = true;
  int interfaceType = 3;
};
/// Notifies running monitors on another thread and returns after they were called. Monitors that
/// are started later are notified at their start.
void setFakePath(const FakePath& path);
/// Monitors that are started later are not notified until `setFakePath`.
void resetFakePath();
int runningFakeMonitors();

/// Returns the object of the notifications below; represents UIApplication.
const void* fakeApplication();
/// Posts the notification on the default centre of Foundation, like the system.
void postFakeDidEnterBackground();
void postFakeWillEnterForeground();

}  // namespace jx::test
