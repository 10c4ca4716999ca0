#include "gui/main_window.hpp"

#include <QApplication>
#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QFocusEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QSignalBlocker>
#include <QStatusBar>
#include <QStorageInfo>
#include <QVBoxLayout>
#include <filesystem>
#include <tuple>

#include "gui/side_forms.hpp"
#include "gui/summary_panel.hpp"
#include "gui/widgets.hpp"
#include "pipeline/dispatch.hpp"
#include "pipeline/translator.hpp"
#include "runtime/errors.hpp"

namespace corvane::gui {

namespace {

QWidget* MakeWidget(const Control& c, QWidget* parent) {
  QWidget* w = nullptr;
  switch (c.kind) {
    case kListBox:
    case kList:
    case kDirList:
    case kFileList:
      w = new QListWidget(parent);
      break;
    case kTextBox:
      w = new QLineEdit(parent);
      break;
    case kLabel:
    case kImage:
      w = new QLabel(parent);
      break;
    case kCheckBox:
      w = new QCheckBox(parent);
      break;
    case kOptionButton:
      w = new QRadioButton(parent);
      break;
    case kComboBox:
    case kDriveList:
      w = new QComboBox(parent);
      break;
    case kCommandButton:
      w = new QPushButton(parent);
      break;
  }
  w->setObjectName(Q(c.name));
  return w;
}

// A heading of the screen that no event changes.
QLabel* Heading(std::string_view text) {
  auto* label = new QLabel(Q(text));
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

}  // namespace

TimeImportWindow::TimeImportWindow(Environment env, QWidget* parent)
    : QMainWindow(parent),
      progress_line_(new QLabel),
      ui_(this, progress_line_),
      F_(ui_, std::move(env)) {
  setObjectName(QStringLiteral("frmTimeImport"));
  Build();
  ecode_ = std::make_unique<ECodeWindow>(*this);
  kv8_ = std::make_unique<Kv8Window>(*this);
  tm_ = std::make_unique<TMdeptWindow>(*this);
  summary_ = std::make_unique<SummaryPanel>(this, F_.LastSummary(), F_.LastCheck());
  Connect();
  // Enter presses the focused button, here and on the side forms, as on every desktop
  for (QPushButton* button : findChildren<QPushButton*>()) button->setAutoDefault(true);
  setWindowTitle(Q(F_.Caption));
  ShowModel();
}

TimeImportWindow::~TimeImportWindow() = default;

void TimeImportWindow::Build() {
  for (int i = 0; i < kControlCount; ++i) {
    const Ctl c = static_cast<Ctl>(i);
    widgets_[c] = MakeWidget(F_.S[c], this);
  }
  auto* central = new QWidget(this);
  auto* columns = new QHBoxLayout(central);
  columns->addWidget(BuildPickPanel(), 3);
  columns->addWidget(BuildFieldsPanel(), 4);
  columns->addWidget(BuildCodesPanel(), 3);
  setCentralWidget(central);

  QMenu* file = menuBar()->addMenu(QStringLiteral("&File"));
  exit_ = file->addAction(QStringLiteral("E&xit"));
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Help"));
  about_ = help->addAction(QStringLiteral("&About"));

  progress_line_->setObjectName(QStringLiteral("progress"));
  statusBar()->addWidget(progress_line_, 1);
  hint_line_ = new QLabel;
  hint_line_->setObjectName(QStringLiteral("hint"));
  statusBar()->addPermanentWidget(hint_line_);
  resize(1180, 780);
}

QWidget* TimeImportWindow::BuildPickPanel() {
  auto* panel = new QWidget;
  auto* v = new QVBoxLayout(panel);
  auto* logo = static_cast<QLabel*>(widgets_[SorrelinLogo]);
  logo->setText(Q(kAppTitle));
  QFont big = logo->font();
  big.setPointSize(big.pointSize() + 8);
  big.setBold(true);
  logo->setFont(big);
  v->addWidget(logo);
  v->addWidget(Heading(kPickTCCaption));
  filter_ = new QLineEdit;
  filter_->setObjectName(QStringLiteral("PickTCFilter"));
  filter_->setPlaceholderText(QStringLiteral("Find a time clock"));
  filter_->setClearButtonEnabled(true);
  v->addWidget(filter_);
  v->addWidget(widgets_[PickTC], 3);
  auto* unavailable = static_cast<QLabel*>(widgets_[lblUnavailable]);
  unavailable->setStyleSheet(QStringLiteral("color: #b00000; font-weight: bold;"));
  v->addWidget(unavailable);
  auto* sample_buttons = new QHBoxLayout;
  sample_buttons->addWidget(widgets_[cmdShowSample]);
  sample_buttons->addWidget(widgets_[cmdHideSample]);
  sample_buttons->addStretch();
  v->addLayout(sample_buttons);
  v->addWidget(widgets_[ShowSample], 1);
  v->addWidget(widgets_[txtSample]);
  return panel;
}

QWidget* TimeImportWindow::BuildFieldsPanel() {
  auto* panel = new QWidget;
  auto* v = new QVBoxLayout(panel);

  auto* run = new QGridLayout;
  run->addWidget(widgets_[labCoNum], 0, 0);
  run->addWidget(widgets_[CoNum], 0, 1);
  run->addWidget(widgets_[labpdEndDate], 1, 0);
  run->addWidget(widgets_[pdEndDate], 1, 1);
  // the group's heading spans the row above its box, never a label beside nothing
  run->addWidget(widgets_[lblLocLook], 2, 0, 1, 2);
  run->addWidget(widgets_[labLocNum], 3, 0);
  auto* location = new QHBoxLayout;
  location->addWidget(widgets_[LocNum], 1);
  location->addWidget(widgets_[cmdLookup]);
  run->addLayout(location, 3, 1);
  v->addLayout(run);

  auto* input = new QGroupBox;
  auto* iv = new QVBoxLayout(input);
  auto* input_line = new QHBoxLayout;
  input_line->addWidget(widgets_[CorvaneInputFile], 1);
  auto* browse_input = new QPushButton(QStringLiteral("Browse..."));
  browse_input->setObjectName(QStringLiteral("browseInput"));
  connect(browse_input, &QPushButton::clicked, this, [this] { BrowseInput(); });
  input_line->addWidget(browse_input);
  iv->addLayout(input_line);
  auto* input_lists = new QGridLayout;
  input_lists->addWidget(widgets_[drvInput], 0, 0);
  input_lists->addWidget(widgets_[dirInput], 1, 0);
  input_lists->addWidget(widgets_[filInput], 0, 1, 2, 1);
  iv->addLayout(input_lists);
  v->addWidget(input, 2);

  auto* output = new QGroupBox;
  auto* ov = new QVBoxLayout(output);
  ov->addWidget(Heading(kOutputPickerCaption));
  auto* output_line = new QHBoxLayout;
  output_line->addWidget(widgets_[CorvaneOutputPath], 1);
  auto* browse_output = new QPushButton(QStringLiteral("Browse..."));
  browse_output->setObjectName(QStringLiteral("browseOutput"));
  connect(browse_output, &QPushButton::clicked, this, [this] { BrowseOutput(); });
  output_line->addWidget(browse_output);
  ov->addLayout(output_line);
  ov->addWidget(widgets_[drvOutput]);
  ov->addWidget(widgets_[dirOutput], 1);
  v->addWidget(output, 1);

  // The two layouts are one choice: their buttons share a parent of their own.
  auto* format = new QGroupBox;
  auto* fh = new QHBoxLayout(format);
  fh->addWidget(Heading(kFormatChoiceCaption));
  widgets_[optOldFormat]->setParent(format);
  widgets_[optNewFormat]->setParent(format);
  fh->addWidget(widgets_[optOldFormat]);
  fh->addWidget(widgets_[optNewFormat]);
  fh->addStretch();
  v->addWidget(format);

  auto* options = new QGridLayout;
  options->addWidget(widgets_[lblMinWage], 0, 0);
  options->addWidget(widgets_[txtMinWage], 0, 1);
  options->addWidget(widgets_[lblMiscText], 0, 2);
  options->addWidget(widgets_[txtMiscText], 0, 3);
  options->addWidget(widgets_[lblOver], 1, 0, 1, 4);
  const Ctl boxes[] = {chkDept, chkDiv,  chkBr,    chkPayRate, chkSSN,
                       chkJob,  chkTeam, chkSupEE, chkXref,    chkAll};
  for (int i = 0; i < static_cast<int>(std::size(boxes)); ++i) {
    options->addWidget(widgets_[boxes[i]], 2 + i / 2, (i % 2) * 2, 1, 2);
  }
  const Ctl wg[][2] = {{lblWG1, cmboWG1}, {lblWG2, cmboWG2}, {lblWG3, cmboWG3}};
  for (int i = 0; i < 3; ++i) {
    options->addWidget(widgets_[wg[i][0]], 7 + i, 0);
    options->addWidget(widgets_[wg[i][1]], 7 + i, 1, 1, 3);
  }
  v->addLayout(options);
  v->addStretch();
  return panel;
}

QWidget* TimeImportWindow::BuildCodesPanel() {
  auto* panel = new QWidget;
  auto* v = new QVBoxLayout(panel);
  v->addWidget(widgets_[lblEarnCode]);
  auto* groups = new QWidget;
  auto* grid = new QGridLayout(groups);
  for (int i = 0; i < kCategoryCount; ++i) {
    const CategoryBoxes& b = Boxes(static_cast<Cat>(i));
    grid->addWidget(widgets_[b.label], i, 0);
    static_cast<QLineEdit*>(widgets_[b.de])->setMaximumWidth(36);
    grid->addWidget(widgets_[b.de], i, 1);
    grid->addWidget(widgets_[b.code], i, 2);
  }
  grid->setRowStretch(kCategoryCount, 1);
  auto* scroll = new QScrollArea;
  scroll->setWidgetResizable(true);
  scroll->setWidget(groups);
  v->addWidget(scroll, 1);
  for (Ctl button : {cmdAssEcodes, cmdKv8, cmdTM}) v->addWidget(widgets_[button]);
  auto* generate = static_cast<QPushButton*>(widgets_[cmdInterface]);
  generate->setMinimumHeight(44);
  v->addWidget(generate);
  return panel;
}

void TimeImportWindow::Connect() {
  for (int i = 0; i < kControlCount; ++i) {
    const Ctl id = static_cast<Ctl>(i);
    Control* c = &F_.S[id];
    QWidget* w = widgets_[id];
    switch (c->kind) {
      case kTextBox: {
        auto* edit = static_cast<QLineEdit*>(w);
        connect(edit, &QLineEdit::textEdited, this, [c](const QString& t) { c->text = L(t); });
        if (id == CoNum || id == LocNum) {
          // the customisation forms' titles name the company and store as they are typed
          connect(edit, &QLineEdit::textEdited, this, [this] {
            kv8_->ShowModel();
            tm_->ShowModel();
          });
        }
        if (id == CorvaneOutputPath || id == LocNum) {
          connect(edit, &QLineEdit::textEdited, this, [this] { ShowHints(); });
        }
        if (id == CorvaneOutputPath) {
          // a folder typed whole is where the output folder list goes, as a double click would;
          // on Enter or leaving the box, so that the list does not follow every keystroke
          connect(edit, &QLineEdit::editingFinished, this, [this, edit] {
            const QString typed = edit->text();
            if (typed.isEmpty() || !QFileInfo(typed).isDir()) return;
            F_.S[dirOutput].text = L(QDir(typed).absolutePath());
            F_.S[dirOutput].list_index = -1;
            ShowFolder(dirOutput);
          });
        }
        edit->installEventFilter(this);
        break;
      }
      case kCheckBox:
        connect(static_cast<QCheckBox*>(w), &QCheckBox::stateChanged, this, [c](int state) {
          c->value = state == Qt::Checked ? 1 : state ? 2 : 0;
        });
        break;
      case kOptionButton:
        // the pair of layouts: switching one on switches the other off
        connect(static_cast<QRadioButton*>(w), &QRadioButton::toggled, this, [this, id](bool on) {
          F_.S[id].value = on ? 1 : 0;
          if (on) F_.S[id == optOldFormat ? optNewFormat : optOldFormat].value = 0;
        });
        break;
      case kComboBox:
        connect(static_cast<QComboBox*>(w), &QComboBox::activated, this,
                [c](int index) { c->list_index = index; });
        break;
      default:
        break;
    }
  }

  auto* pick = static_cast<QListWidget*>(widgets_[PickTC]);
  connect(pick, &QListWidget::currentRowChanged, this, [this](int row) {
    if (!showing_) Event([this, row] { F_.SelectTimeClock(row); });
  });
  // The filter only hides names; every entry keeps its index in the list.
  connect(filter_, &QLineEdit::textChanged, this, [pick](const QString& text) {
    for (int i = 0; i < pick->count(); ++i) {
      pick->item(i)->setHidden(!pick->item(i)->text().contains(text, Qt::CaseInsensitive));
    }
  });
  connect(filter_, &QLineEdit::returnPressed, this, [this, pick] {
    // a name typed whole is the one meant, even where a longer name comes before it
    for (int i = 0; i < pick->count(); ++i) {
      if (pick->item(i)->text().compare(filter_->text(), Qt::CaseInsensitive) == 0) {
        return pick->setCurrentRow(i);
      }
    }
    for (int i = 0; i < pick->count(); ++i) {
      if (!pick->item(i)->isHidden()) return pick->setCurrentRow(i);
    }
  });

  auto* sample = static_cast<QListWidget*>(widgets_[ShowSample]);
  connect(sample, &QListWidget::currentRowChanged, this, [this](int row) {
    if (showing_ || row < 0) return;
    Event([this, row] {
      F_.S[ShowSample].list_index = row;
      F_.S.ShowSample_Click();
    });
  });

  for (Ctl drive : {drvInput, drvOutput}) {
    connect(static_cast<QComboBox*>(widgets_[drive]), &QComboBox::activated, this,
            [this, drive](int index) {
              auto* box = static_cast<QComboBox*>(widgets_[drive]);
              Event([this, drive, text = L(box->itemText(index))] {
                F_.S[drive].text = text;
                drive == drvInput ? F_.S.drvInput_Change() : F_.S.drvOutput_Change();
              });
            });
  }
  for (Ctl dir : {dirInput, dirOutput}) {
    connect(static_cast<QListWidget*>(widgets_[dir]), &QListWidget::itemActivated, this,
            [this, dir](QListWidgetItem* item) {
              Event([this, dir, path = L(item->data(Qt::UserRole).toString())] {
                F_.S[dir].text = path;
                F_.S[dir].list_index = -1;
                dir == dirInput ? F_.S.dirInput_Change() : F_.S.dirOutput_Change();
              });
            });
  }
  connect(static_cast<QListWidget*>(widgets_[filInput]), &QListWidget::itemClicked, this,
          [this](QListWidgetItem* item) {
            Event([this, name = L(item->text())] {
              F_.S[filInput].file_name = name;
              F_.INFile = F_.S.filInput_Click();
            });
          });
  ConnectButtons();
  connect(exit_, &QAction::triggered, this, [this] { Exit(); });
  connect(about_, &QAction::triggered, this, [this] { About(); });
}

void TimeImportWindow::ConnectButtons() {
  // The press, then its summary beside the window once the report has been answered.
  connect(static_cast<QPushButton*>(widgets_[cmdInterface]), &QPushButton::clicked, this, [this] {
    ui_.Forget();
    if (!Event([this] { F_.cmdInterface_Click(); })) return;
    FocusRefusedBox();
    summary_->ShowPress(F_.Reported());
  });
  const std::pair<Ctl, std::function<void()>> buttons[] = {
      {cmdLookup, [this] { F_.cmdLookup_Click(); }},
      {cmdAssEcodes, [this] { F_.cmdAssEcodes_Click(); }},
      {cmdKv8, [this] { F_.cmdKv8_Click(); }},
      {cmdTM, [this] { F_.cmdTM_Click(); }},
  };
  for (const auto& [id, handler] : buttons) {
    connect(static_cast<QPushButton*>(widgets_[id]), &QPushButton::clicked, this,
            [this, handler = handler] { Event(handler); });
  }
  // The two sample buttons take each other's place: the keyboard goes to the one now shown
  // rather than on to the next box, where a stray key would overwrite its text.
  for (const auto& [id, other, handler] :
       {std::tuple{cmdShowSample, cmdHideSample, &Screen::cmdShowSample_Click},
        std::tuple{cmdHideSample, cmdShowSample, &Screen::cmdHideSample_Click}}) {
    connect(static_cast<QPushButton*>(widgets_[id]), &QPushButton::clicked, this,
            [this, id = id, other = other, handler = handler] {
              const bool had_focus = widgets_[id]->hasFocus();
              Event([this, handler] { (F_.S.*handler)(); });
              if (had_focus && widgets_[other]->isVisible()) {
                widgets_[other]->setFocus(Qt::OtherFocusReason);
              }
            });
  }
}

void TimeImportWindow::FocusRefusedBox() {
  // a refusal names the box to put right; the keyboard goes there, not back to Generate
  const std::string& message = ui_.LastMessage();
  Ctl box;
  if (message == "You must enter an input filename") {
    box = CorvaneInputFile;
  } else if (message == "Please provide a valid Company Number") {
    box = CoNum;
  } else if (message.rfind("Period Ending Date", 0) == 0) {
    box = pdEndDate;
  } else {
    return;
  }
  if (widgets_[box]->isVisible()) widgets_[box]->setFocus(Qt::OtherFocusReason);
}

bool TimeImportWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) {
    // Leaving a box is the operator moving on; the window losing focus or a menu opening
    // over it is not.
    const Qt::FocusReason why = static_cast<QFocusEvent*>(event)->reason();
    if (why != Qt::ActiveWindowFocusReason && why != Qt::PopupFocusReason) {
      for (int i = 0; i < kControlCount; ++i) {
        const Ctl id = static_cast<Ctl>(i);
        if (widgets_[id] != watched || !Screen::Validates(id)) continue;
        Event([this, id] { F_.S.LeaveBox(id, ui_); });
        break;
      }
    }
  }
  return QMainWindow::eventFilter(watched, event);
}

