// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/HelpForm.h"

#include <QAction>
#include <QDirIterator>
#include <QMenu>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QWindow>

#include "forms/shell/MainMenuForm.h"
#include "support/Forms.h"
#include "ui/Handbook.h"

namespace vx3260::test {
namespace {

QString TextOfFile(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

bool IsPage(const QString& name) {
    return QFile::exists(QStringLiteral(":/help/") + name);
}

/// The names of the pages that a page links.
QStringList LinksOf(const QString& name) {
    static const QRegularExpression link(QStringLiteral("\\]\\(([^)]*)\\)"));
    QStringList links;
    const QString page = TextOfFile(QStringLiteral(":/help/") + name);
    for (const QRegularExpressionMatch& match : link.globalMatch(page)) {
        links.append(match.captured(1));
    }
    return links;
}

class HelpFormTest : public FormTest {
  protected:
    /// The page that the help window shows, such as "ModeForm"; empty without a window.
    std::string Page() const {
        const QDialog* const help = Help();
        return help == nullptr || !help->isVisible() ? ""
                                                     : Find<QTextBrowser>(*help, "Page")
                                                           .source()
                                                           .fileName()
                                                           .section('.', 0, 0)
                                                           .toStdString();
    }
    QDialog* Help() const { return form->findChild<HelpForm*>(); }

    /// Clicks as the mouse does: not into a window that a modal one blocks.
    void ClickInHelp(const char* button) {
        const QWidget& target = Find(*Help(), button);
        const QPoint place = target.mapTo(Help(), target.rect().center());
        QTest::mouseClick(Help()->windowHandle(), Qt::LeftButton, {}, place);
    }
};

TEST_F(HelpFormTest, F1OpensThePageOfTheFormAndTheWindowOutlivesModalForms) {
    Open<MainMenuForm>();
    QTest::keyClick(form.get(), Qt::Key_F1);
    EXPECT_EQ(Page(), "MainMenuForm");
    EXPECT_TRUE(WhileModal([this] { Click(*form, "Command1"); },
                           [this](QDialog& menu) {
                               ClickInHelp("ContentsButton");
                               EXPECT_EQ(Page(), "index");
                               WhileModal([&] { Click(menu, "Command1"); },
                                          [this](QDialog& mode) {
                                              QTest::keyClick(&mode, Qt::Key_F1);
                                              EXPECT_EQ(Page(), "ModeForm");
                                          });
                               ClickInHelp("BackButton");
                               EXPECT_EQ(Page(), "index");
                           }));
    ClickInHelp("BackButton");
    EXPECT_EQ(Page(), "MainMenuForm");
    QTest::keyClick(Help(), Qt::Key_Escape);
    EXPECT_EQ(Page(), "");
    EXPECT_TRUE(form->isVisible());
}

TEST_F(HelpFormTest, TheMenuOpensContentsTheWindowsPageAndAbout) {
    Open<MainMenuForm>();
    QTest::keyClick(form.get(), Qt::Key_H, Qt::AltModifier);
    auto& menu = Find<QMenu>(*form, "MnuHelp");
    EXPECT_TRUE(menu.isVisible());
    menu.close();
    Find<QAction>(*form, "MnuHelpContents").trigger();
    EXPECT_EQ(Page(), "index");
    Find<QAction>(*form, "MnuHelpWindow").trigger();
    EXPECT_EQ(Page(), "MainMenuForm");
    Help()->close();
    QString opened;
    WhileModal([this] { Find<QAction>(*form, "MnuHelpAbout").trigger(); },
               [&opened](QDialog& about) { opened = about.objectName(); });
    EXPECT_EQ(opened, QStringLiteral("aboutform"));
}

TEST_F(HelpFormTest, HandbookIsFoundBesideTheProgramOrWherePackagesKeepIt) {
    const QTemporaryDir place;
    const QString programs = place.filePath(QStringLiteral("bin"));
    QDir().mkpath(programs);
    EXPECT_EQ(HandbookOf(programs), QString());
    for (const QString& folder : {place.filePath(QStringLiteral("share/vx3260-eval/handbook")),
                                  programs + QStringLiteral("/handbook")}) {
        QDir().mkpath(folder);
        QFile page(folder + QStringLiteral("/index.html"));
        EXPECT_TRUE(page.open(QIODevice::WriteOnly));
        EXPECT_EQ(HandbookOf(programs), page.fileName());
    }
}

TEST_F(HelpFormTest, LinksLeadToPagesAndTheContentsToAll) {
    Open<MainMenuForm>();
    QTest::keyClick(form.get(), Qt::Key_F1);  // the linker leaves out pages that nothing asks for
    const QStringList contents = LinksOf(QStringLiteral("index.md"));
    const QStringList pages = QDir(QStringLiteral(":/help")).entryList();
    EXPECT_GT(pages.size(), 20);
    for (const QString& page : pages) {
        EXPECT_TRUE(page == QStringLiteral("index.md") || contents.contains(page))
            << page.toStdString();
        for (const QString& link : LinksOf(page)) {
            EXPECT_TRUE(IsPage(link)) << page.toStdString() << " links " << link.toStdString();
        }
    }
}

#ifdef VX3260_SOURCES
/// A form is a class that derives from Form and from which none derives.
TEST_F(HelpFormTest, EveryFormHasAPage) {
    Open<MainMenuForm>();
    QTest::keyClick(form.get(), Qt::Key_F1);
    static const QRegularExpression declaration(
        QStringLiteral("\nclass (\\w+)(?: final)? : public (\\w+)"));
    std::map<QString, QString> baseOf;
    QDirIterator headers(QStringLiteral(VX3260_SOURCES), {QStringLiteral("*.h")}, QDir::Files,
                         QDirIterator::Subdirectories);
    while (headers.hasNext()) {
        const QString text = TextOfFile(headers.next());
        for (const QRegularExpressionMatch& match : declaration.globalMatch(text)) {
            baseOf[match.captured(1)] = match.captured(2);
        }
    }
    std::set<QString> bases;
    for (const auto& [name, base] : baseOf) {
        bases.insert(base);
    }
    int forms = 0;
    for (const auto& entry : baseOf) {
        QString root = entry.second;
        while (baseOf.contains(root) && root != QStringLiteral("Form")) {
            root = baseOf[root];
        }
        if (root == QStringLiteral("Form") && !bases.contains(entry.first)) {
            ++forms;
            EXPECT_TRUE(IsPage(entry.first + QStringLiteral(".md")))
                << "docs/help/ has no page for " << entry.first.toStdString()
                << ", or docs/help/help.qrc does not list it";
        }
    }
    EXPECT_GE(forms, 21);
}
#endif

}  // namespace
}  // namespace vx3260::test
