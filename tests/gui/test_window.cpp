// The main window: start and exit, the format's boxes, the D-or-E rule, and a whole run.
#include <QApplication>
#include <QCheckBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

#include "gui/side_forms.hpp"
#include "gui_harness.hpp"

namespace corvane::gui::test {

namespace {

QString Text(TimeImportWindow& w, Ctl c) {
  if (auto* label = qobject_cast<QLabel*>(w.Widget(c))) return label->text();
  if (auto* edit = qobject_cast<QLineEdit*>(w.Widget(c))) return edit->text();
  if (auto* button = qobject_cast<QAbstractButton*>(w.Widget(c))) return button->text();
  return {};
}

bool Shown(TimeImportWindow& w, Ctl c) {
  return w.Widget(c)->isVisibleTo(&w);
}

QStringList Entries(QWidget* list_widget) {
  auto* list = static_cast<QListWidget*>(list_widget);
  QStringList out;
  for (int i = 0; i < list->count(); ++i) {
    if (!list->item(i)->isHidden()) out << list->item(i)->text();
  }
  return out;
}

void Touch(const QString& path) {
  QFile file(path);
  QVERIFY(file.open(QIODevice::WriteOnly));
}

// The lines of a file ended by CR LF; a last line without one counts as well.
int CrLfLines(const QByteArray& bytes) {
  return static_cast<int>(bytes.count("\r\n"));
}

}  // namespace

class WindowTest : public QObject {
  Q_OBJECT

