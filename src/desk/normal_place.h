#pragma once

#include <QObject>
#include <QRect>
#include <QTimer>
#include <QWidget>

namespace qublet {

// Where a window stands when it is neither maximised nor minimised nor alone on the screen: the place that it has or
// comes back to. Some window systems resize a window before they say that it is maximised, so a new place counts once
// it has lasted for a moment.
class NormalPlace : public QObject {
  Q_OBJECT

 public:
  // The window owns this.
  explicit NormalPlace(QWidget& window);

  // Position with the frame, size without it.
  QRect Get() const;
  // Moves the window there; one that is maximised will come back to there.
  void Set(const QRect& place);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool IsNormal() const;
  void Keep();

  QWidget& window_;
  QRect lasting_;
  QTimer soon_;
};

}  // namespace qublet
