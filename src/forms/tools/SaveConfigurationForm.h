// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "configuration/FirmwareExport.h"
#include "link/Configuration.h"
#include "ui/Form.h"
#include "ui/SaveDialog.h"

namespace Ui {
class SaveConfigurationForm;
}

namespace vx3260 {

/// Saves the chip's settings as a configuration file, or as register writes for firmware. Reads
/// only.
class SaveConfigurationForm final : public Form {
    Q_OBJECT

  public:
    /// `path` is where the form keeps the name of a configuration it has saved; it outlives the
    /// form.
    SaveConfigurationForm(Services& services, QString* path, QWidget* parent = nullptr);
    ~SaveConfigurationForm() override;

  private:
    struct Format {
        FileKind kind;
        std::optional<ExportFormat> firmware;  ///< empty for a configuration
    };

    void Save();
    std::string TextOf(const Configuration& configuration, const Format& format) const;
    Format ChosenFormat() const;

    std::unique_ptr<Ui::SaveConfigurationForm> ui_;
    QString* path_;
};

}  // namespace vx3260
