// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QLabel>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "analysis/forms/StripChart.h"
#include "recording/RecordingSession.h"
#include "ui/Form.h"

namespace Ui {
class RecordForm;
}

namespace vx3260 {

class RequestEntry;

/// Records conversions into CSV files for as long as wanted, through time-outs, as the command
/// record does; shows how far it is, the latest codes and their charts, and what happened.
class RecordForm final : public Form {
    Q_OBJECT

  public:
    explicit RecordForm(Services& services, QWidget* parent = nullptr);
    ~RecordForm() override;

    /// Stops a recording that runs, then closes.
    void reject() override;

  private:
    /// What shows the codes of a converter.
    struct ConverterView {
        Converter converter;
        StripChart* chart;
        QLabel* code;
        QLabel* volts;
        std::optional<std::int32_t> latest;
    };

    void ConnectControls();
    void ShowChosenCharts();
    void Browse();

    void Start();
    /// What becomes of a file that exists; empty if the user wants nothing of it.
    std::optional<RecordingStart> AskForStart(const RecordingRequest& request);
    /// Shows why the board cannot be recorded; false where it can.
    bool RefusedByBoard(const std::vector<Converter>& converters);
    void Record(const RecordingRequest& request);
    RecordingEnd Run(RecordingSession& session);
    void PrepareViews(const RecordingSession& session, const std::vector<Converter>& converters);
    void UseRunningControls(bool running);
    void Stop();

    void ShowConversion(const RecordingMoment& moment, std::span<const RecordedCode> codes);
    void ShowState(const QString& state);
    void ShowProgress(const RecordingSession& session);
    void ShowEnd(const RecordingSession& session, const std::string& how);
    void AddEvent(UtcTime time, const std::string& text);
    ConverterView& ViewOf(Converter converter);

    std::unique_ptr<Ui::RecordForm> ui_;
    std::vector<ConverterView> views_;
    RequestEntry* entry_ = nullptr;
    QElapsedTimer sinceShown_;
    bool running_ = false;
    bool failing_ = false;  ///< as shown
    bool stopRequested_ = false;
    bool closeRequested_ = false;

  signals:
    void StopRequested();
};

}  // namespace vx3260
