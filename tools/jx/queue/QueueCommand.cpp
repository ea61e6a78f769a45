// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/queue/QueueCommand.h"

#include <grp.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <system_error>
#include <vector>

#include "jx/core/storage/JXErasures.h"
#include "jx/core/storage/JXOutboxFolder.h"
#include "tools/jx/ExitStatus.h"
#include "tools/jx/Result.h"
#include "tools/jx/queue/QueueReport.h"

namespace jx {
namespace {

using Listing = std::vector<JXOutboxListing>;
using Lister = Listing (*)(const std::string& folder, std::string& error);

Result<Listing> readListing(Lister lister, const std::filesystem::path& outbox) {
  std::string error;
  Listing listing = lister(outbox.string(), error);
  if (!error.empty()) return Error{error};
  return listing;
}

// The folder has no outbox if the library was started but has not queued a request yet.
bool isUnusedState(const std::filesystem::path& state) {
  std::error_code ignored;
  return !std::filesystem::exists(state / "outbox", ignored) && !ignored &&
         (std::filesystem::exists(state / "defaults", ignored) ||
          std::filesystem::exists(state / "erased", ignored));
}

Result<std::string> purge(const std::filesystem::path& outbox) {
  std::string error;
  const JXOutboxPurge purged = purgeOutbox(outbox.string(), error);
  if (!error.empty()) return Error{error};
  return queuePurged(purged);
}

bool isState(const std::filesystem::path& state) {
  std::error_code ignored;
  return std::filesystem::exists(state / "outbox", ignored) ||
         std::filesystem::exists(state / "defaults", ignored) ||
         std::filesystem::exists(state / "erased", ignored);
}

// Also deletes the identifiers and the counts of visits.
Result<std::string> eraseAll(const std::filesystem::path& state) {
  if (!isState(state)) return Error{"not a state folder: " + state.string()};
  const std::vector<std::string> left = JXErasures(state.string()).erase();
  if (left.empty()) return std::string("all stored data deleted\n");
  std::string message = "not everything was deleted";
  for (const std::string& line : left)
    message += "\n" + line;
  return Error{message};
}

// A superuser continues with the rights of the folder's owner: the folder belongs to the
// application, and must not be able to redirect what the superuser writes. The files stay those of
// the application. Returns an empty string, or the error.
std::string becomeOwnerOf(const std::filesystem::path& state) {
  struct stat status {};
  if (::geteuid() != 0 || ::lstat(state.c_str(), &status) != 0 || status.st_uid == 0) return {};
  if (::setgroups(0, nullptr) == 0 && ::setgid(status.st_gid) == 0 &&
      ::setuid(status.st_uid) == 0) {
    return {};
  }
  return "cannot continue as the owner of " + state.string() + ": " +
         std::error_code(errno, std::generic_category()).message();
}

Result<std::string> runVerb(const QueueOptions& options) {
  const std::string error = becomeOwnerOf(options.stateFolder);
  if (!error.empty()) return Error{error};
  if (options.all) return eraseAll(options.stateFolder);
  const bool isUnused = isUnusedState(options.stateFolder);
  const std::filesystem::path outbox = options.stateFolder / "outbox";
  if (options.verb == "purge") return isUnused ? queuePurged({}) : purge(outbox);
  const auto read = [&](Lister lister) {
    return isUnused ? Result<Listing>(Listing{}) : readListing(lister, outbox);
  };
  if (options.verb == "dead") {
    const Result<Listing> dead = read(listDeadLetters);
    if (!dead) return dead.error();
    return options.json ? queueJsonLines(*dead, true) : queueLines(*dead, true);
  }
  const Result<Listing> queued = read(listOutbox);
  if (!queued) return queued.error();
  if (options.verb == "list") {
    return options.json ? queueJsonLines(*queued, false) : queueLines(*queued, false);
  }
  const Result<Listing> dead = read(listDeadLetters);
  if (!dead) return dead.error();
  return queueStatus(*queued, *dead);
}

}  // namespace

int runQueue(const QueueOptions& options) {
  const Result<std::string> text = runVerb(options);
  if (!text) {
    std::fprintf(stderr, "jx queue: %s\n", text.error().text.c_str());
    return kExitFailure;
  }
  std::fwrite(text->data(), 1, text->size(), stdout);
  return std::fflush(stdout) == 0 ? kExitOk : kExitFailure;
}

void addQueueCommand(CLI::App& app, int& exitStatus) {
  const auto options = std::make_shared<QueueOptions>();
  CLI::App* const command = app.add_subcommand("queue", "Inspect or purge the on-disk event queue");
  command
      ->add_option(
          "VERB", options->verb,
          "status: print the number, size and age of queued requests; list: print one line "
          "per queued request; dead: print one line per dead letter; purge: delete all")
      ->required()
      ->type_name("")
      ->check(CLI::IsMember({"status", "list", "dead", "purge"}));
  command->add_option("--state", options->stateFolder, "Read the state folder of the application")
      ->required()
      ->type_name("DIR");
  command->add_flag("--json", options->json,
                    "Print each request as one line of JSON, with its URL and body; for list and "
                    "dead");
  command->add_flag("--all", options->all,
                    "With purge: also delete identifiers, counts of visits and all other stored "
                    "data");
  command->callback([options, &exitStatus] {
    if (options->all && options->verb != "purge") {
      throw CLI::ValidationError("--all", "requires the verb purge");
    }
    if (options->json && options->verb != "list" && options->verb != "dead") {
      throw CLI::ValidationError("--json", "only list and dead print JSON");
    }
    exitStatus = runQueue(*options);
  });
}

}  // namespace jx
