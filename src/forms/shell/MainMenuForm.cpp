// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/shell/MainMenuForm.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QKeyEvent>
#include <QTime>
#include <QTimer>
#include <QUrl>

#include "analysis/forms/AuxNoiseForm.h"
#include "analysis/forms/CountRefusal.h"
#include "analysis/forms/MainNoiseForm.h"
#include "app/MessageTexts.h"
#include "app/PortWords.h"
#include "forms/data/ReadAuxDataForm.h"
#include "forms/data/ReadDualDataForm.h"
#include "forms/data/ReadFileForm.h"
#include "forms/data/ReadMainDataForm.h"
#include "forms/data/WriteFileForm.h"
#include "forms/shell/ProgramForm.h"
#include "forms/shell/RegisterForms.h"
#include "forms/shell/ResetForm.h"
#include "forms/shell/aboutform.h"
#include "forms/tools/CharacteriseForm.h"
#include "forms/tools/CompareConfigurationForm.h"
#include "forms/tools/RecordForm.h"
#include "forms/tools/RegisterOverviewForm.h"
#include "forms/tools/SaveConfigurationForm.h"
#include "link/RegisterMap.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/Handbook.h"
#include "ui/HelpForm.h"
#include "ui_MainMenuForm.h"

namespace vx3260 {
namespace {

/// The file forms share the folder, and have names of their own: a file that was read must not be
/// proposed for writing.
void KeepFolder(const DataFileChoice& used, DataFileChoice& other) {
    const QFileInfo file(used.path);
    if (file.isAbsolute()) {
        const QString name = QFileInfo(other.path).fileName();
        other.path = QDir::toNativeSeparators(
            file.dir().filePath(name.isEmpty() ? QStringLiteral("Default.dat") : name));
    }
}

}  // namespace

MainMenuForm::MainMenuForm(Services& services, const std::string& file, QWidget* parent)
    : Form(services, parent),
      ui_(std::make_unique<Ui::MainMenuForm>()),
      modeRegister_(services.port, services.state.PortAddress, RegisterMap::Mode) {
    ui_->setupUi(this);
    UseHeadingFont(ui_->Label1);
    ShowBoardLabel(ui_->BoardLabel);
    // Room for two lines, so that nothing moves when a notice comes.
    ui_->NoticeLabel->setMinimumHeight(2 * ui_->NoticeLabel->fontMetrics().lineSpacing());
    // Alt+P opens the printer-port menu; the button that shares the letter gives way.
    ui_->Command1->setShortcut(QKeySequence());

    On(ui_->Command1, &QPushButton::clicked, &MainMenuForm::OpenForm<ProgramForm>);
    On(ui_->Command2, &QPushButton::clicked, &MainMenuForm::OpenConverting<ReadMainDataForm>);
    On(ui_->Command3, &QPushButton::clicked, &MainMenuForm::AnalyseMainNoise);
    On(ui_->Command4, &QPushButton::clicked, &MainMenuForm::ResetChip);
    On(ui_->Command5, &QPushButton::clicked, &MainMenuForm::ReadFile);
    On(ui_->Command6, &QPushButton::clicked, &MainMenuForm::WriteFile);
    On(ui_->Command7, &QPushButton::clicked, &MainMenuForm::OpenForm<aboutform>);
    On(ui_->Command8, &QPushButton::clicked, &MainMenuForm::Quit);
    On(ui_->Command9, &QPushButton::clicked, &MainMenuForm::OpenConverting<ReadAuxDataForm>);
    On(ui_->Command10, &QPushButton::clicked, &MainMenuForm::AnalyseAuxNoise);
    On(ui_->Command11, &QPushButton::clicked, &MainMenuForm::OpenConverting<ReadDualDataForm>);
    ConnectPrinterPortMenu();
    On(ui_->MnuCharacterise, &QAction::triggered, &MainMenuForm::OpenForm<CharacteriseForm>);
    ConnectConfigurationItems();
    On(ui_->MnuRecord, &QAction::triggered, &MainMenuForm::OpenConverting<RecordForm>);
    ConnectHelpMenu();
    ShowPort();
    if (!file.empty()) {
        readChoice_.path = QString::fromStdString(file);
        QTimer::singleShot(0, this, [this] { Guarded([this] { BeginWithFile(); }); });
    }
}

MainMenuForm::~MainMenuForm() = default;

void MainMenuForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) {
        Form::keyPressEvent(event);
    }
}

QAction* MainMenuForm::ItemOf(const PrinterPort& port) {
    return findChild<QAction*>(QString::fromLatin1(port.item));
}

void MainMenuForm::ConnectPrinterPortMenu() {
    for (std::size_t i = 0; i < PrinterPorts.size(); ++i) {
        QAction* const item = ItemOf(PrinterPorts[i]);
        item->setEnabled(State().PrinterPortEnabled[i]);
        connect(item, &QAction::triggered, this, [this, i] { ChoosePort(PrinterPorts[i]); });
    }
}

void MainMenuForm::ConnectConfigurationItems() {
    On(ui_->MnuSaveConfiguration, &QAction::triggered, &MainMenuForm::SaveConfiguration);
    On(ui_->MnuRestoreConfiguration, &QAction::triggered, &MainMenuForm::RestoreConfiguration);
    On(ui_->MnuOverview, &QAction::triggered, &MainMenuForm::ShowRegisters);
}

void MainMenuForm::SaveConfiguration() {
    OpenForm<SaveConfigurationForm>(&configurationPath_);
}

