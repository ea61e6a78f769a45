// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <sys/prctl.h>
#include <sys/wait.h>

#include <cstdint>
#include <exception>
#include <random>
#include <string>

#include "tests/soak/KillRun.h"
#include "tests/soak/KilledValues.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/WorkerProcess.h"

namespace jx::soak {
namespace {

using std::to_string;

KillResult resultOf(const KillOptions& options) {
  try {
    KillResult result = runKills(options);
    result.failures += killedValues(options.seed);
    return result;
  } catch (const std::exception& error) {
    KillResult failed;
    failed.failures = std::string(error.what()) + "\n";
    return failed;
  }
}

std::string summaryOf(const KillResult& result) {
  return "kills " + to_string(result.kills) + ", threads " + to_string(result.threads) +
         ", folder moves " + to_string(result.moves) + ", forks " + to_string(result.forks) +
         ", clock jumps " + to_string(result.clockJumps) + "; executed " +
         to_string(result.executed) + ", delivered " + to_string(result.delivered) +
         ", delivered twice " + to_string(result.twice) + ", dead letters " +
         to_string(result.rejected) + ", excused " + to_string(result.excused) + ", lost " +
         to_string(result.lost);
}

// Returns how many children that the workers forked ended with an error.
int failedChildren(bool waits) {
  int failed = 0;
  int status = 0;
  while (::waitpid(-1, &status, waits ? 0 : WNOHANG) > 0)
    if (status != 0) ++failed;
  return failed;
}

void reportTotal(Report& report, const KillResult& total, std::uint64_t runs, int failedChildren) {
  report.say("in total: " + summaryOf(total));
  report.say("runs with two to four processes in parallel " + to_string(total.parallel) + " of " +
             to_string(runs) + ", killed before the first event " + to_string(total.early) +
             ", killed between a folder move and the next event " +
             to_string(total.unfinishedMoves));
  report.say("requests received " + to_string(total.requests) +
             ", delivered whose execute did not return before the kill " +
             to_string(total.interrupted) + ", partial writes quarantined " +
             to_string(total.quarantined));
  report.say("longest queue after a kill " + to_string(total.longestQueue) + ", longest start " +
             rounded(total.longestStartMs) + " ms");
  report.promise(total.lost == 0, "lost " + to_string(total.lost));
  report.promise(failedChildren == 0, "no forked child fails");
  report.promise(total.executed > 0 && total.delivered > 0 && total.kills >= runs,
                 "events were executed and delivered, processes were killed");
  report.promise(total.failures.empty(), "all checks of all runs");
}

}  // namespace

int kills(Arguments& arguments) {
  const std::uint64_t runs = arguments.number("runs", 1'000);
  const std::uint64_t first = arguments.number("seed", std::random_device()());
  const std::uint64_t maxJumpDays = arguments.number("jump-days", 60);
  arguments.expectAllKnown();
  // The children of killed workers become children of this process.
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  keepDescriptorsFromWorkers();
  Report report("kills");
  KillResult total;
  int failed = 0;
  for (std::uint64_t seed = first; seed != first + runs; ++seed) {
    const KillResult result = resultOf({seed, maxJumpDays});
    report.say("seed " + to_string(seed) + ": " + summaryOf(result));
    if (!result.failures.empty()) {
      report.promise(false, "seed " + to_string(seed) + ", replay with: jx_soak kills --runs 1 " +
                                "--seed " + to_string(seed) + " --jump-days " +
                                to_string(maxJumpDays) + "\n" + result.failures);
    }
    total.add(result);
    failed += failedChildren(false);
  }
  reportTotal(report, total, runs, failed + failedChildren(true));
  return report.status();
}

}  // namespace jx::soak
