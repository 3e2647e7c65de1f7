// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTime>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "configuration/RegisterOverview.h"
#include "ui/Form.h"

namespace Ui {
class RegisterOverviewForm;
}

namespace vx3260 {

/// All registers at once, a row for each field: contents, bits, values; what changed since the last
/// reading is marked, and what differs from a configuration file. Reads only.
class RegisterOverviewForm final : public Form {
    Q_OBJECT

  public:
    /// Opens a register's form over a window, and returns when it has been closed.
    using RegisterOpener =
        std::function<void(const RegisterMap::RegisterDescription&, QWidget* parent)>;

    RegisterOverviewForm(Services& services, RegisterOpener openRegister,
                         QWidget* parent = nullptr);
    ~RegisterOverviewForm() override;

  private:
    void Refresh();
    void ReadAgain();
    void Read();
    void UseAutomatic();
    void CompareWithFile();
    void CopyAsText();
    void OpenSelected();
    void OpenRow(int row);
    void ShowRows();
    void ShowRow(int line, const OverviewRow& row);
    void ShowStatus();
    std::vector<OverviewRow> Rows() const { return OverviewOf(now_, before_, saved_); }

    std::unique_ptr<Ui::RegisterOverviewForm> ui_;
    RegisterOpener openRegister_;
    QTimer automatic_;
    std::vector<RegisterReading> now_;
    std::vector<RegisterReading> before_;  ///< what changes are marked against; may be empty
    QTime time_;                           ///< of the readings
    QTime beforeTime_;
    Configuration saved_;
    QString savedName_;  ///< of its file; empty without one
};

}  // namespace vx3260
