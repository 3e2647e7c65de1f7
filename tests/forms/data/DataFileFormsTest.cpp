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
    /// Chooses the options, types the path and presses the button that does the work. Gives the
    /// boxes that are shown then.
    std::string Do(const std::string& path, const char* notation = "OptDecimal",
                   const char* converter = "OptMain") {
        Click(*form, notation);
        Click(*form, converter);
        Box("PathText").setText(QString::fromStdString(path));
        return ClickOn("Command1");
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

TEST_F(DataFileFormsTest, ShowWhatWasRead) {
    bench->Fill(Converter::Aux, {1});
    Open<ReadFileForm>();
    EXPECT_TRUE(Checked(*form, "OptDecimal"));
    EXPECT_TRUE(Checked(*form, "OptMain"));
    Expect("MainCountLabel: 0 codes | AuxCountLabel: 1 code");
    Do(folder.Make("x.dat", " 8388610\r\n 8388608 \n 8388625\n"));
    Expect(
        "MainCountLabel: 3 codes | ResultLabel: Read 3 codes into the Main ADC's block.\n"
        "Smallest 8388608 (800000), largest 8388625 (800011).");
    const std::string hex = folder.Make("hex.dat", "1\n10000");
    bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_NE(Do(hex, "OptHexadecimal", "OptAux").find("Replace the block all the same ?"),
              std::string::npos);
    EXPECT_EQ(bench->state.AuxCodes, std::vector<double>{1});
    Expect("ResultLabel: Nothing was read.");
    Do(hex, "OptHexadecimal", "OptAux");
    Expect(
        "ResultLabel: Read 2 codes into the Aux ADC's block.\n"
        "Smallest 1 (1), largest 65536 (10000).\n"
        "Warning: the last line has no line end; was the file cut off?\n"
        "Warning: there are codes outside 0 to 0xFFFF; is it the right file and notation?");
    Click(*form, "Command2");
    EXPECT_FALSE(form->isVisible());
}

TEST_F(DataFileFormsTest, KeepTheBlockWhenTheFileIsBad) {
    bench->Fill(Converter::Main, {1, 2});
    Open<ReadFileForm>();
    const std::string bad = folder.Make("bad.dat", " 1\n 1.5\n");
    const std::string none = folder.Path("none.dat");
    const std::pair<std::string, std::string> cases[] = {
        {bad, bad + ": line 2: \"1.5\" is not a decimal code"},
        {none, "Cannot read " + none + ": " + Folder::ReasonOfNoFile(none)},
#if defined(__linux__)
        {"/dev/zero",
         "/dev/zero is a pipe, a device or the name of an open file, not a regular file"},
#endif
        {"  ", "Enter the name of a file, or choose one with \"Browse...\""},
    };
    bench->messages.atBox = [this] { EXPECT_NE(bench->messages.shown.back().detail, ""); };
    for (const auto& [path, message] : cases) {
        Find<QLabel>(*form, "ResultLabel").setText(QStringLiteral("of the file before"));
        EXPECT_EQ(Do(path), "Exclamation: " + message);
        Expect("ResultLabel:");
    }
    EXPECT_EQ(bench->state.MainCodes, (std::vector<double>{1, 2}));
    EXPECT_EQ(bench->state.MainCodeCount, 2);
}

TEST_F(DataFileFormsTest, AskBeforeAFileIsReplacedAndReportAFailure) {
    Open<WriteFileForm>();
    const int width = form->minimumSizeHint().width();
    const std::string path = folder.Make("old.dat", "old");
    EXPECT_EQ(Do(path, "OptDecimal", "OptAux"),
              "Exclamation: The Aux ADC's block is empty: read codes first, from the board or from "
              "a file");
    bench->Fill(Converter::Main, {5});
    bench->messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    EXPECT_EQ(Do(path), "Exclamation yes or no: " + path + " exists already.\r\nReplace it ?");
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
    Expect("ResultLabel: Nothing was written.");
    Do(path);
    EXPECT_EQ(folder.Bytes("old.dat"), " 5\n");
    Do(folder.Path("<b>x" + std::string(200, 'y')));
    EXPECT_EQ(form->minimumSizeHint().width(), width);
    EXPECT_EQ(Find<QLabel>(*form, "ResultLabel").textFormat(), Qt::PlainText);
    const std::string gone = folder.Path("gone/x.dat");
    EXPECT_EQ(Do(gone), "Exclamation: Cannot write " + gone + ": " + Folder::ReasonOfNoFile(gone));
}

TEST_F(DataFileFormsTest, RememberTheLastChoiceAndAskAboutTheOtherNotation) {
    DataFileChoice choice;
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
