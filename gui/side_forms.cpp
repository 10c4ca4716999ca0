#include "gui/side_forms.hpp"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QStyle>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>

#include "gui/main_window.hpp"
#include "gui/widgets.hpp"

namespace corvane::gui {

namespace {

// The grid's widths are in twips; the screen has fifteen to a pixel.
constexpr int kTwipsPerPixel = 15;
// room beside a heading's text for the frame of its section
constexpr int kHeadingSlack = 12;
// the width a window frame gives its close button and the rest beside the title
constexpr int kTitleBarButtons = 160;

QLabel* BoldLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  QFont font = label->font();
  font.setBold(true);
  label->setFont(font);
  return label;
}

// A side form's window opens or closes as its model's visibility says; an open one comes to
// the front when shown again.
void FollowVisibility(QDialog* window, bool visible) {
  if (visible && !window->isVisible()) {
    window->show();
    window->raise();
  } else if (!visible && window->isVisible()) {
    window->hide();
  }
}

// A side form's title with the company it edits, and the store when one is typed: the main
// screen stays usable while the form is open, so the title says whose settings these are.
QString TitleFor(std::string_view caption, const std::string& company, const std::string& store) {
  QString title = Q(caption) + QStringLiteral(" - Company ") + Q(company).trimmed();
  if (!Q(store).trimmed().isEmpty()) title += QStringLiteral(", Store ") + Q(store).trimmed();
  return title;
}

QPushButton* Button(QWidget* parent, const Control& model) {
  auto* button = new QPushButton(Q(model.caption), parent);
  button->setObjectName(Q(model.name));
  return button;
}

void ShowFrame(QGroupBox* frame, const Control& model) {
  frame->setTitle(Q(model.caption));
  frame->setToolTip(Q(model.tooltip));
  frame->setVisible(model.visible);
}

// The Save and Cancel buttons at the foot of a customisation form; each runs its handler as an
// event of the main window.
template <class Form>
void AddSaveCancel(QWidget* parent, QVBoxLayout* v, TimeImportWindow& main,
                   Form frmTimeImport::*form, QPushButton*& save, QPushButton*& cancel) {
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  save = Button(parent, (main.Form().*form).cmdClose);
  cancel = Button(parent, (main.Form().*form).cmdCancel);
  buttons->addWidget(save);
  buttons->addWidget(cancel);
  v->addLayout(buttons);
  QObject::connect(save, &QPushButton::clicked, parent, [&main, form] {
    main.Event([&main, form] { (main.Form().*form).cmdClose_Click(); });
  });
  QObject::connect(cancel, &QPushButton::clicked, parent, [&main, form] {
    main.Event([&main, form] { (main.Form().*form).cmdCancel_Click(); });
  });
}

}  // namespace

// --- frmECode ------------------------------------------------------------------------------

