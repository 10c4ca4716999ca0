// The side forms: the earning-code grid and the two customisations, through their windows.
#include <QApplication>
#include <QFile>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTest>

#include "gui/side_forms.hpp"
#include "gui_harness.hpp"

namespace corvane::gui::test {

namespace {

QStringList Headers(QTableWidget* grid) {
  QStringList out;
  for (int c = 0; c < grid->columnCount(); ++c) {
    if (!grid->isColumnHidden(c)) out << grid->horizontalHeaderItem(c)->text();
  }
  return out;
}

QStringList Row(QTableWidget* grid, int row) {
  QStringList out;
  for (int c = 0; c < grid->columnCount(); ++c) out << grid->item(row, c)->text();
  return out;
}

// The operator types into a cell and moves on.
void Edit(QTableWidget* grid, int row, int column, const QString& text) {
  grid->item(row, column)->setText(text);
}

}  // namespace

class FormsTest : public QObject {
  Q_OBJECT

 private slots:
  // A company without codes: the starter row, then a row added and typed in with values the
  // save mends; a letter in a number column is refused.
  void gridSavesAnAddedRowMended() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("ADI"));
    TypeInto(w->Widget(CoNum), QStringLiteral("77"));
    Click(w->Widget(cmdAssEcodes));
    ECodeWindow& form = w->ECode();
    QVERIFY(form.isVisible());
    QVERIFY(!form.isModal());
    QCOMPARE(form.windowTitle(),
             QStringLiteral("Assign Time Categories to Earning Codes - Company 77"));
    QTableWidget* grid = form.Grid();
    QCOMPARE(Headers(grid), (QStringList{"Company", "Time Category#", "D or E", "Earn Code",
                                         "$ or H", "Shift", "Skip? Y/N"}));
    QCOMPARE(grid->rowCount(), 1);
    QCOMPARE(Row(grid, 0), (QStringList{"77", "ADI", "1", "E", "?", "H", "1", "N"}));

    Click(form.AddRowButton());
    QCOMPARE(grid->rowCount(), 2);
    Edit(grid, 1, 0, QStringLiteral("77"));
    Edit(grid, 1, 2, QStringLiteral("seven"));
    QCOMPARE(grid->item(1, 2)->text(), QStringLiteral("0"));  // refused, as it was
    Edit(grid, 1, 2, QStringLiteral("7"));
    Edit(grid, 1, 3, QStringLiteral("d"));
    Edit(grid, 1, 4, QStringLiteral("R7"));
    Edit(grid, 1, 5, QStringLiteral("x"));
    Edit(grid, 1, 6, QStringLiteral("5"));
    Edit(grid, 1, 7, QStringLiteral("q"));
    // the main screen stays usable while the grid is open
    TypeInto(w->Widget(CoNum), QStringLiteral("78"));
    Click(form.SaveButton());
    QVERIFY(!form.isVisible());
    QCOMPARE(Contents(s.Settings() + "/TimeImport_EarnCodes.dat"),
             QByteArray("\"77\",\"ADI\",\"1\",\"E\",\"?\",\"H\",1,\"N\"\r\n"
                        "\"77\",\"ADI\",\"7\",\"D\",\"R7\",\"H\",1,\"N\"\r\n"));

