// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "tests/simulation/VirtualProcess.h"
#include "tests/simulation/World.h"

namespace jx::simulation {

/// The whole life of one installation: processes that start, work and end, and everything that can
/// happen to them, drawn from one seed. A life has one of a few kinds, which differ in what happens
/// often.
class Life {
 public:
  Life(std::uint64_t seed, bool isVerbose);

  /// Runs it. Returns the first rule that was violated; empty if none was.
  std::string run();
  static const char* kindOf(std::uint64_t seed);

 private:
  enum Kind { Kills, Power, Faults, Several, Consent, Removal, Servers, Limits, Damage, Anything };
  static constexpr int kKinds = 10;
  static constexpr int kMaxEvents = 300;
  static const char* const kKindNames[kKinds];

  /// One thing that can happen. `often`: its weight in a life of the kinds; else it is rare in a
  /// life of any kind, and does not happen in the others.
  struct Operation {
    void (Life::*run)();
    int weight;
    std::vector<Kind> kinds;  ///< empty: all
  };
  static const std::vector<Operation>& operations();

  void configure();
  void configureLimits();
  void step();
  void settle();
  void bury();
  void advance(std::int64_t ms);
  void workAll();
  void finish();
  bool isDrained();
  void drain(const char* when);
  void checkEnd();
  void checkMissing();
  void checkErased(const char* when);
  void interleave();

  VirtualProcess* anyProcess();
  Event& newEvent(int source, bool hasWaitingMarker);
  void executeIn(VirtualProcess& process, std::size_t member);
  std::size_t bodySize();
  JXStartState anyStart();

  // The operations.
  void start();
  void execute();
  void executeMany();
  void wait();
  void waitLong();
  void waitDays();
  void setValue();
  void flush();
  void exit();
  void kill();
  void killSoon();
  void cutPower();
  void cutPowerSoon();
  void breakDisk();
  void healDisk();
  void stop();
  void enable();
  void erase();
  void purge();
  void purgeOutside();
  void changeNetwork();
  void healNetwork();
  void jumpClock();
  void damage();
  void deleteFolder();

  World world_;
  const Kind kind_;
  std::vector<std::unique_ptr<VirtualProcess>> processes_;
  std::vector<std::unique_ptr<VirtualProcess>> dead_;
  std::size_t maxProcesses_ = 1;
  int sources_ = 1;
  bool usesConsent_ = false;
  bool hasLargeValues_ = false;  ///< their file is rewritten often
  int events_ = 0;
  int moved_ = 0;  ///< folders that were moved away
};

}  // namespace jx::simulation
