#include "repaint_measures.h"

#include <QApplication>
#include <stdexcept>

#include "full_list.h"
#include "playlist/ui/row_list.h"

namespace qublet::measures {
namespace {

class PaintCounter : public QObject {
 public:
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) ++count;
    return false;
  }
};

// The list of the main window, full and on the screen.
class Screen {
 public:
  Screen() : rows_(FullListRows()) {
    list_.ShowRows(&model_);
    list_.resize(1600, 900);  // a window that fills most of a usual screen
    list_.viewport()->installEventFilter(&painted_);
    list_.show();
  }

  // Lays the rows anew and waits until they are painted.
  void Lay(const ListJob& job) {
    document_.ListView1.Clear();
    document_.ListView1.Insert(1, rows_);
    document_.ListView1.SelectWhere([&](int row, const Row&) { return job.selected(row); });
    list_.scrollToTop();
    Paint();
  }

  // All that the view does about the command, from the first notice to the picture, without the command itself.
  double RepaintAfter(const ListJob& job) {
    auto bulk = std::make_unique<RowStore::Bulk>(document_.ListView1);
    job.command(document_);
    return SecondsOf([&] {
      bulk.reset();
      Paint();
    });
  }

  double PlainRepaint() {
    list_.viewport()->update();
    return SecondsOf([&] { Paint(); });
  }

 private:
  // Until there is nothing more to lay out and to paint.
  void Paint() {
    for (int quiet = 0; quiet < 3; ++quiet) {
      const int before = painted_.count;
      QCoreApplication::sendPostedEvents();
      QCoreApplication::processEvents();
      if (painted_.count != before) quiet = 0;
    }
  }

  std::vector<Row> rows_;
  Document document_;
  RowModel model_{document_.ListView1};
  RowList list_;
  PaintCounter painted_;
};

}  // namespace

std::vector<Measure> RepaintMeasures() {
  std::vector<Measure> measures;
  for (const ListJob& job : ListJobs()) {
    measures.push_back({"repaint_after_" + job.name, 2, [&job](Workplace&) {
                          const auto screen = std::make_shared<Screen>();
                          const auto taken = [screen, &job](auto&& seconds) {
                            return [screen, &job, seconds] {
                              screen->Lay(job);
                              return seconds(*screen);
                            };
                          };
                          return Contest{taken([&job](Screen& list) { return list.RepaintAfter(job); }),
                                         taken([](Screen& list) { return list.PlainRepaint(); })};
                        }});
  }
  return measures;
}

}  // namespace qublet::measures
