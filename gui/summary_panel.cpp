#include "gui/summary_panel.hpp"

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFontDatabase>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QTextBlock>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <array>

#include "gui/widgets.hpp"
#include "pipeline/import_check.hpp"
#include "pipeline/run_summary.hpp"
#include "pipeline/summary_report.hpp"

namespace corvane::gui {

namespace {

constexpr int kFileColumn = 0, kLineColumn = 1, kEmployeeColumn = 2, kRuleColumn = 3,
              kTextColumn = 4;

// The fields of an import line by number, as the operator knows them; the always-blank
// fields have no name of their own.
constexpr std::array<const char*, 30> kFieldNames = {
    "",
    "employee number",
    "name",
    "department",
    "job",
    "shift",
    "D or E",
    "earning code",
    "rate",
    "hours",
    "year",
    "month",
    "day",
    "",
    "",
    "amount",
    "sequence",
    "division",
    "branch",
    "state",
    "",
    "",
    "",
    "team (old layout)",
    "SSN",
    "workers' compensation",
    "rate number",
    "",
    "",
    "team (new layout)",
};

QString FieldNamed(int field) {
  if (field <= 0) return QStringLiteral("the whole line");
  QString out = QStringLiteral("field %1").arg(field);
  if (field < static_cast<int>(kFieldNames.size()) && *kFieldNames[field] != '\0') {
    out += QStringLiteral(" (") + QString::fromLatin1(kFieldNames[field]) + QLatin1Char(')');
  }
  return out;
}

QPlainTextEdit* ReadOnlyText(QWidget* parent, const QString& name) {
  auto* view = new QPlainTextEdit(parent);
  view->setObjectName(name);
  view->setReadOnly(true);
  view->setLineWrapMode(QPlainTextEdit::NoWrap);
  view->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  // read-only text still selects and copies by keyboard and mouse
  view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  return view;
}

}  // namespace

SummaryPanel::SummaryPanel(QWidget* main, const RunSummary& summary, const ImportCheck& check)
    : QDialog(main), summary_(summary), check_(check) {
  setObjectName(QStringLiteral("RunSummary"));
  setModal(false);
  setWindowTitle(QStringLiteral("Run summary"));
  auto* v = new QVBoxLayout(this);
  auto* split = new QSplitter(Qt::Vertical, this);

  table_ = ReadOnlyText(split, QStringLiteral("summaryTable"));
  split->addWidget(table_);

  auto* warnings = new QWidget(split);
  auto* wv = new QVBoxLayout(warnings);
  wv->setContentsMargins(0, 0, 0, 0);
  count_ = new QLabel(warnings);
  count_->setObjectName(QStringLiteral("warningCount"));
  QFont bold = count_->font();
  bold.setBold(true);
  count_->setFont(bold);
  wv->addWidget(count_);
  warnings_ = new QTreeWidget(warnings);
  warnings_->setObjectName(QStringLiteral("warnings"));
  warnings_->setRootIsDecorated(false);
  warnings_->setUniformRowHeights(true);
  warnings_->setHeaderLabels({QStringLiteral("File"), QStringLiteral("Line"),
                              QStringLiteral("Employee"), QStringLiteral("Rule"),
                              QStringLiteral("Warning")});
  warnings_->header()->setStretchLastSection(true);
  wv->addWidget(warnings_, 1);
  split->addWidget(warnings);

  auto* lines = new QWidget(split);
  auto* lv = new QVBoxLayout(lines);
  lv->setContentsMargins(0, 0, 0, 0);
  line_heading_ = new QLabel(lines);
  line_heading_->setObjectName(QStringLiteral("lineHeading"));
  line_heading_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  lv->addWidget(line_heading_);
  file_view_ = ReadOnlyText(lines, QStringLiteral("importFile"));
  lv->addWidget(file_view_, 1);
  split->addWidget(lines);
  split->setStretchFactor(0, 3);
  split->setStretchFactor(1, 2);
  split->setStretchFactor(2, 2);
  v->addWidget(split, 1);

  auto* buttons = new QHBoxLayout;
  copy_ = new QPushButton(QStringLiteral("Copy"), this);
  save_ = new QPushButton(QStringLiteral("Save..."), this);
  close_ = new QPushButton(QStringLiteral("Close"), this);
  buttons->addWidget(copy_);
  buttons->addWidget(save_);
  buttons->addStretch();
  buttons->addWidget(close_);
  v->addLayout(buttons);
  resize(760, 720);

  connect(warnings_, &QTreeWidget::currentItemChanged, this,
          [this](QTreeWidgetItem* item, QTreeWidgetItem*) {
            if (item != nullptr) ChooseWarning(item->data(kLineColumn, Qt::UserRole).toInt());
          });
  connect(copy_, &QPushButton::clicked, this,
          [this] { QGuiApplication::clipboard()->setText(FullText()); });
  connect(save_, &QPushButton::clicked, this, [this] { Save(); });
  connect(close_, &QPushButton::clicked, this, [this] { hide(); });
}

bool SummaryPanel::SaysAnything() const {
  return !summary_.files().empty() || summary_.dropped(DropReason::CodeX).count > 0 ||
         summary_.dropped(DropReason::NoFigures).count > 0 || check_.total_warnings() > 0;
}

void SummaryPanel::ShowPress(bool reported) {
  if (!reported && !SaysAnything()) {
    // the form no longer holds what the panel showed
    hide();
    return;
  }
  Fill();
  if (!placed_) {
    placed_ = true;
    // beside the main window where the screen has room, else below it
    if (QWidget* main = parentWidget(); main != nullptr && main->screen() != nullptr) {
      const QRect room = main->screen()->availableGeometry();
      const QRect frame = main->frameGeometry();
      const QPoint beside(frame.right() + 8, frame.top());
      const QPoint below(frame.left(), frame.bottom() + 8);
      if (room.contains(QRect(beside, size()))) {
        move(beside);
      } else if (room.contains(QRect(below, size()))) {
        move(below);
      }
    }
  }
  show();
  raise();
}

void SummaryPanel::Fill() {
  table_->setPlainText(Q(SummaryTable(summary_, check_)));

  const long total = check_.total_warnings();
  if (total == 0) {
    count_->setText(QStringLiteral("No warnings: %1 lines checked").arg(check_.lines_checked()));
  } else {
    QString text = QStringLiteral("%1 %2 on %3 of %4 lines")
                       .arg(total)
                       .arg(total == 1 ? QStringLiteral("warning") : QStringLiteral("warnings"))
                       .arg(check_.lines_with_warnings())
                       .arg(check_.lines_checked());
    if (check_.left_off() > 0) {
      text += QStringLiteral(" (the first %1 listed)").arg(check_.warnings().size());
    }
    count_->setText(text);
  }

  const QSignalBlocker hold(warnings_);
  warnings_->clear();
  QList<QTreeWidgetItem*> items;
  items.reserve(static_cast<qsizetype>(check_.warnings().size()));
  for (std::size_t i = 0; i < check_.warnings().size(); ++i) {
    const CheckWarning& w = check_.warnings()[i];
    auto* item = new QTreeWidgetItem;
    const std::size_t file = static_cast<std::size_t>(w.file);
    item->setText(kFileColumn, file < check_.files().size()
                                   ? QFileInfo(Q(check_.files()[file])).fileName()
                                   : QString());
    item->setText(kLineColumn, QString::number(w.line));
    item->setData(kLineColumn, Qt::UserRole, static_cast<int>(i));
    item->setText(kEmployeeColumn, Q(w.employee));
    item->setText(kRuleColumn, Q(RuleName(w.rule)));
    item->setText(kTextColumn, Q(w.text));
    item->setToolTip(kTextColumn, Q(w.text));
    items.append(item);
  }
  warnings_->addTopLevelItems(items);
  // the file matters only when the run wrote more than one
  warnings_->setColumnHidden(kFileColumn, check_.files().size() <= 1);
  for (int c : {kFileColumn, kLineColumn, kEmployeeColumn, kRuleColumn}) {
    warnings_->resizeColumnToContents(c);
  }

  // the files may have been written afresh by this press
  shown_file_ = -1;
  file_view_->clear();
  file_view_->setExtraSelections({});
  line_heading_->clear();
  if (!items.isEmpty()) {
    warnings_->setCurrentItem(items.front());
    ChooseWarning(0);
  }
}

bool SummaryPanel::LoadFile(int file) {
  if (file == shown_file_) return true;
  shown_file_ = file;
  file_view_->clear();
  if (file < 0 || static_cast<std::size_t>(file) >= check_.files().size()) return false;
  QFile in(Q(check_.files()[static_cast<std::size_t>(file)]));
  if (!in.open(QIODevice::ReadOnly)) {
    shown_file_ = -1;
    return false;
  }
  const QByteArray bytes = in.readAll();
  // One block a line, as the check numbers them: lines end in LF, a CR before it is the
  // line end's; a CR elsewhere is part of the line and must not start a block of its own.
  QString text = QString::fromLatin1(bytes);
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  text.replace(QLatin1Char('\r'), QChar(0x240D));
  if (text.endsWith(QLatin1Char('\n'))) text.chop(1);
  file_view_->setPlainText(text);
  return true;
}

void SummaryPanel::ChooseWarning(int index) {
  if (index < 0 || static_cast<std::size_t>(index) >= check_.warnings().size()) return;
  const CheckWarning& w = check_.warnings()[static_cast<std::size_t>(index)];
  const std::size_t file = static_cast<std::size_t>(w.file);
  const QString path = file < check_.files().size() ? Q(check_.files()[file]) : QString();
  if (!LoadFile(w.file)) {
    line_heading_->setText(QStringLiteral("The file %1 cannot be read.").arg(path));
    file_view_->setExtraSelections({});
    return;
  }
  line_heading_->setText(QStringLiteral("Line %1 of %2, employee %3: %4")
                             .arg(w.line)
                             .arg(path)
                             .arg(w.employee.empty() ? QStringLiteral("(blank)") : Q(w.employee))
                             .arg(FieldNamed(w.field)));
  const QTextBlock block = file_view_->document()->findBlockByNumber(static_cast<int>(w.line - 1));
  if (!block.isValid()) {
    // the file on disk is shorter than when it was checked
    file_view_->setExtraSelections({});
    return;
  }
  QTextCursor at(block);
  at.movePosition(QTextCursor::EndOfBlock, QTextCursor::KeepAnchor);
  file_view_->setTextCursor(at);
  file_view_->centerCursor();
  // marked as well, so that the line stands out while the list has the focus
  QTextEdit::ExtraSelection mark;
  mark.format.setBackground(QColor(255, 236, 140));
  mark.format.setProperty(QTextFormat::FullWidthSelection, true);
  mark.cursor = QTextCursor(block);
  file_view_->setExtraSelections({mark});
}

QString SummaryPanel::FullText() const {
  return Q(SummaryTable(summary_, check_, check_.warnings().size()));
}

bool SummaryPanel::SaveTo(const QString& path, QString* error) const {
  const std::string bytes = path.endsWith(QLatin1String(".txt"), Qt::CaseInsensitive)
                                ? SummaryTable(summary_, check_, check_.warnings().size())
                                : SummaryJson(summary_, check_);
  QFile out(path);
  const bool written = out.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                       out.write(bytes.data(), static_cast<qint64>(bytes.size())) ==
                           static_cast<qint64>(bytes.size()) &&
                       out.flush();
  if (!written && error != nullptr) *error = out.errorString();
  return written;
}

void SummaryPanel::Save() {
  // next to the import file, named after it
  QString suggested = QDir::homePath() + QStringLiteral("/summary.json");
  if (!summary_.files().empty()) {
    const QFileInfo import(Q(summary_.files().front().path));
    suggested = import.absolutePath() + QLatin1Char('/') + import.completeBaseName() +
                QStringLiteral("_summary.json");
  }
  const QString chosen = QFileDialog::getSaveFileName(
      this, QStringLiteral("Save the run summary"), suggested,
      QStringLiteral("Summary as JSON (*.json);;Summary as text (*.txt);;All files (*)"));
  if (chosen.isEmpty()) return;
  QString error;
  if (!SaveTo(chosen, &error)) {
    QMessageBox::warning(this, windowTitle(),
                         QStringLiteral("The summary could not be saved to %1:\n%2")
                             .arg(QDir::toNativeSeparators(chosen), error));
  }
}

}  // namespace corvane::gui