    // Cancel keeps the file as it is.
    TypeInto(w->Widget(CoNum), QStringLiteral("77"));
    Click(w->Widget(cmdAssEcodes));
    QCOMPARE(grid->rowCount(), 2);
    Edit(grid, 0, 4, QStringLiteral("ZZ"));
    Click(form.CancelButton());
    QVERIFY(!form.isVisible());
    QCOMPARE(Contents(s.Settings() + "/TimeImport_EarnCodes.dat").count("ZZ"), 0);
    QCOMPARE(op.seen.size(), std::size_t{1});  // the first start's note, nothing since
  }

  // After "Add Row" the keyboard is in the new row's first cell, and every heading is whole.
  void gridTakesTheKeyboardAfterAddRow() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("ADI"));
    TypeInto(w->Widget(CoNum), QStringLiteral("77"));
    Click(w->Widget(cmdAssEcodes));
    ECodeWindow& form = w->ECode();
    QApplication::setActiveWindow(&form);
    QVERIFY(QTest::qWaitForWindowActive(&form));
    QTableWidget* grid = form.Grid();
    for (int c = 0; c < grid->columnCount(); ++c) {
      if (grid->isColumnHidden(c)) continue;
      const QString heading = grid->horizontalHeaderItem(c)->text();
      QVERIFY2(
          grid->columnWidth(c) > grid->horizontalHeader()->fontMetrics().horizontalAdvance(heading),
          qPrintable(heading));
    }

    Click(form.AddRowButton());
    QCOMPARE(grid->rowCount(), 2);
    QWidget* typing = QApplication::focusWidget();
    QVERIFY(typing != nullptr && grid->isAncestorOf(typing));
    QTest::keyClicks(typing, QStringLiteral("77"));
    QTest::keyClick(typing, Qt::Key_Return);
    // the editor hands its text over once the key has been dealt with
    QTRY_COMPARE(grid->item(1, 0)->text(), QStringLiteral("77"));
    Click(form.CancelButton());
  }

  // A stray Escape never loses rows being typed: with changes the grid stays open and says
  // which button does what; untouched, Escape closes it as Cancel does.
  void escapeKeepsAGridWithChanges() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("ADI"));
    TypeInto(w->Widget(CoNum), QStringLiteral("77"));
    Click(w->Widget(cmdAssEcodes));
    ECodeWindow& form = w->ECode();
    QTest::keyClick(form.Grid(), Qt::Key_Escape);
    QVERIFY(!form.isVisible());  // nothing typed: Escape is Cancel

    Click(w->Widget(cmdAssEcodes));
    QVERIFY(form.isVisible());
    QVERIFY(form.NoteLine()->text().isEmpty());
    Click(form.AddRowButton());
    QTRY_VERIFY(QApplication::focusWidget() != nullptr);
    // the first Escape leaves the cell's editor; the next reaches the grid's form
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QTest::keyClick(form.Grid(), Qt::Key_Escape);
    QVERIFY(form.isVisible());
    QCOMPARE(form.Grid()->rowCount(), 2);
    QVERIFY(form.NoteLine()->text().contains(QStringLiteral("\"Save Changes\" keeps them")));

    // Cancel still closes it, saving nothing, and a grid opened again starts clean
    Click(form.CancelButton());
    QVERIFY(!form.isVisible());
    QVERIFY(!QFile::exists(s.Settings() + "/TimeImport_EarnCodes.dat") ||
            !Contents(s.Settings() + "/TimeImport_EarnCodes.dat").contains("\"77\""));
    Click(w->Widget(cmdAssEcodes));
    QVERIFY(form.NoteLine()->text().isEmpty());
    QTest::keyClick(form.Grid(), Qt::Key_Escape);
    QVERIFY(!form.isVisible());
  }

  // The segment lengths check themselves as they are typed; the form saves what it shows.
  void timeManagerFormKeepsSegmentsWithinFifteen() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    op.seen.clear();
    ChooseTimeClock(*w, QStringLiteral("Time Manager v2.8"));
    QCOMPARE(static_cast<QPushButton*>(w->Widget(cmdTM))->text(),
             QStringLiteral("Customize Time Manager"));
    Click(w->Widget(cmdTM));
    TMdeptWindow& form = w->TMdept();
    QVERIFY(form.isVisible());
    QCOMPARE(form.windowTitle(), QStringLiteral("Time Manager Customization - Company 123"));
    QVERIFY(form.Choices().empno->isVisibleTo(&form));

    TypeInto(form.Length(0), QStringLiteral("5"));
    TypeInto(form.Length(1), QStringLiteral("5"));
    TypeInto(form.Length(2), QStringLiteral("5"));
    QCOMPARE(form.Include(2)->text(), QStringLiteral("T"));
    QVERIFY(op.seen.empty());
    TypeInto(form.Length(3), QStringLiteral("1"));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].title, QStringLiteral("Corvane - Time Manager"));
    QCOMPARE(op.seen[0].text, QStringLiteral("Total of all segments can not be greater than 15."));
    QCOMPARE(form.Length(3)->text(), QStringLiteral("0"));
    QCOMPARE(form.Include(3)->text(), QStringLiteral("F"));
    TypeInto(form.Include(1), QStringLiteral("f"));  // by hand: upper-cased, length kept
    QCOMPARE(form.Include(1)->text(), QStringLiteral("F"));
    Click(form.Choices().pr_no);
    Click(form.SaveButton());
    QVERIFY(!form.isVisible());
    QCOMPARE(Contents(s.Settings() + "/TimeImport_TMsettings.dat"),
             QByteArray("\"123\",\"True\",\"False\",\"True\",\"5\",\"T\",\"5\",\"F\",\"5\","
                        "\"T\",\"0\",\"F\"\r\n"));

    // Under "Department Breakout" the form is the breakout of Branch and Department only.
    ChooseTimeClock(*w, QStringLiteral("Kronos v6 csv"));
    Click(w->Widget(cmdTM));
    QVERIFY(form.isVisible());
    QCOMPARE(form.windowTitle(), QStringLiteral("Kronos/ADP Customization - Company 123"));
    QVERIFY(!form.Choices().empno->isVisibleTo(&form));
    QVERIFY(!form.Choices().pay_rate->isVisibleTo(&form));
    QVERIFY(!form.Choices().dept->isVisibleTo(&form));
    QVERIFY(!form.Length(0)->isVisibleTo(&form) && !form.SegmentLabel(3)->isVisibleTo(&form));
    QVERIFY(form.Length(1)->isVisibleTo(&form) && form.Include(2)->isVisibleTo(&form));
    Click(form.CancelButton());
    QVERIFY(!form.isVisible());
  }

  // New company: the defaults on the form; a double click leaves a list with no choice.
  void kronos8FormSavesTheChoices() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    op.seen.clear();
    ChooseTimeClock(*w, QStringLiteral("Kronos v8"));
    Click(w->Widget(cmdKv8));
    Kv8Window& form = w->Kv8();
    QVERIFY(form.isVisible());
    QCOMPARE(form.windowTitle(), QStringLiteral("Custom Settings for Kronos v8 - Company 123"));
    // the title follows the company and store the save will write to
    TypeInto(w->Widget(LocNum), QStringLiteral("7"));
    QCOMPARE(form.windowTitle(),
             QStringLiteral("Custom Settings for Kronos v8 - Company 123, Store 7"));
    TypeInto(w->Widget(LocNum), QString());
    QVERIFY(form.Choices().emp->isChecked() && form.Choices().pr_yes->isChecked() &&
            form.Choices().dept_yes->isChecked());
    for (int n = 1; n <= 6; ++n) QCOMPARE(form.List(n)->currentRow(), -1);

    Click(form.Choices().badge);
    auto pick = [](QListWidget* list, int row) {
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                        list->visualItemRect(list->item(row)).center());
    };
    pick(form.List(2), 1);
    pick(form.List(3), 2);
    QTest::mouseDClick(form.List(3)->viewport(), Qt::LeftButton, {},
                       form.List(3)->visualItemRect(form.List(3)->item(2)).center());
    QCOMPARE(form.List(3)->currentRow(), -1);
    Click(form.SaveButton());
    QVERIFY(!form.isVisible());
    QCOMPARE(Contents(s.Settings() + "/TimeImport_K8settings.dat"),
             QByteArray("\"123\",\"False\",\"True\",\"True\",\"-1\",\"1\",\"-1\",\"-1\",\"-1\","
                        "\"-1\"\r\n"));
    QVERIFY(op.seen.empty());
  }
  // A company the table cannot hold: the form warns when it opens, and its Save fails
  // outright, which ends the program at once without storing the screen.
  void failedSaveEndsTheProgramWithoutStoringTheScreen() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    op.seen.clear();
    ChooseTimeClock(*w, QStringLiteral("Kronos v8"));
    TypeInto(w->Widget(CoNum), QStringLiteral("O'Neil"));
    Click(w->Widget(cmdKv8));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].text,
             QStringLiteral("Warning - error occurred with gathering Kronos 8 data for O'Neil"));
    Click(w->Kv8().SaveButton());
    QCOMPARE(op.seen.size(), std::size_t{2});
    QVERIFY(op.seen[1].text.startsWith(QStringLiteral("Run-time error '")));
    QCOMPARE(op.seen[1].buttons, QStringList{QStringLiteral("OK")});
    QVERIFY(w->Ended());
    QVERIFY(!w->isVisible() && !w->Kv8().isVisible());
    QVERIFY(!QFile::exists(s.Settings() + "/Corvane_Control.dat"));
  }
};

}  // namespace corvane::gui::test

int RunFormTests(int argc, char** argv) {
  corvane::gui::test::FormsTest t;
  return QTest::qExec(&t, argc, argv);
}

#include "test_forms.moc"
