#include <gtest/gtest.h>

#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <filesystem>
#include <numeric>

#include "forms/data/ReadFileForm.h"
#include "forms/data/WriteFileForm.h"
#include "support/Folder.h"
#include "support/Forms.h"
#include "support/Pictures.h"
#include "support/SimulatedBench.h"

namespace vx3260 {
namespace {

using namespace test;

class DataFileFormsTest : public testing::Test {
  protected:
    void Fill(Converter converter, std::vector<double> codes) {
        const CodeBlock block = bench.state.BlockOf(converter);
        block.codes = std::move(codes);
        block.count = static_cast<std::int16_t>(block.codes.size());
    }
    QLineEdit& Path(const Form& form) { return Find<QLineEdit>(form, "PathText"); }
    QString Result(const Form& form) { return Find<QLabel>(form, "ResultLabel").text(); }

    /// Chooses the options, types the path and presses the button that does the work.
    void Do(const Form& form, const std::string& path, const char* notation = "OptDecimal",
            const char* converter = "OptMain") {
        Find<QRadioButton>(form, notation).click();
        Find<QRadioButton>(form, converter).click();
        Path(form).setText(QString::fromStdString(path));
        Find<QPushButton>(form, "Command1").click();
    }
    std::vector<std::string> Shown() { return bench.messages.Texts(); }

