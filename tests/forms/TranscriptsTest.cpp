// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/Transcripts.h"

#include <QAccessible>
#include <QAction>

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

/// Each control that the keyboard reaches has a name for a screen reader; a label's is its text.
void ExpectNames(const QWidget& form) {
    for (QWidget* const control : form.findChildren<QWidget*>()) {
        if (control->isVisible() && control->focusPolicy() != Qt::NoFocus &&
            qobject_cast<QLabel*>(control) == nullptr) {
            QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(control);
            EXPECT_FALSE(seen->text(QAccessible::Name).isEmpty())
                << form.objectName().toStdString() << ": " << control->objectName().toStdString();
        }
    }
}

/// Clicks the Command button of that number, or chooses the menu item of that name.
void OpenBy(const QString& name, QDialog& form) {
    if (auto* const item = form.findChild<QAction*>(name)) {
        item->trigger();
    } else {
        Click(form, "Command" + name.toStdString());
    }
}

/// Does that for each of them, in the form that the one before has opened.
void OpenBy(const QStringList& numbers, QDialog& form,
            const std::function<void(QDialog&)>& inspect) {
    if (numbers.isEmpty()) {
        inspect(form);
        return;
    }
    const bool opened = WhileModal([&] { OpenBy(numbers.front(), form); },
                                   [&](QDialog& next) { OpenBy(numbers.mid(1), next, inspect); });
    EXPECT_TRUE(opened) << "no form";
}

unsigned AddressOf(const QString& name) {
    const auto& description = RegisterMap::RegisterNamed(name.toStdString());
    return static_cast<unsigned>(description.access.readByte & 0x0F);
}

/// The property that a state is, of a control or of the form.
bool Holds(const QString& state, const QWidget& form, const QString& name) {
    static const std::map<QString, const char*> properties{{"checked", "checked"},
                                                           {"refused", "accessibleDescription"},
                                                           {"selected", "hasSelectedText"},
                                                           {"visible", "visible"}};
    const QWidget& subject = name == form.objectName() ? form : Find(form, name.toStdString());
    return state == QStringLiteral("focused") ? form.focusWidget() == &subject
                                              : subject.property(properties.at(state)).toBool();
}

Converter ConverterNamed(const QString& name) {
    return name == QStringLiteral("main") ? Converter::Main : Converter::Aux;
}

std::vector<double> CodesIn(const QString& text) {
    std::vector<double> codes;
    for (const QString& code : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
        codes.push_back(code.toDouble());
    }
    return codes;
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
            ExpectNames(opened);
            std::for_each(open + 1, lines.end(), [&](const QString& line) { Do(line, &opened); });
            EXPECT_EQ(messages_, "");
        });
    }

  private:
    void Do(const QString& line, QDialog* opened) {
        SCOPED_TRACE(line.toStdString());
        const QString verb = line.section(QLatin1Char(' '), 0, 0);
        const QString name = line.section(QLatin1Char(' '), 1, 1);
        const QString rest = files_.Resolved(line.section(QLatin1Char(' '), 2));
        if (files_.Take(verb, line.mid(verb.size() + 1)) || Prepare(verb, name, rest) ||
            ExpectState(verb, name, rest)) {
            return;
        }
        if (verb == QStringLiteral("click")) {
            Act([&] { Click(*opened, name.toStdString()); });
        } else if (verb == QStringLiteral("enter")) {
            auto& box = Find<QLineEdit>(*opened, name.toStdString());
            box.setText(rest);
            Act([&box] { QTest::keyClick(&box, Qt::Key_Return); });
        } else if (verb == QStringLiteral("box")) {
            ExpectText(std::exchange(messages_, {}), name + QLatin1Char(' ') + rest);
        } else if (verb == QStringLiteral("detail")) {
            ExpectText(detail_, line.mid(verb.size() + 1));
        } else if (verb == QStringLiteral("is") || verb == QStringLiteral("not")) {
            EXPECT_EQ(Holds(name, *opened, rest), verb == QStringLiteral("is"));
        } else {
            const QString control = line.section(QLatin1Char(':'), 0, 0);
            const QString text = files_.Resolved(line.mid(control.size() + 1).trimmed());
            ExpectText(ShownText(*opened, control), text);
        }
    }

    /// Lines that change the bench; false for others.
    bool Prepare(const QString& verb, const QString& name, const QString& rest) {
        if (verb == QStringLiteral("fault")) {
            UseBoardWith(name.toStdString());
        } else if (verb == QStringLiteral("block")) {
            bench->Fill(ConverterNamed(name), CodesIn(rest));
        } else if (verb == QStringLiteral("answer")) {
            bench->messages.answers = {name == QStringLiteral("yes") ? MessageAnswer::Yes
                                                                     : MessageAnswer::No};
        } else if (name == QStringLiteral(":=")) {
            Preset(AddressOf(verb), rest.toUInt(nullptr, 16));
        } else {
            return false;
        }
        return true;
    }

    /// Lines about the bench and the files; false for others.
    bool ExpectState(const QString& verb, const QString& name, const QString& rest) {
        if (verb == QStringLiteral("codes")) {
            EXPECT_EQ(bench->state.BlockOf(ConverterNamed(name)).codes, CodesIn(rest));
        } else if (verb == QStringLiteral("contents")) {
            EXPECT_EQ(files_.Bytes(name), rest.toStdString());
        } else if (verb == QStringLiteral("untouched")) {
            EXPECT_TRUE(bench->port->writes.empty());
        } else if (verb == QStringLiteral("range")) {
            EXPECT_FLOAT_EQ(bench->state.InputRange, name.toFloat());
        } else if (verb == QStringLiteral("reference")) {
            EXPECT_FLOAT_EQ(bench->state.ReferenceVoltage, name.toFloat());
        } else if (verb == QStringLiteral("polarity")) {
            EXPECT_EQ(bench->state.Polarity == Polarity::Unipolar,
                      name == QStringLiteral("unipolar"));
        } else if (name == QStringLiteral("==")) {
            EXPECT_EQ(Contents(AddressOf(verb)), rest.toUInt(nullptr, 16));
        } else {
            return false;
        }
        return true;
    }

    void Act(const std::function<void()>& act) {
        EXPECT_EQ(messages_, "");
        act();
        detail_ = bench->messages.shown.empty() ? "" : bench->messages.shown.back().detail;
        messages_ = bench->messages.Take();
    }

    /// An expected text may end with "..." in place of what the system says.
    static void ExpectText(const std::string& text, const QString& expected) {
        const std::string dots = "...";
        const std::string whole = expected.toStdString();
        const bool open = whole.ends_with(dots);
        EXPECT_EQ(open ? text.substr(0, whole.size() - dots.size()) + dots : text, whole);
    }

    TranscriptFiles files_;
    std::string messages_;
    std::string detail_;
};

TEST_F(FormTranscript, FormsAnswerAsInTheTranscripts) {
    for (const QStringList& lines : Transcripts()) {
        SCOPED_TRACE(lines.join(QLatin1Char('\n')).left(80).toStdString());
        Run(lines);
    }
}

}  // namespace
}  // namespace vx3260::test
