#include "support/web_server.h"

#include <gtest/gtest.h>

#include <array>

#include "platform/failure.h"

namespace qublet {
namespace {

constexpr const char* kHere = "127.0.0.1";

std::string ReadAll(Socket& socket) {
  std::string all;
  std::array<char, 16> buffer{};
  while (const std::size_t count = socket.Receive(buffer)) all.append(buffer.data(), count);
  return all;
}

TEST(SocketTest, KnowsAnAddressFromAName) {
  const std::unique_ptr<Socket> socket = SocketsTo(kWebPort)();
  for (const char* address : {"127.0.0.1", "127.1", "10.0.0.255", "0x7f000001"})
    EXPECT_TRUE(socket->IsAddress(address)) << address;
  for (const char* other : {"", "localhost", "1.2.3.4.5", "256.0.0.1", "127.0.0.1:80", "velmora.invalid"})
    EXPECT_FALSE(socket->IsAddress(other)) << other;
}

TEST(SocketTest, LooksUpTheAddressOfAHost) {
  const std::unique_ptr<Socket> socket = SocketsTo(kWebPort)();
  EXPECT_EQ(socket->AddressOf("localhost"), kHere);
  EXPECT_EQ(socket->AddressOf(""), "");
  EXPECT_EQ(socket->AddressOf(std::string(300, 'a')), "");
}

TEST(SocketTest, CarriesBytesBothWays) {
  const WebServer server(WebServer::Answer(std::string("a\0b and more than one buffer", 28)));
  const std::unique_ptr<Socket> socket = server.SocketsToIt()();
  socket->Connect(kHere);
  socket->Send("hello\r\n\r\n");
  EXPECT_EQ(ReadAll(*socket), std::string("a\0b and more than one buffer", 28));
  EXPECT_EQ(server.Requests(), std::vector<std::string>{"hello\r\n\r\n"});
}

TEST(SocketTest, FailsToConnectWhereNobodyListens) {
  Sockets sockets;
  { sockets = WebServer({}).SocketsToIt(); }
  EXPECT_THROW(sockets()->Connect(kHere), Failure);
}

TEST(SocketTest, FailsToConnectToWhatIsNoAddress) {
  for (const char* none : {"", "localhost", "127.0.0.1:80"})
    EXPECT_THROW(SocketsTo(kWebPort)()->Connect(none), Failure) << none;
}

TEST(SocketTest, ABrokenConnectionIsAFailure) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    visitor.Reset();
  });
  const std::unique_ptr<Socket> socket = server.SocketsToIt()();
  socket->Connect(kHere);
  socket->Send("\r\n\r\n");
  EXPECT_THROW(ReadAll(*socket), Failure);
}

TEST(SocketTest, SendingToAServerThatHasGoneEndsNothing) {
  const WebServer server([](WebServer::Visitor& visitor) { visitor.Reset(); });
  const std::unique_ptr<Socket> socket = server.SocketsToIt()();
  socket->Connect(kHere);
  for (int i = 0; i < 20; ++i) {
    socket->Send(std::string(1000, 'x'));
    WebServer::Visitor::Wait(std::chrono::milliseconds(5));
  }
  std::string answer;
  ResumeNext([&] { answer = ReadAll(*socket); });
  EXPECT_EQ(answer, "");
}

}  // namespace
}  // namespace qublet
