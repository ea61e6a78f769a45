// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/OpenSslHandles.h"

namespace jx {

/// The collector's own certificate authority, kept in a folder as ca.pem and ca.key, and the server
/// certificate that it signed, server.pem and server.key.
///
/// The authority is made once and then never replaced, because devices were told to trust it: when
/// its files are damaged, open() says so and leaves them as they are. The server certificate is
/// made anew whenever it does not serve: missing, damaged, for other names, signed by another
/// authority, or within 30 days of its end. Used at start, on one thread.
class CertificateAuthority {
 public:
  /// Reads what the folder, which exists, holds, and makes what is missing. `names` are the host
  /// names and IP addresses of the server certificate, at least one, each a certifiable name.
  /// `now` is in seconds since the Unix epoch.
  static Result<CertificateAuthority> open(const std::filesystem::path& folder,
                                           std::vector<std::string> names, std::time_t now);

  /// The authority's certificate: the file that a device or a client is told to trust.
  std::filesystem::path certificateFile() const { return folder_ / "ca.pem"; }
  /// Its content.
  const std::string& certificatePem() const { return certificatePem_; }
  /// A TLS server context with the server certificate, TLS 1.2 or later.
  Result<SslContextHandle> makeServerContext() const;

 private:
  CertificateAuthority(std::filesystem::path folder, std::vector<std::string> names,
                       std::time_t now);

  Done loadOrMakeAuthority();
  Done makeAuthority();
  Done loadAuthority();
  Done checkAuthority() const;
  Done loadOrMakeServer();
  bool loadServer();
  bool serverStillServes() const;
  Done makeServer();

  std::filesystem::path folder_;
  std::vector<std::string> names_;
  std::time_t now_;
  CertificateHandle certificate_;
  KeyHandle key_;
  std::string certificatePem_;
  CertificateHandle serverCertificate_;
  KeyHandle serverKey_;
};

}  // namespace jx
