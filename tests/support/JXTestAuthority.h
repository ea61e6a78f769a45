// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

#include <memory>
#include <string>
#include <vector>

namespace jx::test {

struct JXOpenSslDeleter {
  void operator()(EVP_PKEY* key) const { EVP_PKEY_free(key); }
  void operator()(X509* certificate) const { X509_free(certificate); }
  void operator()(SSL_CTX* context) const { SSL_CTX_free(context); }
  void operator()(SSL* connection) const { SSL_free(connection); }
};
template <class Type>
using JXOpenSsl = std::unique_ptr<Type, JXOpenSslDeleter>;

/// A certificate and its private key.
struct JXTestIdentity {
  JXOpenSsl<EVP_PKEY> key;
  JXOpenSsl<X509> certificate;
};

/// The SHA-256 of a certificate's public key (its SubjectPublicKeyInfo) in Base64.
std::string publicKeyPinOf(const X509* certificate);

/// When a certificate holds: for an hour around now, or for an hour that is over.
enum class JXTestValidity { Now, Past };

/// A certificate authority that lives as long as its object. Failures of OpenSSL throw
/// std::runtime_error.
class JXTestAuthority {
 public:
  explicit JXTestAuthority(const char* name = "test authority");
  ~JXTestAuthority();
  JXTestAuthority(const JXTestAuthority&) = delete;
  JXTestAuthority& operator=(const JXTestAuthority&) = delete;

  /// A PEM file with the authority's certificate, removed with this object.
  const std::string& caFile() const { return file_; }
  /// A server's identity for the names given, each "DNS:..." or "IP:...".
  JXTestIdentity issue(const std::vector<std::string>& names,
                       JXTestValidity validity = JXTestValidity::Now) const;

 private:
  JXTestIdentity own_;
  std::string file_;
};

}  // namespace jx::test
