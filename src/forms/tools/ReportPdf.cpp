// SPDX-License-Identifier: GPL-3.0-or-later
#include "forms/tools/ReportPdf.h"

#include <QAbstractTextDocumentLayout>
#include <QBuffer>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfWriter>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFrame>
#include <QTextObjectInterface>
#include <QTextTable>
#include <cmath>
#include <utility>
#include <vector>

#include "characterisation/Report.h"
#include "forms/tools/PainterChart.h"

namespace vx3260 {
namespace {

constexpr double pageMargin = 16;  ///< millimetres
constexpr int dotsPerInch = 600;
constexpr double bodyPoints = 9;
constexpr double footerLines = 2;

/// Of the style sheets that a QTextDocument knows.
constexpr char printStyle[] = R"(
h1 { font-size: 16pt; margin-bottom: 2px; }
h2 { font-size: 12pt; margin-top: 20px; margin-bottom: 4px; }
h3 { font-size: 9pt; margin-top: 12px; margin-bottom: 3px; }
p { margin-top: 2px; margin-bottom: 4px; }
table { border-collapse: collapse; border-width: 1px; border-style: solid; border-color: #cccccc; }
th, td { padding: 2px 6px; border: 1px solid #cccccc; }
th { background-color: #f2f2f2; font-weight: 600; text-align: right; }
td { text-align: right; }
table.facts th, table.facts td { text-align: left; }
)";

/// The charts of the document, which stand for the images "0", "1" and so on.
class ChartImages final : public QObject, public QTextObjectInterface {
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

  public:
    /// What stands for the chart in the document's text.
    std::string Add(const Chart& chart) {
        charts_.push_back(chart);
        return "<p><img src=\"" + std::to_string(charts_.size() - 1) + "\"></p>\n";
    }

    QSizeF intrinsicSize(QTextDocument* document, int /*position*/,
                         const QTextFormat& /*format*/) override {
        // A little less than the line, so that rounding starts no second one.
        constexpr double part = 0.99;
        const double width = document->pageSize().width() * part;
        return {width, width * ChartHeight / ChartWidth};
    }

    void drawObject(QPainter* painter, const QRectF& place, QTextDocument* /*document*/,
                    int /*position*/, const QTextFormat& format) override {
        const int number = format.toImageFormat().name().toInt();
        DrawChart(*painter, place, charts_.at(static_cast<std::size_t>(number)));
    }

  private:
    std::vector<Chart> charts_;
};

/// A paragraph, heading, chart or table of the document's.
struct Piece {
    QTextBlock block;  ///< the first one of a table
    QRectF place;
    bool isTable;

    bool IsHeading() const { return !isTable && block.blockFormat().headingLevel() > 0; }
    bool IsFigure() const {
        return isTable || block.text().contains(QChar::ObjectReplacementCharacter);
    }
};

std::vector<Piece> PiecesOf(const QTextDocument& document) {
    const QAbstractTextDocumentLayout& layout = *document.documentLayout();
    std::vector<Piece> pieces;
    for (auto at = document.rootFrame()->begin(); !at.atEnd(); ++at) {
        if (QTextFrame* const frame = at.currentFrame()) {
            pieces.push_back(
                {frame->firstCursorPosition().block(), layout.frameBoundingRect(frame), true});
        } else if (!at.currentBlock().text().isEmpty()) {
            pieces.push_back(
                {at.currentBlock(), layout.blockBoundingRect(at.currentBlock()), false});
        }
    }
    return pieces;
}

/// Lets a page begin before the first group of headings and figure that is cut by the end of a page
/// though it fits one; before a longer group if only its headings are cut off. False where there is
/// none.
bool MoveCutGroup(QTextDocument& document) {
    const double height = document.pageSize().height();
    const auto pageOf = [height](double y) { return std::floor(y / height); };
    const Piece* first = nullptr;
    const std::vector<Piece> pieces = PiecesOf(document);
    for (const Piece& piece : pieces) {
        if (first == nullptr && piece.IsHeading()) {
            first = &piece;
        }
        if (!piece.IsFigure() || first == nullptr) {
            continue;
        }
        const Piece& head = *std::exchange(first, nullptr);
        // The lines at a page's top and bottom touch the next one.
        constexpr double touch = 1;
        const double top = head.place.top() + touch;
        const bool fits = piece.place.bottom() - head.place.top() <= height;
        const double end = (fits ? piece.place.bottom() : piece.place.top()) - touch;
        QTextBlockFormat format = head.block.blockFormat();
        if (pageOf(top) == pageOf(end) || format.pageBreakPolicy() != QTextFormat::PageBreak_Auto) {
            continue;
        }
        format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
        QTextCursor(head.block).setBlockFormat(format);
        return true;
    }
    return false;
}

QPalette PaperColours() {
    QPalette colours;
    colours.setColor(QPalette::Text, Qt::black);
    colours.setColor(QPalette::Base, Qt::white);
    return colours;
}

void DrawPages(QPainter& painter, const QTextDocument& document, const QString& title) {
    const QSizeF size = document.pageSize();
    const int pages = document.pageCount();
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = PaperColours();
    for (int page = 0; page < pages; ++page) {
        if (page > 0) {
            dynamic_cast<QPdfWriter*>(painter.device())->newPage();
        }
        context.clip = QRectF(QPointF(0, page * size.height()), size);
        painter.save();
        painter.translate(0, -context.clip.top());
        painter.setClipRect(context.clip);
        document.documentLayout()->draw(&painter, context);
        painter.restore();
        painter.setFont(document.defaultFont());
        const QRectF sheet(0, 0, size.width(), painter.device()->height());
        painter.drawText(sheet, Qt::AlignBottom | Qt::AlignLeft, title);
        painter.drawText(
            sheet, Qt::AlignBottom | Qt::AlignRight,
            QCoreApplication::translate("ReportPdf", "Page %1 of %2").arg(page + 1).arg(pages));
    }
}

}  // namespace

QByteArray ReportPdf(const CharacterisationResults& results, const std::string& folder) {
    const QString title = QString::fromStdString(ReportTitle(results));
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title);
    writer.setResolution(dotsPerInch);
    writer.setPageSize(QPageSize(QPageSize::A4));
    writer.setPageMargins(QMarginsF(pageMargin, pageMargin, pageMargin, pageMargin),
                          QPageLayout::Millimeter);

    ChartImages charts;
    QTextDocument document;
    QFont font = QGuiApplication::font();
    font.setPointSizeF(bodyPoints);
    document.setDefaultFont(font);
    document.setDocumentMargin(0);
    document.documentLayout()->setPaintDevice(&writer);
    document.documentLayout()->registerHandler(QTextFormat::ImageObject, &charts);
    const double footer = footerLines * QFontMetricsF(font, &writer).lineSpacing();
    document.setPageSize(QSizeF(writer.width(), writer.height() - footer));
    document.setHtml(QString::fromStdString(ReportHtml(
        results, folder, printStyle, [&charts](const Chart& chart) { return charts.Add(chart); })));
    while (MoveCutGroup(document)) {
    }
    QPainter painter(&writer);
    DrawPages(painter, document, title);
    painter.end();
    return bytes;
}

}  // namespace vx3260

#include "ReportPdf.moc"
