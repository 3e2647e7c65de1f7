// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/data/DataFileForm.h"

namespace vx3260 {

/// Replaces the chosen converter's block by a data file; the block stays unchanged unless the whole
/// file is valid, and the user agrees where its codes are suspicious.
class ReadFileForm final : public DataFileForm {
    Q_OBJECT

  public:
    /// `choice` as for DataFileForm.
    explicit ReadFileForm(Services& services, DataFileChoice* choice = nullptr,
                          QWidget* parent = nullptr);

  protected:
    QString Process(const std::string& path) override;

  private:
    bool ConfirmReplacement(const std::vector<std::string>& warnings);
};

}  // namespace vx3260
