#include <gtest/gtest.h>

#include <QGuiApplication>

#include "settings/update/ui/UpdateCheck.h"
#include "support/main_window.h"
#include "support/web_server.h"

namespace qublet {
namespace {

using std::chrono::milliseconds;

constexpr const char* kNewer = "999900000000";

// A server that says this and doesn't close.
WebServer::Serve WithoutAnEnd(const std::string& text) {
  return [text](WebServer::Visitor& visitor) {
    visitor.ReadRequest();
    visitor.Send(text);
  };
}

// The check for a newer version as it is reached from the menus, and as the program makes it by itself.
class UpdateTest : public testing::Test {
 protected:
  UpdateTest() {
    setenv("QUBLET_SITE", "http://127.0.0.1", 1);
    window.store.SaveSetting("QUBLET2021", "Startup", "insl", "c:\\program\\QUBLET20.exe");
    Automatic("False");
  }
  ~UpdateTest() override { unsetenv("QUBLET_SITE"); }

  void Automatic(const char* value) { window.store.SaveSetting("QUBLET2021", "SSE", "AUDate", value); }
  void StartOn(const WebServer& server) {
    *window.fakes.sockets = server.SocketsToIt();
    window.Start();
  }
  static bool WaitCursorIsShown() {
    return QGuiApplication::overrideCursor() != nullptr &&
           QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
  }
  // The beginnings of what was told, once something was.
  std::vector<std::string> Told(int patience = 5000) {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !window.dialogs.messages.empty(); }, patience));
    std::vector<std::string> texts;
    for (const ScriptedDialogs::Message& message : window.dialogs.messages)
      texts.push_back(message.text.substr(0, 14));
    return texts;
  }
  bool NothingIsTold(int time) {
    QTest::qWait(time);
    return window.dialogs.messages.empty();
  }

  MainWindow window;
};

using Texts = std::vector<std::string>;

TEST_F(UpdateTest, TheEntryTellsOfANewerVersion) {
  const WebServer server(WebServer::Answer200(kNewer));
  StartOn(server);
  window.Run("MHelpUpdate");
  EXPECT_TRUE(WaitCursorIsShown());
  EXPECT_EQ(Told(), Texts{"An updated ver"});
  EXPECT_EQ(window.dialogs.messages.front().icon, MessageIcon::kInformation);
  EXPECT_FALSE(WaitCursorIsShown());
}

TEST_F(UpdateTest, TheEntryTellsThatThereIsNone) {
  const WebServer server(WebServer::Answer200(VersionText()));
  StartOn(server);
  window.Run("MHelpUpdate");
  EXPECT_EQ(Told(), Texts{"You currently "});
  EXPECT_EQ(window.dialogs.messages.front().icon, MessageIcon::kInformation);
}

TEST_F(UpdateTest, TheEntryTellsOfAFailure) {
  const WebServer server(WebServer::Answer200(VersionText() + "\n"));
  StartOn(server);
  window.Run("MHelpUpdate");
  EXPECT_EQ(Told(), Texts{"Could not down"});
  EXPECT_EQ(window.dialogs.messages.front().icon, MessageIcon::kStop);
}

TEST_F(UpdateTest, TheWindowGoesOnMeanwhile) {
  const WebServer server(WithoutAnEnd(kNewer));
  StartOn(server);
  window.Run("MHelpUpdate");
  window.drives.Write("a.mp3", kNoise);
  window.Add("c:\\a.mp3");
  EXPECT_EQ(window.Names(), "a.mp3");
  EXPECT_TRUE(NothingIsTold(300));
  EXPECT_TRUE(WaitCursorIsShown());
}

TEST_F(UpdateTest, CannotBeStartedTwice) {
  auto server = std::make_unique<WebServer>(WithoutAnEnd(kNewer));
  StartOn(*server);
  window.Run("MHelpUpdate");
  window.Run("MHelpUpdate");
  EXPECT_TRUE(NothingIsTold(500));
  EXPECT_EQ(server->Requests().size(), 1U);
  server.reset();
  EXPECT_EQ(Told(), Texts{"An updated ver"});
  QTest::qWait(300);
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
  EXPECT_FALSE(WaitCursorIsShown());
}

