#pragma once

#include <QScrollArea>

namespace qublet {

// Room for the pages: as wide as they need, and as high as they need or the screen has room for. What is higher is
// scrolled.
class PagesArea : public QScrollArea {
  Q_OBJECT

 public:
  using QScrollArea::QScrollArea;

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QSize BesideThePages() const;
};

}  // namespace qublet
