// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QTableWidget>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "characterisation/ResultsFolder.h"
#include "characterisation/Sweep.h"
#include "ui/Form.h"

namespace Ui {
class CharacteriseForm;
}

namespace vx3260 {

class PlanEntry;
class PositiveEntry;

/// Measures the noise at every range and update rate into a folder, and shows the tables of a
/// folder while they fill or later; a cell opens its block in the noise form. Reads both control
/// registers when it opens, for the channels. All registers are restored when a measurement ends.
class CharacteriseForm final : public Form {
    Q_OBJECT

  public:
    explicit CharacteriseForm(Services& services, QWidget* parent = nullptr);
    ~CharacteriseForm() override;

    /// Stops a measurement that runs, then closes.
    void reject() override;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    /// The table of a polarity.
    struct PolarityTable {
        Polarity polarity;
        QTableWidget* widget;
    };

    void ConnectControls();
    CharacterisationPlan Plan();
    std::string Folder() const;
    void ShowEstimate();

    void Start();
    /// What to do with what is in the folder; empty if the user wants nothing of it.
    std::optional<FolderUse> AskForUse(const std::string& path, const CharacterisationPlan& plan);
    bool Ask(const std::string& text, MessageIcon icon, const std::string& detail = {});
    void Measure(ResultsFolder& folder);
    bool RefusedByBoard();
    CharacterisationEnd RunSweep(ResultsFolder& folder, std::vector<RegisterMismatch>& notRestored);
    void UseRunningControls(bool running);
    void ShowProgress(const SweepProgress& now, std::size_t finished, std::size_t settings);
    void RevealPresent();
    void ReportEnd(CharacterisationEnd end, const std::vector<RegisterMismatch>& notRestored);
    void Stop() { stopRequested_ = true; }

    void Browse();
    void OpenFolder();
    void ShowTypedFolder();
    void Show(const CharacterisationResults& results, const std::string& folder);
    void ShowTables();
    QTableWidgetItem* ItemOf(const CharacterisedSetting& setting) const;
    void OpenCell(const PolarityTable& table, int line, int column);
    void OpenBlock(const CharacterisationRow& row);
    void SaveReport();

    std::unique_ptr<Ui::CharacteriseForm> ui_;
    std::vector<PolarityTable> tables_;
    PlanEntry* entry_ = nullptr;
    PositiveEntry* reference_ = nullptr;

    std::optional<CharacterisationResults> results_;  ///< those that are shown
    std::string resultsFolder_;
    CharacterisedSetting present_{};  ///< being measured
    QElapsedTimer sinceStart_;
    QElapsedTimer sinceProgress_;
    bool running_ = false;
    bool stopRequested_ = false;
    bool closeRequested_ = false;
};

}  // namespace vx3260
