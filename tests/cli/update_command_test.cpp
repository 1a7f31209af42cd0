#include "cli/update_command.h"

#include <gtest/gtest.h>

#include "settings/update/update_check.h"
#include "support/cli_test_base.h"
#include "support/web_server.h"

namespace qublet {
namespace {

constexpr const char* kFailure =
    "qublet: Could not download the update information. Try again later or check your internet connection.\n";

class UpdateCommandTest : public CliTestBase {
 protected:
  UpdateCommandTest() { setenv("QUBLET_SITE", "http://127.0.0.1", 1); }
  ~UpdateCommandTest() override { unsetenv("QUBLET_SITE"); }

  int RunOn(const WebServer& server) {
    *fakes_.sockets = server.SocketsToIt();
    return Run("update", {});
  }
};

TEST_F(UpdateCommandTest, PrintsThatThereIsANewerVersion) {
  const WebServer server(WebServer::Answer200("999900000000"));
  EXPECT_EQ(RunOn(server), 0);
  EXPECT_EQ(
      Out(),
      "An updated version of this software is available.\nYou can visit the Website for more information\nor go "
      "direct to the download page to update.\n\nIf you wish to not be informed of updates as\nthey become "
      "available please check the settings\nin the preferences dialogue. Thank you.\n");
  EXPECT_EQ(Err(), "");
  ASSERT_EQ(server.Requests().size(), 1U);
  EXPECT_TRUE(server.Requests().front().starts_with(
      "GET http://127.0.0.1/downloads/qubcurversion.txt HTTP/1.1\r\nRange: bytes=0-\r\nHost: 127.0.0.1\r\n"));
}

TEST_F(UpdateCommandTest, PrintsThatThereIsNone) {
  EXPECT_EQ(RunOn(WebServer(WebServer::Answer200(VersionText()))), 0);
  EXPECT_EQ(Out(), "You currently have the most up to date version installed.\n");
  EXPECT_EQ(Err(), "");
}

TEST_F(UpdateCommandTest, AFailureIsToldWhereErrorsGo) {
  for (const WebServer::Serve& serve : {WebServer::Answer200(VersionText() + "\n"), WebServer::Answer(""),
                                        WebServer::Answer("HTTP/1.1 404 Not Found"),
                                        WebServer::Serve([](WebServer::Visitor& visitor) { visitor.Reset(); })}) {
    EXPECT_EQ(RunOn(WebServer(serve)), 1);
    EXPECT_EQ(Out(), "");
    EXPECT_EQ(Err(), kFailure);
  }
}

TEST_F(UpdateCommandTest, FailsWithoutANetwork) {
  EXPECT_EQ(Run("update", {}), 1);
  EXPECT_EQ(Err(), kFailure);
}

TEST_F(UpdateCommandTest, GivesUpAServerThatDoesNotClose) {
  const WebServer server([](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    visitor.Send("999900000000");
  });
  *fakes_.sockets = server.SocketsToIt();
  PrintedDialogs dialogs(err_);
  Engine engine(fakes_.Over(*files_, feedback_, dialogs), {"QUBLET2021", "c:\\program", ""}, ",");
  CommandContext context{{}, engine, dialogs, *files_, fakes_.store, out_, err_};
  const auto begin = std::chrono::steady_clock::now();
  EXPECT_EQ(AskForUpdate(context, std::chrono::milliseconds(300)), 1);
  EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(300));
  EXPECT_EQ(Err(), kFailure);
  EXPECT_EQ(Out(), "");
}

TEST_F(UpdateCommandTest, GivesUpAfterTwentySeconds) {
  EXPECT_EQ(kUpdatePatience, std::chrono::seconds(20));
}

TEST_F(UpdateCommandTest, TakesNoArguments) {
  EXPECT_EQ(Run("update", {"now"}), 2);
  EXPECT_EQ(Run("update", {"--help-me"}), 2);
  EXPECT_EQ(Err(), "qublet: update: it takes no arguments\n");
}

}  // namespace
}  // namespace qublet
