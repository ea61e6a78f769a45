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
#include <bit>

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

// An address and a mask of the same length, as in a name constraint.
struct Network {
  const char* address;
  const char* mask;
  const char* text;
};

constexpr std::array<Network, 8> kPrivateNetworks{{
    {"127.0.0.0", "255.0.0.0", "127.0.0.0/8"},
    {"10.0.0.0", "255.0.0.0", "10.0.0.0/8"},
    {"172.16.0.0", "255.240.0.0", "172.16.0.0/12"},
    {"192.168.0.0", "255.255.0.0", "192.168.0.0/16"},
    {"169.254.0.0", "255.255.0.0", "169.254.0.0/16"},
    {"::1", "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff", "::1/128"},
    {"fc00::", "fe00::", "fc00::/7"},
    {"fe80::", "ffc0::", "fe80::/10"},
}};

std::string nameConstraints(const std::vector<std::string>& names) {
  std::string value = "critical,permitted;DNS:localhost";
  for (const Network& network : kPrivateNetworks)
    value += std::string(",permitted;IP:") + network.address + "/" + network.mask;
  for (const std::string& name : names) {
    if (!isIpAddress(name)) {
      value += ",permitted;DNS:" + name;
    } else {
      const bool isIpv4 = name.find(':') == std::string::npos;
      value += ",permitted;IP:" + name + "/" +
               (isIpv4 ? "255.255.255.255" : "ffff:ffff:ffff:ffff:ffff:ffff:ffff:ffff");
    }
  }
  return value;
}

// Returns the network of a name constraint, an address followed by a mask; empty when it is not
// one.
std::string networkText(const ASN1_OCTET_STRING& bytes) {
  const int size = ASN1_STRING_length(&bytes) / 2;
  const unsigned char* const data = ASN1_STRING_get0_data(&bytes);
  std::array<char, INET6_ADDRSTRLEN> text{};
  if (size != 4 && size != 16) return {};
  if (::inet_ntop(size == 4 ? AF_INET : AF_INET6, data, text.data(), text.size()) == nullptr) {
    return {};
  }
  int bits = 0;
  for (int i = size; i < 2 * size; ++i)
    bits += std::popcount(data[i]);
  return std::string(text.data()) + "/" + std::to_string(bits);
}

using Constraints = std::unique_ptr<NAME_CONSTRAINTS, OpenSslRelease<NAME_CONSTRAINTS_free>>;

Constraints constraintsOf(const X509& authority) {
  return Constraints(static_cast<NAME_CONSTRAINTS*>(
      X509_get_ext_d2i(&authority, NID_name_constraints, nullptr, nullptr)));
}

std::time_t secondsOf(const ASN1_TIME* time) {
  std::tm parts{};
  return ASN1_TIME_to_tm(time, &parts) == 1 ? ::timegm(&parts) : 0;
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
      addExtension(self, self, NID_name_constraints, nameConstraints(fields.names)) &&
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

std::vector<std::string> alwaysPermittedNames() {
  std::vector<std::string> names{"localhost"};
  for (const Network& network : kPrivateNetworks)
    names.emplace_back(network.text);
  return names;
}

std::string toDer(X509& certificate) {
  const BioHandle memory(BIO_new(BIO_s_mem()));
  if (!memory || i2d_X509_bio(memory.get(), &certificate) != 1) return {};
  return textOf(*memory);
}

std::string fingerprintOf(const X509& certificate) {
  std::array<unsigned char, EVP_MAX_MD_SIZE> hash{};
  unsigned int size = 0;
  if (X509_digest(&certificate, EVP_sha256(), hash.data(), &size) != 1) return {};
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  for (unsigned int i = 0; i < size; ++i) {
    if (i > 0) text += ':';
    text += kDigits[hash[i] >> 4U];
    text += kDigits[hash[i] & 15U];
  }
  return text;
}

std::vector<std::string> permittedNames(const X509& authority) {
  std::vector<std::string> names;
  const Constraints constraints = constraintsOf(authority);
  if (!constraints) return names;
  for (int i = 0; i < sk_GENERAL_SUBTREE_num(constraints->permittedSubtrees); ++i) {
    const GENERAL_NAME* const name =
        sk_GENERAL_SUBTREE_value(constraints->permittedSubtrees, i)->base;
    int type = 0;
    const void* const value = GENERAL_NAME_get0_value(name, &type);
    const auto* const text = static_cast<const ASN1_STRING*>(value);
    if (type == GEN_IPADD) names.push_back(networkText(*text));
    if (type == GEN_DNS) {
      names.emplace_back(reinterpret_cast<const char*>(ASN1_STRING_get0_data(text)),
                         static_cast<std::size_t>(ASN1_STRING_length(text)));
    }
  }
  return names;
}

bool permitsName(X509& authority, EVP_PKEY& authorityKey, const std::string& name) {
  const Constraints constraints = constraintsOf(authority);
  if (!constraints) return true;
  CertificateFields fields;
  fields.commonName = name;
  fields.names = {name};
  // Only OpenSSL decides, so that the result is that of a client.
  const CertificateHandle example =
      createServerCertificate(fields, authorityKey, authority, authorityKey);
  if (!example) return false;
  X509_check_purpose(example.get(), -1, 0);  // parses the extensions
  return NAME_CONSTRAINTS_check(example.get(), constraints.get()) == X509_V_OK;
}

std::time_t notBefore(const X509& certificate) {
  return secondsOf(X509_get0_notBefore(&certificate));
}

std::time_t notAfter(const X509& certificate) {
  return secondsOf(X509_get0_notAfter(&certificate));
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
