// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// A consent module, as its maker would deliver it: linking it makes the library wait for consent.
// It asks nobody; the application does that and tells the answer. The decision is kept in a file
// and is in force again at the next launch. To be used on the thread of the ServerSide.
class MobileConsent {
 public:
  enum class Decision { Open, Agreed, Refused };

  // Reads what was decided in an earlier launch.
  explicit MobileConsent(std::string file);

  // Tells the library so. To be called once, when the first ServerSide was made.
  void start();
  void agree();
  void refuse();

  Decision decision() const { return decision_; }

 private:
  void tellLibrary() const;
  void keep() const;

  std::string file_;
  Decision decision_ = Decision::Open;
  std::string id_;  // names this viewer's agreement; none without one
};