bool TimeImportWindow::Event(const std::function<void()>& handler) {
  if (ended_) return false;
  try {
    handler();
  } catch (const RuntimeError& error) {
    End(error);
    return false;
  } catch (const FatalError& fatal) {
    End(fatal.error());
    return false;
  }
  ShowModel();
  return true;
}

void TimeImportWindow::End(const RuntimeError& error) {
  ended_ = true;
  ui_.RuntimeErrorReport(error);
  ecode_->hide();
  kv8_->hide();
  tm_->hide();
  summary_->hide();
  close();
  QCoreApplication::exit(3);
}

void TimeImportWindow::ShowModel() {
  showing_ = true;
  setWindowTitle(Q(F_.Caption));
  for (int i = 0; i < kControlCount; ++i) {
    const Ctl id = static_cast<Ctl>(i);
    if (id == dirInput || id == dirOutput || id == drvInput || id == drvOutput) continue;
    ShowControl(F_.S[id], widgets_[id]);
  }
  ShowDrives(drvInput);
  ShowDrives(drvOutput);
  ShowFolder(dirInput);
  ShowFolder(dirOutput);
  ShowFileChoice();
  ShowHints();
  MarkUnwritten();
  showing_ = false;
  ecode_->ShowModel();
  kv8_->ShowModel();
  tm_->ShowModel();
}

