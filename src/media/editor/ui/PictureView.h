#pragma once

#include <QImage>
#include <QWidget>
#include <memory>
#include <string>

#include "media/tag_object.h"

namespace qublet {

// Shows a picture as large as there is room, never larger than it is. It is read beside the window, which goes on.
class PictureView : public QWidget {
  Q_OBJECT

 public:
  explicit PictureView(QWidget* parent = nullptr);

  // Null clears it; so does what is no picture. The tip tells the pixels and the size.
  void Show(std::shared_ptr<const TagPicture> picture, const std::string& thousands_separator);
  // Whether what was given is still being read.
  bool IsReading() const { return reading_; }

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void Read(const std::string& size_text);
  void Take(const QImage& picture, const QString& tip);
  QSize FittingPixels() const;

  std::shared_ptr<const TagPicture> given_;
  bool reading_ = false;
  QImage picture_;
  QImage scaled_;  // to the pixels of the screen
};

}  // namespace qublet
