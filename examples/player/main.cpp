// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0

// Plays a film in mpv, or connects to a running mpv, and sends playback events.
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "Bridge.h"
#include "MpvConnection.h"
#include "MpvMessages.h"
#include "MpvProcess.h"
#include "jx/JXServerSide.h"

namespace {

constexpr std::chrono::seconds kTimeout{10};

struct Options {
  std::string host, caFile, storageFolder, socketPath, film;
  std::vector<std::string> mpvOptions;
};

std::optional<Options> readOptions(const std::vector<std::string>& words) {
  Options options;
  std::size_t i = 0;
  for (; i + 1 < words.size() && words[i].rfind("--", 0) == 0; i += 2) {
    if (words[i] == "--to") {
      options.host = words[i + 1];
    } else if (words[i] == "--ca") {
      options.caFile = words[i + 1];
    } else if (words[i] == "--state") {
      options.storageFolder = words[i + 1];
    } else if (words[i] == "--socket") {
      options.socketPath = words[i + 1];
    } else {
      return std::nullopt;
    }
  }
  if (i < words.size()) options.film = words[i++];
  options.mpvOptions.assign(words.begin() + static_cast<std::ptrdiff_t>(i), words.end());
  if (options.film.empty() == options.socketPath.empty()) return std::nullopt;
  return options;
}

void configure(const Options& options) {
  jx::JXCoreConfiguration configuration;
  configuration.dryRun = options.host.empty();
  if (!options.host.empty()) configuration.collectionHost = options.host;
  if (!options.caFile.empty()) configuration.caFile = options.caFile;
  if (!options.storageFolder.empty()) configuration.storageFolder = options.storageFolder;
  jx::JXCoreConfiguration::set(configuration);
}

}  // namespace

int main(int argc, char** argv) {
  const auto options = readOptions({argv + 1, argv + argc});
  if (!options) {
    std::cerr << "usage: player [--to HOST] [--ca FILE] [--state FOLDER] "
                 "(--socket PATH | FILM [MPV_OPTION...])\n";
    return 2;
  }
  Bridge::catchSignals();
  configure(*options);
  const auto serverSide = jx::ServerSide::initWithSiteID_andSourceKey(1, "source-key");
  try {
    std::optional<MpvProcess> own;
    if (options->socketPath.empty()) own.emplace(options->mpvOptions);
    MpvConnection mpv(own ? own->socketPath() : options->socketPath, kTimeout);
    for (const std::string& command : mpvObservations())
      mpv.send(command);
    if (own) mpv.send(mpvCommand({"loadfile", options->film}));
    Bridge(mpv, *serverSide).run();
  } catch (const std::exception& error) {
    std::cerr << "player: " << error.what() << '\n';
    return 1;
  }
  if (options->host.empty()) return 0;
  return jx::JXNetworkManager::sharedInstance().flush(kTimeout) ? 0 : 1;
}
