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
    "One of --to, --print and --verify is required, so that nothing is sent by accident.\n"
    "SIGINT or SIGTERM stops reading the script; a second signal stops waiting for delivery.\n"
    "Exit status: 0 success, 1 bad lines, 2 wrong usage or an unusable file or folder (nothing "
    "was\n"
    "executed), 3 something was left undelivered.";

// CLI::Range accepts infinity and NaN.
CLI::Validator finiteWithin(double least, double most, const std::string& range) {
  return CLI::Validator(
      [least, most, range](std::string& text) {
        double value = 0;
        const bool isNumber = CLI::detail::lexical_cast(text, value);
        const bool isValid = isNumber && std::isfinite(value) && value >= least && value <= most;
        return isValid ? std::string() : "value must be a number from " + range;
      },
      range);
}

// Every integer is allowed. A value outside 32 bits is equivalent to any value without a meaning.
std::int32_t behaviourOf(const std::string& text) {
  constexpr std::int32_t kNoMeaning = -1;
  std::int32_t value = 0;
  const char* const begin = text.data() + (text.front() == '+' ? 1 : 0);
  const auto parsed = std::from_chars(begin, text.data() + text.size(), value);
  return parsed.ec == std::errc() ? value : kNoMeaning;
}

std::string integerError(std::string& text) {
  const bool isSigned = !text.empty() && (text.front() == '-' || text.front() == '+');
  const std::string digits = isSigned ? text.substr(1) : text;
  const bool isInteger =
      !digits.empty() && digits.find_first_not_of("0123456789") == std::string::npos;
  return isInteger ? std::string() : "value must be an integer";
}

void addApplicationOptions(CLI::App& command, ReplaySettings& settings) {
  command.add_option("--site", settings.siteID, "Set the site ID")->capture_default_str();
  command.add_option("--key", settings.sourceKey, "Set the source key")->capture_default_str();
  command
      .add_option_function<std::string>(
          "--behaviour",
          [&settings](const std::string& text) { settings.behaviour = behaviourOf(text); },
          "Set the default behaviour: 1 always enabled, 2 disabled; any other integer means 0")
      ->type_name("INT")
      ->default_str("0")
      ->check(CLI::Validator(integerError, ""));
  command
      .add_option(
          "--at", settings.startMs,
          "Start a manual clock at this time, in milliseconds since the Unix epoch; only the "
          "script advances it [real time]")
      ->type_name("MS");
  command.add_option("--version-name", settings.versionName,
                     "Set the short version of the application [not set]");
  command
      .add_option("--log-level", settings.logLevel,
                  "Write library log messages up to this level to standard error: 0 none, 6 all")
      ->check(CLI::Range(0, 6))
      ->capture_default_str();
}

}  // namespace

void addReplayOptions(CLI::App& command, ReplayOptions& options) {
  constexpr double kMinRate = 0.001;
  constexpr double kMaxRate = 1'000'000;
  constexpr double kMaxWait = 1'000'000;
  command
      .add_option("FILE", options.script,
                  "Read the session script from this file, one JSON object per line; - reads "
                  "standard input")
      ->type_name("")
      ->capture_default_str();
  addApplicationOptions(command, options.settings);
  command
      .add_option("--to", options.settings.collectionAddress,
                  "Send events to this server: https://HOST[:PORT], or http:// for a loopback host")
      ->type_name("URL")
      ->check(CLI::Validator(
          [](std::string& address) {
            const std::string error = collectionAddressError(address);
            return error.empty() ? error : "invalid URL '" + address + "': " + error;
          },
          ""));
  command
      .add_option("--ca", options.settings.caFile,
                  "Trust the certificates in this PEM file [system certificates]")
      ->type_name("FILE");
  command
      .add_option(
          "--state", options.settings.stateFolder,
          "Store the queue, identifiers and visits in this folder [temporary, kept only when "
          "something is left undelivered]")
      ->type_name("DIR");
  command.add_flag("--print", options.prints,
                   "Write each body to standard output as it would be posted; do not send it");
  command.add_flag("--verify", options.verifies,
                   "Validate each event and print the first failed check");
  command.add_flag("--strict", options.strict, "Stop at the first bad line");
  command
      .add_option("--rate", options.rate,
                  "Execute at most this number of events per second [unlimited]")
      ->check(finiteWithin(kMinRate, kMaxRate, "0.001 to 1000000"));
  command
      .add_option("--wait", options.waitSeconds,
                  "Wait up to this number of seconds for delivery after the last line")
      ->check(finiteWithin(0, kMaxWait, "0 to 1000000"))
      ->capture_default_str();
  command.footer(kFooter);
}

std::string combinationError(const ReplayOptions& options) {
  const bool hasPurpose =
      options.prints || options.verifies || !options.settings.collectionAddress.empty();
  return hasPurpose ? std::string() : "one of --to, --print or --verify is required";
}

}  // namespace jx