ECodeWindow::ECodeWindow(TimeImportWindow& main) : QDialog(&main), main_(main) {
  setObjectName(QStringLiteral("frmECode"));
  setModal(false);
  setWindowTitle(Q(frmECode::kCaption));
  auto* v = new QVBoxLayout(this);
  heading_ = BoldLabel(this);
  heading_->setText(Q(DataGrid::kHeading));
  v->addWidget(heading_);
  grid_ = new QTableWidget(this);
  grid_->setObjectName(QStringLiteral("ECodeGrid"));
  grid_->setSelectionBehavior(QAbstractItemView::SelectItems);
  v->addWidget(grid_, 1);
  auto* buttons = new QHBoxLayout;
  add_row_ = new QPushButton(QStringLiteral("Add Row"), this);
  delete_row_ = new QPushButton(QStringLiteral("Delete Row"), this);
  save_ = new QPushButton(Q(frmECode::kCmdCloseFormCaption), this);
  save_->setObjectName(QStringLiteral("cmdCloseForm"));
  cancel_ = new QPushButton(Q(frmECode::kCndCancelCaption), this);
  cancel_->setObjectName(QStringLiteral("cndCancel"));
  buttons->addWidget(add_row_);
  buttons->addWidget(delete_row_);
  buttons->addStretch();
  buttons->addWidget(save_);
  buttons->addWidget(cancel_);
  v->addLayout(buttons);
  note_ = new QLabel(this);
  note_->setObjectName(QStringLiteral("ECodeNote"));
  note_->setWordWrap(true);
  v->addWidget(note_);
  resize(640, 360);

  connect(grid_, &QTableWidget::cellChanged, this, [this](int row, int column) {
    if (!showing_) CellEdited(row, column);
  });
  connect(add_row_, &QPushButton::clicked, this, [this] {
    std::optional<std::size_t> added;
    main_.Event([this, &added] { added = main_.Form().ECode.ECodeGrid.AddRow(); });
    if (!added) return;
    edited_ = true;
    // the operator types the new row straight away: the keyboard goes to its first cell
    const int row = static_cast<int>(*added);
    int first = 0;
    while (first < grid_->columnCount() && grid_->isColumnHidden(first)) ++first;
    if (first == grid_->columnCount()) return;
    grid_->setCurrentCell(row, first);
    grid_->setFocus(Qt::OtherFocusReason);
    grid_->editItem(grid_->item(row, first));
  });
  connect(delete_row_, &QPushButton::clicked, this, [this] {
    const int row = grid_->currentRow();
    if (row < 0) return;
    edited_ = true;
    main_.Event(
        [this, row] { main_.Form().ECode.ECodeGrid.DeleteRow(static_cast<std::size_t>(row)); });
  });
  connect(save_, &QPushButton::clicked, this, [this] {
    // a cell still being typed in counts: its editor hands its text over first
    grid_->setCurrentCell(-1, -1);
    main_.Event([this] { main_.Form().ECode.cmdCloseForm_Click(); });
  });
  connect(cancel_, &QPushButton::clicked, this,
          [this] { main_.Event([this] { main_.Form().ECode.cndCancel_Click(); }); });
}

void ECodeWindow::CellEdited(int row, int column) {
  DataGrid& grid = main_.Form().ECode.ECodeGrid;
  QTableWidgetItem* item = grid_->item(row, column);
  if (item == nullptr) return;
  edited_ = true;
  // A refused text (a letter in a whole-number column) leaves the cell as it was.
  grid.SetText(static_cast<std::size_t>(row), static_cast<std::size_t>(column), L(item->text()));
  const QSignalBlocker hold(grid_);
  item->setText(Q(grid.Text(static_cast<std::size_t>(row), static_cast<std::size_t>(column))));
}

void ECodeWindow::ShowModel() {
  showing_ = true;
  const frmECode& form = main_.Form().ECode;
  const DataGrid& grid = form.ECodeGrid;
  const std::vector<GridColumn>& columns = grid.Columns();
  const int rows = static_cast<int>(grid.RowCount());
  if (grid_->columnCount() != static_cast<int>(columns.size())) {
    grid_->setColumnCount(static_cast<int>(columns.size()));
  }
  grid_->setRowCount(rows);
  for (int c = 0; c < static_cast<int>(columns.size()); ++c) {
    const GridColumn& column = columns[c];
    auto* head = grid_->horizontalHeaderItem(c);
    if (head == nullptr) grid_->setHorizontalHeaderItem(c, head = new QTableWidgetItem);
    head->setText(Q(column.caption));
    grid_->setColumnHidden(c, column.hidden);
    // a column is never narrower than its heading, so that every heading reads whole
    const QHeaderView* header = grid_->horizontalHeader();
    const int heading = header->fontMetrics().horizontalAdvance(head->text()) +
                        2 * header->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, header) +
                        kHeadingSlack;
    const int width = column.width > 0 ? column.width / kTwipsPerPixel : grid_->columnWidth(c);
    grid_->setColumnWidth(c, std::max(width, heading));
    const Qt::Alignment align =
        column.alignment == ColumnAlignment::Center
            ? Qt::AlignCenter
            : (column.integer ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter;
    for (int r = 0; r < rows; ++r) {
      const QString text = Q(grid.Text(static_cast<std::size_t>(r), static_cast<std::size_t>(c)));
      QTableWidgetItem* item = grid_->item(r, c);
      if (item == nullptr) grid_->setItem(r, c, item = new QTableWidgetItem);
      if (item->text() != text) item->setText(text);
      item->setTextAlignment(align);
    }
  }
  showing_ = false;
  // the grid holds the rows of the company it was opened for, whatever CoNum says since
  if (form.visible && !isVisible()) {
    setWindowTitle(
        TitleFor(frmECode::kCaption, main_.Form().S[CoNum].text, main_.Form().S[LocNum].text));
    // a grid opened afresh holds nothing typed yet
    edited_ = false;
    note_->clear();
  }
  FollowVisibility(this, form.visible);
}

void ECodeWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape && event->modifiers() == Qt::NoModifier && edited_) {
    // the grid stays open: its two buttons say what becomes of the rows
    note_->setText(QStringLiteral(
        "Rows were changed. \"Save Changes\" keeps them; \"Cancel\" closes the grid without "
        "saving them."));
    event->accept();
    return;
  }
  QDialog::keyPressEvent(event);
}

void ECodeWindow::reject() {
  if (main_.Form().ECode.visible) main_.Event([this] { main_.Form().ECode.cndCancel_Click(); });
  QDialog::reject();
}

// --- the shared choices ----------------------------------------------------------------------

ChoiceFrames::ChoiceFrames(QWidget* parent, CompanyChoices& model, const Control& dept_frame)
    : model_(model) {
  auto frame = [parent](const Control& c, QRadioButton*& first, Control& m1, QRadioButton*& second,
                        Control& m2, CompanyChoices& choices) {
    auto* box = new QGroupBox(parent);
    box->setObjectName(Q(c.name));
    auto* h = new QHBoxLayout(box);
    first = new QRadioButton(box);
    second = new QRadioButton(box);
    first->setObjectName(Q(m1.name));
    second->setObjectName(Q(m2.name));
    h->addWidget(first);
    h->addWidget(second);
    h->addStretch();
    for (auto [button, control] : {std::pair{first, &m1}, std::pair{second, &m2}}) {
      QObject::connect(button, &QRadioButton::toggled, box, [&choices, control](bool on) {
        if (on) choices.SetOption(*control, true);
      });
    }
    return box;
  };
  empno = frame(model.empnoframe, emp, model.rdoEmp, badge, model.rdoBadge, model);
  pay_rate = frame(model.PayRateFrame, pr_yes, model.rdoPRyes, pr_no, model.rdoPRno, model);
  dept = frame(dept_frame, dept_yes, model.rdoDeptYes, dept_no, model.rdoDeptNo, model);
}

void ChoiceFrames::Show(const Control& dept_frame) {
  ShowFrame(empno, model_.empnoframe);
  ShowFrame(pay_rate, model_.PayRateFrame);
  ShowFrame(dept, dept_frame);
  const std::pair<QRadioButton*, const Control*> buttons[] = {
      {emp, &model_.rdoEmp},    {badge, &model_.rdoBadge},      {pr_yes, &model_.rdoPRyes},
      {pr_no, &model_.rdoPRno}, {dept_yes, &model_.rdoDeptYes}, {dept_no, &model_.rdoDeptNo}};
  for (auto [button, control] : buttons) ShowControl(*control, button);
}

// --- frmKv8 ----------------------------------------------------------------------------------

