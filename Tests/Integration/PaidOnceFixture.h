#pragma once

#include "Integration/CountingServer.h"
#include "Platform/Network/HttpClient.h"
#include "Platform/Threads/TaskScope.h"
#include "Providers/GeminiProvider.h"
#include "Providers/ProviderError.h"
#include "Support/TestCertificates.h"
#include "Support/TrustedAuthority.h"
#include "Support/WaitFor.h"
#include "Upscaling/GeminiUpscale.h"

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <stop_token>
#include <tuple>

namespace quorvane {

using namespace Qt::StringLiterals;

using Protocol = CountingServer::Protocol;
using Takes = Breakage::Takes;
using Gives = Breakage::Gives;
using Ends = Breakage::Ends;
using Headers = QList<std::pair<QByteArray, QByteArray>>;
enum class Call { Generation, Upscale };
inline const QByteArray kRefusal = R"({"error":{"message":"the service's own words"}})";
constexpr qsizetype kPictureBytes = qsizetype{2} * 1024 * 1024;

/// The authority of all servers here, made once.
[[nodiscard]] TestCertificates &certificates();

[[nodiscard]] const QSslConfiguration &serverTls();

[[nodiscard]] QCoro::Task<> calling(HttpClient *http, Call call, QString *outcome, std::stop_token stop = {});

[[nodiscard]] std::string nameOf(Protocol protocol, Call call);

[[nodiscard]] std::vector<Breakage> brokenConnections();

[[nodiscard]] std::vector<Breakage> brokenStreams();

/// Whole answers after which a client might want to send its request again.
[[nodiscard]] std::vector<Breakage> temptingAnswers();

[[nodiscard]] std::vector<Breakage> redirects(int status);

class PaidOnceTest : public testing::TestWithParam<std::tuple<Protocol, Call>>
{
  protected:
    ~PaidOnceTest() override { qunsetenv("QUORVANE_GEMINI_BASE_URL"); }

    static Protocol protocol() { return std::get<Protocol>(GetParam()); }

    /// What the user reads of kRefusal.
    static std::string refusalText();

    /// One call against a server that breaks so, to its end on both sides; how it ended for the user.
    QString callOf(const Breakage &breakage);

    const TrustedAuthority authority{certificates().authority()};
    std::unique_ptr<CountingServer> server;
};

} // namespace quorvane
