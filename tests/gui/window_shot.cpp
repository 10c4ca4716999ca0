// Takes the picture of the window that the README shows: "Access" chosen, its example
// export picked, the sample panel open. Usage: corvane_window_shot FILE.png
#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPixmap>
#include <QTest>

#include "gui_harness.hpp"

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  if (argc != 2) return 2;
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
  Click(w->Widget(cmdShowSample));
  auto* sample = static_cast<QListWidget*>(w->Widget(ShowSample));
  if (sample->count() > 0) sample->setCurrentRow(0);
  auto* pick = static_cast<QListWidget*>(w->Widget(PickTC));
  pick->scrollToItem(pick->currentItem(), QAbstractItemView::PositionAtTop);
  QTest::qWait(300);
  return w->grab().save(QString::fromLocal8Bit(argv[1])) ? 0 : 1;
}
