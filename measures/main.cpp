#include "autocreate_measures.h"
#include "guard_measures.h"
#include "measure.h"
#include "order_measures.h"
#include "playlist_measures.h"
#include "purge_measures.h"
#include "rename_measures.h"
#include "report_measures.h"
#include "search_measures.h"
#include "tag_measures.h"

#ifdef QUBLET_MEASURES_WINDOWS
#include <QApplication>

#include "start_measures.h"
#include "window_measures.h"
#endif

namespace qublet::measures {
namespace {

int Main(int argc, char** argv) {
  std::vector<Measure> table;
  const auto add = [&](std::vector<Measure> measures) {
    table.insert(table.end(), measures.begin(), measures.end());
  };
  add(PlaylistMeasures());
  add(TagMeasures());
  add(PurgeMeasures());
  add(RenameMeasures());
  add(SearchMeasures());
  add(ReportMeasures());
  add(AutoCreateMeasures());
  add(OrderMeasures());
  add(GuardMeasures());
#ifdef QUBLET_MEASURES_WINDOWS
  // Painted in memory, as fast as this machine can, whatever display it has.
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  add(WindowMeasures());
  add(StartMeasures());
#endif
  return RunMeasures(table, {argv + 1, argv + argc});
}

}  // namespace
}  // namespace qublet::measures

int main(int argc, char** argv) {
  return qublet::measures::Main(argc, argv);
}
