#include "report_pictures.h"

#include <QComboBox>
#include <QPushButton>
#include <QStackedWidget>

#include "support/modal_work.h"

namespace qublet {
namespace {

// The steps are numbered as they stand in the wizard, so both kinds of reports have their own third one.
void TakeSteps(QWidget& form, const TakePicture& take) {
  const auto click = [&](const char* name) { form.findChild<QPushButton*>(QString::fromUtf8(name))->click(); };
  const auto frame = [&] { return form.findChild<QStackedWidget*>(QStringLiteral("FrameStep"))->currentIndex(); };
  auto& kind = *form.findChild<QComboBox*>(QStringLiteral("RepType"));
  for (int chosen = 0; chosen < kind.count(); ++chosen) {
    kind.setCurrentIndex(chosen);
    for (int step = 1; step <= 4; ++step) {
      take("report-" + std::to_string(chosen) + "-" + std::to_string(frame()), &form);
      if (step < 4) click("CmdNext");
    }
    for (int step = 4; step > 1; --step) click("CmdBack");
  }
}

}  // namespace

void TakeReportPictures(MainWindow& window, const TakePicture& take) {
  WorkInModal([&] { window.Run("MToolsReport"); }, [&](QWidget& form) { TakeSteps(form, take); });
}

}  // namespace qublet
