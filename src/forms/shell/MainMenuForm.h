// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <memory>

#include "app/PrinterPorts.h"
#include "forms/data/DataFileForm.h"
#include "link/Register.h"
#include "ui/Form.h"

namespace Ui {
class MainMenuForm;
}

namespace vx3260 {

/// The program's home window: a button for each activity, the printer-port menu and the help menu.
/// Closing it ends the program without a question; "&Quit" asks and then ends the process at once.
class MainMenuForm final : public Form {
    Q_OBJECT

  public:
    /// `file`, which may be empty, is a data file that is loaded once the menu is open.
    explicit MainMenuForm(Services& services, const std::string& file = {},
                          QWidget* parent = nullptr);
    ~MainMenuForm() override;

  protected:
    /// Escape does nothing here.
    void keyPressEvent(QKeyEvent* event) override;

  private:
    /// Opens a form that reads conversion results, once the chip converts continuously.
    template <typename Opened>
    void OpenConverting();

    void ReadFile();
    void WriteFile();
    void AnalyseMainNoise();
    void ResetChip();
    void AnalyseAuxNoise();
    void Quit();

    /// Puts the chip into continuous conversion, after asking. False if the user declines.
    bool EnsureContinuousConversion();
    QAction* ItemOf(const PrinterPort& port);
    void ConnectPrinterPortMenu();
    void ConnectConfigurationItems();
    void SaveConfiguration();
    void RestoreConfiguration();
    void ShowRegisters();
    void ConnectHelpMenu();
    void OpenHandbook();
    void ChoosePort(const PrinterPort& port);
    void ShowPort();

    void BeginWithFile();
    void ShowNotice(const QString& text);

    std::unique_ptr<Ui::MainMenuForm> ui_;
    DataFileChoice readChoice_;
    DataFileChoice writeChoice_;
    QString configurationPath_;  ///< of the last one that was saved or chosen
    Register modeRegister_;
};

}  // namespace vx3260
