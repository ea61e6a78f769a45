// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CaCommand.h"

#include <cstdio>
#include <ctime>
#include <memory>

#include "tools/jx/AtomicFile.h"
#include "tools/jx/ExitStatus.h"
#include "tools/jx/Printable.h"
#include "tools/jx/collector/CertificateAuthority.h"
#include "tools/jx/collector/Certificates.h"
#include "tools/jx/collector/CollectorServer.h"

namespace jx {
namespace {

struct CaOptions {
  /// Only the state folder and the names are used.
  CollectorSettings settings;
  bool renews = false;
  std::filesystem::path exportFile;
};

int fail(const Error& failure) {
  std::fprintf(stderr, "jx collector ca: %s\n", failure.text.c_str());
  return kExitFailure;
}

void show(const CertificateAuthority& authority) {
  const X509& certificate = authority.certificate();
  const auto isoTime = [](std::time_t time) { return asIsoTime(std::int64_t{time} * 1000); };
  std::printf("CA file       %s\n", authority.certificateFile().c_str());
  std::printf("SHA-256       %s\n", fingerprintOf(certificate).c_str());
  std::printf("Valid from    %s\n", isoTime(notBefore(certificate)).c_str());
  std::printf("Valid until   %s\n", isoTime(notAfter(certificate)).c_str());
  const std::vector<std::string> names = permittedNames(certificate);
  std::string list = names.empty() ? "every host name; run jx collector ca --renew" : "";
  for (const std::string& name : names)
    list += (list.empty() ? "" : ", ") + name;
  std::printf("Valid for     %s\n", list.c_str());
}

// Writes DER for the extensions that TVs expect to contain it, and PEM for the others.
Done exportTo(const std::filesystem::path& file, const CertificateAuthority& authority) {
  const std::string extension = file.extension().string();
  const bool isDer = extension == ".der" || extension == ".cer";
  if (!isDer && extension != ".pem" && extension != ".crt") {
    return Error{"the name of the file must end with .pem or .crt (PEM), or .der or .cer (DER): " +
                 file.string()};
  }
  return writeFileAtomically(
      file, isDer ? toDer(authority.certificate()) : authority.certificatePem(), 0644);
}

Result<CertificateAuthority> openAuthority(const CaOptions& options,
                                           const std::filesystem::path& folder) {
  if (!options.renews) {
    Result<CertificateAuthority> authority = CertificateAuthority::read(folder);
    if (authority) return authority;
    return Error{authority.error().text +
                 "; jx collector creates the authority at its first start"};
  }
  // A running collector would continue to present the previous certificate.
  const Result<StateFolder> locked = StateFolder::open(folder);
  if (!locked) return locked.error();
  return CertificateAuthority::renew(folder, certifiedNames(options.settings), std::time(nullptr));
}

int runCa(const CaOptions& options) {
  std::filesystem::path folder = options.settings.stateFolder;
  if (folder.empty()) {
    const Result<std::filesystem::path> standard = StateFolder::defaultPath();
    if (!standard) return fail(standard.error());
    folder = *standard;
  }
  const Result<CertificateAuthority> authority = openAuthority(options, folder);
  if (!authority) return fail(authority.error());
  if (options.renews) {
    std::fprintf(stderr,
                 "jx collector ca: the authority was replaced; every device must trust the new one "
                 "and should stop trusting the previous one\n");
  }
  show(*authority);
  if (options.exportFile.empty()) return kExitOk;
  const Done written = exportTo(options.exportFile, *authority);
  return written ? kExitOk : fail(written.error());
}

}  // namespace

CLI::Validator certifiableName() {
  return CLI::Validator(
      [](std::string& name) {
        return isCertifiableName(name) ? std::string()
                                       : "must be a host name or an IP address: " + name;
      },
      "NAME");
}

void addCaCommand(CLI::App& collector, int& exitStatus) {
  const auto options = std::make_shared<CaOptions>();
  CLI::App* const command = collector.add_subcommand(
      "ca", "Show, renew or export the certificate authority of the collector");
  command->add_option("--state", options->settings.stateFolder,
                      "Use the authority in this folder "
                      "[$XDG_STATE_HOME/jx-collector or ~/.local/state/jx-collector]");
  command->add_flag("--renew", options->renews,
                    "Replace the authority; every device must then trust the new one");
  command
      ->add_option("--name", options->settings.names,
                   "Permit a further host name or IP address in the renewed authority")
      ->check(certifiableName())
      ->expected(1)
      ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
  command->add_option("--export", options->exportFile,
                      "Write the certificate to this file: PEM (.pem, .crt) or DER (.der, .cer)");
  command->callback([options, &exitStatus] { exitStatus = runCa(*options); });
}

}  // namespace jx