void TimeImportWindow::MarkUnwritten() {
  auto* pick = static_cast<QListWidget*>(widgets_[PickTC]);
  // the list's entries are set once; they are marked once with them
  if (pick->property("marked").toInt() == pick->count()) return;
  pick->setProperty("marked", pick->count());
  for (int i = 0; i < pick->count(); ++i) {
    QListWidgetItem* item = pick->item(i);
    const ClockEntry* clock = FindClock(L(item->text()));
    if (clock != nullptr && FindTranslator(clock->translator) != nullptr) continue;
    // a press with this clock stops at once: not translated yet
    item->setForeground(pick->palette().brush(QPalette::Disabled, QPalette::Text));
    item->setToolTip(QStringLiteral("Not translated yet: Generate stops at once"));
  }
}

void TimeImportWindow::ShowHints() {
  // The prompts the boxes start with: a press that met them keeps doing nothing after.
  const std::string input_prompt = "Input file (from Time Clock system)";
  const std::string output_prompt = "Output path (folder for Evolution Import file)";
  QStringList hints;
  if (F_.ChosenTC == "Nothing") {
    hints << QStringLiteral("Generate does nothing until a time clock is chosen in the list.");
  }
  if (F_.INFile == Value(input_prompt)) {
    hints << QStringLiteral(
        "Generate does nothing until an input file is clicked in the file list or chosen with "
        "Browse.");
  }
  // the press makes a folder of whatever the box holds, its prompt included
  auto* output = static_cast<QLineEdit*>(widgets_[CorvaneOutputPath]);
  const bool output_prompt_left = F_.S[CorvaneOutputPath].text == output_prompt;
  output->setStyleSheet(output_prompt_left ? QStringLiteral("background: #fff3c4;") : QString());
  if (output_prompt_left) {
    hints << QStringLiteral(
        "The output path is still its prompt: a press makes a folder of that "
        "name.");
  }
  // a location typed before a format that hides it still names the files
  const QString location = Q(F_.S[LocNum].text).trimmed();
  if (!F_.S[LocNum].visible && !location.isEmpty()) {
    hints << QStringLiteral("Location %1 still names the files.").arg(location);
  }
  hint_line_->setText(hints.join(QLatin1Char(' ')));
}

