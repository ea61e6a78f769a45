// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Soak tests, which check that no event is lost and that nothing is sent after a stop, with real
// processes, files and connections.
//
//   jx_soak kills   [--runs 1000] [--seed N] [--jump-days 60]
//   jx_soak offline [--events 2050] [--gap-ms 3] [--rounds 3]
//   jx_soak outage  [--requests 100000]
//   jx_soak flush   [--times 100] [--assert-times]
//   jx_soak exit    [--times 100] [--assert-times]
//   jx_soak threads [--seconds 60]
//   jx_soak stops   [--count 2000] [--tls] [--slow-disk] [--slow-send]
//                   [--way call|notification|manager|thread|callback]
//   jx_soak toggles [--rounds 100] [--count 500]
//   jx_soak descriptors [--limit 16]
//   jx_soak opens   --jx PROGRAM
//
// Prints one result per line. Exit status: 0 if all checks passed, 1 if one failed, 2 for invalid
// arguments.

#include <exception>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/soak/CommandedWorker.h"
#include "tests/soak/KilledValues.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Server.h"
#include "tests/soak/Worker.h"

int main(int argc, char** argv) {
  using namespace jx::soak;
  const std::map<std::string, int (*)(Arguments&)> commands{
      {"kills", kills},
      {"offline", offline},
      {"outage", outage},
      {"flush", flush},
      {"exit", exit},
      {"threads", threads},
      {"stops", stops},
      {"worker", worker},
      {"toggles", toggles},
      {"server", server},
      {"inherited", inherited},
      {"opens", opens},
      {"careless", careless},
      {"descriptors", descriptors},
      {"timed-worker", timedWorker},
  };
  const auto command = commands.find(argc > 1 ? argv[1] : "");
  if (command == commands.end()) {
    std::cerr << "usage: jx_soak kills|offline|outage|flush|exit|threads|stops|toggles|descriptors|"
                 "opens [OPTION...]\n";
    return 2;
  }
  try {
    Arguments arguments(std::vector<std::string>(argv + 2, argv + argc));
    return command->second(arguments);
  } catch (const std::invalid_argument& error) {
    std::cerr << "jx_soak: " << error.what() << "\n";
    return 2;
  } catch (const std::exception& error) {
    std::cerr << "jx_soak: " << error.what() << "\n";
    return 1;
  }
}
