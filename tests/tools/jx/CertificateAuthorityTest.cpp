// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include "tools/jx/collector/CertificateAuthority.h"

#include <gtest/gtest.h>
#include <openssl/x509_vfy.h>
#include <openssl/x509v3.h>
#include <sys/stat.h>

#include <fstream>

#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/AtomicFile.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

constexpr std::time_t kNow = 1'790'000'000;
constexpr std::time_t kDay = 86'400;
const std::vector<std::string> kNames{"localhost", "127.0.0.1", "::1"};

std::string contentOf(const std::filesystem::path& file) {
  const Result<std::string> content = readWholeFile(file);
  return content ? *content : "unreadable: " + content.error().text;
}

void overwrite(const std::filesystem::path& file, const std::string& content) {
  std::ofstream(file, std::ios::trunc) << content;
}

mode_t modeOf(const std::filesystem::path& file) {
  struct stat status {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0);
  return status.st_mode & 07777;
}

// Verifies server.pem like a TLS client that trusts ca.pem and connects to `host` at `time`.
// Returns the result of OpenSSL.
int verifyServerCertificate(const std::filesystem::path& folder, const std::string& host,
                            std::time_t time = kNow) {
  using Store = std::unique_ptr<X509_STORE, OpenSslRelease<X509_STORE_free>>;
  using Context = std::unique_ptr<X509_STORE_CTX, OpenSslRelease<X509_STORE_CTX_free>>;
  const CertificateHandle authority = certificateFromPem(contentOf(folder / "ca.pem"));
  const CertificateHandle server = certificateFromPem(contentOf(folder / "server.pem"));
  if (!authority || !server) return -1;
  const Store store(X509_STORE_new());
  X509_STORE_add_cert(store.get(), authority.get());
  const Context context(X509_STORE_CTX_new());
  X509_STORE_CTX_init(context.get(), store.get(), server.get(), nullptr);
  X509_STORE_CTX_set_default(context.get(), "ssl_server");
  X509_VERIFY_PARAM* const wanted = X509_STORE_CTX_get0_param(context.get());
  X509_VERIFY_PARAM_set_time(wanted, time);
  X509_VERIFY_PARAM_set_flags(wanted, X509_V_FLAG_X509_STRICT);
  if (isIpAddress(host)) {
    X509_VERIFY_PARAM_set1_ip_asc(wanted, host.c_str());
  } else {
    X509_VERIFY_PARAM_set1_host(wanted, host.c_str(), host.size());
  }
  X509_verify_cert(context.get());
  return X509_STORE_CTX_get_error(context.get());
}

TEST(CertificateAuthority, ServerCertificateIsValidForEachName) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost"), X509_V_OK);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "127.0.0.1"), X509_V_OK);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "::1"), X509_V_OK);
}

TEST(CertificateAuthority, ServerCertificateIsNotValidForOtherNames) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  EXPECT_EQ(verifyServerCertificate(folder.path(), "example.com"), X509_V_ERR_HOSTNAME_MISMATCH);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "127.0.0.2"), X509_V_ERR_IP_ADDRESS_MISMATCH);
}

TEST(CertificateAuthority, MaySignServersButNotAuthorities) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const CertificateHandle authority = certificateFromPem(contentOf(folder / "ca.pem"));
  const CertificateHandle server = certificateFromPem(contentOf(folder / "server.pem"));
  ASSERT_TRUE(authority && server);
  EXPECT_EQ(X509_check_ca(authority.get()), 1);
  EXPECT_EQ(X509_get_pathlen(authority.get()), 0);
  EXPECT_EQ(X509_get_key_usage(authority.get()),
            static_cast<std::uint32_t>(KU_KEY_CERT_SIGN | KU_CRL_SIGN));
  EXPECT_NE(X509_get0_subject_key_id(authority.get()), nullptr);
  EXPECT_NE(X509_get0_authority_key_id(server.get()), nullptr);
  EXPECT_EQ(X509_check_ca(server.get()), 0);
}

TEST(CertificateAuthority, AllCertificatesAreValidForAtMost397Days) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const CertificateHandle authority = certificateFromPem(contentOf(folder / "ca.pem"));
  const CertificateHandle server = certificateFromPem(contentOf(folder / "server.pem"));
  ASSERT_TRUE(authority && server);
  for (const X509* const certificate : {authority.get(), server.get()}) {
    EXPECT_LE(notAfter(*certificate) - notBefore(*certificate), 397 * kDay);
    EXPECT_EQ(notAfter(*certificate), kNow + 395 * kDay);
  }
}

