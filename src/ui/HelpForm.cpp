// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/HelpForm.h"

#include <QFile>
#include <QKeyEvent>
#include <QScreen>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextFrame>
#include <QTextTable>
#include <QWindow>
#include <algorithm>

#include "ui/KeyPresses.h"
#include "ui_HelpForm.h"

/// The linker drops a static library's resources unless they are asked for, outside any namespace.
static void LoadPages() {
    Q_INIT_RESOURCE(help);
}

namespace vx3260 {
namespace {

constexpr QLatin1String contents("index");

/// Of a line of text, in average characters, and of the screen's height.
constexpr int lineLength = 84;
constexpr double partOfScreen = 0.8;

// Pixels.
constexpr int pageMargin = 12;
constexpr int cellPadding = 4;
constexpr int gapAboveHeading = 16;
constexpr int gapBelowHeading = 6;
constexpr int gapAtTable = 6;
constexpr int gapBesideForm = 8;

QString PathOf(const QString& name) {
    return QStringLiteral(":/help/%1.md").arg(name);
}

/// The program's first window, which outlives all others and owns the help window.
QWidget* RootOf(QWidget* form) {
    while (form->parentWidget() != nullptr) {
        form = form->parentWidget()->window();
    }
    return form;
}

/// Above every heading but the page's title.
void SetHeadingsApart(QTextDocument& page) {
    for (QTextBlock block = page.begin().next(); block.isValid(); block = block.next()) {
        QTextBlockFormat format = block.blockFormat();
        if (format.headingLevel() > 0) {
            format.setTopMargin(gapAboveHeading);
            format.setBottomMargin(gapBelowHeading);
            QTextCursor(block).setBlockFormat(format);
        }
    }
}

/// Markdown's tables come without frames and with narrow cells.
void FrameTables(QTextDocument& page, const QBrush& line) {
    for (QTextFrame* const frame : page.rootFrame()->childFrames()) {
        if (auto* const table = qobject_cast<QTextTable*>(frame)) {
            QTextTableFormat format = table->format();
            format.setBorder(1);
            format.setBorderBrush(line);
            format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
            format.setBorderCollapse(true);
            format.setCellSpacing(0);
            format.setCellPadding(cellPadding);
            format.setTopMargin(gapAtTable);
            format.setBottomMargin(gapAtTable);
            table->setFormat(format);
        }
    }
}

HelpForm* HelpOf(QWidget* form) {
    return RootOf(form)->findChild<HelpForm*>(QString(), Qt::FindDirectChildrenOnly);
}

}  // namespace

HelpForm::HelpForm(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::HelpForm>()) {
    LoadPages();
    ui_->setupUi(this);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    ui_->Page->document()->setDocumentMargin(pageMargin);
    for (QPushButton* const button : {ui_->BackButton, ui_->ContentsButton, ui_->CloseButton}) {
        button->setAutoDefault(false);
        ClickOnEnter(button);
    }
    ui_->BackButton->setEnabled(false);
    connect(ui_->Page, &QTextBrowser::sourceChanged, this, &HelpForm::StylePage);
    connect(ui_->Page, &QTextBrowser::backwardAvailable, ui_->BackButton, &QWidget::setEnabled);
    connect(ui_->BackButton, &QPushButton::clicked, ui_->Page, &QTextBrowser::backward);
    connect(ui_->ContentsButton, &QPushButton::clicked, this, &HelpForm::ShowContents);
    connect(ui_->CloseButton, &QPushButton::clicked, this, &HelpForm::reject);
}

HelpForm::~HelpForm() = default;

void HelpForm::Open(QWidget* form, const QString& name) {
    HelpForm* help = HelpOf(form);
    if (help == nullptr) {
        help = new HelpForm(RootOf(form));
    }
    help->ShowPage(name);
    if (!help->isVisible()) {
        help->PlaceBeside(*form);
    }
    GiveTo(form, form);
    help->show();
    help->raise();
    help->activateWindow();
    help->ui_->Page->setFocus();
}

void HelpForm::OpenContents(QWidget* form) {
    Open(form, contents);
}

void HelpForm::GiveTo(QWidget* owner, QWidget* form) {
    const HelpForm* const help = HelpOf(form);
    if (help == nullptr || owner == nullptr) {
        return;
    }
    // Both have their windows from here on.
    (void)help->winId();
    (void)owner->winId();
    help->windowHandle()->setTransientParent(owner->windowHandle());
}

void HelpForm::ShowContents() {
    ShowPage(contents);
}

void HelpForm::ShowPage(const QString& name) {
    const QString path = PathOf(name);
    ui_->Page->setSource(
        QUrl(QStringLiteral("qrc") + (QFile::exists(path) ? path : PathOf(contents))));
}

void HelpForm::StylePage() {
    QTextDocument* const page = ui_->Page->document();
    SetHeadingsApart(*page);
    FrameTables(*page, palette().mid());
    setWindowTitle(tr("VX3260 Evaluation Software - Help: %1").arg(page->firstBlock().text()));
}

/// At the form's side where there is room, else at the screen's edge, over the form.
void HelpForm::PlaceBeside(const QWidget& form) {
    const QRect space = form.screen()->availableGeometry();
    const QRect beside = form.frameGeometry();
    const int width = fontMetrics().averageCharWidth() * lineLength;
    const int height = static_cast<int>(space.height() * partOfScreen);
    const QSize size = QSize(width, height).boundedTo(space.size());
    resize(size);
    const int right = beside.right() + gapBesideForm;
    const int left = beside.left() - gapBesideForm - size.width();
    const int edge = space.right() - size.width() - gapBesideForm;
    const bool fitsRight = right <= edge;
    move(!fitsRight && left >= space.left() ? left : std::min(right, edge),
         space.top() + (space.height() - size.height()) / 2);
}

/// The colours of links and tables are those of the time when the page was loaded.
void HelpForm::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::PaletteChange && !ui_->Page->source().isEmpty()) {
        ui_->Page->reload();
    }
}

void HelpForm::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F1) {
        ShowContents();
    } else {
        QDialog::keyPressEvent(event);
    }
}

}  // namespace vx3260

#include "moc_HelpForm.cpp"