void TimeImportWindow::ShowDrives(Ctl drive) {
  auto* box = static_cast<QComboBox*>(widgets_[drive]);
  const QSignalBlocker hold(box);
  // The drives: the root, the home folder, and the disks mounted where the desktop mounts
  // them; the one the model names is always among them.
  QStringList roots{QDir::rootPath(), QDir::homePath(), Q(F_.S[drive].text)};
  for (const QStorageInfo& volume : QStorageInfo::mountedVolumes()) {
    const QString root = volume.rootPath();
    if (volume.isValid() && volume.isReady() &&
        (root.startsWith(QLatin1String("/media/")) || root.startsWith(QLatin1String("/mnt/")) ||
         root.startsWith(QLatin1String("/run/media/")))) {
      roots << root;
    }
  }
  roots.removeDuplicates();
  roots.sort();
  if (box->count() != roots.size()) {
    box->clear();
    box->addItems(roots);
  }
  box->setCurrentIndex(static_cast<int>(roots.indexOf(Q(F_.S[drive].text))));
  box->setVisible(F_.S[drive].visible);
}

void TimeImportWindow::ShowFolder(Ctl dir) {
  auto* list = static_cast<QListWidget*>(widgets_[dir]);
  const QSignalBlocker hold(list);
  const QString path = Q(F_.S[dir].text);
  list->setToolTip(path);
  list->setVisible(F_.S[dir].visible);
  if (list->property("folder").toString() == path && list->count() > 0) return;
  list->setProperty("folder", path);
  list->clear();
  // a folder just opened reads from its top
  list->scrollToTop();
  QDir folder(path);
  auto add = [list](const QString& shown, const QString& target) {
    auto* item = new QListWidgetItem(shown, list);
    item->setData(Qt::UserRole, target);
  };
  add(QStringLiteral("[") + QDir::toNativeSeparators(folder.absolutePath()) + QStringLiteral("]"),
      folder.absolutePath());
  if (!folder.isRoot()) {
    QDir up = folder;
    if (up.cdUp()) add(QStringLiteral(".."), up.absolutePath());
  }
  for (const QString& name :
       folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name | QDir::IgnoreCase)) {
    add(name, folder.absoluteFilePath(name));
  }
}

