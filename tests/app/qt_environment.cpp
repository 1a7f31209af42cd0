#include <gtest/gtest.h>

#include <memory>

#include "platform/qt/patient_application.h"

namespace {

// One QApplication for all tests of the program, on the offscreen platform unless the caller names another. On
// Windows windows are shown; its own dialogs can't be reached by a test.
class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override {
#ifdef _WIN32
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
#else
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    application_ = std::make_unique<qublet::PatientApplication>(argument_count_, arguments_);
    QApplication::setQuitOnLastWindowClosed(false);
  }
  void TearDown() override {
    application_.reset();
  }

 private:
  int argument_count_ = 1;
  char name_[9] = "QUBLET20";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<qublet::PatientApplication> application_;
};

[[maybe_unused]] const auto* const kEnvironment = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
