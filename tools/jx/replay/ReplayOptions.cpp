// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/replay/ReplayOptions.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include "tools/jx/replay/CollectionAddress.h"

namespace jx {
namespace {

constexpr const char* kFooter =
    "One of --to, --print and --verify must be given: nothing is sent by accident.\n"
    "SIGINT or SIGTERM ends the reading; one more ends the waiting.\n"
    "Exit status: 0 all well, 1 bad lines, 2 wrong usage or a file or folder that cannot be used\n"
    "(nothing was executed), 3 something was left undelivered.";

// Also infinity and what is no number pass the range that the parser offers.
CLI::Validator finiteWithin(double least, double most, const std::string& range) {
  return CLI::Validator(
      [least, most, range](std::string& text) {
        double value = 0;
        const bool isNumber = CLI::detail::lexical_cast(text, value);
        const bool isRight = isNumber && std::isfinite(value) && value >= least && value <= most;
        return isRight ? std::string() : text + " is no number in " + range;
      },
      range);
}

// Any integer is allowed, also one that no 32 bits hold: it is none of the three with a meaning.
std::int32_t behaviourOf(const std::string& text) {
  constexpr std::int32_t kNoneOfTheThree = -1;
  std::int32_t value = 0;
  const char* const begin = text.data() + (text.front() == '+' ? 1 : 0);
  const auto parsed = std::from_chars(begin, text.data() + text.size(), value);
  return parsed.ec == std::errc() ? value : kNoneOfTheThree;
}

std::string faultOfInteger(std::string& text) {
  const bool isSigned = !text.empty() && (text.front() == '-' || text.front() == '+');
  const std::string digits = isSigned ? text.substr(1) : text;
  const bool isInteger =
      !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
  return isInteger ? std::string() : text + " is no integer";
}

void addApplicationOptions(CLI::App& command, ReplaySettings& settings) {
  command.add_option("--site", settings.siteID, "Site number")->capture_default_str();
  command.add_option("--key", settings.sourceKey, "Source key")->capture_default_str();
  command
      .add_option_function<std::string>(
          "--behaviour",
          [&settings](const std::string& text) { settings.behaviour = behaviourOf(text); },
          "Default behaviour: 1 always enabled, 2 disabled by default, any other 0")
      ->check(CLI::Validator(faultOfInteger, "INT"));
  command.add_option("--at", settings.startMs,
                     "Start, in milliseconds since 1970, of a clock that only the script moves "
                     "(default: real time)");
  command.add_option("--version-name", settings.versionName,
                     "The application's short version (default: none is stated)");
  command
      .add_option("--log-level", settings.logLevel,
                  "Library log lines to standard error: 0 none to 6 all")
      ->check(CLI::Range(0, 6))
      ->capture_default_str();
}

}  // namespace

void addReplayOptions(CLI::App& command, ReplayOptions& options) {
  constexpr double kLeastRate = 0.001;
  constexpr double kMostRate = 1'000'000;
  constexpr double kLongestWait = 1'000'000;
  command
      .add_option("script", options.script,
                  "Session script, one JSON object a line; - reads standard input")
      ->type_name("")
      ->capture_default_str();
  addApplicationOptions(command, options.settings);
  command
      .add_option("--to", options.settings.collectionAddress,
                  "Where events go: https://HOST[:PORT], or http:// for this machine")
      ->type_name("URL")
      ->check(CLI::Validator(
          [](std::string& address) {
            const std::string fault = faultOfCollectionAddress(address);
            return fault.empty() ? fault : "cannot send to '" + address + "': " + fault;
          },
          ""));
  command
      .add_option("--ca", options.settings.caFile,
                  "PEM file of the certificates to trust (default: the system's)")
      ->type_name("FILE");
  command
      .add_option("--state", options.settings.stateFolder,
                  "Folder of the queue and of what is remembered between runs (default: a "
                  "temporary one, kept when something is left undelivered)")
      ->type_name("DIR");
  command.add_flag("--print", options.prints,
                   "Write each body to standard output as it would be posted; send nothing");
  command.add_flag("--verify", options.verifies,
                   "Tell of each event whether it is complete, and what it lacks first");
  command.add_flag("--strict", options.strict, "Stop at the first bad line");
  command.add_option("--rate", options.rate, "Events a second (default: as fast as it goes)")
      ->check(finiteWithin(kLeastRate, kMostRate, "0.001 to 1000000"));
  command
      .add_option("--wait", options.waitSeconds, "Seconds to wait for delivery after the last line")
      ->check(finiteWithin(0, kLongestWait, "0 to 1000000"))
      ->capture_default_str();
  command.footer(kFooter);
}

std::string faultOfTogether(const ReplayOptions& options) {
  const bool hasPurpose =
      options.prints || options.verifies || !options.settings.collectionAddress.empty();
  return hasPurpose ? std::string() : "say where events go (--to), or --print or --verify";
}

}  // namespace jx
