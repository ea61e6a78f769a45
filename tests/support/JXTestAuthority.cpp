// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tests/support/JXTestAuthority.h"

#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/sha.h>
#include <openssl/x509v3.h>
#include <stdlib.h>
#include <unistd.h>

#include <cstdio>
#include <stdexcept>

namespace jx::test {
namespace {

void check(bool good, const char* what) {
  if (!good) throw std::runtime_error(std::string("test authority: ") + what);
}

void addExtension(X509* certificate, X509* issuer, int kind, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, issuer, certificate, nullptr, nullptr, 0);
  X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, &context, kind, value.c_str());
  check(extension != nullptr, "extension");
  X509_add_ext(certificate, extension, -1);
  X509_EXTENSION_free(extension);
}

// Creates a certificate that is not signed yet.
JXTestIdentity unsignedIdentity(const char* commonName, JXTestValidity validity) {
  JXTestIdentity identity;
  identity.key.reset(EVP_EC_gen("P-256"));
  identity.certificate.reset(X509_new());
  check(identity.key != nullptr && identity.certificate != nullptr, "key");
  X509* const certificate = identity.certificate.get();
  X509_set_version(certificate, 2);
  unsigned char serial[8];
  check(RAND_bytes(serial, sizeof serial) == 1, "serial");
  serial[0] &= 0x7F;
  BIGNUM* const number = BN_bin2bn(serial, sizeof serial, nullptr);
  BN_to_ASN1_INTEGER(number, X509_get_serialNumber(certificate));
  BN_free(number);
  const long middle = validity == JXTestValidity::Now ? 0 : -7'200;
  X509_gmtime_adj(X509_getm_notBefore(certificate), middle - 1'800);
  X509_gmtime_adj(X509_getm_notAfter(certificate), middle + 1'800);
  X509_set_pubkey(certificate, identity.key.get());
  X509_NAME_add_entry_by_txt(X509_get_subject_name(certificate), "CN", MBSTRING_ASC,
                             reinterpret_cast<const unsigned char*>(commonName), -1, -1, 0);
  return identity;
}

}  // namespace

std::string publicKeyPinOf(const X509* certificate) {
  unsigned char* der = nullptr;
  const int length = i2d_X509_PUBKEY(X509_get_X509_PUBKEY(certificate), &der);
  if (length <= 0) throw std::runtime_error("test authority: missing public key");
  unsigned char digest[SHA256_DIGEST_LENGTH];
  SHA256(der, static_cast<std::size_t>(length), digest);
  OPENSSL_free(der);
  unsigned char text[2 * sizeof digest];
  const int written = EVP_EncodeBlock(text, digest, sizeof digest);
  return {text, text + written};
}

JXTestAuthority::JXTestAuthority(const char* name)
    : own_(unsignedIdentity(name, JXTestValidity::Now)) {
  X509* const certificate = own_.certificate.get();
  X509_set_issuer_name(certificate, X509_get_subject_name(certificate));
  addExtension(certificate, certificate, NID_basic_constraints, "critical,CA:TRUE");
  addExtension(certificate, certificate, NID_key_usage, "critical,keyCertSign");
  check(X509_sign(certificate, own_.key.get(), EVP_sha256()) > 0, "signature");

  std::string path = "/tmp/jx-test-ca-XXXXXX";
  const int descriptor = mkstemp(path.data());
  check(descriptor >= 0, "file");
  file_ = path;
  FILE* const file = fdopen(descriptor, "w");
  check(file != nullptr && PEM_write_X509(file, certificate) == 1, "file");
  std::fclose(file);
}

JXTestAuthority::~JXTestAuthority() { unlink(file_.c_str()); }

JXTestIdentity JXTestAuthority::issue(const std::vector<std::string>& names,
                                      JXTestValidity validity) const {
  JXTestIdentity identity = unsignedIdentity("test server", validity);
  X509* const certificate = identity.certificate.get();
  X509* const issuer = own_.certificate.get();
  X509_set_issuer_name(certificate, X509_get_subject_name(issuer));
  std::string list;
  for (const std::string& name : names)
    list += (list.empty() ? "" : ",") + name;
  addExtension(certificate, issuer, NID_subject_alt_name, list);
  check(X509_sign(certificate, own_.key.get(), EVP_sha256()) > 0, "signature");
  return identity;
}

}  // namespace jx::test
