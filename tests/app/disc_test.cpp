#include <gtest/gtest.h>

#include <QTimer>

#include "support/main_window.h"

namespace qublet {
namespace {

TEST(Disc, ItsWizardComesFromTheMenuEvenForAnEmptyList) {
  MainWindow window;
  window.Start();
  std::string name;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, window.main, [&] {
    QWidget* form = QApplication::activeModalWidget();
    if (form == nullptr) return;
    watch.stop();
    name = form->objectName().toStdString();
    form->close();
  });
  watch.start(0);
  window.Run("MToolsMP3CDWiz");
  EXPECT_EQ(name, "MP3CDWizard");
}

}  // namespace
}  // namespace qublet
