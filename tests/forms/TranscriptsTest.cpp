// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>

#include "forms/shell/MainMenuForm.h"
#include "link/RegisterLookup.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

/// "RMSLabel.caption" stands for the label that names RMSLabel.
std::string ShownText(const QWidget& form, const QString& name) {
    if (name == QStringLiteral("windowTitle")) {
        return form.windowTitle().toStdString();
    }
    const QString named = name.section(QLatin1Char('.'), 0, 0);
    const QWidget& control = Find(form, named.toStdString());
    if (named == name) {
        return TextOf(control);
    }
    std::string captions;
    for (const QLabel* label : form.findChildren<QLabel*>()) {
        captions += label->buddy() == &control ? TextOf(*label) : "";
    }
    return captions;
}

/// Saves a picture in the folder that VX3260_PICTURES names, if it names one.
void TakePicture(QWidget& form) {
    const QString folder = qEnvironmentVariable("VX3260_PICTURES");
    if (!folder.isEmpty()) {
        form.grab().save(QDir(folder).filePath(form.objectName() + QStringLiteral(".png")));
    }
}

/// Clicks the Command buttons of those numbers, each in the form that the one before has opened.
void OpenBy(const QStringList& numbers, QDialog& form,
            const std::function<void(QDialog&)>& inspect) {
    if (numbers.isEmpty()) {
        inspect(form);
        return;
    }
    const bool opened = WhileModal([&] { Click(form, "Command" + numbers.front().toStdString()); },
                                   [&](QDialog& next) { OpenBy(numbers.mid(1), next, inspect); });
    EXPECT_TRUE(opened) << "no form";
}

unsigned AddressOf(const QString& name) {
    const auto& description = RegisterMap::RegisterNamed(name.toStdString());
    return static_cast<unsigned>(description.access.readByte & 0x0F);
}

/// Runs the paragraphs of Transcripts.txt, which describes them.
class FormTranscript : public FormTest {
  protected:
    void Run(const QStringList& lines) {
        UseBoardWith("");
        bench->Fill(Converter::Main, std::vector<double>(10, 8388608));
        bench->Fill(Converter::Aux, std::vector<double>(10, 32768));
        const auto open = std::find_if(lines.begin(), lines.end(), [](const QString& line) {
            return line.startsWith(QStringLiteral("open "));
        });
        ASSERT_NE(open, lines.end());
        const QStringList header = open->split(QLatin1Char(' '));
        Preset(modeAt, header.value(2) == QStringLiteral("1") ? 0x00 : 0x23);
        std::for_each(lines.begin(), open, [this](const QString& line) { Do(line, nullptr); });
        OpenBy(header.mid(2), FormTest::Open<MainMenuForm>(), [&](QDialog& opened) {
            messages_ = bench->messages.Take();
            EXPECT_EQ(opened.objectName(), header[1]);
            EXPECT_TRUE(bench->port->writes.empty());
            TakePicture(opened);
            std::for_each(open + 1, lines.end(), [&](const QString& line) { Do(line, &opened); });
            EXPECT_EQ(messages_, "");
        });
    }

  private:
    void Do(const QString& line, QDialog* opened) {
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString name = line.section(QLatin1Char(' '), 1, 1);
        const QString rest = line.section(QLatin1Char(' '), 2);
        if (verb == QStringLiteral("fault")) {
            UseBoardWith(name.toStdString());
        } else if (name == QStringLiteral(":=")) {
            Preset(AddressOf(verb), rest.toUInt(nullptr, 16));
        } else if (name == QStringLiteral("==")) {
            EXPECT_EQ(Contents(AddressOf(verb)), rest.toUInt(nullptr, 16)) << line.toStdString();
        } else if (verb == QStringLiteral("click")) {
            EXPECT_EQ(messages_, "");
            Click(*opened, name.toStdString());
            messages_ = bench->messages.Take();
        } else if (verb == QStringLiteral("enter")) {
            EXPECT_EQ(messages_, "");
            auto& box = Find<QLineEdit>(*opened, name.toStdString());
            box.setText(rest);
            QTest::keyClick(&box, Qt::Key_Return);
            messages_ = bench->messages.Take();
        } else if (verb == QStringLiteral("box")) {
            EXPECT_EQ(messages_, line.mid(4).toStdString());
            messages_.clear();
        } else if (verb == QStringLiteral("range")) {
            EXPECT_FLOAT_EQ(bench->state.InputRange, name.toFloat());
        } else if (verb == QStringLiteral("selected")) {
            EXPECT_TRUE(Find<QLineEdit>(*opened, name.toStdString()).hasSelectedText());
        } else if (verb == QStringLiteral("refused")) {
            EXPECT_NE(Find(*opened, name.toStdString()).accessibleDescription(), QString());
        } else if (verb == QStringLiteral("accepted")) {
            EXPECT_EQ(Find(*opened, name.toStdString()).accessibleDescription(), QString());
        } else if (verb == QStringLiteral("reference")) {
            EXPECT_FLOAT_EQ(bench->state.ReferenceVoltage, name.toFloat());
        } else {
            const QString control = line.section(QLatin1Char(':'), 0, 0);
            const std::string text = line.mid(control.size() + 1).trimmed().toStdString();
            EXPECT_EQ(ShownText(*opened, control), text) << control.toStdString();
        }
    }

    std::string messages_;
};

TEST_F(FormTranscript, FormsAnswerAsInTheTranscripts) {
    QFile file(QStringLiteral(":/Transcripts.txt"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QStringList paragraphs = QString::fromUtf8(file.readAll()).split(QStringLiteral("\n\n"));
    for (const QString& paragraph : paragraphs.mid(1)) {
        SCOPED_TRACE(paragraph.left(80).toStdString());
        Run(paragraph.trimmed().split(QLatin1Char('\n')));
    }
}

}  // namespace
}  // namespace vx3260::test