Kv8Window::Kv8Window(TimeImportWindow& main)
    : QDialog(&main), main_(main), choices_(this, main.Form().Kv8, main.Form().Kv8.Frame1) {
  setObjectName(QStringLiteral("frmKv8"));
  setModal(false);
  frmKv8& form = main_.Form().Kv8;
  auto* v = new QVBoxLayout(this);
  title_ = BoldLabel(this);
  v->addWidget(title_);
  v->addWidget(choices_.empno);
  v->addWidget(choices_.pay_rate);
  v->addWidget(choices_.dept);
  custom_heading_ = BoldLabel(this);
  v->addWidget(custom_heading_);
  auto* grid = new QGridLayout;
  for (int i = 0; i < 6; ++i) {
    labels_[i] = new QLabel(this);
    lists_[i] = new QListWidget(this);
    lists_[i]->setObjectName(Q(form.List[i].name));
    lists_[i]->setMaximumHeight(64);
    grid->addWidget(labels_[i], (i / 3) * 2, i % 3);
    grid->addWidget(lists_[i], (i / 3) * 2 + 1, i % 3);
    const int n = i + 1;
    connect(lists_[i], &QListWidget::currentRowChanged, this, [this, i](int row) {
      if (!showing_) main_.Form().Kv8.List[i].list_index = row;
    });
    connect(lists_[i], &QListWidget::itemDoubleClicked, this,
            [this, n] { main_.Event([this, n] { main_.Form().Kv8.List_DblClick(n); }); });
  }
  v->addLayout(grid);
  AddSaveCancel(this, v, main_, &frmTimeImport::Kv8, save_, cancel_);
}

void Kv8Window::ShowModel() {
  showing_ = true;
  frmKv8& form = main_.Form().Kv8;
  // Save writes to the company in CoNum as it stands then: the title follows it
  setWindowTitle(TitleFor(form.caption, main_.Form().S[CoNum].text, main_.Form().S[LocNum].text));
  title_->setText(Q(form.lblTitle.caption));
  custom_heading_->setText(Q(form.Label7.caption));
  choices_.Show(form.Frame1);
  for (int i = 0; i < 6; ++i) {
    ShowControl(form.Label[i], labels_[i]);
    ShowControl(form.List[i], lists_[i]);
  }
  ShowControl(form.cmdClose, save_);
  ShowControl(form.cmdCancel, cancel_);
  showing_ = false;
  FollowVisibility(this, form.visible);
}

void Kv8Window::reject() {
  // Escape or the frame's close discards the changes, as Cancel does.
  if (main_.Form().Kv8.visible) main_.Event([this] { main_.Form().Kv8.cmdCancel_Click(); });
  QDialog::reject();
}

// --- frmTMdept -------------------------------------------------------------------------------

std::array<Control*, 4> TMdeptWindow::LengthModels() {
  frmTMdept& f = main_.Form().TMdept;
  return {&f.DivLen, &f.BrLen, &f.DeptLen, &f.TeamLen};
}
std::array<Control*, 4> TMdeptWindow::IncludeModels() {
  frmTMdept& f = main_.Form().TMdept;
  return {&f.DivInc, &f.BrInc, &f.DeptInc, &f.TeamInc};
}
std::array<Control*, 4> TMdeptWindow::LabelModels() {
  frmTMdept& f = main_.Form().TMdept;
  return {&f.lblDiv, &f.lblBr, &f.lblDept, &f.lblTeam};
}