TEST(CertificateAuthority, CertifiesOnlyItsNamesLoopbackAndPrivateAddresses) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(),
                                         {"localhost", "tv-desk.example", "203.0.113.5"}, kNow));
  const auto authority = CertificateAuthority::read(folder.path());
  ASSERT_TRUE(authority);
  EXPECT_EQ(permittedNames(authority->certificate()),
            (std::vector<std::string>{"localhost", "127.0.0.0/8", "10.0.0.0/8", "172.16.0.0/12",
                                      "192.168.0.0/16", "169.254.0.0/16", "::1/128", "fc00::/7",
                                      "fe80::/10", "tv-desk.example", "203.0.113.5/32"}));
  const KeyHandle key = privateKeyFromPem(contentOf(folder / "ca.key"));
  for (const char* name : {"localhost", "tv-desk.example", "203.0.113.5", "127.0.0.9", "10.1.2.3",
                           "172.31.0.1", "192.168.1.7", "::1", "fd00::7", "fe80::1"})
    EXPECT_TRUE(permitsName(authority->certificate(), *key, name)) << name;
  for (const char* name : {"example.com", "tv-desk.example.com", "203.0.113.6", "172.32.0.1",
                           "8.8.8.8", "2001:db8::1"})
    EXPECT_FALSE(permitsName(authority->certificate(), *key, name)) << name;
}

TEST(CertificateAuthority, ClientsRejectOtherNamesThatItCertifies) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const auto authority = CertificateAuthority::read(folder.path());
  ASSERT_TRUE(authority);
  const KeyHandle key = privateKeyFromPem(contentOf(folder / "ca.key"));
  CertificateFields fields;
  fields.commonName = "example.com";
  fields.notBefore = kNow - kDay;
  fields.notAfter = kNow + kDay;
  fields.names = {"example.com"};
  const CertificateHandle forged =
      createServerCertificate(fields, *key, authority->certificate(), *key);
  ASSERT_TRUE(forged);
  overwrite(folder / "server.pem", toPem(*forged));
  EXPECT_EQ(verifyServerCertificate(folder.path(), "example.com"), X509_V_ERR_PERMITTED_VIOLATION);
}

// Replaces the authority by one as earlier versions created it: ten years, every name.
void createEarlierAuthority(const std::filesystem::path& folder) {
  const KeyHandle key = createPrivateKey();
  const CertificateHandle certificate(X509_new());
  X509_set_version(certificate.get(), X509_VERSION_3);
  ASN1_INTEGER_set(X509_get_serialNumber(certificate.get()), 7);
  ASN1_TIME_set(X509_getm_notBefore(certificate.get()), kNow - kDay);
  ASN1_TIME_set(X509_getm_notAfter(certificate.get()), kNow + 3650 * kDay);
  X509_NAME* const name = X509_get_subject_name(certificate.get());
  X509_NAME_add_entry_by_txt(name, "CN", MBSTRING_UTF8,
                             reinterpret_cast<const unsigned char*>("earlier"), -1, -1, 0);
  X509_set_issuer_name(certificate.get(), name);
  X509_set_pubkey(certificate.get(), key.get());
  X509V3_CTX context;
  X509V3_set_ctx_nodb(&context);
  X509V3_set_ctx(&context, certificate.get(), certificate.get(), nullptr, nullptr, 0);
  const std::vector<std::pair<int, const char*>> extensions{
      {NID_basic_constraints, "critical,CA:TRUE,pathlen:0"},
      {NID_key_usage, "critical,keyCertSign,cRLSign"},
      {NID_subject_key_identifier, "hash"},
      {NID_authority_key_identifier, "keyid:always"}};
  for (const auto& [nid, value] : extensions) {
    X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, &context, nid, value);
    X509_add_ext(certificate.get(), extension, -1);
    X509_EXTENSION_free(extension);
  }
  ASSERT_GT(X509_sign(certificate.get(), key.get(), EVP_sha256()), 0);
  ASSERT_TRUE(writeFileAtomically(folder / "ca.key", toPem(*key), 0600));
  ASSERT_TRUE(writeFileAtomically(folder / "ca.pem", toPem(*certificate), 0644));
}

TEST(CertificateAuthority, KeepsAnAuthorityOfAnEarlierVersionAndRecommendsRenewal) {
  const ScratchFolder folder;
  createEarlierAuthority(folder.path());
  const std::string before = contentOf(folder / "ca.pem");
  const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow + 3000 * kDay);
  ASSERT_TRUE(opened) << opened.error().text;
  EXPECT_EQ(contentOf(folder / "ca.pem"), before);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", kNow + 3000 * kDay), X509_V_OK);
  ASSERT_EQ(opened->notices().size(), 1u);
  EXPECT_NE(opened->notices()[0].find("of an earlier version can certify every host name until "
                                      "2036-"),
            std::string::npos)
      << opened->notices()[0];
  EXPECT_NE(opened->notices()[0].find("run jx collector ca --renew"), std::string::npos);
}

