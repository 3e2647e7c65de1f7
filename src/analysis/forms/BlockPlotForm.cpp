// SPDX-License-Identifier: GPL-3.0-or-later
#include "analysis/forms/BlockPlotForm.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <algorithm>
#include <cmath>

#include "analysis/NoiseTexts.h"
#include "analysis/PlotScale.h"
#include "files/CodeFile.h"
#include "numbers/NumberText.h"
#include "ui/Fonts.h"

namespace vx3260 {
namespace {

constexpr int digitsShown = 6;

QVector<double> ToVector(const std::vector<double>& values) {
    return {values.begin(), values.end()};
}

/// How many steps fit an axis so that the figures at its ticks keep apart. The picture's size is
/// known before the axis has its own.
int MostSteps(const QCPAxis& axis) {
    constexpr double linesPerStep = 2.5;
    constexpr double labelsPerStep = 1.6;
    const QFontMetrics metrics(axis.tickLabelFont());
    const QSize size = axis.parentPlot()->viewport().size();
    const int widest = metrics.horizontalAdvance(QStringLiteral("88888888"));
    const double steps = axis.orientation() == Qt::Vertical
                             ? size.height() / (linesPerStep * metrics.height())
                             : size.width() / (labelsPerStep * widest);
    return std::max(1, static_cast<int>(steps));
}

class AxisTicker : public QCPAxisTicker {
  public:
    explicit AxisTicker(const QCPAxis* axis) : axis_(axis) {}

  protected:
    int Steps() const { return MostSteps(*axis_); }

  private:
    const QCPAxis* axis_;
};

class WholeNumbers final : public AxisTicker {
  public:
    using AxisTicker::AxisTicker;

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const double step = TickStep(range.size(), Steps(), 1);
        const double subStep = SubTickStep(step, 1);
        ticks = ToVector(TicksIn({range.lower, range.upper}, step));
        if (subTicks != nullptr) {
            *subTicks = subStep == 0 ? QVector<double>{}
                                     : ToVector(TicksIn({range.lower, range.upper}, subStep));
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double tick : ticks) {
                labels->append(QString::fromStdString(FixedText(tick, 0)));
            }
        }
    }
};

/// A voltage axis over a range of codes at present.
struct VoltsAxis {
    AxisRange volts;
    double step;
    VoltsScale scale;
};

VoltsAxis VoltsAxisOver(const QCPRange& codes, const ConversionConditions& conditions, int steps) {
    const AxisRange volts{conditions.VoltsOf(codes.lower), conditions.VoltsOf(codes.upper)};
    const double step = TickStep(volts.Span(), steps);
    return {volts, step, VoltsScaleOf(volts, step)};
}

class Volts final : public AxisTicker {
  public:
    Volts(const QCPAxis* axis, ConversionConditions conditions)
        : AxisTicker(axis), conditions_(std::move(conditions)) {}

    void generate(const QCPRange& range, const QLocale& /*locale*/, QChar /*format*/,
                  int /*precision*/, QVector<double>& ticks, QVector<double>* subTicks,
                  QVector<QString>* labels) override {
        const VoltsAxis axis = VoltsAxisOver(range, conditions_, Steps());
        const std::vector<double> volts = TicksIn(axis.volts, axis.step);
        ticks = Codes(volts);
        if (subTicks != nullptr) {
            *subTicks = Codes(TicksIn(axis.volts, SubTickStep(axis.step)));
        }
        if (labels != nullptr) {
            labels->clear();
            for (const double tick : volts) {
                labels->append(QString::fromStdString(axis.scale.TextOf(tick)));
            }
        }
    }

  private:
    QVector<double> Codes(const std::vector<double>& volts) const {
        QVector<double> codes;
        for (const double tick : volts) {
            codes.append(conditions_.CodeOf(tick));
        }
        return codes;
    }

    ConversionConditions conditions_;
};

struct FileKind {
    QString filter;
    QString suffix;
};

FileKind PngFile() {
    return {QCoreApplication::translate("BlockPlotForm", "PNG Picture (*.png)"),
            QStringLiteral("png")};
}
FileKind PdfFile() {
    return {QCoreApplication::translate("BlockPlotForm", "PDF Document (*.pdf)"),
            QStringLiteral("pdf")};
}
FileKind CsvFile() {
    return {QCoreApplication::translate("BlockPlotForm", "Comma-Separated Values (*.csv)"),
            QStringLiteral("csv")};
}

struct ChosenFile {
    QString path;    ///< empty where the user did not choose one
    QString suffix;  ///< of the kind that was chosen
};

/// The dialog asks itself before a file is replaced.
ChosenFile AskForFile(QWidget* parent, const QString& name, const std::vector<FileKind>& kinds) {
    QFileDialog dialog(parent);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const FileKind& kind : kinds) {
        filters.append(kind.filter);
    }
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(kinds.front().suffix);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, [&](const QString& filter) {
        dialog.setDefaultSuffix(kinds.at(static_cast<std::size_t>(filters.indexOf(filter))).suffix);
    });
    dialog.selectFile(name);
    if (dialog.exec() != QDialog::Accepted) {
        return {};
    }
    return {dialog.selectedFiles().value(0), dialog.defaultSuffix()};
}

