#include "settings/update/http_fetch.h"

#include <gtest/gtest.h>

#include <deque>
#include <utility>

#include "platform/failure.h"
#include "support/web_server.h"

namespace qublet {
namespace {

using std::chrono::milliseconds;

constexpr const char* kUrl = "http://127.0.0.1/downloads/qubcurversion.txt";
constexpr const char* kVersion = "000200010100";

std::string Fetch(const WebServer& server, bool headOnly = false, bool keepHeaders = false) {
  return HttpFetch(server.SocketsToIt(), headOnly, kUrl, 0, 0, keepHeaders);
}

// Brings these blocks, one at each call.
class SocketOfBlocks : public Socket {
 public:
  explicit SocketOfBlocks(std::deque<std::string> blocks) : blocks_(std::move(blocks)) {}

  bool IsAddress(const std::string& /*host*/) const override { return true; }
  std::string AddressOf(const std::string& host) const override { return host; }
  void Connect(const std::string& /*address*/) override {}
  void Send(std::string_view /*bytes*/) override {}
  std::size_t Receive(std::span<char> buffer) override {
    if (blocks_.empty()) return 0;
    const std::size_t count = blocks_.front().copy(buffer.data(), buffer.size());
    blocks_.pop_front();
    return count;
  }

 private:
  std::deque<std::string> blocks_;
};

TEST(GetHostFromUrl, IsWhatStandsBetweenSchemeAndPath) {
  EXPECT_EQ(GetHostFromUrl("http://a.b/c/d"), "a.b");
  EXPECT_EQ(GetHostFromUrl("http://a.b"), "a.b");
  EXPECT_EQ(GetHostFromUrl("a.b/c"), "a.b");
  EXPECT_EQ(GetHostFromUrl("a.b"), "a.b");
  EXPECT_EQ(GetHostFromUrl("/c"), "");
  EXPECT_EQ(GetHostFromUrl("http:///c"), "");
  EXPECT_EQ(GetHostFromUrl("http://"), "");
  EXPECT_EQ(GetHostFromUrl(""), "");
  EXPECT_EQ(GetHostFromUrl("a/b://c/d"), "c");
}

TEST(GetHostFromUrl, LeavesAPortInTheHost) {
  EXPECT_EQ(GetHostFromUrl("http://a.b:8080/c"), "a.b:8080");
}

TEST(BuildHttpRequest, IsTheseBytes) {
  EXPECT_EQ(BuildHttpRequest(false, "http://a.b/c", "a.b", 0, 0),
            "GET http://a.b/c HTTP/1.1\r\n"
            "Range: bytes=0-\r\n"
            "Host: a.b\r\n"
            "Accept: */*\r\n"
            "User-Agent: WinsockVB HTTP Test example\r\n"
            "Connection: close\r\n"
            "\r\n");
}

TEST(BuildHttpRequest, AsksForHeadersOnlyAndForARange) {
  EXPECT_EQ(BuildHttpRequest(true, "u", "h", 7, 2147483647),
            "HEAD u HTTP/1.1\r\n"
            "Range: bytes=7-2147483647\r\n"
            "Host: h\r\n"
            "Accept: */*\r\n"
            "User-Agent: WinsockVB HTTP Test example\r\n"
            "Connection: close\r\n"
            "\r\n");
}

TEST(ResolveHost, TakesAnAddressAsItStandsAndLooksUpANameElse) {
  const std::unique_ptr<Socket> socket = SocketsTo(kWebPort)();
  EXPECT_EQ(ResolveHost(*socket, "127.1"), "127.1");
  EXPECT_EQ(ResolveHost(*socket, "localhost"), "127.0.0.1");
  EXPECT_EQ(ResolveHost(*socket, "127.0.0.1:8080" + std::string(300, 'a')), "");
}

TEST(StripHttpHeaders, KeepsWhatStandsBehindTheFirstEmptyLine) {
  std::string response = "HTTP/1.1 200 OK\r\nA: b\r\n\r\nbody\r\n\r\nmore";
  StripHttpHeaders(response);
  EXPECT_EQ(response, "body\r\n\r\nmore");
  StripHttpHeaders(response = "a\n\nb\r\nc");
  EXPECT_EQ(response, "a\n\nb\r\nc");
  StripHttpHeaders(response = "a\r\n\r\n");
  EXPECT_EQ(response, "");
}

TEST(HttpFetch, SendsTheRequestAndGivesTheBody) {
  const WebServer server(WebServer::Answer200(kVersion));
  EXPECT_EQ(Fetch(server), kVersion);
  EXPECT_EQ(server.Requests(), std::vector<std::string>{BuildHttpRequest(false, kUrl, "127.0.0.1", 0, 0)});
}

TEST(HttpFetch, ConnectsToTheHostOfTheUrl) {
  const WebServer server(WebServer::Answer200(kVersion));
  EXPECT_EQ(HttpFetch(server.SocketsToIt(), true, "http://localhost", 3, 4, false), kVersion);
  EXPECT_EQ(server.Requests(),
            std::vector<std::string>{BuildHttpRequest(true, "http://localhost", "localhost", 3, 4)});
}

TEST(HttpFetch, KeepsTheHeadersWhereTheyAreWanted) {
  const WebServer server(WebServer::Answer("HTTP/1.1 206 Partial Content\r\n\r\nbody"));
  EXPECT_EQ(Fetch(server, false, true), "HTTP/1.1 206 Partial Content\r\n\r\nbody");
}

TEST(HttpFetch, LooksAtNoStatus) {
  for (const char* head : {"HTTP/1.1 206 Partial Content\r\n\r\n", "HTTP/1.1 404 Not Found\r\nA: b\r\n\r\n",
                           "HTTP/1.1 301 Moved Permanently\r\nLocation: http://127.0.0.1/elsewhere\r\n\r\n", ""}) {
    const WebServer server(WebServer::Answer(std::string(head) + kVersion));
    EXPECT_EQ(Fetch(server), kVersion) << head;
    EXPECT_EQ(server.Requests().size(), 1U);
  }
}

TEST(HttpFetch, JoinsWhatComesSlowlyInPieces) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    for (const char c : std::string("HTTP/1.1 200 OK\r\n\r\n") + kVersion) {
      visitor.Send({c});
      WebServer::Visitor::Wait(milliseconds(5));
    }
    visitor.Close();
  });
  EXPECT_EQ(Fetch(server), kVersion);
}