TEST(CertificateAuthority, ReplacesAnAuthorityOfAnEarlierVersionBeforeItExpires) {
  const ScratchFolder folder;
  createEarlierAuthority(folder.path());
  const std::string key = contentOf(folder / "ca.key");
  const std::time_t late = kNow + 3625 * kDay;
  const auto opened = CertificateAuthority::open(folder.path(), kNames, late);
  ASSERT_TRUE(opened) << opened.error().text;
  EXPECT_NE(contentOf(folder / "ca.key"), key);
  EXPECT_FALSE(permittedNames(opened->certificate()).empty());
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", late), X509_V_OK);
  ASSERT_EQ(opened->notices().size(), 1u);
  EXPECT_NE(opened->notices()[0].find("every device must trust the new one"), std::string::npos);
}

TEST(CertificateAuthority, RenewsItselfThirtyDaysBeforeExpiryForTheSameKey) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const std::string before = contentOf(folder / "ca.pem");
  const std::string key = contentOf(folder / "ca.key");
  const std::time_t late = kNow + 366 * kDay;
  const auto opened = CertificateAuthority::open(folder.path(), kNames, late);
  ASSERT_TRUE(opened) << opened.error().text;
  EXPECT_EQ(contentOf(folder / "ca.key"), key);
  const std::string after = contentOf(folder / "ca.pem");
  EXPECT_NE(after, before);
  EXPECT_EQ(notAfter(opened->certificate()), late + 395 * kDay);
  ASSERT_EQ(opened->notices().size(), 1u);
  EXPECT_NE(opened->notices()[0].find("must trust it before 2027-10-"), std::string::npos)
      << opened->notices()[0];
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", late), X509_V_OK);
  // A device that trusts the previous certificate continues to work.
  overwrite(folder / "ca.pem", before);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", late), X509_V_OK);
}

TEST(CertificateAuthority, OmitsNamesThatItDoesNotPermit) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  std::vector<std::string> names = kNames;
  names.emplace_back("other.example");
  const auto opened = CertificateAuthority::open(folder.path(), names, kNow);
  ASSERT_TRUE(opened);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost"), X509_V_OK);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "other.example"), X509_V_ERR_HOSTNAME_MISMATCH);
  ASSERT_EQ(opened->notices().size(), 1u);
  EXPECT_NE(opened->notices()[0].find("does not permit the name other.example"), std::string::npos);
  ASSERT_TRUE(CertificateAuthority::renew(folder.path(), names, kNow));
  EXPECT_EQ(verifyServerCertificate(folder.path(), "other.example"), X509_V_OK);
  EXPECT_TRUE(CertificateAuthority::open(folder.path(), names, kNow)->notices().empty());
}

TEST(CertificateAuthority, KeysAreAccessibleToTheOwnerOnly) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  EXPECT_EQ(modeOf(folder / "ca.key"), 0600u);
  EXPECT_EQ(modeOf(folder / "server.key"), 0600u);
}

TEST(CertificateAuthority, KeepsAllFilesWhenReopened) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  std::vector<std::string> before;
  for (const char* file : {"ca.pem", "ca.key", "server.pem", "server.key"}) {
    before.push_back(contentOf(folder / file));
  }
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow + 364 * kDay));
  std::vector<std::string> after;
  for (const char* file : {"ca.pem", "ca.key", "server.pem", "server.key"}) {
    after.push_back(contentOf(folder / file));
  }
  EXPECT_EQ(before, after);
}

TEST(CertificateAuthority, ReissuesTheServerCertificateForOtherNames) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const std::string authority = contentOf(folder / "ca.pem");
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), {"localhost", "192.168.1.7"}, kNow));
  EXPECT_EQ(contentOf(folder / "ca.pem"), authority);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "192.168.1.7"), X509_V_OK);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "::1"), X509_V_ERR_IP_ADDRESS_MISMATCH);
}

TEST(CertificateAuthority, ReissuesADamagedServerCertificate) {
  for (const char* file : {"server.pem", "server.key"}) {
    const ScratchFolder folder;
    ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
    overwrite(folder / file, "-----BEGIN garbage");
    ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow)) << file;
    EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost"), X509_V_OK) << file;
  }
}

