// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <ctime>
#include <string>
#include <string_view>
#include <vector>

#include "tools/jx/Result.h"
#include "tools/jx/collector/OpenSslHandles.h"

namespace jx {

/// The contents of a certificate. Times are in seconds since the Unix epoch.
struct CertificateFields {
  std::string commonName;
  std::time_t notBefore = 0;
  std::time_t notAfter = 0;
  /// Host names and IP addresses of a server certificate.
  std::vector<std::string> names;
};

/// Creates a private key on the curve P-256. Returns null when OpenSSL fails.
KeyHandle createPrivateKey();

/// Creates a self-signed CA certificate. Returns null when OpenSSL fails.
CertificateHandle createAuthorityCertificate(const CertificateFields& fields, EVP_PKEY& key);
/// Creates a server certificate, signed by the authority. Returns null when OpenSSL fails.
CertificateHandle createServerCertificate(const CertificateFields& fields, EVP_PKEY& key,
                                          X509& authority, EVP_PKEY& authorityKey);

/// Returns the PEM encoding; empty when OpenSSL fails.
std::string toPem(X509& certificate);
std::string toPem(EVP_PKEY& key);
/// Parses a PEM block. Returns null when `pem` does not contain one of that type.
CertificateHandle certificateFromPem(std::string_view pem);
KeyHandle privateKeyFromPem(std::string_view pem);

/// Returns the expiry time in seconds since the Unix epoch; 0 when OpenSSL cannot read it.
std::time_t notAfter(const X509& certificate);
/// True for an IP address such as "127.0.0.1" or "::1", false for a host name.
bool isIpAddress(const std::string& name);
/// True when a certificate can contain the name: an IP address, or a host name of letters, digits,
/// hyphens and dots.
bool isCertifiableName(const std::string& name);

}  // namespace jx
