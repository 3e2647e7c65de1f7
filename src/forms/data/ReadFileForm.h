// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/data/DataFileForm.h"

namespace vx3260 {

/// Loads a data file in the place of the chosen converter's block, which stays as it was unless the
/// whole file is good.
class ReadFileForm final : public DataFileForm {
    Q_OBJECT

  public:
    explicit ReadFileForm(Services& services, QWidget* parent = nullptr);

  protected:
    QString Process(const std::string& path) override;
};

}  // namespace vx3260