TEST(CertificateAuthority, ReissuesAServerCertificateOfAnotherAuthority) {
  const ScratchFolder folder;
  const ScratchFolder other;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  ASSERT_TRUE(CertificateAuthority::open(other.path(), kNames, kNow));
  for (const char* file : {"server.pem", "server.key"}) {
    overwrite(folder / file, contentOf(other / file));
  }
  EXPECT_NE(verifyServerCertificate(folder.path(), "localhost"), X509_V_OK);
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost"), X509_V_OK);
}

// Replaces one file of the authority and opens the folder. Expects an error that contains `reason`,
// and both files unchanged.
void expectOpenFails(const std::string& file, const std::string& content,
                     const std::string& reason) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  overwrite(folder / file, content);
  const std::string certificate = contentOf(folder / "ca.pem");
  const std::string key = contentOf(folder / "ca.key");
  const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow);
  ASSERT_FALSE(opened) << reason;
  EXPECT_NE(opened.error().text.find(reason), std::string::npos) << opened.error().text;
  EXPECT_EQ(contentOf(folder / "ca.pem"), certificate);
  EXPECT_EQ(contentOf(folder / "ca.key"), key);
}

TEST(CertificateAuthority, ReportsADamagedAuthorityAndDoesNotReplaceIt) {
  const ScratchFolder other;
  ASSERT_TRUE(CertificateAuthority::open(other.path(), kNames, kNow));
  expectOpenFails("ca.pem", "garbage", "ca.pem does not contain a certificate");
  expectOpenFails("ca.pem", "", "ca.pem does not contain a certificate");
  expectOpenFails("ca.key", "garbage", "ca.key does not contain a private key");
  expectOpenFails("ca.key", contentOf(other / "ca.key"), "ca.key is not the private key of ca.pem");
}

TEST(CertificateAuthority, ReportsAMissingAuthorityFileAndDoesNotReplaceIt) {
  for (const std::string file : {"ca.pem", "ca.key"}) {
    const ScratchFolder folder;
    ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
    std::filesystem::remove(folder / file);
    const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow);
    ASSERT_FALSE(opened);
    EXPECT_NE(opened.error().text.find(file + " is missing"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder / file));
  }
}

TEST(CertificateAuthority, RejectsACertificateThatIsNotACa) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  overwrite(folder / "ca.pem", contentOf(folder / "server.pem"));
  overwrite(folder / "ca.key", contentOf(folder / "server.key"));
  const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow);
  ASSERT_FALSE(opened);
  EXPECT_NE(opened.error().text.find("is not a CA certificate"), std::string::npos);
}

TEST(CertificateAuthority, RejectsAKeyThatOtherUsersCanRead) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  ASSERT_EQ(::chmod((folder / "ca.key").c_str(), 0644), 0);
  const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow);
  ASSERT_FALSE(opened);
  EXPECT_NE(opened.error().text.find("is accessible to other users"), std::string::npos);
}

TEST(CertificateAuthority, ReplacesAnExpiredAuthority) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const std::string key = contentOf(folder / "ca.key");
  const std::time_t late = kNow + 400 * kDay;
  const auto opened = CertificateAuthority::open(folder.path(), kNames, late);
  ASSERT_TRUE(opened);
  EXPECT_NE(contentOf(folder / "ca.key"), key);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", late), X509_V_OK);
  ASSERT_EQ(opened->notices().size(), 1u);
  EXPECT_NE(opened->notices()[0].find("was replaced; every device must trust the new one"),
            std::string::npos);
}

TEST(CertificateAuthority, ReportsAFolderThatCannotBeWritten) {
  const ScratchFolder folder;
  const auto opened = CertificateAuthority::open(folder / "missing", kNames, kNow);
  ASSERT_FALSE(opened);
  EXPECT_NE(opened.error().text.find("cannot write"), std::string::npos);
}

TEST(CertifiableName, AcceptsIpAddressesAndHostNames) {
  EXPECT_TRUE(isCertifiableName("tv-desk.example"));
  EXPECT_TRUE(isCertifiableName("192.168.1.7"));
  EXPECT_TRUE(isCertifiableName("fe80::1"));
  EXPECT_FALSE(isCertifiableName(""));
  EXPECT_FALSE(isCertifiableName("*.example"));
  EXPECT_FALSE(isCertifiableName("a,DNS:b"));
  EXPECT_FALSE(isCertifiableName(".example"));
  EXPECT_FALSE(isCertifiableName(std::string(254, 'a')));
}

}  // namespace
}  // namespace jx
