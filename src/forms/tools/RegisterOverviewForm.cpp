// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/RegisterOverviewForm.h"

#include <QClipboard>
#include <QFileInfo>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QTime>
#include <algorithm>
#include <chrono>
#include <utility>

#include "app/BoardState.h"
#include "forms/tools/PresentConfiguration.h"
#include "link/RegisterLookup.h"
#include "ui/Fonts.h"
#include "ui/KeyPresses.h"
#include "ui/SaveDialog.h"
#include "ui/TableItems.h"
#include "ui/ValueTexts.h"
#include "ui_RegisterOverviewForm.h"

namespace vx3260 {
namespace {

constexpr std::chrono::seconds automaticInterval(1);

enum OverviewColumn {
    RegisterColumn,
    ContentsColumn,
    BitsColumn,
    FieldColumn,
    ValueColumn,
    FileColumn
};
constexpr int overviewColumns = FileColumn + 1;

void MakeBold(QTableWidgetItem& item, bool bold) {
    QFont font = item.font();
    font.setBold(bold);
    item.setFont(font);
}

QString ChangedText(const OverviewRow& row) {
    return row.before ? RegisterOverviewForm::tr("%1, was %2")
                            .arg(ToQString(row.value), ToQString(*row.before))
                      : ToQString(row.value);
}

}  // namespace

RegisterOverviewForm::RegisterOverviewForm(Services& services, RegisterOpener openRegister,
                                           QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::RegisterOverviewForm>()),
      openRegister_(std::move(openRegister)) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->HeadingLabel);
    ShowBoardLabel(ui_->BoardLabel);
    ui_->RegistersTable->setColumnCount(overviewColumns);
    ui_->RegistersTable->setHorizontalHeaderLabels(
        {tr("Register"), tr("Contents"), tr("Bits"), tr("Field"), tr("Value"), tr("File")});
    ui_->RegistersTable->setColumnHidden(FileColumn, true);
    automatic_.setInterval(automaticInterval);
    On(&automatic_, &QTimer::timeout, &RegisterOverviewForm::ReadAgain);
    On(ui_->RefreshButton, &QPushButton::clicked, &RegisterOverviewForm::Refresh);
    On(ui_->AutomaticBox, &QCheckBox::toggled, &RegisterOverviewForm::UseAutomatic);
    On(ui_->CompareButton, &QPushButton::clicked, &RegisterOverviewForm::CompareWithFile);
    On(ui_->CopyButton, &QPushButton::clicked, &RegisterOverviewForm::CopyAsText);
    On(ui_->OpenButton, &QPushButton::clicked, &RegisterOverviewForm::OpenSelected);
    On(ui_->BackButton, &QPushButton::clicked, &RegisterOverviewForm::reject);
    connect(ui_->RegistersTable, &QTableWidget::cellDoubleClicked, this,
            [this](int row, int /*column*/) { Guarded([this, row] { OpenRow(row); }); });
    OnKeyPress(ui_->RegistersTable, [this](const QKeyEvent& key) {
        if (IsEnter(key)) {
            Guarded([this] { OpenSelected(); });
        }
        return IsEnter(key);
    });
    Refresh();
    ui_->RegistersTable->resizeColumnsToContents();
    ui_->RegistersTable->setCurrentCell(0, FieldColumn);
}

RegisterOverviewForm::~RegisterOverviewForm() = default;

void RegisterOverviewForm::Refresh() {
    before_ = std::exchange(now_, {});
    beforeTime_ = time_;
    Read();
}

/// Marks stay until the next "Refresh": a second would be too short to see them.
void RegisterOverviewForm::ReadAgain() {
    if (before_.empty()) {
        Refresh();
    } else {
        Read();
    }
}

void RegisterOverviewForm::Read() {
    now_ = ReadAllRegisters(Shared().port, State().PortAddress);
    time_ = QTime::currentTime();
    UpdateBoardLabel();
    ShowRows();
    ShowStatus();
}

void RegisterOverviewForm::UseAutomatic() {
    if (ui_->AutomaticBox->isChecked()) {
        Refresh();
        automatic_.start();
    } else {
        automatic_.stop();
    }
}

