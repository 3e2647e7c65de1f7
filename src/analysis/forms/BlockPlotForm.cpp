// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/BlockPlotForm.h"

#include <QClipboard>
#include <QDateTime>
#include <QGuiApplication>
#include <cmath>

#include "analysis/NoiseTexts.h"
#include "analysis/ReadingTexts.h"
#include "app/ApplicationInfo.h"
#include "numbers/FileErrors.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"
#include "ui/PlotSaving.h"
#include "ui/ValueTexts.h"

namespace vx3260 {
namespace {

constexpr int digitsShown = 6;

}  // namespace

BlockPlotForm::BlockPlotForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : Form(services, parent), block_(block) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
}

void BlockPlotForm::SetUp(const Controls& controls, const QString& subject) {
    heading_ = controls.heading;
    saved_ = controls.saved;
    UseView(controls.view, subject);
    UseHeadingFont(controls.heading);
    ShowBoardLabel(controls.boardLabel);
    Describe({});
    On(controls.savePicture, &QPushButton::clicked, &BlockPlotForm::SavePicture);
    On(controls.saveCsv, &QPushButton::clicked, &BlockPlotForm::SaveCsv);
    On(controls.copy, &QPushButton::clicked, &BlockPlotForm::CopyPicture);
    On(controls.showAll, &QPushButton::clicked, &BlockPlotForm::ShowAll);
    On(controls.back, &QPushButton::clicked, &BlockPlotForm::reject);
    view_->setFocus();
}

void BlockPlotForm::UseView(PlotView* view, const QString& subject) {
    view_ = view;
    subject_ = tr("%1 ADC %2")
                   .arg(QString::fromUtf8(TraitsOf(block_.analysis.own.converter).name), subject);
    heading_->setText(subject_);
    view_->setAccessibleName(subject_);
}

void BlockPlotForm::SavePicture() {
    Save([this] { return SavePictureAs(this, subject_, *view_, PictureLines()); });
}

void BlockPlotForm::SaveCsv() {
    Save([this] { return SaveCsvAs(this, subject_, CsvWithHead()); });
}

void BlockPlotForm::CopyPicture() {
    QGuiApplication::clipboard()->setImage(view_->Picture(PictureLines()));
}

void BlockPlotForm::ShowAll() {
    view_->ShowAll();
}

/// Everything that a reader who has only the picture needs.
QStringList BlockPlotForm::PictureLines() const {
    const NoiseAnalysis& analysis = block_.analysis;
    const QStringList conditions{
        QString::fromStdString(CountText(static_cast<std::int64_t>(analysis.count), "reading")),
        tr("input range %1").arg(QString::fromStdString(RangeText(analysis.own))),
        tr("LSB %1").arg(DistanceText(analysis.own.StepVolts())),
        tr("reference %1").arg(DistanceText(analysis.own.referenceVoltage))};
    const MeanAndSigma texts = MeanAndSigmaOf(analysis);
    const QString figures = tr("mean %1 (%2), sigma %3 codes (%4)")
                                .arg(texts.mean, texts.meanVolts, texts.sigma, texts.sigmaVolts);
    const QString saved =
        tr("%1, saved %2")
            .arg(QString::fromUtf8(TitleAndVersion.data(), TitleAndVersion.size()),
                 QDateTime::currentDateTimeUtc().toString(
                     QStringLiteral("yyyy-MM-dd HH:mm:ss UTC")));
    return QStringList{subject_, conditions.join(QStringLiteral(", ")), figures} +
           ToQStrings(ReadingLines(block_.reading)) + FurtherLines() + QStringList{saved};
}

/// The same as comment lines, then the values.
std::string BlockPlotForm::CsvWithHead() const {
    std::string csv;
    for (const QString& line : PictureLines()) {
        csv += "# " + line.toStdString() + '\n';
    }
    return csv + Csv();
}

void BlockPlotForm::Describe(const QStringList& further) {
    const NoiseAnalysis& analysis = block_.analysis;
    const MeanAndSigma texts = MeanAndSigmaOf(analysis);
    const QString figures = tr("mean %1 (%2), sigma %3 codes (%4), span %5")
                                .arg(texts.mean, texts.meanVolts, texts.sigma, texts.sigmaVolts,
                                     QString::fromStdString(CountText(analysis.span, "code")));
    view_->setAccessibleDescription((QStringList{figures} + further).join(QLatin1Char('\n')));
}

void BlockPlotForm::Save(const std::function<QString()>& save) {
    try {
        const QString path = save();
        if (!path.isEmpty()) {
            saved_->setText(tr("Saved to %1").arg(path));
        }
    } catch (const FileAccessError& error) {
        ShowFailure(error, "Nothing was saved. A file that was there stays as it was.");
    }
}

QString CodeVoltsText(const ConversionConditions& conditions, double code) {
    constexpr double spareDigits = 0.5;
    const double digits =
        TraitsOf(conditions.converter).data.wordLength * std::log10(2.0) + spareDigits;
    return QString::fromStdString(
        VoltsText(conditions.VoltsOf(code), static_cast<int>(std::ceil(digits))));
}

QString DistanceText(double volts) {
    return QString::fromStdString(VoltsText(volts, digitsShown));
}

MeanAndSigma MeanAndSigmaOf(const NoiseAnalysis& analysis) {
    constexpr int meanDecimals = 3;
    const auto [mean, sigma] = analysis.exact;
    return {QString::fromStdString(FixedText(mean, meanDecimals)),
            CodeVoltsText(analysis.own, mean),
            QString::fromStdString(SignificantText(sigma, digitsShown)),
            DistanceText(sigma * analysis.own.lsbVolts)};
}

}  // namespace vx3260

#include "moc_BlockPlotForm.cpp"
