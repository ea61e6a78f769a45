// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/gateway/NatsClient.h"

namespace jx {
namespace {

constexpr std::int64_t kReconnectWaitMs = 250;
constexpr std::int64_t kWriteTimeMs = 2'000;
constexpr std::int64_t kPingIntervalMs = 2'000;
constexpr int kUnansweredPings = 2;

}  // namespace

void addNatsOptions(CLI::App& command, NatsServers& servers) {
  // The environment, unlike the command line, is not visible to other users: a URL may contain a
  // password.
  command.add_option("--nats", servers.urls, "URL of a NATS server; may be repeated")
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
      ->delimiter(',')
      ->envname("JX_NATS");
  command.add_option("--nats-credentials", servers.credentialsFile,
                     "Credentials file of the NATS user");
  command.add_option("--nats-ca", servers.authorityFile,
                     "PEM file of the authority that signs the NATS servers");
}

Error natsFailure(const std::string& action, natsStatus status) {
  return Error{"NATS: " + action + ": " + natsStatus_GetText(status)};
}

Result<NatsHandle<natsOptions>> natsOptionsFor(const NatsServers& servers, const char* name) {
  natsOptions* created = nullptr;
  natsStatus status = natsOptions_Create(&created);
  NatsHandle<natsOptions> options(created);
  std::vector<const char*> urls;
  for (const std::string& url : servers.urls)
    urls.push_back(url.c_str());
  const auto then = [&status](natsStatus next) {
    if (status == NATS_OK) status = next;
  };
  if (status == NATS_OK) {
    then(natsOptions_SetServers(created, urls.data(), static_cast<int>(urls.size())));
    then(natsOptions_SetName(created, name));
    then(natsOptions_SetMaxReconnect(created, -1));
    then(natsOptions_SetReconnectWait(created, kReconnectWaitMs));
    then(natsOptions_SetReconnectBufSize(created, 0));
    // Otherwise a server that reads nothing would block the caller for ever.
    then(natsOptions_SetWriteDeadline(created, kWriteTimeMs));
    then(natsOptions_SetPingInterval(created, kPingIntervalMs));
    then(natsOptions_SetMaxPingsOut(created, kUnansweredPings));
    if (!servers.credentialsFile.empty()) {
      then(natsOptions_SetUserCredentialsFromFiles(created, servers.credentialsFile.c_str(),
                                                   nullptr));
    }
    if (!servers.authorityFile.empty()) {
      then(natsOptions_LoadCATrustedCertificates(created, servers.authorityFile.c_str()));
    }
  }
  if (status != NATS_OK) return natsFailure("options", status);
  return options;
}

}  // namespace jx
