#pragma once

#include <QImage>
#include <QWidget>

namespace qublet {

// Shows a picture as large as there is room, never larger than it is.
class PictureView : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent = nullptr);

  // A null image clears it.
  void Show(const QImage& picture);
  const QImage& Shown() const { return picture_; }
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QImage picture_;
};

}  // namespace qublet
