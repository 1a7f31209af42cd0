// The least window with a list that Qt can show: what a start is compared with.

#include <QApplication>
#include <QMainWindow>
#include <QTreeWidget>

int main(int argc, char** argv) {
  const QApplication application(argc, argv);
  QMainWindow window;
  auto* list = new QTreeWidget;
  list->setColumnCount(12);
  window.setCentralWidget(list);
  window.resize(528, 400);
  window.show();
  return QApplication::exec();
}
