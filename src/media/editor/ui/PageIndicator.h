#pragma once

#include <QColor>
#include <QWidget>

namespace qublet {

// A small coloured mark that tells the state of a page. It has a shape and a word for each state as well.
class PageIndicator : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QColor colour READ Colour)

 public:
  enum class State { kOn, kOff, kUnusable };

  // `page` is the name that it is read out with.
  PageIndicator(const QString& name, QString page, QWidget* parent);

  void Show(State state);
  QColor Colour() const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString page_;
  State state_ = State::kOff;
};

}  // namespace qublet
