// Copyright 2026 The JXServerSide authors
// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>
#include <openssl/x509.h>

#include <algorithm>
#include <csignal>

#include "tests/support/ChildProcess.h"
#include "tests/tools/jx/ScratchFolder.h"
#include "tools/jx/AtomicFile.h"
#include "tools/jx/collector/Certificates.h"

namespace jx {
namespace {

constexpr std::chrono::seconds kPatience{60};

// Runs `jx collector ca` on a state folder.
ChildProcess::Result runCa(const std::filesystem::path& state,
                           const std::vector<std::string>& further = {}) {
  std::vector<std::string> arguments{"collector", "ca", "--state", state.string()};
  arguments.insert(arguments.end(), further.begin(), further.end());
  return ChildProcess::run(JX_PROGRAM, arguments, kPatience, {});
}

std::string contentOf(const std::filesystem::path& file) {
  const Result<std::string> content = readWholeFile(file);
  return content ? *content : "unreadable: " + content.error().text;
}

TEST(CaProgram, ShowsTheFingerprintTheValidityAndTheNames) {
  const ScratchFolder folder;
  const auto renewed = runCa(folder / "state", {"--renew", "--name", "tv-desk.example"});
  EXPECT_EQ(renewed.status, 0);
  EXPECT_NE(renewed.errors.find("every device must trust the new one"), std::string::npos);
  const CertificateHandle certificate = certificateFromPem(contentOf(folder / "state/ca.pem"));
  ASSERT_TRUE(certificate);
  const auto shown = runCa(folder / "state");
  EXPECT_EQ(shown.status, 0);
  EXPECT_EQ(shown.errors, "");
  EXPECT_EQ(shown.output, renewed.output);
  EXPECT_NE(shown.output.find("SHA-256       " + fingerprintOf(*certificate) + "\n"),
            std::string::npos)
      << shown.output;
  EXPECT_NE(shown.output.find("\nValid until   20"), std::string::npos) << shown.output;
  EXPECT_NE(shown.output.find("\nValid for     localhost, 127.0.0.0/8, 10.0.0.0/8, "),
            std::string::npos)
      << shown.output;
  EXPECT_NE(shown.output.find(", tv-desk.example"), std::string::npos) << shown.output;
}

TEST(CaProgram, ExportsPemAndDer) {
  const ScratchFolder folder;
  ASSERT_EQ(runCa(folder / "state", {"--renew"}).status, 0);
  const std::string pem = contentOf(folder / "state/ca.pem");
  for (const char* name : {"tv.pem", "tv.crt"}) {
    ASSERT_EQ(runCa(folder / "state", {"--export", (folder / name).string()}).status, 0);
    EXPECT_EQ(contentOf(folder / name), pem);
  }
  for (const char* name : {"tv.der", "tv.cer"}) {
    ASSERT_EQ(runCa(folder / "state", {"--export", (folder / name).string()}).status, 0);
    const std::string der = contentOf(folder / name);
    const auto* data = reinterpret_cast<const unsigned char*>(der.data());
    const CertificateHandle read(d2i_X509(nullptr, &data, static_cast<long>(der.size())));
    ASSERT_TRUE(read) << name;
    EXPECT_EQ(toPem(*read), pem);
  }
  const auto refused = runCa(folder / "state", {"--export", (folder / "tv.txt").string()});
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.errors.find("must end with .pem or .crt (PEM), or .der or .cer (DER)"),
            std::string::npos)
      << refused.errors;
  EXPECT_FALSE(std::filesystem::exists(folder / "tv.txt"));
}

TEST(CaProgram, ReportsAFolderWithoutAnAuthority) {
  const ScratchFolder folder;
  const auto result = runCa(folder / "state");
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.output, "");
  EXPECT_NE(result.errors.find("creates the authority at its first start"), std::string::npos)
      << result.errors;
  EXPECT_FALSE(std::filesystem::exists(folder / "state"));
}

TEST(CaProgram, DoesNotRenewTheAuthorityOfARunningCollector) {
  const ScratchFolder folder;
  ChildProcess collector(JX_PROGRAM, {"collector", "--state", (folder / "state").string(), "--port",
                                      "0", "--web-port", "0"});
  ASSERT_TRUE(collector.waitForOutput("Ctrl-C", kPatience));
  const std::string before = contentOf(folder / "state/ca.pem");
  const auto refused = runCa(folder / "state", {"--renew"});
  EXPECT_EQ(refused.status, 1);
  EXPECT_NE(refused.errors.find("is in use by another collector"), std::string::npos)
      << refused.errors;
  EXPECT_EQ(runCa(folder / "state").status, 0);
  collector.signal(SIGTERM);
  const std::string output = collector.wait(kPatience).output;
  EXPECT_EQ(contentOf(folder / "state/ca.pem"), before);
  for (const char* text :
       {"configuration.caFile = \"", "sudo rm /usr/local/share/ca-certificates/jx-collector.crt",
        "Never install the CA on a machine that is used for anything else."})
    EXPECT_NE(output.find(text), std::string::npos) << output;
  EXPECT_LT(output.find("configuration.caFile"), output.find("update-ca-certificates"));
}

}  // namespace
}  // namespace jx
