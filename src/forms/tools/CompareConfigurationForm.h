// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <memory>
#include <optional>
#include <string>

#include "link/Configuration.h"
#include "ui/Form.h"

namespace Ui {
class CompareConfigurationForm;
}

namespace vx3260 {

/// Shows in which fields a configuration file differs from the chip or from another file, and
/// writes it to the chip. The chip is only read before that.
class CompareConfigurationForm final : public Form {
    Q_OBJECT

  public:
    /// `path`, which may be empty, is what the form begins with; it outlives the form, which keeps
    /// the user's choice there.
    CompareConfigurationForm(Services& services, QString* path, QWidget* parent = nullptr);
    ~CompareConfigurationForm() override;

  protected:
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void BrowseInto(QLineEdit* edit);
    void Browse();
    void BrowseOther();
    void UseOtherSide();
    void Compare();
    void Restore();
    std::optional<Configuration> Load(QLineEdit* edit);
    std::optional<Configuration> ReadChip(const std::string& consequence);
    void ShowDifferences(const Configuration& file, const Configuration& other);
    void Forget();
    QString RestoredText(std::size_t registers) const;

    std::unique_ptr<Ui::CompareConfigurationForm> ui_;
    QString* path_;
    std::optional<Configuration> compared_;  ///< the file, as the table shows it
};

}  // namespace vx3260
