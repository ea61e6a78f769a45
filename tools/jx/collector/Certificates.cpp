// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/Certificates.h"

#include <arpa/inet.h>
#include <openssl/ec.h>
#include <openssl/pem.h>
#include <openssl/rand.h>
#include <openssl/x509v3.h>

#include <algorithm>
#include <array>

namespace jx {
namespace {

constexpr std::size_t kMaxCommonName = 64;
constexpr std::size_t kMaxHostName = 253;

bool setSerialNumber(X509& certificate) {
  std::array<unsigned char, 16> random{};
  if (RAND_bytes(random.data(), static_cast<int>(random.size())) != 1) return false;
  random[0] &= 0x7f;  // positive in DER
  random[0] |= 0x40;
  using Number = std::unique_ptr<BIGNUM, OpenSslRelease<BN_free>>;
  const Number number(BN_bin2bn(random.data(), static_cast<int>(random.size()), nullptr));
  return number && BN_to_ASN1_INTEGER(number.get(), X509_get_serialNumber(&certificate));
}

bool addExtension(X509& certificate, X509& issuer, int nid, const std::string& value) {
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, &issuer, &certificate, nullptr, nullptr, 0);
  using Extension = std::unique_ptr<X509_EXTENSION, OpenSslRelease<X509_EXTENSION_free>>;
  const Extension extension(X509V3_EXT_conf_nid(nullptr, &context, nid, value.c_str()));
  return extension && X509_add_ext(&certificate, extension.get(), -1) == 1;
}

CertificateHandle beginCertificate(const CertificateFields& fields, EVP_PKEY& key) {
  CertificateHandle certificate(X509_new());
  if (!certificate || X509_set_version(certificate.get(), X509_VERSION_3) != 1) return nullptr;
  ASN1_TIME* const from = X509_getm_notBefore(certificate.get());
  ASN1_TIME* const until = X509_getm_notAfter(certificate.get());
  const std::string name = fields.commonName.substr(0, kMaxCommonName);
  X509_NAME* const subject = X509_get_subject_name(certificate.get());
  const bool complete =
      setSerialNumber(*certificate) && ASN1_TIME_set(from, fields.notBefore) &&
      ASN1_TIME_set(until, fields.notAfter) && X509_set_pubkey(certificate.get(), &key) == 1 &&
      X509_NAME_add_entry_by_txt(subject, "CN", MBSTRING_UTF8,
                                 reinterpret_cast<const unsigned char*>(name.data()),
                                 static_cast<int>(name.size()), -1, 0) == 1;
  return complete ? std::move(certificate) : nullptr;
}

std::string alternativeNames(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!list.empty()) list += ',';
    list += (isIpAddress(name) ? "IP:" : "DNS:") + name;
  }
  return list;
}

std::string textOf(BIO& memory) {
  char* data = nullptr;
  const long size = BIO_get_mem_data(&memory, &data);
  return size > 0 ? std::string(data, static_cast<std::size_t>(size)) : std::string();
}

BioHandle reading(std::string_view text) {
  return BioHandle(BIO_new_mem_buf(text.data(), static_cast<int>(text.size())));
}

// Without this callback, OpenSSL prompts on the terminal for the password of an encrypted key.
int noPassword(char*, int, int, void*) { return -1; }

}  // namespace

KeyHandle createPrivateKey() { return KeyHandle(EVP_EC_gen("P-256")); }

CertificateHandle createAuthorityCertificate(const CertificateFields& fields, EVP_PKEY& key) {
  CertificateHandle certificate = beginCertificate(fields, key);
  if (!certificate) return nullptr;
  X509& self = *certificate;
  const bool complete =
      X509_set_issuer_name(&self, X509_get_subject_name(&self)) == 1 &&
      addExtension(self, self, NID_basic_constraints, "critical,CA:TRUE,pathlen:0") &&
      addExtension(self, self, NID_key_usage, "critical,keyCertSign,cRLSign") &&
      addExtension(self, self, NID_subject_key_identifier, "hash") &&
      addExtension(self, self, NID_authority_key_identifier, "keyid:always") &&
      X509_sign(&self, &key, EVP_sha256()) > 0;
  return complete ? std::move(certificate) : nullptr;
}

CertificateHandle createServerCertificate(const CertificateFields& fields, EVP_PKEY& key,
                                          X509& authority, EVP_PKEY& authorityKey) {
  CertificateHandle certificate = beginCertificate(fields, key);
  if (!certificate) return nullptr;
  X509& self = *certificate;
  const bool complete =
      X509_set_issuer_name(&self, X509_get_subject_name(&authority)) == 1 &&
      addExtension(self, authority, NID_basic_constraints, "critical,CA:FALSE") &&
      addExtension(self, authority, NID_key_usage, "critical,digitalSignature") &&
      addExtension(self, authority, NID_ext_key_usage, "serverAuth") &&
      addExtension(self, authority, NID_subject_key_identifier, "hash") &&
      addExtension(self, authority, NID_authority_key_identifier, "keyid:always") &&
      addExtension(self, authority, NID_subject_alt_name, alternativeNames(fields.names)) &&
      X509_sign(&self, &authorityKey, EVP_sha256()) > 0;
  return complete ? std::move(certificate) : nullptr;
}

std::string toPem(X509& certificate) {
  const BioHandle memory(BIO_new(BIO_s_mem()));
  if (!memory || PEM_write_bio_X509(memory.get(), &certificate) != 1) return {};
  return textOf(*memory);
}

std::string toPem(EVP_PKEY& key) {
  const BioHandle memory(BIO_new(BIO_s_mem()));
  if (!memory ||
      PEM_write_bio_PrivateKey(memory.get(), &key, nullptr, nullptr, 0, nullptr, nullptr) != 1) {
    return {};
  }
  return textOf(*memory);
}

CertificateHandle certificateFromPem(std::string_view pem) {
  const BioHandle memory = reading(pem);
  if (!memory) return nullptr;
  return CertificateHandle(PEM_read_bio_X509(memory.get(), nullptr, noPassword, nullptr));
}

KeyHandle privateKeyFromPem(std::string_view pem) {
  const BioHandle memory = reading(pem);
  if (!memory) return nullptr;
  return KeyHandle(PEM_read_bio_PrivateKey(memory.get(), nullptr, noPassword, nullptr));
}

std::time_t notAfter(const X509& certificate) {
  std::tm parts{};
  if (ASN1_TIME_to_tm(X509_get0_notAfter(&certificate), &parts) != 1) return 0;
  return ::timegm(&parts);
}

bool isIpAddress(const std::string& name) {
  std::array<unsigned char, sizeof(in6_addr)> address{};
  return ::inet_pton(AF_INET, name.c_str(), address.data()) == 1 ||
         ::inet_pton(AF_INET6, name.c_str(), address.data()) == 1;
}

bool isCertifiableName(const std::string& name) {
  if (isIpAddress(name)) return true;
  if (name.empty() || name.size() > kMaxHostName) return false;
  if (name.front() == '.' || name.front() == '-' || name.find("..") != std::string::npos) {
    return false;
  }
  return std::all_of(name.begin(), name.end(), [](char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' ||
           c == '.';
  });
}

}  // namespace jx