bool IsPdf(const ChosenFile& file) {
    const QString typed = QFileInfo(file.path).suffix().toLower();
    const bool known = typed == PdfFile().suffix || typed == PngFile().suffix;
    return (known ? typed : file.suffix) == PdfFile().suffix;
}

QString FigureText(const NoiseAnalysis& analysis, NoiseFigure figure) {
    return QString::fromStdString(TextOf(analysis, figure));
}

std::string_view View(const QByteArray& bytes) {
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

}  // namespace

BlockPlotForm::BlockPlotForm(Services& services, const AnalysedBlock& block, QWidget* parent)
    : Form(services, parent), block_(block) {
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    setSizeGripEnabled(true);
}

void BlockPlotForm::SetUp(const Controls& controls, const QString& subject) {
    view_ = controls.view;
    subject_ =
        tr("%1 ADC %2")
            .arg(QString::fromUtf8(TraitsOf(block_.analysis.conditions.converter).name), subject);
    controls.heading->setText(subject_);
    UseHeadingFont(controls.heading);
    ShowBoardLabel(controls.boardLabel);
    view_->setAccessibleName(subject_);
    On(controls.savePicture, &QPushButton::clicked, &BlockPlotForm::SavePicture);
    On(controls.saveCsv, &QPushButton::clicked, &BlockPlotForm::SaveCsv);
    On(controls.copy, &QPushButton::clicked, &BlockPlotForm::CopyPicture);
    On(controls.showAll, &QPushButton::clicked, &BlockPlotForm::ShowAll);
    On(controls.back, &QPushButton::clicked, &BlockPlotForm::reject);
    view_->setFocus();
}

QSharedPointer<QCPAxisTicker> BlockPlotForm::WholeTicker(const QCPAxis* axis) {
    return QSharedPointer<WholeNumbers>::create(axis);
}

QSharedPointer<QCPAxisTicker> BlockPlotForm::VoltsTicker(const QCPAxis* axis) const {
    return QSharedPointer<Volts>::create(axis, block_.analysis.conditions);
}

QString BlockPlotForm::VoltsUnitOf(const QCPAxis* axis) const {
    const VoltsAxis volts =
        VoltsAxisOver(axis->range(), block_.analysis.conditions, MostSteps(*axis));
    return QString::fromUtf8(volts.scale.unitName);
}

void BlockPlotForm::SavePicture() {
    const ChosenFile file = AskForFile(this, subject_, {PngFile(), PdfFile()});
    if (!file.path.isEmpty()) {
        const QByteArray bytes =
            IsPdf(file) ? view_->Pdf(PictureLines()) : view_->Png(PictureLines());
        Save(QDir::toNativeSeparators(file.path).toStdString(), View(bytes));
    }
}

void BlockPlotForm::SaveCsv() {
    const ChosenFile file = AskForFile(this, subject_, {CsvFile()});
    if (!file.path.isEmpty()) {
        Save(QDir::toNativeSeparators(file.path).toStdString(), Csv());
    }
}

void BlockPlotForm::CopyPicture() {
    QGuiApplication::clipboard()->setImage(view_->Picture(PictureLines()));
}

void BlockPlotForm::ShowAll() {
    view_->ShowAll();
}

/// Everything that a reader of the picture alone has to know.
QStringList BlockPlotForm::PictureLines() const {
    const NoiseAnalysis& analysis = block_.analysis;
    const QString board = QString::fromStdString(Shared().boardBadge);
    QStringList conditions{
        QString::fromStdString(CountText(static_cast<std::int64_t>(analysis.count), "reading")),
        tr("input range %1").arg(FigureText(analysis, NoiseFigure::InputRange)),
        tr("LSB %1").arg(FigureText(analysis, NoiseFigure::LsbSize)),
        tr("reference %1").arg(FigureText(analysis, NoiseFigure::ReferenceVoltage))};
    if (!board.isEmpty()) {
        conditions.append(board);
    }
    const MeanAndSigma texts = MeanAndSigmaOf(analysis);
    const QString figures = tr("mean %1 (%2), sigma %3 codes (%4)")
                                .arg(texts.mean, texts.meanVolts, texts.sigma, texts.sigmaVolts);
    return QStringList{subject_, conditions.join(QStringLiteral(", ")), figures} + FurtherLines();
}

void BlockPlotForm::Save(const std::string& path, std::string_view bytes) {
    try {
        ReplaceFile(path, bytes);
    } catch (const FileAccessError& error) {
        ShowFailure(error, "Nothing was saved. A file that was there stays as it was.");
    }
}

QString CodeVoltsText(const ConversionConditions& conditions, double code) {
    constexpr double spareDigits = 0.5;
    const double digits = conditions.Bits() * std::log10(2.0) + spareDigits;
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
            CodeVoltsText(analysis.conditions, mean),
            QString::fromStdString(SignificantText(sigma, digitsShown)),
            DistanceText(sigma * analysis.conditions.lsbVolts)};
}

}  // namespace vx3260
