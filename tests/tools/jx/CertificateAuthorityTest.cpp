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

TEST(CertificateAuthority, IsValidForTenYearsAndServersForAtMost397Days) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const CertificateHandle authority = certificateFromPem(contentOf(folder / "ca.pem"));
  const CertificateHandle server = certificateFromPem(contentOf(folder / "server.pem"));
  ASSERT_TRUE(authority && server);
  EXPECT_EQ(notAfter(*authority), kNow + 3650 * kDay);
  int days = 0;
  int seconds = 0;
  ASSERT_EQ(ASN1_TIME_diff(&days, &seconds, X509_get0_notBefore(server.get()),
                           X509_get0_notAfter(server.get())),
            1);
  EXPECT_LT(days, 397);
  EXPECT_GT(days, 365);
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

TEST(CertificateAuthority, RenewsTheServerCertificateThirtyDaysBeforeExpiry) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const std::string authority = contentOf(folder / "ca.pem");
  const std::string server = contentOf(folder / "server.pem");
  const std::time_t later = kNow + 366 * kDay;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, later));
  EXPECT_EQ(contentOf(folder / "ca.pem"), authority);
  EXPECT_NE(contentOf(folder / "server.pem"), server);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "localhost", later + 300 * kDay), X509_V_OK);
}

TEST(CertificateAuthority, ReissuesTheServerCertificateForOtherNames) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const std::string authority = contentOf(folder / "ca.pem");
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), {"localhost", "tv-desk.example"}, kNow));
  EXPECT_EQ(contentOf(folder / "ca.pem"), authority);
  EXPECT_EQ(verifyServerCertificate(folder.path(), "tv-desk.example"), X509_V_OK);
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

TEST(CertificateAuthority, ReportsAnExpiredAuthority) {
  const ScratchFolder folder;
  ASSERT_TRUE(CertificateAuthority::open(folder.path(), kNames, kNow));
  const auto opened = CertificateAuthority::open(folder.path(), kNames, kNow + 3650 * kDay);
  ASSERT_FALSE(opened);
  EXPECT_NE(opened.error().text.find("has expired or expires within a day"), std::string::npos);
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