void TimeImportWindow::ShowFileChoice() {
  auto* list = static_cast<QListWidget*>(widgets_[filInput]);
  const QSignalBlocker hold(list);
  const Control& files = F_.S[filInput];
  list->setToolTip(Q(files.pattern));
  // the files of a folder just opened read from the top
  if (list->property("folder").toString() != Q(files.text)) {
    list->setProperty("folder", Q(files.text));
    list->scrollToTop();
  }
  const QList<QListWidgetItem*> chosen = list->findItems(Q(files.file_name), Qt::MatchExactly);
  list->setCurrentItem(chosen.isEmpty() ? nullptr : chosen.front());
}

void TimeImportWindow::BrowseInput() {
  // The format's pattern as the dialog's first filter ("*.csv;*.txt" shows both kinds), and
  // every file as the second, opening in the folder the lists show.
  QString patterns = Q(F_.S[filInput].pattern);
  patterns.replace(QLatin1Char(';'), QLatin1Char(' '));
  QFileDialog dialog(this, QStringLiteral("Input file (from Time Clock system)"),
                     Q(F_.S[dirInput].text));
  dialog.setFileMode(QFileDialog::ExistingFile);
  dialog.setNameFilters({patterns, QStringLiteral("All files (*)")});
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  // as the lists would: the folder list goes to the folder, then a click on the file
  const QFileInfo file(dialog.selectedFiles().front());
  Event([this, folder = L(file.absolutePath()), name = L(file.fileName())] {
    F_.S[dirInput].text = folder;
    F_.S[dirInput].list_index = -1;
    F_.S.dirInput_Change();
    F_.S[filInput].file_name = name;
    F_.INFile = F_.S.filInput_Click();
  });
}

