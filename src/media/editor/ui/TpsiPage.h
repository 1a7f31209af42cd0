#pragma once

#include <QWidget>

#include "ui_TpsiPage.h"

namespace qublet {

// The time positions of a file. They are kept among its comments.
class TpsiPage : public QWidget, private Ui::TpsiPage {
  Q_OBJECT

 public:
  explicit TpsiPage(QWidget* parent = nullptr);

  // Whether what works with the player can be used.
  void SetPlayed(bool played);
};

}  // namespace qublet
