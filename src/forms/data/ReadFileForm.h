// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "forms/data/DataFileForm.h"

namespace vx3260 {

/// Replaces the chosen converter's block by a data file; the block stays unchanged unless the whole
/// file is valid.
class ReadFileForm final : public DataFileForm {
    Q_OBJECT

  public:
    explicit ReadFileForm(Services& services, QWidget* parent = nullptr);

  protected:
    QString Process(const std::string& path) override;
};

}  // namespace vx3260
