// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// A consent module as a vendor would provide it: linking it makes the library wait for consent. The
// application shows the prompt and reports the decision. The decision is stored in a file and is
// restored at the next launch. Call it on the thread of the ServerSide.
class MobileConsent {
 public:
  enum class Decision { Open, Agreed, Refused };

  // Reads the decision of an earlier launch.
  explicit MobileConsent(std::string file);

  // Applies the stored decision. Call it once, after the first ServerSide was created.
  void start();
  void agree();
  void refuse();

  Decision decision() const { return decision_; }

 private:
  void notifyLibrary() const;
  void save() const;

  std::string file_;
  Decision decision_ = Decision::Open;
  std::string id_;  // ID of the viewer's consent; empty without consent
};
