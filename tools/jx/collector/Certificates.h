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

/// The names and networks that every authority may certify in addition to its own names: localhost,
/// loopback addresses and private addresses. As in the output of permittedNames().
std::vector<std::string> alwaysPermittedNames();

/// Creates a private key on the curve P-256. Returns null when OpenSSL fails.
KeyHandle createPrivateKey();

/// Creates a self-signed CA certificate that is valid only for servers with `fields.names` and with
/// alwaysPermittedNames(). Returns null when OpenSSL fails.
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

/// Returns the DER encoding; empty when OpenSSL fails.
std::string toDer(X509& certificate);
/// Returns the SHA-256 hash of the certificate: 32 hexadecimal bytes, separated by colons.
std::string fingerprintOf(const X509& certificate);
/// Returns the name constraints of an authority: host names, which include their subdomains, and
/// networks such as 10.0.0.0/8. Empty for an authority that may certify every name.
std::vector<std::string> permittedNames(const X509& authority);
/// True when the name constraints of `authority` permit a server certificate for `name`.
bool permitsName(X509& authority, EVP_PKEY& authorityKey, const std::string& name);

/// Returns the first second of validity since the Unix epoch; 0 when OpenSSL cannot read it.
std::time_t notBefore(const X509& certificate);
/// Returns the expiry time in seconds since the Unix epoch; 0 when OpenSSL cannot read it.
std::time_t notAfter(const X509& certificate);
/// True for an IP address such as "127.0.0.1" or "::1", false for a host name.
bool isIpAddress(const std::string& name);
/// True when a certificate can contain the name: an IP address, or a host name of letters, digits,
/// hyphens and dots.
bool isCertifiableName(const std::string& name);

}  // namespace jx
