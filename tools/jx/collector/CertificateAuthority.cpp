// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CertificateAuthority.h"

#include <openssl/x509v3.h>
#include <sys/stat.h>

#include <algorithm>
#include <utility>

#include "tools/jx/AtomicFile.h"
#include "tools/jx/Printable.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

constexpr std::time_t kDay = 24 * 60 * 60;
// TV clocks are often behind.
constexpr std::time_t kClockSkew = kDay;
// Some systems reject certificates that are valid for more than 397 days.
constexpr std::time_t kValidity = 395 * kDay;
constexpr std::time_t kRenewBefore = 30 * kDay;

constexpr const char* kReplaceHint =
    "; restore the original files, or move ca.pem and ca.key away to create a new authority, which "
    "every device must then trust";

std::string dateOf(std::time_t time) {
  return asIsoTime(std::int64_t{time} * 1000).substr(0, std::string_view("2026-01-02").size());
}

bool isAccessibleToOthers(const std::filesystem::path& file) {
  struct stat status {};
  return ::stat(file.c_str(), &status) == 0 && (status.st_mode & (S_IRWXG | S_IRWXO)) != 0;
}

bool keyMatches(const KeyHandle& key, const CertificateHandle& certificate) {
  return key && certificate && X509_check_private_key(certificate.get(), key.get()) == 1;
}

}  // namespace

CertificateAuthority::CertificateAuthority(std::filesystem::path folder,
                                           std::vector<std::string> names, std::time_t now)
    : folder_(std::move(folder)), names_(std::move(names)), now_(now) {}

Result<CertificateAuthority> CertificateAuthority::open(const std::filesystem::path& folder,
                                                        std::vector<std::string> names,
                                                        std::time_t now) {
  CertificateAuthority authority(folder, std::move(names), now);
  if (const Done ready = authority.loadOrCreateAuthority(); !ready) return ready.error();
  authority.restrictNames();
  if (const Done ready = authority.loadOrIssueServerCertificate(); !ready) return ready.error();
  return authority;
}

Result<CertificateAuthority> CertificateAuthority::renew(const std::filesystem::path& folder,
                                                         std::vector<std::string> names,
                                                         std::time_t now) {
  CertificateAuthority authority(folder, std::move(names), now);
  if (const Done created = authority.createAuthority(); !created) return created.error();
  if (const Done ready = authority.issueServerCertificate(); !ready) return ready.error();
  return authority;
}

Result<CertificateAuthority> CertificateAuthority::read(const std::filesystem::path& folder) {
  CertificateAuthority authority(folder, {}, 0);
  if (const Done loaded = authority.loadAuthority(); !loaded) return loaded.error();
  return authority;
}

Done CertificateAuthority::loadOrCreateAuthority() {
  std::error_code ignored;
  const bool hasCertificate = std::filesystem::exists(certificateFile(), ignored);
  const bool hasKey = std::filesystem::exists(folder_ / "ca.key", ignored);
  if (!hasCertificate && !hasKey) return createAuthority();
  if (!hasCertificate || !hasKey) {
    const std::string missing = hasKey ? "ca.pem" : "ca.key";
    return Error{(folder_ / missing).string() + " is missing" + kReplaceHint};
  }
  if (const Done loaded = loadAuthority(); !loaded) return loaded;
  return renewBeforeExpiry();
}

Done CertificateAuthority::renewBeforeExpiry() {
  const std::string file = certificateFile().string();
  const std::time_t expiry = notAfter(*certificate_);
  const bool isConstrained = !permittedNames(*certificate_).empty();
  if (expiry > now_ + kRenewBefore) {
    if (!isConstrained) {
      notices_.push_back(file + " of an earlier version can certify every host name until " +
                         dateOf(expiry) +
                         "; run jx collector ca --renew, trust the new one, and stop trusting it");
    }
    return done();
  }
  const bool keepsKey = isConstrained && expiry > now_;
  if (!keepsKey) key_.reset();
  if (const Done renewed = createAuthority(); !renewed) return renewed;
  notices_.push_back(
      keepsKey ? file + " was renewed; devices that trust the previous one must trust it before " +
                     dateOf(expiry)
               : file + " expired or was about to expire on " + dateOf(expiry) +
                     " and was replaced; every device must trust the new one");
  return done();
}

void CertificateAuthority::restrictNames() {
  std::vector<std::string> permitted;
  for (const std::string& name : names_) {
    if (permitsName(*certificate_, *key_, name)) {
      permitted.push_back(name);
    } else {
      notices_.push_back(certificateFile().string() + " does not permit the name " + name +
                         ", which the server certificate omits; to add it, run jx collector ca "
                         "--renew --name " +
                         name + " and trust the new one");
    }
  }
  names_ = std::move(permitted);
}