 private slots:
  // First start: no settings yet, so the factory state and the note that the file will be
  // made; the title carries the version.
  void firstStartComesUpInTheFactoryState() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].title, QStringLiteral("Corvane"));
    QVERIFY(op.seen[0].text.startsWith(
        QStringLiteral("Unable to locate a file to store your default settings.\n\n")));
    QVERIFY(op.seen[0].text.endsWith(QStringLiteral("called: Corvane_Control.dat")));
    QCOMPARE(op.seen[0].buttons, QStringList{QStringLiteral("OK")});
    QCOMPARE(w->windowTitle(), QStringLiteral("Corvane Import Manager - v0.1"));
    QCOMPARE(Text(*w, CoNum), QStringLiteral("123"));
    QCOMPARE(Text(*w, txtReg), QStringLiteral("2"));
    QCOMPARE(static_cast<QListWidget*>(w->Widget(PickTC))->currentRow(), 0);
    QCOMPARE(static_cast<QListWidget*>(w->Widget(PickTC))->count(), 188);
    QVERIFY(!Shown(*w, ShowSample));
  }

  // "Access" shows nine groups, six of them under its own labels, hides the rest, and the
  // file list shows only what its pattern lets through.
  void choosingAFormatShowsAndLabelsItsBoxes() {
    Session s;
    Touch(s.Home() + "/week.csv");
    Touch(s.Home() + "/notes.CSV");
    Touch(s.Home() + "/week.txt");
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("Access"));
    QCOMPARE(Entries(w->Widget(PickTC)), QStringList{QStringLiteral("Access")});
    QCOMPARE(w->Form().ChosenTC, std::string("Access"));

    const std::pair<Ctl, const char*> shown[] = {
        {lblReg, "Reg"},   {lblOT, "OT"},       {lblDbl, "Salary"},
        {lblTips, "CTO"},  {lblSales, "Bonus"}, {lblHol, "Hol"},
        {lblMisc, "Cell"}, {lblDisb, "Mile"},   {lblAbs, "Other"}};
    for (auto [label, caption] : shown) {
      QCOMPARE(Text(*w, label), QString::fromLatin1(caption));
      QVERIFY2(Shown(*w, label), caption);
      const CategoryBoxes* boxes = nullptr;
      for (int i = 0; i < kCategoryCount; ++i) {
        if (Boxes(static_cast<Cat>(i)).label == label) boxes = &Boxes(static_cast<Cat>(i));
      }
      QVERIFY(Shown(*w, boxes->de) && Shown(*w, boxes->code));
      // a box under another label than its own has the label as its tool tip
      if (label != lblReg && label != lblOT && label != lblHol) {
        QCOMPARE(w->Widget(boxes->code)->toolTip(), QString::fromLatin1(caption));
      }
    }
    for (Ctl hidden : {lblWaitReg, txtWaitReg, txtCCtip, lbl15, txt15DE, txtAdjH, txtMinWage,
                       cmdAssEcodes, cmdTM, cmdKv8, lblUnavailable}) {
      QVERIFY2(!Shown(*w, hidden), Screen::NameOf(hidden).data());
    }
    QVERIFY(Shown(*w, chkSupEE));
    QCOMPARE(Entries(w->Widget(filInput)),
             (QStringList{QStringLiteral("notes.CSV"), QStringLiteral("week.csv")}));

    // A part of a name finds every clock holding it, in list order.
    TypeInto(w->PickTCFilter(), QStringLiteral("kronos v8"));
    QCOMPARE(Entries(w->Widget(PickTC)),
             (QStringList{QStringLiteral("Kronos v8"), QStringLiteral("Kronos v8D")}));
    QCOMPARE(op.seen.size(), std::size_t{1});  // only the first start's note
  }

  // Enter on a focused button presses it: Generate refuses at once on a fresh screen.
  void enterPressesTheFocusedButton() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    op.seen.clear();
    w->Widget(cmdInterface)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(w->Widget(cmdInterface), Qt::Key_Return);
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].kind, QStringLiteral("message"));
  }

  // Enter in the filter takes a name typed whole over a longer one listed before it.
  void filterEnterPrefersTheExactName() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    TypeInto(w->PickTCFilter(), QStringLiteral("time manager v2.8"));
    QCOMPARE(Entries(w->Widget(PickTC)).size(), 2);
    QTest::keyClick(w->PickTCFilter(), Qt::Key_Return);
    QCOMPARE(w->Form().ChosenTC, std::string("Time Manager v2.8"));
    TypeInto(w->PickTCFilter(), QStringLiteral("time manager v2"));
    QTest::keyClick(w->PickTCFilter(), Qt::Key_Return);
    QCOMPARE(w->Form().ChosenTC, std::string("Time Manager v2.8 csv"));  // no exact name: the first
  }

  // A refused press leaves the keyboard in the box the message is about.
  void refusalFocusesItsBox() {
    Session s;
    Touch(s.Home() + "/week.csv");
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("Access"));
    auto* files = static_cast<QListWidget*>(w->Widget(filInput));
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                      files->visualItemRect(files->item(0)).center());
    TypeInto(w->Widget(CorvaneOutputPath), s.Home());
    TypeInto(w->Widget(CoNum), QString());
    op.seen.clear();
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].text, QStringLiteral("Please provide a valid Company Number"));
    QApplication::setActiveWindow(w.get());
    QTRY_VERIFY(w->Widget(CoNum)->hasFocus());

    TypeInto(w->Widget(CoNum), QStringLiteral("123"));
    TypeInto(w->Widget(pdEndDate), QStringLiteral("99/99/9999"));
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{2});
    QCOMPARE(op.seen[1].text, QStringLiteral("Period Ending Date is not formatted properly."));
    QApplication::setActiveWindow(w.get());
    QTRY_VERIFY(w->Widget(pdEndDate)->hasFocus());
  }

  // "Show Sample" gives the keyboard to "Hide Sample" in its place, not to Company Number.
  void showSampleKeepsTheKeyboardOnTheButtons() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    w->Widget(cmdShowSample)->setFocus(Qt::TabFocusReason);
    QTest::keyClick(w->Widget(cmdShowSample), Qt::Key_Space);
    QVERIFY(Shown(*w, ShowSample));
    QVERIFY(w->Widget(cmdHideSample)->hasFocus());
    QTest::keyClick(w->Widget(cmdHideSample), Qt::Key_Space);
    QVERIFY(!Shown(*w, ShowSample));
    QVERIFY(w->Widget(cmdShowSample)->hasFocus());
    QCOMPARE(Text(*w, CoNum), QStringLiteral("123"));
  }

  // Browse chooses the input as a click in the file list does: a press refused for want of
  // an input file runs again after it. The dialog opens in the lists' folder.
  void browseForInputRecoversTheRefusedPress() {
    Session s;
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), s.Home() + "/access.csv"));
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("Access"));
    TypeInto(w->Widget(CorvaneOutputPath), s.Home());
    TypeInto(w->Widget(CoNum), QStringLiteral("123"));
    op.seen.clear();
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].text, QStringLiteral("You must enter an input filename"));
    Click(w->Widget(cmdInterface));  // kept: nothing until a file is chosen
    QCOMPARE(op.seen.size(), std::size_t{1});

    op.Answer(s.Home() + "/access.csv");
    Click(w->findChild<QPushButton*>(QStringLiteral("browseInput")));
    QCOMPARE(op.seen.size(), std::size_t{2});
    QCOMPARE(op.seen[1].kind, QStringLiteral("file"));
    QCOMPARE(op.seen[1].text, QDir(s.Home()).absolutePath());
    QCOMPARE(op.seen[1].buttons.size(), 2);
    QVERIFY(op.seen[1].buttons[0].contains(QStringLiteral("*.csv")));
    QVERIFY(op.seen[1].buttons[1].startsWith(QStringLiteral("All files")));
    QCOMPARE(Text(*w, CorvaneInputFile), s.Home() + "/access.csv");
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{3});
    QVERIFY(op.seen[2].text.startsWith(QStringLiteral("Import from Access Complete.")));

    // the output's Browse opens in the output folder list's folder and takes a folder
    QVERIFY(QDir(s.Home()).mkdir(QStringLiteral("out")));
    const QString shown = w->Widget(dirOutput)->toolTip();
    op.Answer(s.Home() + "/out");
    Click(w->findChild<QPushButton*>(QStringLiteral("browseOutput")));
    QCOMPARE(op.seen.size(), std::size_t{4});
    QCOMPARE(op.seen[3].kind, QStringLiteral("file"));
    QCOMPARE(op.seen[3].text, QDir(shown).absolutePath());
    QCOMPARE(Text(*w, CorvaneOutputPath), s.Home() + "/out");
  }

  // A folder typed as the output path moves the folder list there; a folder opened from the
  // list shows its top, in both lists.
  void folderListsFollowTheFolderOpened() {
    Session s;
    QDir home(s.Home());
    for (int i = 0; i < 60; ++i)
      QVERIFY(home.mkpath(QStringLiteral("d%1/e").arg(i, 2, 10, QChar('0'))));
    for (int i = 0; i < 60; ++i)
      Touch(s.Home() + QStringLiteral("/f%1.csv").arg(i, 2, 10, QChar('0')));
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("Access"));
    auto* folders = static_cast<QListWidget*>(w->Widget(dirOutput));

    TypeInto(w->Widget(CorvaneOutputPath), s.Home() + "/d07");
    QTest::keyClick(w->Widget(CorvaneOutputPath), Qt::Key_Return);
    QCOMPARE(folders->toolTip(), s.Home() + "/d07");
    QVERIFY(!folders->findItems(QStringLiteral("e"), Qt::MatchExactly).isEmpty());
    TypeInto(w->Widget(CorvaneOutputPath), s.Home() + "/nowhere");  // not a folder: stays
    QTest::keyClick(w->Widget(CorvaneOutputPath), Qt::Key_Return);
    QCOMPARE(folders->toolTip(), s.Home() + "/d07");

    // back up, to the end of the long list, then into a folder near its foot
    auto open = [](QListWidget* list, const QString& name) {
      QListWidgetItem* item = list->findItems(name, Qt::MatchExactly).value(0);
      QVERIFY(item != nullptr);
      list->scrollToItem(item);
      // a double click arrives as a click and then the second press
      const QPoint at = list->visualItemRect(item).center();
      QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
      QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at);
    };
    open(folders, QStringLiteral(".."));
    open(folders, QStringLiteral("d59"));
    QCOMPARE(folders->toolTip(), s.Home() + "/d59");
    QCOMPARE(folders->verticalScrollBar()->value(), 0);

    auto* files = static_cast<QListWidget*>(w->Widget(filInput));
    auto* inputs = static_cast<QListWidget*>(w->Widget(dirInput));
    files->scrollToBottom();
    QVERIFY(files->verticalScrollBar()->value() > 0);
    open(inputs, QStringLiteral("d00"));
    open(inputs, QStringLiteral(".."));
    QCOMPARE(files->verticalScrollBar()->value(), 0);
  }

  // The status line says what the next press will do where the screen keeps a press from
  // running, and a location hidden by the format that still names the files.
  void statusLineExplainsWhatAPressKeeps() {
    Session s;
    Touch(s.Home() + "/week.csv");
    Operator op;
    auto w = s.Open(op);
    QLabel* hint = w->HintLine();
    auto* output = static_cast<QLineEdit*>(w->Widget(CorvaneOutputPath));
    QCOMPARE(output->text(), QStringLiteral("Output path (folder for Evolution Import file)"));
    QVERIFY(hint->text().contains(QStringLiteral("makes a folder of that name")));
    QVERIFY(!output->styleSheet().isEmpty());
    TypeInto(output, s.Home());
    QVERIFY(!hint->text().contains(QStringLiteral("makes a folder")));
    QVERIFY(output->styleSheet().isEmpty());

    ChooseTimeClock(*w, QStringLiteral("Access"));
    op.seen.clear();
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{1});  // "You must enter an input filename"
    QVERIFY(hint->text().contains(QStringLiteral("until an input file is clicked")));
    auto* files = static_cast<QListWidget*>(w->Widget(filInput));
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                      files->visualItemRect(files->item(0)).center());
    QVERIFY(!hint->text().contains(QStringLiteral("until an input file")));

    ChooseTimeClock(*w, QStringLiteral("AccroPrint v2.0"));
    TypeInto(w->Widget(LocNum), QStringLiteral(" 7 "));
    QVERIFY(!hint->text().contains(QStringLiteral("Location")));  // shown: nothing to say
    ChooseTimeClock(*w, QStringLiteral("Access"));
    QVERIFY(!Shown(*w, LocNum));
    QVERIFY(hint->text().contains(QStringLiteral("Location 7 still names the files.")));
  }

  // A press that found no time clock chosen leaves every later press doing nothing until a
  // time clock is chosen: the status line says so, and choosing one brings the press back.
  void statusLineExplainsAPressWithNoTimeClock() {
    Session s;
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), s.Home() + "/access.csv"));
    Operator op;
    auto w = s.Open(op);
    QLabel* hint = w->HintLine();
    ChooseTimeClock(*w, QStringLiteral("Access"));
    auto* files = static_cast<QListWidget*>(w->Widget(filInput));
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                      files->visualItemRect(files->item(0)).center());
    TypeInto(w->Widget(CorvaneOutputPath), s.Home());
    static_cast<QListWidget*>(w->Widget(PickTC))->setCurrentRow(-1);
    QVERIFY(!hint->text().contains(QStringLiteral("time clock")));
    op.seen.clear();
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].text, QStringLiteral("Must Choose a Time Clock system from the list"));
    QVERIFY(hint->text().contains(QStringLiteral("until a time clock is chosen")));
    Click(w->Widget(cmdInterface));  // kept: nothing at all
    QCOMPARE(op.seen.size(), std::size_t{1});

    ChooseTimeClock(*w, QStringLiteral("Access"));
    QVERIFY(!hint->text().contains(QStringLiteral("time clock")));
    Click(w->Widget(cmdInterface));
    QCOMPARE(op.seen.size(), std::size_t{2});
    QVERIFY(op.seen[1].text.startsWith(QStringLiteral("Import from Access Complete.")));
  }

  // The location group comes and goes whole: no label of it stands alone.
  void locationGroupShowsWhole() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    const Ctl group[] = {lblLocLook, labLocNum, LocNum, cmdLookup};
    ChooseTimeClock(*w, QStringLiteral("Access"));
    for (Ctl c : group) QVERIFY(!Shown(*w, c));
    ChooseTimeClock(*w, QStringLiteral("AccroPrint v2.0"));
    for (Ctl c : group) QVERIFY(Shown(*w, c));
    // the group's heading is a heading over the whole group, its box included
    const QRect heading = w->Widget(lblLocLook)->geometry();
    const QRect box = w->Widget(LocNum)->geometry();
    QVERIFY(heading.bottom() <= box.top());
    QVERIFY(heading.right() >= box.left());
  }

  // A time clock without its translator is greyed in the list with a note; one with it is not.
  void untranslatedClocksAreMarked() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    auto* pick = static_cast<QListWidget*>(w->Widget(PickTC));
    QListWidgetItem* missing =
        pick->findItems(QStringLiteral("Yellow Dog"), Qt::MatchExactly).value(0);
    QListWidgetItem* written = pick->findItems(QStringLiteral("Access"), Qt::MatchExactly).value(0);
    QVERIFY(missing != nullptr && written != nullptr);
    QVERIFY(missing->toolTip().startsWith(QStringLiteral("Not translated yet")));
    QVERIFY(missing->foreground() != written->foreground());
    QVERIFY(written->toolTip().isEmpty());
  }

  // The rule runs as the operator leaves a D-or-E box, and three boxes are exempt from it.
  void deOrEBoxesCheckThemselvesOnLeaving() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    ChooseTimeClock(*w, QStringLiteral("Aloha v6"));  // shows Reg, OT, Hol and txt15
    op.seen.clear();
    auto leave = [&w](Ctl box, const QString& typed) {
      // the window has the focus back after a message, as the desktop gives it back
      QApplication::setActiveWindow(w.get());
      TypeInto(w->Widget(box), typed);
      w->Widget(CoNum)->setFocus(Qt::TabFocusReason);
      QApplication::processEvents();
    };

    leave(txtRegDE, QStringLiteral("x"));
    QCOMPARE(op.seen.size(), std::size_t{1});
    QCOMPARE(op.seen[0].title, QStringLiteral("Corvane"));
    QCOMPARE(op.seen[0].text,
             QStringLiteral("Please enter E for Earnings, D for Deductions, H, M or S."));
    QCOMPARE(op.seen[0].buttons, QStringList{QStringLiteral("OK")});
    QCOMPARE(Text(*w, txtRegDE), QStringLiteral("E"));
    QCOMPARE(w->Form().S.DE(Cat::Reg), std::string("E"));

    leave(txtOTDE, QStringLiteral("h"));  // accepted, in capitals
    QCOMPARE(Text(*w, txtOTDE), QStringLiteral("H"));
    leave(txtHolDE, QStringLiteral("x"));  // no check at all
    QCOMPARE(Text(*w, txtHolDE), QStringLiteral("x"));
    QCOMPARE(w->Form().S.DE(Cat::Hol), std::string("x"));
    QCOMPARE(op.seen.size(), std::size_t{1});

    leave(txt15DE, QString());  // an empty box is wrong too
    QCOMPARE(op.seen.size(), std::size_t{2});
    QCOMPARE(Text(*w, txt15DE), QStringLiteral("E"));
  }

  // The bundled "Access" export from the pickers to the report, and the screen as it was at
  // the next start.
  void wholeRunThroughTheWindow() {
    Session s;
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/access.csv"), s.Home() + "/access.csv"));
    QVERIFY(QDir(s.Home()).mkdir(QStringLiteral("out")));
    const QString out = s.Home() + "/out";
    {
      Operator op;
      auto w = s.Open(op);
      op.seen.clear();
      ChooseTimeClock(*w, QStringLiteral("Access"));
      auto* files = static_cast<QListWidget*>(w->Widget(filInput));
      QCOMPARE(Entries(files), QStringList{QStringLiteral("access.csv")});
      QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                        files->visualItemRect(files->item(0)).center());
      QCOMPARE(Text(*w, CorvaneInputFile), s.Home() + "/access.csv");
      // the output folder by the folder list: a double click goes into "out"
      auto* folders = static_cast<QListWidget*>(w->Widget(dirOutput));
      const QList<QListWidgetItem*> found =
          folders->findItems(QStringLiteral("out"), Qt::MatchExactly);
      QCOMPARE(found.size(), 1);
      // a double click arrives as a click and then the second press
      const QPoint at = folders->visualItemRect(found.front()).center();
      QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, at);
      QTest::mouseDClick(folders->viewport(), Qt::LeftButton, {}, at);
      QCOMPARE(Text(*w, CorvaneOutputPath), out);
      TypeInto(w->Widget(CoNum), QStringLiteral("123"));

      Click(w->Widget(cmdInterface));
      // eight employees; 25 categories with a value among them
      QCOMPARE(op.seen.size(), std::size_t{1});
      const Seen& report = op.seen.back();
      QCOMPARE(report.title, QStringLiteral("Corvane"));
      QVERIFY(report.text.startsWith(QStringLiteral("Import from Access Complete.\n\n")));
      QVERIFY(report.text.contains(QStringLiteral("\n8 Access records processed.\n")));
      QVERIFY(report.text.contains(QStringLiteral("\n25 Evolution records created.\n")));
      QVERIFY(report.text.contains(out + "/123_ta.txt"));
      QVERIFY(report.text.contains(out + "/Corvane_Audit_123.txt"));
      QCOMPARE(CrLfLines(Contents(out + "/123_ta.txt")), 25);
      QVERIFY(!Contents(out + "/Corvane_Audit_123.txt").isEmpty());
      QVERIFY(QApplication::overrideCursor() == nullptr);  // the hourglass is gone

      w->close();
    }
    const QByteArray control = Contents(s.Settings() + "/Corvane_Control.dat");
    QCOMPARE(CrLfLines(control), 102);
    QVERIFY(control.startsWith(QByteArray("1") + QByteArray(59, ' ') + "\r\n"));

    // The next start shows the screen as it was left, with no message.
    Operator op;
    auto w = s.Open(op);
    QCOMPARE(op.seen.size(), std::size_t{0});
    QCOMPARE(static_cast<QListWidget*>(w->Widget(PickTC))->currentItem()->text(),
             QStringLiteral("Access"));
    QCOMPARE(Text(*w, lblDbl), QStringLiteral("Salary"));
    QCOMPARE(Text(*w, CorvaneOutputPath), out);
    QCOMPARE(Text(*w, CorvaneInputFile), s.Home() + "/access.csv");
  }

  // A format that asks a question during the run and takes the company's earning codes and
  // customisation: the bundled "Kronos v8" export, the column count answered wrongly once.
  void runThatAsksTheOperator() {
    Session s;
    {
      Operator op;
      s.Open(op)->close();  // a first start, which leaves its control file
    }
    for (const char* name : {"TimeImport_EarnCodes.dat", "TimeImport_K8settings.dat"}) {
      const QString to = s.Settings() + "/" + name;
      QFile::remove(to);
      QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/settings/kronos-v8/") + name, to));
    }
    QVERIFY(QFile::copy(QStringLiteral(CORVANE_EXAMPLES "/kronos-v8.txt"),
                        s.Home() + "/kronos-v8.txt"));
    QVERIFY(QDir(s.Home()).mkdir(QStringLiteral("out")));
    const QString out = s.Home() + "/out";

    Operator op({QStringLiteral("0"), QStringLiteral("6")});
    auto w = s.Open(op);
    op.seen.clear();
    ChooseTimeClock(*w, QStringLiteral("Kronos v8"));
    auto* files = static_cast<QListWidget*>(w->Widget(filInput));
    QCOMPARE(Entries(files), QStringList{QStringLiteral("kronos-v8.txt")});
    QTest::mouseClick(files->viewport(), Qt::LeftButton, {},
                      files->visualItemRect(files->item(0)).center());
    auto* folders = static_cast<QListWidget*>(w->Widget(dirOutput));
    const QList<QListWidgetItem*> found =
        folders->findItems(QStringLiteral("out"), Qt::MatchExactly);
    QCOMPARE(found.size(), 1);
    const QPoint at = folders->visualItemRect(found.front()).center();
    QTest::mouseClick(folders->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(folders->viewport(), Qt::LeftButton, {}, at);
    TypeInto(w->Widget(CoNum), QStringLiteral("123"));

    Click(w->Widget(cmdInterface));
    // the question twice (0 is no count), the column without a code, the report
    QCOMPARE(op.seen.size(), std::size_t{4});
    for (int k : {0, 1}) {
      QCOMPARE(op.seen[k].kind, QStringLiteral("input"));
      QCOMPARE(op.seen[k].title, QStringLiteral("How many columns?"));
      QCOMPARE(op.seen[k].default_text, QStringLiteral("6"));
    }
    QCOMPARE(op.seen[2].text,
             QStringLiteral("Kronos v8 column 5 needs an Earning Code assigned to it."));
    QVERIFY(op.seen[3].text.contains(QStringLiteral("\n3 Kronos v8 records processed.\n")));
    QVERIFY(op.seen[3].text.contains(QStringLiteral("\n9 Evolution records created.\n")));
    QCOMPARE(CrLfLines(Contents(out + "/123_ta.txt")), 9);
    w->close();
  }

  // File/Exit leaves by the exit path: the side forms close and the screen is stored.
  void exitStoresTheScreenAndClosesTheForms() {
    Session s;
    Operator op;
    auto w = s.Open(op);
    TypeInto(w->Widget(CoNum), QStringLiteral("4711"));
    ChooseTimeClock(*w, QStringLiteral("ADI"));  // a clock whose codes come from the grid
    Click(w->Widget(cmdAssEcodes));
    QVERIFY(w->ECode().isVisible());
    w->ExitAction()->trigger();
    QVERIFY(!w->isVisible());
    QVERIFY(!w->ECode().isVisible());
    const QByteArray control = Contents(s.Settings() + "/Corvane_Control.dat");
    QCOMPARE(control.split('\n').value(3), QByteArray("4711") + QByteArray(56, ' ') + "\r");
    // the grid was not saved: only its Save writes the earning codes
    QVERIFY(Contents(s.Settings() + "/TimeImport_EarnCodes.dat").isEmpty());
  }

  // "Lookup" keeps a store's codes: an unknown store is added with the screen's codes, the
  // exit saves the table, and a lookup in a later session brings them back.
  void lookupKeepsTheCodesOfAStore() {
    Session s;
    {
      Operator op;
      auto w = s.Open(op);
      ChooseTimeClock(*w, QStringLiteral("AccroPrint v2.0"));  // shows the location group
      TypeInto(w->Widget(LocNum), QStringLiteral("7"));
      TypeInto(w->Widget(txtReg), QStringLiteral("R7"));
      Click(w->Widget(cmdLookup));
      QCOMPARE(Text(*w, txtReg), QStringLiteral("R7"));  // unknown: the screen is kept
      w->ExitAction()->trigger();
    }
    QVERIFY(Contents(s.Settings() + "/LocFile.dat").startsWith("7,ER7,E3,"));

    // The store number is not kept from one session to the next; its codes are.
    Operator op;
    auto w = s.Open(op);
    QCOMPARE(Text(*w, LocNum), QString());
    TypeInto(w->Widget(LocNum), QStringLiteral("8"));
    TypeInto(w->Widget(txtReg), QStringLiteral("R8"));
    Click(w->Widget(cmdLookup));
    TypeInto(w->Widget(LocNum), QStringLiteral("7"));
    Click(w->Widget(cmdLookup));
    QCOMPARE(Text(*w, txtReg), QStringLiteral("R7"));
  }

  // The answers come back as the button clicked, and a cancelled input box gives "".
  void dialogsAnswerWhatWasClicked() {
    QtOperator ui(nullptr, nullptr);
    Operator op({QStringLiteral("No"), QStringLiteral("Retry"), QStringLiteral("0042")});
    QCOMPARE(ui.MsgBox("Overwrite?\rThe file exists.", MsgButtons::YesNoCancel, "Corvane"),
             MsgAnswer::No);
    QCOMPARE(op.seen[0].text, QStringLiteral("Overwrite?\nThe file exists."));
    QCOMPARE(op.seen[0].buttons, (QStringList{"Yes", "No", "Cancel"}));
    QCOMPARE(ui.MsgBox("Locked.", MsgButtons::RetryCancel, "Corvane"), MsgAnswer::Retry);
    QCOMPARE(ui.InputBox("Store number?", "Location", "0001"), std::string("0042"));
    QCOMPARE(op.seen[2].kind, QStringLiteral("input"));
    QCOMPARE(op.seen[2].title, QStringLiteral("Location"));
    QCOMPARE(op.seen[2].text, QStringLiteral("Store number?"));
    QCOMPARE(op.seen[2].default_text, QStringLiteral("0001"));
    op.Answer(kCancel);
    QCOMPARE(ui.InputBox("Store number?", "Location", "0001").size(), std::size_t{0});
  }

  void aboutBoxShowsTitleAndVersion() {
    AboutBox about(nullptr);
    QCOMPARE(about.windowTitle(), QStringLiteral("About Corvane"));
    QCOMPARE(about.Title()->text(), QStringLiteral("Corvane"));
    QCOMPARE(about.Version()->text(), QStringLiteral("Version 0.1.0"));
    // wide enough for its title beside the frame's buttons
    about.show();
    QVERIFY(about.width() > about.fontMetrics().horizontalAdvance(about.windowTitle()) + 100);
  }
};

}  // namespace corvane::gui::test

int RunWindowTests(int argc, char** argv) {
  corvane::gui::test::WindowTest t;
  return QTest::qExec(&t, argc, argv);
}

#include "test_window.moc"
