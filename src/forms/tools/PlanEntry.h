// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QObject>
#include <array>
#include <cstdint>

#include "acquisition/Characterisation.h"

namespace vx3260 {

/// The filter words of a text such as "13, 69, 255", each once. Throws TypeMismatchError for a text
/// that is not a list of whole numbers, OverflowError for a number that is not from 13 to 255.
std::vector<std::int32_t> FilterWordsIn(const std::string& text);

/// The controls of a form in which the plan of a characterisation is entered.
struct PlanControls {
    QAbstractButton* main;
    QAbstractButton* aux;
    QComboBox* channel;
    QListWidget* ranges;
    QAbstractButton* allRanges;
    QAbstractButton* noRange;
    QLineEdit* words;
    QComboBox* polarity;  ///< bipolar, unipolar, both
    QLineEdit* count;
    QLineEdit* settle;
    QAbstractButton* calibrate;
};

/// Turns what is in these controls into a plan, and shows a plan there. Lives as long as the form.
class PlanEntry final : public QObject {
    Q_OBJECT

  public:
    /// `present` are the channels that the main and the aux ADC are set to.
    PlanEntry(const PlanControls& controls, const std::array<std::int32_t, 2>& present,
              QObject* parent);

    /// The plan, without a reference voltage. Throws EntryError, and std::invalid_argument if no
    /// range is chosen.
    CharacterisationPlan Plan() const;

    void Show(const CharacterisationPlan& plan);

    /// Marks the entry that cannot be used, if there is one.
    void Mark();

  signals:
    void Changed();

  private:
    Converter ChosenConverter() const;
    void ShowConverter();
    void CheckRanges(bool checked);
    std::vector<std::int32_t> ChosenRanges() const;
    std::vector<Polarity> ChosenPolarities() const;

    PlanControls controls_;
    std::array<std::int32_t, 2> present_;
};

}  // namespace vx3260
