// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

namespace vx3260 {

/// While it lives, every key but a lone modifier calls `pressed` and does nothing else: no typing,
/// no access key, no closing of the window.
class AnyKeyFilter final : public QObject {
    Q_OBJECT

  public:
    explicit AnyKeyFilter(std::function<void()> pressed);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    std::function<void()> pressed_;
};

}  // namespace vx3260