void TimeImportWindow::BrowseOutput() {
  QFileDialog dialog(this, Q(kOutputPickerCaption), Q(F_.S[dirOutput].text));
  dialog.setFileMode(QFileDialog::Directory);
  dialog.setOption(QFileDialog::ShowDirsOnly);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return;
  Event([this, folder = L(dialog.selectedFiles().front())] {
    F_.S[dirOutput].text = folder;
    F_.S[dirOutput].list_index = -1;
    F_.S.dirOutput_Change();
  });
}

void TimeImportWindow::Start() {
  Event([this] { F_.Form_Load(); });
  // the restored time clock in view
  if (auto* pick = static_cast<QListWidget*>(widgets_[PickTC]); pick->currentItem() != nullptr) {
    pick->scrollToItem(pick->currentItem(), QAbstractItemView::PositionAtCenter);
  }
}

void TimeImportWindow::About() {
  AboutBox about(this);
  about.exec();
}

void TimeImportWindow::Exit() {
  if (ended_ || exited_) return;
  exited_ = true;
  Event([this] { F_.Exit(); });
  close();
}

void TimeImportWindow::closeEvent(QCloseEvent* event) {
  // Closing the window any other way than Exit goes to the main form's unloading directly.
  if (!ended_ && !exited_) {
    exited_ = true;
    Event([this] { F_.Form_Unload(); });
  }
  ecode_->hide();
  kv8_->hide();
  tm_->hide();
  summary_->hide();
  event->accept();
}

}  // namespace corvane::gui
