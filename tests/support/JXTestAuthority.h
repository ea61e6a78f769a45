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

/// Returns the SHA-256 of a certificate's public key (SubjectPublicKeyInfo) in Base64.
std::string publicKeyPinOf(const X509* certificate);

/// Validity period of a certificate: an hour around now, or an hour in the past.
enum class JXTestValidity { Now, Past };

/// A temporary certificate authority. OpenSSL failures throw std::runtime_error.
class JXTestAuthority {
 public:
  explicit JXTestAuthority(const char* name = "test authority");
  ~JXTestAuthority();
  JXTestAuthority(const JXTestAuthority&) = delete;
  JXTestAuthority& operator=(const JXTestAuthority&) = delete;

  /// Returns a PEM file with the authority's certificate; the destructor removes it.
  const std::string& caFile() const { return file_; }
  /// Creates a server identity for `names`, each "DNS:..." or "IP:...".
  JXTestIdentity issue(const std::vector<std::string>& names,
                       JXTestValidity validity = JXTestValidity::Now) const;

 private:
  JXTestIdentity own_;
  std::string file_;
};

}  // namespace jx::test
