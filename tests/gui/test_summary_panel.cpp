// The run summary panel: what it shows after a press, the flagged lines it leads to, and
// what Copy and Save hand over.
#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTextBlock>
#include <QTreeWidget>
#include <functional>

#include "gui/summary_panel.hpp"
#include "gui_harness.hpp"

namespace corvane::gui::test {

namespace {

// "Access" chosen, `input` as its export and `out` as the output folder, company 123; `before`
// then touches the screen as the operator would, and the press follows.
std::unique_ptr<TimeImportWindow> PressAccess(
    Session& s, Operator& op, const QString& input,
    const std::function<void(TimeImportWindow&)>& before = {}) {
  QDir(s.Home()).mkdir(QStringLiteral("out"));
  auto w = s.Open(op);
  op.seen.clear();
  ChooseTimeClock(*w, QStringLiteral("Access"));
  w->Event([&w, &s, &input] {
    frmTimeImport& F = w->Form();
    const QFileInfo file(input);
    F.S[dirInput].text = file.absolutePath().toStdString();
    F.S.dirInput_Change();
    F.S[filInput].file_name = file.fileName().toStdString();
    F.INFile = F.S.filInput_Click();
    F.S[dirOutput].text = (s.Home() + "/out").toStdString();
    F.S.dirOutput_Change();
  });
  TypeInto(w->Widget(CoNum), QStringLiteral("123"));
  if (before) before(*w);
  Click(w->Widget(cmdInterface));
  return w;
}

// The table's lines with their runs of blanks made one, so that a row reads "E 2 6 40.00 0.00".
QStringList Rows(const QString& table) {
  QStringList out;
  for (const QString& line : table.split(QLatin1Char('\n'))) out << line.simplified();
  return out;
}

// Each listed warning as "line|employee|rule".
QStringList Listed(QTreeWidget* list) {
  QStringList out;
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    const QTreeWidgetItem* item = list->topLevelItem(i);
    out << item->text(1) + "|" + item->text(2) + "|" + item->text(3);
  }
  return out;
}

void WriteFile(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
  file.write(bytes);
}

}  // namespace

class SummaryPanelTest : public QObject {
  Q_OBJECT

