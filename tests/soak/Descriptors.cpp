// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "tests/soak/CommandedWorker.h"
#include "tests/soak/ControlledProcess.h"
#include "tests/soak/OpenLog.h"
#include "tests/soak/Proofs.h"
#include "tests/soak/Report.h"
#include "tests/soak/Tally.h"
#include "tests/soak/WorkerProcess.h"
#include "tests/support/JXTestServer.h"
#include "tests/support/TemporaryFolder.h"

namespace jx::soak {
namespace {

namespace fs = std::filesystem;

constexpr std::uint64_t kLimit = 16;
constexpr std::size_t kMaxOwnFiles = 8;
constexpr std::size_t kSegments = 30;
// About ten events fill a segment.
constexpr std::uint64_t kQueued = 320;
constexpr std::uint64_t kPadBytes = 200'000;
constexpr std::uint64_t kExecuted = 50;

test::JXTestServerOptions serverOptions(bool tls) {
  test::JXTestServerOptions options;
  options.tls = tls;
  return options;
}

// A process that leaves a long queue, and a next one with few descriptors.
class DescriptorLife {
 public:
  explicit DescriptorLife(bool tls) : tls_(tls), server_(serverOptions(tls)) {}

  void run(Report& report, std::uint64_t limit) {
    leaveQueue();
    const std::size_t segments = segmentsLeft();
    const OpenLog log(folder_.path("log"));
    WorkerOptions options = optionsFor(1);
    options.descriptors = limit;
    // The recorder needs a descriptor itself.
    ControlledProcess worker(options,
                             limit == 0 ? log.environment() : std::map<std::string, std::string>{});
    for (std::uint64_t i = 0; i < kExecuted; ++i)
      worker.perform({command::kExecute});
    worker.perform({command::kFlush});
    const bool emptied = lastOf(worker.exit(), Record::Kind::Emptied) == 1;
    const std::string name = (tls_ ? std::string("https") : "http") +
                             (limit == 0 ? "" : " with " + std::to_string(limit) + " descriptors");
    report.promise(segments >= kSegments, name + ": segments left " + std::to_string(segments));
    const Tally tally = tallyOf(server_, {state()});
    report.promise(emptied && missing(executed(), tally) == 0 && tally.repeats == 0,
                   name + ": each of " + std::to_string(executed().size()) +
                       " events is delivered once, " + std::to_string(tally.accepted.size()));
    report.promise(
        worker.errors().empty(),
        name + ": nothing is logged " + worker.errors().substr(0, worker.errors().find('\n')));
    if (limit == 0) reportPeak(report, name, log.calls());
  }

 private:
  void leaveQueue() {
    server_.refuse();
    ControlledProcess worker(optionsFor(0));
    for (std::uint64_t i = 0; i < kQueued; ++i)
      worker.perform({command::kExecute});
    worker.exit();
    server_.accept();
  }

  void reportPeak(Report& report, const std::string& name, const std::vector<OpenCall>& calls) {
    std::size_t files = 0;
    for (const OpenCall& call : calls)
      files = std::max(files, call.files);
    report.promise(files > 0 && files <= kMaxOwnFiles,
                   name + ": at most " + std::to_string(files) +
                       " descriptors of the library are open at a time, in addition to sockets");
  }

  static std::vector<std::uint64_t> executed() {
    std::vector<std::uint64_t> numbers;
    for (std::uint64_t i = 0; i < kQueued + kExecuted; ++i)
      numbers.push_back(i < kQueued ? firstOf(0) + i : firstOf(1) + i - kQueued);
    return numbers;
  }

  // The number of the first event that is commanded.
  static std::uint64_t firstOf(std::uint64_t process) {
    return (process + 1) * kNumbersPerWorker + kCommanded * kNumbersPerRange;
  }

  WorkerOptions optionsFor(std::uint64_t process) const {
    WorkerOptions options;
    options.state = state();
    options.host = (tls_ ? "https" : "http") + ("://127.0.0.1:" + std::to_string(server_.port()));
    if (tls_) options.caFile = server_.caFile();
    options.first = (process + 1) * kNumbersPerWorker;
    options.takesCommands = true;
    options.threads = 0;
    options.padBytes = kPadBytes;
    return options;
  }

  std::string state() const { return folder_.path("state"); }

  std::size_t segmentsLeft() const {
    const fs::directory_iterator files(state() + "/outbox");
    return static_cast<std::size_t>(std::count_if(begin(files), end(files), [](const auto& file) {
      return file.path().filename().string().rfind("segment-", 0) == 0;
    }));
  }

  const bool tls_;
  const test::TemporaryFolder folder_;
  test::JXTestServer server_;
};

}  // namespace

int descriptors(Arguments& arguments) {
  const std::uint64_t limit = arguments.number("limit", kLimit);
  arguments.expectAllKnown();
  keepDescriptorsFromWorkers();
  Report report("descriptors");
  for (const bool tls : {false, true}) {
    DescriptorLife(tls).run(report, 0);
    if (limit != 0) DescriptorLife(tls).run(report, limit);
  }
  return report.status();
}

}  // namespace jx::soak