Done CertificateAuthority::createAuthority() {
  CertificateFields fields;
  fields.commonName = "jx collector (this machine only)";
  fields.notBefore = now_ - kClockSkew;
  fields.notAfter = now_ + kValidity;
  for (const std::string& name : names_) {
    if (name != "localhost" && name != "127.0.0.1" && name != "::1") fields.names.push_back(name);
  }
  if (!key_) key_ = createPrivateKey();
  if (key_) certificate_ = createAuthorityCertificate(fields, *key_);
  if (!certificate_) return Error{"OpenSSL failed to create a certificate authority"};
  certificatePem_ = toPem(*certificate_);
  if (const Done kept = writeFileAtomically(folder_ / "ca.key", toPem(*key_), 0600); !kept) {
    return kept;
  }
  return writeFileAtomically(certificateFile(), certificatePem_, 0644);
}

Done CertificateAuthority::loadAuthority() {
  const Result<std::string> certificate = readWholeFile(certificateFile());
  if (!certificate) return certificate.error();
  const Result<std::string> key = readWholeFile(folder_ / "ca.key");
  if (!key) return key.error();
  certificatePem_ = *certificate;
  certificate_ = certificateFromPem(*certificate);
  key_ = privateKeyFromPem(*key);
  return checkAuthority();
}

Done CertificateAuthority::checkAuthority() const {
  const std::string where = folder_.string();
  if (!certificate_) return Error{where + "/ca.pem does not contain a certificate" + kReplaceHint};
  if (!key_) return Error{where + "/ca.key does not contain a private key" + kReplaceHint};
  if (!keyMatches(key_, certificate_)) {
    return Error{where + "/ca.key is not the private key of ca.pem" + kReplaceHint};
  }
  if (X509_check_ca(certificate_.get()) != 1) {
    return Error{where + "/ca.pem is not a CA certificate" + kReplaceHint};
  }
  if (isAccessibleToOthers(folder_ / "ca.key")) {
    return Error{
        where +
        "/ca.key is accessible to other users; run chmod 600 on it if the key is still secret"};
  }
  return done();
}

Done CertificateAuthority::loadOrIssueServerCertificate() {
  if (loadServerCertificate() && isServerCertificateUsable()) return done();
  return issueServerCertificate();
}

bool CertificateAuthority::loadServerCertificate() {
  const Result<std::string> certificate = readWholeFile(folder_ / "server.pem");
  const Result<std::string> key = readWholeFile(folder_ / "server.key");
  if (!certificate || !key) return false;
  serverCertificate_ = certificateFromPem(*certificate);
  serverKey_ = privateKeyFromPem(*key);
  return keyMatches(serverKey_, serverCertificate_);
}

bool CertificateAuthority::isServerCertificateUsable() const {
  X509* const server = serverCertificate_.get();
  if (X509_check_issued(certificate_.get(), server) != X509_V_OK) return false;
  if (X509_verify(server, key_.get()) != 1) return false;
  // A server certificate does not outlive its authority.
  if (notAfter(*server) < std::min(now_ + kRenewBefore, notAfter(*certificate_))) return false;
  using Names = std::unique_ptr<GENERAL_NAMES, OpenSslRelease<GENERAL_NAMES_free>>;
  const Names names(static_cast<GENERAL_NAMES*>(
      X509_get_ext_d2i(server, NID_subject_alt_name, nullptr, nullptr)));
  if (!names || static_cast<std::size_t>(sk_GENERAL_NAME_num(names.get())) != names_.size()) {
    return false;
  }
  return std::all_of(names_.begin(), names_.end(), [server](const std::string& name) {
    if (isIpAddress(name)) return X509_check_ip_asc(server, name.c_str(), 0) == 1;
    return X509_check_host(server, name.c_str(), name.size(), 0, nullptr) == 1;
  });
}

Done CertificateAuthority::issueServerCertificate() {
  CertificateFields fields;
  fields.commonName = names_.front();
  fields.notBefore = now_ - kClockSkew;
  fields.notAfter = std::min(now_ + kValidity, notAfter(*certificate_));
  fields.names = names_;
  serverKey_ = createPrivateKey();
  serverCertificate_ =
      serverKey_ ? createServerCertificate(fields, *serverKey_, *certificate_, *key_) : nullptr;
  if (!serverCertificate_) return Error{"OpenSSL failed to create a server certificate"};
  if (const Done kept = writeFileAtomically(folder_ / "server.key", toPem(*serverKey_), 0600);
      !kept) {
    return kept;
  }
  return writeFileAtomically(folder_ / "server.pem", toPem(*serverCertificate_), 0644);
}

Result<SslContextHandle> CertificateAuthority::createServerContext() const {
  SslContextHandle context(SSL_CTX_new(TLS_server_method()));
  const bool complete = context &&
                        SSL_CTX_set_min_proto_version(context.get(), TLS1_2_VERSION) == 1 &&
                        SSL_CTX_use_certificate(context.get(), serverCertificate_.get()) == 1 &&
                        SSL_CTX_use_PrivateKey(context.get(), serverKey_.get()) == 1;
  if (!complete) return Error{"OpenSSL failed to load the server certificate"};
  // ConnectionStream writes whole buffers and repeats a write from the same position.
  SSL_CTX_set_mode(context.get(), SSL_MODE_ENABLE_PARTIAL_WRITE |
                                      SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER |
                                      SSL_MODE_RELEASE_BUFFERS);
  return context;
}

}  // namespace jx
