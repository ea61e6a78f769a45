// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <openssl/bio.h>
#include <openssl/evp.h>
#include <openssl/ssl.h>
#include <openssl/x509.h>

#include <memory>

namespace jx {

template <auto release>
struct OpenSslRelease {
  template <typename Object>
  void operator()(Object* object) const {
    release(object);
  }
};

using BioHandle = std::unique_ptr<BIO, OpenSslRelease<BIO_free>>;
using KeyHandle = std::unique_ptr<EVP_PKEY, OpenSslRelease<EVP_PKEY_free>>;
using CertificateHandle = std::unique_ptr<X509, OpenSslRelease<X509_free>>;
using SslContextHandle = std::unique_ptr<SSL_CTX, OpenSslRelease<SSL_CTX_free>>;
using SslHandle = std::unique_ptr<SSL, OpenSslRelease<SSL_free>>;

}  // namespace jx
