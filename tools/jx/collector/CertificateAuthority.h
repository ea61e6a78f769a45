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

/// The local certificate authority of the collector (ca.pem, ca.key) and the server certificate
/// that it signed (server.pem, server.key), stored in one folder.
///
/// The authority is valid for at most 397 days and only for its own names, loopback and private
/// addresses. Devices trust it, so its key is replaced only by renew(), after its expiry, or 30
/// days before the expiry of an authority without name constraints; 30 days before its expiry, any
/// other authority gets a new certificate for its key, which devices accept until the old one
/// expires. When its files are damaged, open() returns an error and leaves them unchanged. The
/// server certificate is reissued whenever it is unusable: missing, damaged, for other names,
/// signed by another authority, or within 30 days of its expiry. Used at start, on one thread.
class CertificateAuthority {
 public:
  /// Loads the files in `folder`, which must exist, and creates missing ones. `names` are the host
  /// names and IP addresses of the server certificate: at least one, each a certifiable name. `now`
  /// is in seconds since the Unix epoch.
  static Result<CertificateAuthority> open(const std::filesystem::path& folder,
                                           std::vector<std::string> names, std::time_t now);

  /// Replaces the authority in `folder`, or creates it. Devices must then trust the new one.
  static Result<CertificateAuthority> renew(const std::filesystem::path& folder,
                                            std::vector<std::string> names, std::time_t now);
  /// Loads the authority in `folder` and changes nothing, even when it has expired.
  static Result<CertificateAuthority> read(const std::filesystem::path& folder);

  /// Returns what the user must know or do about the authority: one sentence each.
  const std::vector<std::string>& notices() const { return notices_; }
  X509& certificate() const { return *certificate_; }
  /// Returns the path of the CA certificate, which devices and clients must trust.
  std::filesystem::path certificateFile() const { return folder_ / "ca.pem"; }
  /// Returns the content of certificateFile().
  const std::string& certificatePem() const { return certificatePem_; }
  /// Creates a TLS server context with the server certificate. Requires TLS 1.2 or later.
  Result<SslContextHandle> createServerContext() const;

 private:
  CertificateAuthority(std::filesystem::path folder, std::vector<std::string> names,
                       std::time_t now);

  Done loadOrCreateAuthority();
  /// A null key_ creates a key.
  Done createAuthority();
  Done renewBeforeExpiry();
  /// Removes the names that the authority does not permit.
  void restrictNames();
  Done loadAuthority();
  Done checkAuthority() const;
  Done loadOrIssueServerCertificate();
  bool loadServerCertificate();
  bool isServerCertificateUsable() const;
  Done issueServerCertificate();

  std::filesystem::path folder_;
  std::vector<std::string> names_;
  std::time_t now_;
  CertificateHandle certificate_;
  KeyHandle key_;
  std::string certificatePem_;
  std::vector<std::string> notices_;
  CertificateHandle serverCertificate_;
  KeyHandle serverKey_;
};

}  // namespace jx