TMdeptWindow::TMdeptWindow(TimeImportWindow& main)
    : QDialog(&main),
      main_(main),
      choices_(this, main.Form().TMdept, main.Form().TMdept.DeptFrame) {
  setObjectName(QStringLiteral("frmTMdept"));
  setModal(false);
  auto* v = new QVBoxLayout(this);
  title_ = BoldLabel(this);
  v->addWidget(title_);
  v->addWidget(choices_.empno);
  v->addWidget(choices_.pay_rate);
  v->addWidget(choices_.dept);
  breakout_heading_ = BoldLabel(this);
  v->addWidget(breakout_heading_);
  auto* grid = new QGridLayout;
  length_head_ = new QLabel(this);
  include_head_ = new QLabel(this);
  grid->addWidget(length_head_, 0, 1);
  grid->addWidget(include_head_, 0, 2);
  const std::array<Control*, 4> lengths = LengthModels(), includes = IncludeModels(),
                                labels = LabelModels();
  for (int s = 0; s < 4; ++s) {
    segment_labels_[s] = new QLabel(this);
    lengths_[s] = new QLineEdit(this);
    includes_[s] = new QLineEdit(this);
    lengths_[s]->setObjectName(Q(lengths[s]->name));
    includes_[s]->setObjectName(Q(includes[s]->name));
    segment_labels_[s]->setObjectName(Q(labels[s]->name));
    grid->addWidget(segment_labels_[s], s + 1, 0);
    grid->addWidget(lengths_[s], s + 1, 1);
    grid->addWidget(includes_[s], s + 1, 2);
    // each box checks itself at every change, as the operator types
    for (auto [edit, model] :
         {std::pair{lengths_[s], lengths[s]}, std::pair{includes_[s], includes[s]}}) {
      connect(edit, &QLineEdit::textEdited, this, [this, model](const QString& text) {
        main_.Event([this, model, t = L(text)] { main_.Form().TMdept.SetText(*model, t); });
      });
    }
  }
  v->addLayout(grid);
  AddSaveCancel(this, v, main_, &frmTimeImport::TMdept, save_, cancel_);
}

void TMdeptWindow::ShowModel() {
  showing_ = true;
  frmTMdept& form = main_.Form().TMdept;
  setWindowTitle(TitleFor(form.caption, main_.Form().S[CoNum].text, main_.Form().S[LocNum].text));
  title_->setText(Q(form.lblTitle.caption));
  choices_.Show(form.DeptFrame);
  ShowControl(form.Label7, breakout_heading_);
  ShowControl(form.lblLen, length_head_);
  ShowControl(form.lblInc, include_head_);
  const std::array<Control*, 4> lengths = LengthModels(), includes = IncludeModels(),
                                labels = LabelModels();
  for (int s = 0; s < 4; ++s) {
    ShowControl(*labels[s], segment_labels_[s]);
    ShowControl(*lengths[s], lengths_[s]);
    ShowControl(*includes[s], includes_[s]);
  }
  ShowControl(form.cmdClose, save_);
  ShowControl(form.cmdCancel, cancel_);
  showing_ = false;
  FollowVisibility(this, form.visible);
}

void TMdeptWindow::reject() {
  if (main_.Form().TMdept.visible) {
    main_.Event([this] { main_.Form().TMdept.cmdCancel_Click(); });
  }
  QDialog::reject();
}

// --- frmAbout --------------------------------------------------------------------------------

AboutBox::AboutBox(QWidget* parent) : QDialog(parent) {
  setObjectName(QStringLiteral("frmAbout"));
  setWindowTitle(QStringLiteral("About ") + Q(kAppTitle));
  auto* v = new QVBoxLayout(this);
  title_ = BoldLabel(this);
  title_->setObjectName(QStringLiteral("lblTitle"));
  title_->setText(Q(kAppTitle));
  QFont big = title_->font();
  big.setPointSize(big.pointSize() + 6);
  title_->setFont(big);
  version_ = new QLabel(this);
  version_->setObjectName(QStringLiteral("lblVersion"));
  version_->setText(QStringLiteral("Version %1.%2.%3")
                        .arg(kVersionMajor)
                        .arg(kVersionMinor)
                        .arg(kVersionRevision));
  auto* description = new QLabel(Q(kFormCaption), this);
  v->addWidget(title_);
  v->addWidget(version_);
  v->addWidget(description);
  auto* ok = new QPushButton(QStringLiteral("OK"), this);
  ok->setObjectName(QStringLiteral("cmdOK"));
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, &QDialog::accept);
  auto* h = new QHBoxLayout;
  h->addStretch();
  h->addWidget(ok);
  v->addLayout(h);
  // the frame shows the title whole: its text, and room for the frame's own buttons
  setMinimumWidth(fontMetrics().horizontalAdvance(windowTitle()) + kTitleBarButtons);
}

}  // namespace corvane::gui