void RegisterOverviewForm::CompareWithFile() {
    const QString path = AskForExistingFile(this, tr("Compare with File"), savedName_);
    if (path.isEmpty()) {
        return;
    }
    try {
        saved_ = LoadChosenConfiguration(path.toStdString());
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "What is compared has not changed.");
        return;
    }
    savedName_ = path;
    ui_->RegistersTable->setColumnHidden(FileColumn, false);
    ui_->RegistersTable->horizontalHeaderItem(FileColumn)->setText(QFileInfo(path).fileName());
    ShowRows();
    ui_->RegistersTable->resizeColumnsToContents();
    ShowStatus();
}

void RegisterOverviewForm::CopyAsText() {
    QGuiApplication::clipboard()->setText(ToQString(OverviewText(Rows(), !savedName_.isEmpty())));
    ui_->StatusLabel->setText(tr("Copied"));
}

void RegisterOverviewForm::OpenSelected() {
    OpenRow(ui_->RegistersTable->currentRow());
}

/// The form that opens reads and writes registers, which must not change what it compares.
void RegisterOverviewForm::OpenRow(int row) {
    const std::vector<OverviewRow> rows = Rows();
    if (row < 0 || row >= static_cast<int>(rows.size())) {
        return;
    }
    automatic_.stop();
    openRegister_(rows[static_cast<std::size_t>(row)].reading.description, this);
    Refresh();
    if (ui_->AutomaticBox->isChecked()) {
        automatic_.start();
    }
}

void RegisterOverviewForm::ShowRows() {
    const std::vector<OverviewRow> rows = Rows();
    ui_->RegistersTable->setRowCount(static_cast<int>(rows.size()));
    for (std::size_t i = 0; i < rows.size(); ++i) {
        ShowRow(static_cast<int>(i), rows[i]);
    }
    if (!savedName_.isEmpty()) {
        ui_->RegistersTable->resizeColumnToContents(ValueColumn);
    }
}

/// A changed value says so in its text too, and not by its weight alone.
void RegisterOverviewForm::ShowRow(int line, const OverviewRow& row) {
    QTableWidget& table = *ui_->RegistersTable;
    const RegisterMap::RegisterDescription& description = row.reading.description;
    const bool first = row.IsFirst();
    const std::pair<int, QString> texts[] = {
        {RegisterColumn, first ? ToQString(description.name) : QString()},
        {ContentsColumn,
         first ? ToQString(RegisterHex(row.reading.value, description.access)) : QString()},
        {BitsColumn, first ? ToQString(BitsText(row.reading)) : QString()},
        {FieldColumn, ToQString(row.field.name)},
        {ValueColumn, BoardStateOf(Shared()).good ? ChangedText(row) : QString()},
        {FileColumn, row.saved ? ToQString(*row.saved) : QString()}};
    for (const auto& [column, text] : texts) {
        QTableWidgetItem& item = TableItemAt(table, line, column);
        item.setText(text);
        item.setToolTip(column == FieldColumn ? ToQString(row.field.title)
                                              : ToQString(description.title));
        if (column == ContentsColumn || column == BitsColumn) {
            item.setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
        }
        MakeBold(item,
                 (column == ValueColumn && row.before) || (column == FileColumn && row.saved));
    }
}

void RegisterOverviewForm::ShowStatus() {
    const std::vector<OverviewRow> rows = Rows();
    const auto count = [&rows](std::optional<std::string> OverviewRow::*other) {
        return std::ranges::count_if(
            rows, [other](const OverviewRow& row) { return (row.*other).has_value(); });
    };
    const BoardState board = BoardStateOf(Shared());
    if (!board.good) {
        ui_->StatusLabel->setText(QString::fromStdString(board.text + ". " + board.meaning));
        return;
    }
    QString text = tr("Read at %1").arg(time_.toString());
    if (!before_.empty()) {
        text += tr("; changed since %1: %2")
                    .arg(beforeTime_.toString())
                    .arg(count(&OverviewRow::before));
    }
    if (!savedName_.isEmpty()) {
        text += tr("; other than in the file: %1").arg(count(&OverviewRow::saved));
    }
    ui_->StatusLabel->setText(text);
}

}  // namespace vx3260

#include "moc_RegisterOverviewForm.cpp"