TEST(HttpFetch, JoinsManyBlocks) {
  std::string body;
  for (int i = 0; body.size() < 300'000; ++i) body += std::to_string(i) + ",";
  const WebServer server(WebServer::Answer200(body));
  EXPECT_EQ(Fetch(server), body);
}

TEST(HttpFetch, TakesAByteForACharacter) {
  const WebServer server(WebServer::Answer200("\xC3\xA4\xFF\x80"));
  EXPECT_EQ(Fetch(server), "\xC3\xA4\xFF\x80");
}

TEST(HttpFetch, LosesWhatStandsBehindAZeroInItsBlock) {
  const Sockets sockets = [] {
    return std::make_unique<SocketOfBlocks>(
        std::deque<std::string>{std::string("\r\n\r\n0002\0lost", 13), std::string(1, '\0'), "00010100"});
  };
  EXPECT_EQ(HttpFetch(sockets, false, kUrl, 0, 0, false), "000200010100");
}

TEST(HttpFetch, GivesWhatACutResponseHolds) {
  EXPECT_EQ(Fetch(WebServer(WebServer::Answer("HTTP/1.1 200 OK\r\nCont"))), "HTTP/1.1 200 OK\r\nCont");
  EXPECT_EQ(Fetch(WebServer(WebServer::Answer200("0002"))), "0002");
}

TEST(HttpFetch, GivesNothingWhereTheServerClosesAtOnce) {
  EXPECT_EQ(Fetch(WebServer([](WebServer::Visitor& visitor) { visitor.Close(); })), "");
}

TEST(HttpFetch, GivesNothingWhereTheConnectionBreaks) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    visitor.Send(std::string("HTTP/1.1 200 OK\r\n\r\n") + kVersion);
    WebServer::Visitor::Wait(milliseconds(100));
    visitor.Reset();
  });
  EXPECT_EQ(Fetch(server), "");
}

TEST(HttpFetch, GivesNothingWhereThereIsNoServerNoHostOrNoSocket) {
  Sockets refused;
  { refused = WebServer({}).SocketsToIt(); }
  EXPECT_EQ(HttpFetch(refused, false, kUrl, 0, 0, false), "");
  const WebServer server(WebServer::Answer200(kVersion));
  for (const char* url : {"", "http://", "http:///x", "http://127.0.0.1:80/x"})
    EXPECT_EQ(HttpFetch(server.SocketsToIt(), false, url, 0, 0, false), "") << url;
  const Sockets none = []() -> std::unique_ptr<Socket> { throw Failure("no sockets"); };
  EXPECT_EQ(HttpFetch(none, false, kUrl, 0, 0, true), "");
}

TEST(HttpFetch, GivesUpAResponseWithoutAnEnd) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    while (visitor.Send(std::string(10'000, 'x'))) continue;
    visitor.Close();
  });
  EXPECT_EQ(Fetch(server), "");
}

TEST(BeginFetch, WaitsForAServerThatDoesNotClose) {
  std::future<std::string> response;
  {
    const WebServer server([](WebServer::Visitor& visitor) {
      visitor.ReadRequest();
      visitor.Send(kVersion);
    });
    response = BeginFetch(server.SocketsToIt(), kUrl);
    EXPECT_EQ(response.wait_for(milliseconds(500)), std::future_status::timeout);
  }
  EXPECT_EQ(response.get(), kVersion);
}

TEST(BeginFetch, GoesOnByItselfWhenNobodyWaits) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    WebServer::Visitor::Wait(milliseconds(100));
    visitor.Send(kVersion);
    visitor.Close();
  });
  { const std::future<std::string> dropped = BeginFetch(server.SocketsToIt(), kUrl); }
  while (server.Requests().empty()) WebServer::Visitor::Wait(milliseconds(5));
  WebServer::Visitor::Wait(milliseconds(200));
  EXPECT_EQ(server.Requests().size(), 1U);
}

}  // namespace
}  // namespace qublet
