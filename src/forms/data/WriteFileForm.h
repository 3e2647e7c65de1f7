// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "forms/data/DataFileForm.h"

namespace vx3260 {

/// Saves the chosen converter's block as a data file. An existing file is replaced as a whole,
/// after asking.
class WriteFileForm final : public DataFileForm {
    Q_OBJECT

  public:
    /// `choice` as for DataFileForm.
    explicit WriteFileForm(Services& services, DataFileChoice* choice = nullptr,
                           QWidget* parent = nullptr);

  protected:
    QString Process(const std::string& path) override;

  private:
    bool MayReplace(const std::vector<std::string>& files);
    QString SaveConditions(const std::string& path, std::span<const std::int32_t> codes);
};

}  // namespace vx3260