TEST_F(UpdateTest, CanBeStartedAgainOnceItIsDone) {
  const WebServer server(WebServer::Answer200(kNewer));
  StartOn(server);
  window.Run("MHelpUpdate");
  Told();
  window.dialogs.messages.clear();
  window.Run("MHelpUpdate");
  EXPECT_EQ(Told(), Texts{"An updated ver"});
}

TEST_F(UpdateTest, AServerThatTakesTooLongHasFailed) {
  EXPECT_EQ(kUpdatePatience, std::chrono::seconds(20));
  const WebServer server(WithoutAnEnd(kNewer));
  StartOn(server);
  new UpdateCheck(window.program->desk, UpdateCheck::Manner::kAsked, milliseconds(300));
  EXPECT_EQ(Told(), Texts{"Could not down"});
  EXPECT_FALSE(WaitCursorIsShown());
}

TEST_F(UpdateTest, WhatComesInTheMidstOfACommandIsToldBehindIt) {
  const WebServer server(WebServer::Answer200(kNewer));
  StartOn(server);
  window.Run("MHelpUpdate");
  {
    const WaitCursor command(window.feedback);
    for (int i = 0; i < 25; ++i) {
      WebServer::Visitor::Wait(milliseconds(21));
      window.feedback.LetRepaint();
    }
    EXPECT_TRUE(window.dialogs.messages.empty());
  }
  EXPECT_EQ(Told(), Texts{"An updated ver"});
}

TEST_F(UpdateTest, AnEndOfTheProgramDropsIt) {
  const WebServer server(WithoutAnEnd(kNewer));
  StartOn(server);
  window.Run("MHelpUpdate");
  QTest::qWait(200);
  window.main->close();
  window.Restart();
  EXPECT_TRUE(NothingIsTold(300));
  EXPECT_FALSE(WaitCursorIsShown());
}

TEST_F(UpdateTest, AStartAsksByItselfAndTellsOfANewerVersion) {
  Automatic("True");
  const WebServer server(WebServer::Answer200(kNewer));
  StartOn(server);
  EXPECT_TRUE(NothingIsTold(500)) << "not at once";
  EXPECT_EQ(Told(), Texts{"An updated ver"});
  QTest::qWait(2500);
  EXPECT_EQ(server.Requests().size(), 1U) << "once a start";
}

TEST_F(UpdateTest, AStartSaysNothingElse) {
  Automatic("True");
  for (const WebServer::Serve& serve : {WebServer::Answer200(VersionText()), WebServer::Answer("")}) {
    const WebServer server(serve);
    *window.fakes.sockets = server.SocketsToIt();
    window.Restart();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !server.Requests().empty(); }, 5000));
    EXPECT_FALSE(WaitCursorIsShown());
    EXPECT_TRUE(NothingIsTold(300));
  }
}

TEST_F(UpdateTest, AStartThatIsToAskNobodyAsksNobody) {
  const WebServer server(WebServer::Answer200(kNewer));
  StartOn(server);
  EXPECT_TRUE(NothingIsTold(2500));
  EXPECT_TRUE(server.Requests().empty());
}

TEST_F(UpdateTest, AnEndDropsTheCheckOfAStartWithoutAWord) {
  Automatic("True");
  const WebServer server(WithoutAnEnd(kNewer));
  StartOn(server);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !server.Requests().empty(); }, 5000));
  Automatic("False");
  window.Restart();
  EXPECT_TRUE(NothingIsTold(300));
}

TEST_F(UpdateTest, WhoAsksMeanwhileIsToldOnce) {
  auto server = std::make_unique<WebServer>(WithoutAnEnd(kNewer));
  StartOn(*server);
  new UpdateCheck(window.program->desk, UpdateCheck::Manner::kQuiet);
  window.Run("MHelpUpdate");
  EXPECT_TRUE(NothingIsTold(200));
  server.reset();
  EXPECT_EQ(Told(), Texts{"An updated ver"});
  QTest::qWait(300);
  EXPECT_EQ(window.dialogs.messages.size(), 1U);
}

}  // namespace
}  // namespace qublet
