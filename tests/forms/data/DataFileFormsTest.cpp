// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFileDialog>

#include "forms/data/ReadFileForm.h"
#include "forms/data/WriteFileForm.h"
#include "support/Folder.h"
#include "support/Forms.h"

namespace vx3260::test {
namespace {

class DataFileFormsTest : public FormTest {
  protected:
    /// Chooses the options, types the path and presses the button that does the work.
    void Do(const std::string& path, const char* notation = "OptDecimal",
            const char* converter = "OptMain") {
        Click(*form, notation);
        Click(*form, converter);
        Box("PathText").setText(QString::fromStdString(path));
        ClickOn("Command1");
    }

    Folder folder;
};

TEST_F(DataFileFormsTest, BringBackWhatWasWritten) {
    using Codes = std::vector<double>;
    const Codes main{8388608, 0, 16777215, -2147483648.0};
    const Codes aux{0, 32767, 32768, 65535};
    const std::tuple<const char*, const Codes&, const char*, const char*> cases[] = {
        {"OptMain", main, "OptDecimal", " 8388608\n 0\n 16777215\n-2147483648\n"},
        {"OptMain", main, "OptHexadecimal", "800000\n0\nFFFFFF\n80000000\n"},
        {"OptAux", aux, "OptDecimal", " 0\n 32767\n 32768\n 65535\n"},
        {"OptAux", aux, "OptHexadecimal", "0\n7FFF\n8000\nFFFF\n"},
    };
    const std::string name = "Messung ä 測定.dat";
    const std::string path = folder.Path(name);
    for (const auto& [option, codes, notation, bytes] : cases) {
        const Converter converter = &codes == &main ? Converter::Main : Converter::Aux;
        bench->Fill(converter, codes);
        const CodeBlock block = bench->state.BlockOf(converter);
        block.codes.resize(50, 7);  // an interrupted block's rest
        bench->messages.answers = {MessageAnswer::Yes};
        Open<WriteFileForm>();
        Do(path, notation, option);
        EXPECT_EQ(folder.Bytes(name), bytes);
        EXPECT_NE(TextOf(*form, "ResultLabel").find(path), std::string::npos);

        bench->state.MainCodeCount = bench->state.AuxCodeCount = 0;
        bench->messages.answers = {MessageAnswer::Yes};
        Open<ReadFileForm>();
        Do(path, notation, option);
        EXPECT_EQ(block.codes, codes) << bytes;
        EXPECT_EQ(block.count, 4) << bytes;
        EXPECT_EQ(bench->state.MainCodeCount + bench->state.AuxCodeCount, 4) << "the other block";
    }
}

TEST_F(DataFileFormsTest, KeepTheirWidthWithALongPath) {
    bench->Fill(Converter::Main, {5});
    Open<WriteFileForm>();
    const int width = form->minimumSizeHint().width();
    Do(folder.Path("&amp;x" + std::string(200, 'y')));
    EXPECT_NE(TextOf(*form, "ResultLabel"), "");
    EXPECT_EQ(form->minimumSizeHint().width(), width);
    EXPECT_EQ(Find<QLabel>(*form, "ResultLabel").textFormat(), Qt::PlainText);
}

TEST_F(DataFileFormsTest, GrowToShowAllWarnings) {
    Open<ReadFileForm>();
    auto& result = Find<QLabel>(*form, "ResultLabel");
    std::string codes;
    for (int i = 0; i < 100; ++i) {
        codes += i < 50 ? "0\n" : "9000000\n";
    }
    Do(folder.Make("clipped.dat", codes));
    QCoreApplication::processEvents();
    EXPECT_GE(result.height(), result.heightForWidth(result.width()))
        << result.text().toStdString();
}

TEST_F(DataFileFormsTest, RememberTheLastChoiceAndAskAboutTheOtherNotation) {
    DataFileChoice choice;
    bench->Fill(Converter::Main, {1});
    Open<ReadFileForm>(&choice);
    const std::string path = folder.Make("a.dat", " 8388608\n 8388609\n");
    bench->messages.answers = {MessageAnswer::No};
    ClickOn("OptHexadecimal");
    EXPECT_NE(Enter("PathText", path).find("the lines look like decimal codes"), std::string::npos);
    Open<WriteFileForm>(&choice);
    Expect("PathText: " + path);
    EXPECT_TRUE(Checked(*form, "OptHexadecimal"));
    form.reset();
    EXPECT_TRUE(ChooseByLook(choice));
    EXPECT_EQ(choice.notation, Notation::Decimal);
}

TEST_F(DataFileFormsTest, ShowThePathChosenInTheDialog) {
    const QString path = QString::fromStdString(folder.Make("chosen.dat", " 3\n"));
    Open<ReadFileForm>();
    Box("PathText").setText(QString::fromStdString(folder.Path("Default.dat")));
    WhileModal([&] { ClickOn("Command3"); },
               [&](QDialog& window) {
                   auto& dialog = dynamic_cast<QFileDialog&>(window);
                   EXPECT_EQ(dialog.directory(), QFileInfo(path).dir());
                   dialog.selectFile(path);
                   window.accept();
               });
    EXPECT_EQ(Box("PathText").text(), path);
}

}  // namespace
}  // namespace vx3260::test
