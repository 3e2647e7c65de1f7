// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QObject>
#include <optional>
#include <vector>

#include "recording/RecordingSession.h"

namespace vx3260 {

/// The controls of a choice such as "After a time" with its number and unit.
struct QuantityControls {
    QComboBox* choice;
    QDoubleSpinBox* number;
    QComboBox* unit;
};

/// The controls of a form in which a recording is requested.
struct RequestControls {
    QComboBox* converter;     ///< main, aux, both
    QuantityControls every;   ///< each code, per interval
    QuantityControls end;     ///< when stopped, after a time, after a count
    QuantityControls rotate;  ///< never, after a time, at a size
    QAbstractButton* resetOnTimeout;
};

/// Turns what is in these controls into a request. Lives as long as the form.
class RequestEntry final : public QObject {
    Q_OBJECT

  public:
    RequestEntry(const RequestControls& controls, QObject* parent);

    /// Without path, start and reference voltage.
    RecordingRequest Request() const;

  private:
    enum class Kind { Time, Count, Size };

    struct Choice {
        Kind kind;
        double number;  ///< at first
        int unit;
    };

    struct Row {
        QuantityControls controls;
        double minSeconds;
        std::vector<Choice> choices;  ///< from the list's second one on
    };

    struct Unit;
    static const std::vector<Unit>& UnitsOf(Kind kind);

    void SetUp(const Row& row);
    static void UseChoice(const Row& row);
    static void UseUnit(const Row& row);
    static const Choice* ChoiceOf(const Row& row);
    /// The number in seconds, conversions or bytes, where the choice is of that kind.
    static std::optional<double> ValueOf(const Row& row, Kind kind);

    RequestControls controls_;
    Row every_;
    Row end_;
    Row rotate_;
};

}  // namespace vx3260
