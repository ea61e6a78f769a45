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

/// What a certificate says. Times are seconds since the Unix epoch.
struct CertificateText {
  std::string commonName;
  std::time_t notBefore = 0;
  std::time_t notAfter = 0;
  /// Host names and IP addresses that a server certificate is for.
  std::vector<std::string> names;
};

/// A new private key on the curve P-256; null when OpenSSL cannot make one.
KeyHandle makePrivateKey();

/// A certificate that may sign others, signed by its own key. Null when OpenSSL refuses.
CertificateHandle makeAuthorityCertificate(const CertificateText& text, EVP_PKEY& key);
/// A certificate for a server, signed by the authority. Null when OpenSSL refuses.
CertificateHandle makeServerCertificate(const CertificateText& text, EVP_PKEY& key, X509& authority,
                                        EVP_PKEY& authorityKey);

/// PEM text; empty when OpenSSL refuses.
std::string pemOf(X509& certificate);
std::string pemOf(EVP_PKEY& key);
/// Null when the text holds no such PEM block.
CertificateHandle certificateFromPem(std::string_view pem);
KeyHandle privateKeyFromPem(std::string_view pem);

std::time_t notAfter(const X509& certificate);
/// True for "127.0.0.1" and "::1", false for a name.
bool isIpAddress(const std::string& name);
/// True for what a certificate can name: an IP address, or a host name of letters, digits, hyphens
/// and dots.
bool isCertifiableName(const std::string& name);

}  // namespace jx
