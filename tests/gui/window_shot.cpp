// Takes the pictures of the window that the README shows. `corvane_window_shot FILE.png`:
// "Access" chosen, its example export picked, the sample panel open. `corvane_window_shot
// --summary FILE.png`: the same export run with the Bonus code box left empty, and the run
// summary panel it opens, its first warning chosen.
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QTest>
#include <cstring>

#include "gui/summary_panel.hpp"
#include "gui_harness.hpp"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  const bool summary = argc == 3 && std::strcmp(argv[1], "--summary") == 0;
  if (argc != 2 && !summary) return 2;
  const QString picture = QString::fromLocal8Bit(argv[argc - 1]);
  using namespace corvane;
  using namespace corvane::gui::test;
  Session s;
  QDir(s.Home()).mkdir(QStringLiteral("exports"));
  QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), s.Home() + "/exports/access.csv");
  corvane::gui::test::Operator op;
  auto w = s.Open(op);
  ChooseTimeClock(*w, QStringLiteral("Access"));
  w->PickTCFilter()->clear();
  w->Event([&w, &s] {
    frmTimeImport& F = w->Form();
    F.S[dirInput].text = (s.Home() + "/exports").toStdString();
    F.S.dirInput_Change();
    F.S[filInput].file_name = "access.csv";
    F.INFile = F.S.filInput_Click();
    F.S[dirOutput].text = s.Home().toStdString();
    F.S.dirOutput_Change();
  });
  if (summary) {
    TypeInto(w->Widget(txtSales), QString());
    Click(w->Widget(cmdInterface));
    QTest::qWait(300);
    return w->Summary().grab().save(picture) ? 0 : 1;
  }
  Click(w->Widget(cmdShowSample));
  auto* sample = static_cast<QListWidget*>(w->Widget(ShowSample));
  if (sample->count() > 0) sample->setCurrentRow(0);
  auto* pick = static_cast<QListWidget*>(w->Widget(PickTC));
  pick->scrollToItem(pick->currentItem(), QAbstractItemView::PositionAtTop);
  QTest::qWait(300);
  return w->grab().save(picture) ? 0 : 1;
}
