#pragma once

#include <QApplication>
#include <functional>

namespace qublet {

// The toolkit's application, in which want of memory ends what the user asked for, and not the program.
class PatientApplication : public QApplication {
 public:
  using QApplication::QApplication;

  // Called some time after that, once for all that failed together.
  void WhenMemoryWants(std::function<void()> tell) { tell_ = std::move(tell); }

  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void TellLater();

  std::function<void()> tell_;
  bool is_to_tell_ = false;
};

}  // namespace qublet
