// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <iostream>
#include <string>

// Represents the Firebase Analytics object of a real application, which has similar operations.
// Prints each call.
class AnalyticsRecorder {
 public:
  void setDefaultParameter(const std::string& name, const std::string& value) {
    std::cout << "setDefaultParameter " << name << " = " << value << '\n';
  }

  void logEvent(const std::string& name, const std::string& parametersAsJson) {
    std::cout << "logEvent " << name << '\n' << parametersAsJson << '\n';
  }
};