 private slots:
  // The bundled "Access" export, worked by hand. Categories go out Reg, OT, Salary, CTO, Hol,
  // Bonus, Cell, Mile, Other (on Cell's code), each only when above zero:
  //   1001 Reg 40, OT 3.50, Hol 8, Mile 18.40       1005 Reg 40, OT 6.75, Hol 8
  //   1002 Reg 38.25, Hol 8, Bonus 50, Cell 25      1006 Reg 12.50
  //   1003 Salary 1250, Cell 45, Mile 62.10          1007 Salary 980, CTO 8, Hol 8, Bonus 100,
  //   1004 Reg 32, CTO 4, Hol 8, Other 10                 Cell 45
  //                                                  1008 Reg 24
  // with the factory codes Reg 2, OT 3, Salary 4, CTO 5, Bonus 6, Cell 7, Mile 8, Hol 10.
  // Every zero is passed over before the writers, so nothing is dropped, and every line is
  // clean.
  void accessRunShowsItsFiguresAndNoWarnings() {
    Session s;
    const QString input = s.Home() + "/access.csv";
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), input));
    Operator op;
    auto w = PressAccess(s, op, input);
    QCOMPARE(op.seen.size(), std::size_t{1});  // the report only: the panel asks nothing
    SummaryPanel& panel = w->Summary();
    QVERIFY(panel.isVisible());

    const QStringList rows = Rows(panel.SummaryView()->toPlainText());
    QVERIFY(rows.contains(QStringLiteral("records read 8, lines written 25")));
    const qsizetype head = rows.indexOf(QStringLiteral("D/E code lines hours dollars"));
    QVERIFY(head >= 0);
    const QStringList codes = {"E 2 6 186.75 0.00",  "E 3 2 10.25 0.00",  "E 10 5 40.00 0.00",
                               "E 8 2 0.00 80.50",   "E 6 2 0.00 150.00", "E 7 4 0.00 125.00",
                               "E 4 2 0.00 2230.00", "E 5 2 12.00 0.00",  "all 25 249.00 2585.50"};
    QCOMPARE(rows.mid(head + 1, codes.size()), codes);
    for (const char* line :
         {"dropped, code X: 0 (0.00 hours, 0.00 dollars)", "employees 8, lines each 1 to 5",
          "largest line: 40.00 hours, employee 1001, line 1",
          "largest employee: 54.75 hours, employee 1005",
          "Pre-import check: 25 lines, 0 with warnings"}) {
      QVERIFY2(rows.contains(QString::fromLatin1(line)), line);
    }
    QVERIFY(panel.WarningCount()->text().startsWith(QStringLiteral("No warnings")));
    QCOMPARE(panel.Warnings()->topLevelItemCount(), 0);

    Click(panel.CopyButton());
    const QString copied = QGuiApplication::clipboard()->text();
    QVERIFY(copied.contains(QStringLiteral("records read 8, lines written 25")));
    QVERIFY(Rows(copied).contains(QStringLiteral("all 25 249.00 2585.50")));

    // JSON by default; the same figures
    const QString json_path = s.Home() + "/summary.json";
    QVERIFY(panel.SaveTo(json_path));
    QJsonParseError error;
    const QJsonObject j = QJsonDocument::fromJson(Contents(json_path), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(j["format"].toString(), QStringLiteral("Access"));
    QCOMPARE(j["completed"].toBool(), true);
    QCOMPARE(j["records_read"].toInt(), 8);
    QCOMPARE(j["lines_written"].toInt(), 25);
    QCOMPARE(j["written"].toObject()["hours"].toDouble(), 249.0);
    QCOMPARE(j["written"].toObject()["dollars"].toDouble(), 2585.5);
    QCOMPARE(j["check"].toObject()["warnings_total"].toInt(), 0);
    // ".txt" gives the text Copy gives
    QVERIFY(panel.SaveTo(s.Home() + "/summary.TXT"));
    QCOMPARE(QString::fromLatin1(Contents(s.Home() + "/summary.TXT")), copied);
    // a folder that is not there: refused, with the reason
    QString why;
    QVERIFY(!panel.SaveTo(s.Home() + "/no such folder/summary.json", &why));
    QVERIFY(!why.isEmpty());

    Click(panel.CloseButton());
    QVERIFY(!panel.isVisible());
    // the import file is what the report said, whatever the panel did
    QCOMPARE(Contents(s.Home() + "/out/123_ta.txt").count("\r\n"), 25);
  }

  // An export built to break two rules: an employee number of seven digits (six fit), and the
  // OT code box left empty. Lines: 1 1234567 Reg 40; 2 1234567 OT 2; 3 1002 Reg 30; 4 1002 OT
  // 1.50. Line 2 breaks both rules, line 3 none.
  void brokenRunListsItsWarningsAndFindsTheirLines() {
    Session s;
    const QString input = s.Home() + "/broken.csv";
    WriteFile(input,
              "Store,Employee Name,Employee No,Salary,Department,Regular Hours,Overtime Hours,"
              "CTO Hours,Holiday Hours,Bonus,Rate,Week Ending,Cell Phone,Mileage,Other,Supervisor,"
              "Position,Status,Hire Date,Reserved1,Reserved2\r\n"
              "0101,Ash Long,1234567,$0.00,10,40.00,2.00,0,0,$0.00,15.00,11/20/2026,$0.00,$0.00,"
              "$0.00,M. Stone,Cook,A,01/04/2021,,\r\n"
              "0101,Bay Short,1002,$0.00,10,30.00,1.50,0,0,$0.00,14.00,11/20/2026,$0.00,$0.00,"
              "$0.00,M. Stone,Server,A,02/05/2022,,\r\n");
    Operator op;
    auto w = PressAccess(s, op, input,
                         [](TimeImportWindow& win) { TypeInto(win.Widget(txtOT), QString()); });
    QCOMPARE(op.seen.size(), std::size_t{1});
    QVERIFY(op.seen[0].text.contains(QStringLiteral("\n4 Evolution records created.\n")));
    SummaryPanel& panel = w->Summary();
    QVERIFY(panel.isVisible());
    QCOMPARE(panel.WarningCount()->text(), QStringLiteral("4 warnings on 3 of 4 lines"));
    QCOMPARE(Listed(panel.Warnings()),
             (QStringList{"1|1234567|field-too-long", "2|1234567|field-too-long",
                          "2|1234567|code-blank", "4|1002|code-blank"}));
    QVERIFY(panel.Warnings()->isColumnHidden(0));  // one file: its name says nothing

    const QList<QByteArray> lines = Contents(s.Home() + "/out/123_ta.txt").split('\n');
    auto selected = [&panel] {
      const QTextCursor at = panel.FileView()->textCursor();
      return std::make_pair(at.blockNumber() + 1, at.selectedText());
    };
    // the first warning is chosen as the panel opens
    QCOMPARE(selected().first, 1);
    QVERIFY(panel.LineHeading()->text().contains(QStringLiteral("field 1 (employee number)")));

    // the operator picks the last warning from the list
    QTreeWidget* list = panel.Warnings();
    QTreeWidgetItem* last = list->topLevelItem(3);
    list->scrollToItem(last);
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(last).center());
    QCOMPARE(selected().first, 4);
    QCOMPARE(selected().second, QString::fromLatin1(lines[3].chopped(1)));  // without its CR
    QVERIFY(selected().second.contains(QStringLiteral(",E,,")));            // the blank code
    QVERIFY(panel.LineHeading()->text().startsWith(QStringLiteral("Line 4 of ")));
    QVERIFY(panel.LineHeading()->text().contains(QStringLiteral("field 7 (earning code)")));

    Click(panel.CopyButton());
    const QString copied = QGuiApplication::clipboard()->text();
    for (const char* warning : {"line 1, employee 1234567: field-too-long:",
                                "line 2, employee 1234567: code-blank: earning code is blank",
                                "line 4, employee 1002: code-blank: earning code is blank"}) {
      QVERIFY2(copied.contains(QString::fromLatin1(warning)), warning);
    }
  }

  // A press refused before reading says nothing: the panel of the press before closes rather
  // than show figures the form no longer holds.
  void aRefusedPressClosesThePanel() {
    Session s;
    const QString input = s.Home() + "/access.csv";
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), input));
    Operator op;
    auto w = PressAccess(s, op, input);
    QVERIFY(w->Summary().isVisible());
    TypeInto(w->Widget(CoNum), QString());
    op.seen.clear();
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].text, QStringLiteral("Please provide a valid Company Number"));
    QVERIFY(!w->Ended());
    QVERIFY(!w->Summary().isVisible());
  }
};

}  // namespace corvane::gui::test

int RunSummaryPanelTests(int argc, char** argv) {
  corvane::gui::test::SummaryPanelTest t;
  return QTest::qExec(&t, argc, argv);
}

#include "test_summary_panel.moc"
