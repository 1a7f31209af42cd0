#include <gtest/gtest.h>

#include <new>

#include "platform/qt/patient_application.h"
#include "support/main_window.h"

namespace qublet {
namespace {

class WantOfMemory : public testing::Test {
 protected:
  WantOfMemory() {
    for (const char* name : {"a", "b"}) window.drives.Write(std::string("m/") + name + ".mp3", kNoise);
    window.Start();
    window.Add("c:\\m");
    window.Run("MEditSelNone");
    window.main->activateWindow();
    Application().WhenMemoryWants([this] { window.program->TellOfWantOfMemory(); });
  }
  ~WantOfMemory() override { Application().WhenMemoryWants({}); }

  static PatientApplication& Application() { return *static_cast<PatientApplication*>(qApp); }

  MainWindow window;
};

TEST_F(WantOfMemory, EndsACommandAndNotTheProgram) {
#ifdef __SANITIZE_ADDRESS__
  GTEST_SKIP() << "the toolkit's frames give nothing back of what they hold when an exception passes through them";
#endif
  ASSERT_TRUE(QTest::qWaitFor([&] { return window.main->isActiveWindow(); }));
  const auto wanting =
      QObject::connect(window.Action("MEditSelAll"), &QAction::triggered, [] { throw std::bad_alloc(); });
  QTest::keyClick(&window.List(), Qt::Key_A, Qt::ControlModifier);
  QCoreApplication::processEvents();

  const ScriptedDialogs::Message told{"There is not enough memory for this.", MessageIcon::kStop,
                                      MessageButtons::kOk};
  EXPECT_EQ(window.dialogs.messages, std::vector{told});
  EXPECT_EQ(window.Names(), "a.mp3 b.mp3");

  QObject::disconnect(wanting);
  window.Run("MEditSelNone");
  QTest::keyClick(&window.List(), Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(window.Selected(), "xx");
}

}  // namespace
}  // namespace qublet