void MainMenuForm::RestoreConfiguration() {
    OpenForm<CompareConfigurationForm>(&configurationPath_);
}

void MainMenuForm::ShowRegisters() {
    OpenForm<RegisterOverviewForm>(
        [this](const RegisterMap::RegisterDescription& description, QWidget* over) {
            OpenRegisterForm(Shared(), description, over);
        });
}

void MainMenuForm::ConnectHelpMenu() {
    connect(ui_->MnuHelpContents, &QAction::triggered, this,
            [this] { HelpForm::OpenContents(this); });
    On(ui_->MnuHelpWindow, &QAction::triggered, &MainMenuForm::OpenHelp);
    On(ui_->MnuHelpHandbook, &QAction::triggered, &MainMenuForm::OpenHandbook);
    On(ui_->MnuHelpAbout, &QAction::triggered, &MainMenuForm::OpenForm<aboutform>);
}

void MainMenuForm::OpenHandbook() {
    const QString page = HandbookOf(QCoreApplication::applicationDirPath());
    if (page.isEmpty()) {
        ShowMessage({.text = "The handbook is not installed with this program",
                     .icon = MessageIcon::Exclamation,
                     .detail = "\"Contents\" in this menu has the pages about the forms. The "
                               "packages have the handbook, and so has a build where pandoc is "
                               "installed."});
    } else if (!QDesktopServices::openUrl(QUrl::fromLocalFile(page))) {
        ShowMessage({.text = "No program could be started for the handbook",
                     .icon = MessageIcon::Exclamation,
                     .detail = "Open this page in a browser: " +
                               QDir::toNativeSeparators(page).toStdString()});
    }
}

/// Changes only the address of later accesses: no port is claimed and nothing is sent.
void MainMenuForm::ChoosePort(const PrinterPort& port) {
    State().PortAddress = port.address;
    Shared().port.ForgetBoard();
    UpdateBoardLabel();
    ShowPort();
}

void MainMenuForm::ShowPort() {
    for (const PrinterPort& port : PrinterPorts) {
        ItemOf(port)->setChecked(port.address == State().PortAddress);
    }
    if (const std::string wiring = WiringText(Shared().port); !wiring.empty()) {
        ui_->PortLabel->setToolTip(
            tr("Lines in the place of a printer port: %1").arg(QString::fromStdString(wiring)));
    }
    ui_->PortLabel->setText(
        tr("Port address 0x%1")
            .arg(QString::fromStdString(HexText(static_cast<std::uint16_t>(State().PortAddress)))));
}

template <typename Opened>
void MainMenuForm::OpenConverting() {
    if (EnsureContinuousConversion()) {
        OpenForm<Opened>();
    }
}

bool MainMenuForm::EnsureContinuousConversion() {
    const std::int32_t mode = modeRegister_.ReadValue();
    if (RegisterMap::IsContinuousConversion(mode)) {
        return true;
    }
    const MessageAnswer answer =
        ShowMessage({.text = std::string(MessageTexts::AskContinuousConversion),
                     .buttons = MessageButtons::YesNo});
    if (answer != MessageAnswer::Yes) {
        return false;
    }
    // The field is not cleared first, so a calibration mode, 4 to 7, becomes 7; intentional.
    modeRegister_.WriteValue(mode | RegisterMap::ContinuousConversion);
    return true;
}

/// The chip gives no answer to a reset, so this line is all that shows it.
void MainMenuForm::ResetChip() {
    ResetForm form(Shared(), this);
    if (form.exec() == Accepted) {
        ShowNotice(tr("%1 sent; the chip gives no answer to it").arg(form.Performed()));
    }
}

void MainMenuForm::ShowNotice(const QString& text) {
    ui_->NoticeLabel->setText(QTime::currentTime().toString() + QStringLiteral("  ") + text);
}

void MainMenuForm::ReadFile() {
    OpenForm<ReadFileForm>(&readChoice_);
    KeepFolder(readChoice_, writeChoice_);
}

void MainMenuForm::WriteFile() {
    OpenForm<WriteFileForm>(&writeChoice_);
    KeepFolder(writeChoice_, readChoice_);
}

/// Loads the file at once where its look tells notation and converter. Otherwise the user chooses.
void MainMenuForm::BeginWithFile() {
    bool certain = false;
    try {
        certain = ChooseByLook(readChoice_);
    } catch (const std::runtime_error& error) {
        ShowFailure(error, "Nothing was read.");
    }
    ReadFileForm form(Shared(), &readChoice_, this);
    const QString result = certain ? form.Run() : QString();
    if (result.isEmpty()) {
        form.ShowHint(
            tr("Nothing is read yet. Choose notation and ADC, which the file does not "
               "show, and press \"Read from File\"."));
        form.exec();
    } else {
        ShowNotice(result);
    }
}

void MainMenuForm::AnalyseMainNoise() {
    if (!RefusedByCount(Shared().messages, State().MainCodeCount)) {
        OpenForm<MainNoiseForm>();
    }
}

void MainMenuForm::AnalyseAuxNoise() {
    if (!RefusedByCount(Shared().messages, State().AuxCodeCount)) {
        OpenForm<AuxNoiseForm>();
    }
}

void MainMenuForm::Quit() {
    const MessageAnswer answer =
        ShowMessage({.text = std::string(MessageTexts::AskQuit), .buttons = MessageButtons::YesNo});
    if (answer == MessageAnswer::Yes) {
        Shared().system.EndProcess(0);
    }
}

}  // namespace vx3260

#include "moc_MainMenuForm.cpp"