    Folder folder;
    SimulatedBench bench;
};

TEST_F(DataFileFormsTest, HaveTheirTexts) {
    ReadFileForm read(*bench.services);
    Fill(Converter::Aux, {1});
    WriteFileForm write(*bench.services);
    EXPECT_EQ(read.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Read from File"));
    EXPECT_EQ(write.windowTitle(), QStringLiteral("VX3260 Evaluation Software - Write to File"));
    EXPECT_EQ(Find<QPushButton>(read, "Command1").text(), QStringLiteral("&Read from File"));
    EXPECT_EQ(Find<QPushButton>(write, "Command1").text(), QStringLiteral("&Write to File"));
    for (Form* form : {static_cast<Form*>(&read), static_cast<Form*>(&write)}) {
        ExpectTexts(*form, {{"PathText", "Default.dat"},
                            {"Command2", "B&ack"},
                            {"Command3", "&Browse..."},
                            {"OptDecimal", "&Decimal"},
                            {"OptHexadecimal", "&Hexadecimal"},
                            {"OptMain", "&Main ADC"},
                            {"OptAux", "A&ux ADC"}});
        EXPECT_TRUE(Find<QRadioButton>(*form, "OptDecimal").isChecked());
        EXPECT_TRUE(Find<QRadioButton>(*form, "OptMain").isChecked());
        form->show();
        Find<QPushButton>(*form, "Command2").click();
        EXPECT_FALSE(form->isVisible());
    }
    ExpectTexts(write, {{"MainCountLabel", "0 codes"}, {"AuxCountLabel", "1 code"}});
}

TEST_F(DataFileFormsTest, BringBackWhatWasWritten) {
    const std::vector<double> main{8388608, 0, 16777215, -2147483648.0};
    const std::vector<double> aux{0, 32767, 32768, 65535};
    const struct {
        Converter converter;
        const std::vector<double>& codes;
        const char* notation;
        const char* option;
        const char* bytes;
    } cases[] = {
        {Converter::Main, main, "OptDecimal", "OptMain", " 8388608\n 0\n 16777215\n-2147483648\n"},
        {Converter::Main, main, "OptHexadecimal", "OptMain", "800000\n0\nFFFFFF\n80000000\n"},
        {Converter::Aux, aux, "OptDecimal", "OptAux", " 0\n 32767\n 32768\n 65535\n"},
        {Converter::Aux, aux, "OptHexadecimal", "OptAux", "0\n7FFF\n8000\nFFFF\n"},
    };
    const std::string name = "Messung ä 測定.dat";
    for (const auto& c : cases) {
        Fill(c.converter, c.codes);
        bench.state.BlockOf(c.converter).codes.resize(50, 7);  // an interrupted block's rest
        const WriteFileForm write(*bench.services);
        bench.messages.answers = {MessageAnswer::Yes};
        Do(write, folder.Path(name), c.notation, c.option);
        EXPECT_EQ(folder.Bytes(name), c.bytes);
        EXPECT_TRUE(Result(write).contains(QString::fromStdString(folder.Path(name))));

        bench.state.MainCodeCount = bench.state.AuxCodeCount = 0;
        const ReadFileForm read(*bench.services);
        Do(read, folder.Path(name), c.notation, c.option);
        EXPECT_EQ(bench.state.BlockOf(c.converter).codes, c.codes) << c.bytes;
        EXPECT_EQ(bench.state.BlockOf(c.converter).count, 4) << c.bytes;
        EXPECT_EQ(bench.state.MainCodeCount + bench.state.AuxCodeCount, 4) << "the other block";
    }
    EXPECT_EQ(Shown().size(), 3U) << "asked where the file was there already";
}

TEST_F(DataFileFormsTest, TellWhatWasRead) {
    ReadFileForm form(*bench.services);
    form.show();
    Do(form, folder.Make("x.dat", " 8388610\r\n 8388608 \n 8388625"));
    EXPECT_EQ(Result(form), QStringLiteral("Read 3 codes into the Main ADC's block.\nSmallest "
                                           "8388608 (800000), largest 8388625 (800011)."));
    EXPECT_EQ(Find<QLabel>(form, "MainCountLabel").text(), QStringLiteral("3 codes"));
    TakePicture(form, "ReadFileForm");
    Do(form, folder.Make("hex.dat", "1\n10000"), "OptHexadecimal", "OptAux");
    EXPECT_TRUE(Result(form).endsWith(QStringLiteral(
        "Smallest 1 (1), largest 65536 (10000).\nWarning: there are codes outside 0 to 0xFFFF; is "
        "it the right file and notation?")));
}

TEST_F(DataFileFormsTest, KeepTheBlockWhenTheFileIsNoGood) {
    Fill(Converter::Main, {1, 2});
    const ReadFileForm form(*bench.services);
    const std::string bad = folder.Make("bad.dat", " 1\n 1.5\n");
    const struct {
        std::string path;
        std::string message;
    } cases[] = {
        {bad, bad + ": line 2: \"1.5\" is no decimal code"},
        {folder.Make("empty.dat", ""), folder.Path("empty.dat") + ": line 1: holds no codes"},
        {folder.Path("none.dat"), "Cannot read " + folder.Path("none.dat") +
                                      ": No such file or "
                                      "directory"},
        {folder.Path(""), "Cannot read " + folder.Path("") + ": Is a directory"},
        {"/dev/zero", "/dev/zero is a pipe, a device or an open file, no file of its own"},
        {"  ", "Enter the name of a file, or choose one with \"Browse...\""},
    };
    for (const auto& c : cases) {
        bench.messages.shown.clear();
        Do(form, c.path);
        EXPECT_EQ(Shown(), std::vector<std::string>{c.message});
        EXPECT_EQ(bench.messages.shown.at(0).icon, MessageIcon::Exclamation);
        EXPECT_NE(bench.messages.shown.at(0).detail, "");
        EXPECT_EQ(bench.state.MainCodes, (std::vector<double>{1, 2})) << c.path;
        EXPECT_EQ(bench.state.MainCodeCount, 2) << c.path;
        EXPECT_EQ(Result(form), QString()) << c.path;
    }
}

TEST_F(DataFileFormsTest, KeepTheirWidthUnderALongName) {
    Fill(Converter::Main, {5});
    WriteFileForm form(*bench.services);
    form.show();
    const int width = form.minimumSizeHint().width();
    const std::string path = folder.Path("<b>x" + std::string(200, 'y'));
    Do(form, path);
    EXPECT_EQ(form.minimumSizeHint().width(), width);
    EXPECT_TRUE(Result(form).contains(QString::fromStdString(path)));
    EXPECT_EQ(Find<QLabel>(form, "ResultLabel").textFormat(), Qt::PlainText);
}

TEST_F(DataFileFormsTest, AskBeforeAFileIsReplaced) {
    Fill(Converter::Main, {5});
    const std::string path = folder.Make("old.dat", "old");
    const WriteFileForm form(*bench.services);
    bench.messages.answers = {MessageAnswer::No, MessageAnswer::Yes};
    Do(form, path);
    EXPECT_EQ(folder.Bytes("old.dat"), "old");
    EXPECT_EQ(Result(form), QStringLiteral("Nothing was written."));
    Do(form, path);
    EXPECT_EQ(folder.Bytes("old.dat"), " 5\n");
    EXPECT_EQ(Shown(), std::vector<std::string>(2, path + " exists already.\r\nReplace it ?"));
    EXPECT_EQ(bench.messages.shown.at(0).buttons, MessageButtons::YesNo);
}

TEST_F(DataFileFormsTest, TellWhyNothingCanBeWritten) {
    const WriteFileForm form(*bench.services);
    Do(form, folder.Path("x.dat"), "OptDecimal", "OptAux");
    Fill(Converter::Main, {5});
    Do(form, folder.Path("gone/x.dat"));
    Do(form, "/dev/full");
    EXPECT_EQ(Shown(),
              (std::vector<std::string>{
                  "The Aux ADC's block is empty: read codes first, from the board or from a file",
                  "Cannot write " + folder.Path("gone/x.dat") + ": No such file or directory",
                  "/dev/full is a pipe, a device or an open file, no file of its own"}));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path("")));
}

TEST_F(DataFileFormsTest, TakeThePathThatIsChosenInTheDialog) {
    const std::string path = folder.Make("chosen.dat", " 3\n");
    const ReadFileForm form(*bench.services);
    Path(form).setText(QString::fromStdString(folder.Path("Default.dat")));
    EXPECT_TRUE(WhileModal([&] { Find<QPushButton>(form, "Command3").click(); },
                           [&](QDialog& window) {
                               auto& dialog = dynamic_cast<QFileDialog&>(window);
                               EXPECT_EQ(dialog.directory(),
                                         QDir(QString::fromStdString(folder.Path(""))));
                               dialog.selectFile(QString::fromStdString(path));
                               window.accept();
                           }));
    EXPECT_EQ(Path(form).text(), QString::fromStdString(path));
}

}  // namespace
}  // namespace vx3260
