// SPDX-License-Identifier: GPL-3.0-or-later
// Random clicks, keys and texts over all forms, on the simulated board with faults that come and
// go.
#include <QApplication>
#include <QCommandLineParser>
#include <QDesktopServices>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <iostream>
#include <numeric>

#include "Found.h"
#include "Monkey.h"
#include "app/StartUp.h"
#include "configuration/ConfigurationFile.h"
#include "files/CodeFile.h"
#include "support/SimulatedBench.h"
#include "ui/Icons.h"
#include "ui/NoSettingsFile.h"
#include "ui/QtMessageBoxes.h"

#if defined(__unix__)
#include <unistd.h>
#endif

namespace {

using namespace vx3260;
using namespace vx3260::monkey;

constexpr int actionsInRound = 80;
constexpr std::chrono::seconds watchdogLimit(60);

/// Message boxes on the screen. An error of the standard library's has no business in one.
class CheckedMessages final : public MessageBoxes {
  public:
    MessageAnswer Show(const Message& message) override {
        for (const char* const internal : {"::", "basic_string", "bad_"}) {
            if (message.text.find(internal) != std::string::npos) {
                Found(QStringLiteral("a message box says ") + QString::fromStdString(message.text));
            }
        }
        return shown_.Show(message);
    }

  private:
    QtMessageBoxes shown_{std::clog};
};

/// Web pages stay closed.
class NoBrowser final : public QObject {
    Q_OBJECT

  public:
    NoBrowser() {
        for (const QString& scheme : schemes_) {
            QDesktopServices::setUrlHandler(scheme, this, "Ignore");
        }
    }
    ~NoBrowser() override {
        for (const QString& scheme : schemes_) {
            QDesktopServices::unsetUrlHandler(scheme);
        }
    }
    NoBrowser(const NoBrowser&) = delete;
    NoBrowser(NoBrowser&&) = delete;
    NoBrowser& operator=(const NoBrowser&) = delete;
    NoBrowser& operator=(NoBrowser&&) = delete;

  public slots:
    void Ignore(const QUrl& /*url*/) {}

  private:
    const QStringList schemes_{QStringLiteral("http"), QStringLiteral("https"),
                               QStringLiteral("file"), QStringLiteral("mailto")};
};

void Write(const QString& name, const QByteArray& bytes) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
        Found(QStringLiteral("cannot write ") + name);
    }
}

/// Files to be read, a broken one among them, one that cannot be replaced by its rights, and a
/// folder that takes none.
void FillFolder(Chance& chance, Services& services) {
    QByteArray codes;
    for (int i = chance.Between(1, 300); i > 0; --i) {
        codes += QByteArray::number(chance.Between(8388000, 8389000)) + "\r\n";
    }
    Write(QStringLiteral("main.dat"), codes);
    Write(QStringLiteral("aux.txt"), "7FFF\r\n8000\r\n8001\r\n");
    Write(QStringLiteral("junk.dat"), QByteArray("\x00\xFF{[,\r\n12\r99999999999999", 25));
    Write(QStringLiteral("chip.vx3260"),
          QByteArray::fromStdString(ConfigurationText(
              ReadConfiguration(services.port, services.state.PortAddress), {},
              chance.Percent(50) ? Coefficients::Include : Coefficients::LeaveOut)));
    QFile::setPermissions(QStringLiteral("aux.txt"), QFile::ReadOwner);
    QDir().mkdir(QStringLiteral("locked"));
    QFile::setPermissions(QStringLiteral("locked"), QFile::ReadOwner | QFile::ExeOwner);
}

/// A block as if it had been read, for the forms that analyse it.
void FillBlock(Chance& chance, ApplicationState& state, Converter converter, int code) {
    const CodeBlock block = state.BlockOf(converter);
    static constexpr int counts[] = {0, 0, 9, 10, 64, 1000, 5000};
    block.count = static_cast<std::int16_t>(chance.In(counts));
    const int spread = chance.Percent(80) ? chance.Between(0, 200) : 0;
    block.codes.resize(static_cast<std::size_t>(block.count));
    std::ranges::generate(block.codes,
                          [&] { return static_cast<double>(code + chance.Between(0, spread)); });
}

/// None in half of the rounds.
Faults RandomFault(Chance& chance, const QStringList& wanted) {
    Faults faults;
    if (wanted.isEmpty() && chance.Percent(50)) {
        return faults;
    }
    std::string name(chance.In(KnownFaults()).name);
    if (!wanted.isEmpty()) {
        name = chance.In(wanted).toStdString();
    } else if (name.ends_with("=N")) {
        name.replace(name.size() - 1, 1, std::to_string(chance.Between(1, 3000)));
    }
    if (!AddFault(name, faults)) {
        Found(QStringLiteral("no fault is called ") + QString::fromStdString(name));
    }
    return faults;
}

void PlayRound(std::uint64_t seed, const QStringList& wantedFaults, Watchdog& watchdog,
               Tried& tried) {
    std::clog << "round with seed " << seed << std::endl;
    const QTemporaryDir folder(QDir::current().filePath(QStringLiteral("round-XXXXXX")));
    const QString before = QDir::currentPath();
    QDir::setCurrent(folder.path());
    Chance chance(~seed);
    Board board(seed);
    CheckedMessages messages;
    test::RecordedSystem system;
    system.startsPrograms = chance.Percent(50);
    system.desktopProgram = {"information"};
    ApplicationState state;
    Services services{board, messages, system, state, "Simulated board"};
    StartUp(services, false);
    FillFolder(chance, services);
    FillBlock(chance, state, Converter::Main, 8388000);
    FillBlock(chance, state, Converter::Aux, 32000);
    if (chance.Percent(50)) {
        board.Chip().Preset(test::ioControlAt, static_cast<std::uint32_t>(chance.Below(1U << 16U)));
    }
    // Power-down, in which some registers take writes, continuous conversion, any other mode.
    static constexpr std::uint32_t modes[] = {0x00, 0x00, 0x03, 0x03, 0x13, 0x01};
    board.Chip().Preset(test::modeAt, chance.In(modes));
    {
        Monkey monkey(seed, {services, board, system, RandomFault(chance, wantedFaults),
                             folder.path(), watchdog, tried});
        monkey.Play(actionsInRound);
        monkey.CheckRegisters();
    }
    if (state.FormLoading != 0) {
        Found(QStringLiteral("FormLoading is %1").arg(state.FormLoading));
    }
    QApplication::setPalette(QPalette());
    QDir::setCurrent(before);
    ++tried.rounds;
}

/// Each form has a page of help by its name.
QStringList UnvisitedForms(const Tried& tried) {
    QStringList names;
    for (const QString& page : QDir(QStringLiteral(":/help")).entryList()) {
        const QString name = page.section(QLatin1Char('.'), 0, 0);
        if (name.endsWith(QLatin1String("form"), Qt::CaseInsensitive) &&
            !tried.windows.contains(name)) {
            names.append(name);
        }
    }
    return names;
}

void Report(std::uint64_t seed, const Tried& tried) {
    const QStringList unvisited = UnvisitedForms(tried);
    std::cout << tried.rounds << " rounds from seed " << seed << ", " << tried.actions
              << " actions, " << tried.windows.size() << " kinds of windows, "
              << tried.faults.size() << " kinds of faults, " << tried.comparisons
              << " forms compared with new ones, " << tried.registers << " with the chip";
    if (tried.rounds > 20 && !unvisited.isEmpty()) {
        std::cout << ", never opened: " << unvisited.join(QLatin1Char(' ')).toStdString();
    }
    std::cout << "; no crash, no hang, no control left disabled, nothing shown falsely"
              << std::endl;
}

}  // namespace

/// Ends the program where it is not a number from 1.
static std::uint64_t NumberOf(const QCommandLineParser& parser, const char* option) {
    const std::uint64_t number = parser.value(QLatin1String(option)).toULongLong();
    if (number == 0) {
        std::cerr << "--" << option << " needs a number from 1\n";
        std::exit(2);
    }
    return number;
}

int main(int argc, char** argv) {
#if defined(__unix__)
    if (geteuid() == 0) {
        std::cerr << "monkey writes files at random; run it as an ordinary user\n";
        return 1;
    }
#endif
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QApplication application(argc, argv);
    QApplication::setWindowIcon(ApplicationIcon());
    PreventSettingsFile();
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({{"seed", "of the first round; the next ones count up", "number", "1"},
                       {"seconds", "begins no round after these", "number", "60"},
                       {"rounds", "makes no more than these", "number", "1000000"},
                       {"fault", "one of these in each round", "name"},
                       {"windows", "lists the windows that were opened"}});
    parser.process(application);
    const qint64 milliseconds = static_cast<qint64>(NumberOf(parser, "seconds")) * 1000;
    const std::uint64_t rounds = NumberOf(parser, "rounds");
    const std::uint64_t seed = NumberOf(parser, "seed");

    const NoBrowser noBrowser;
    Tried tried;
    {
        Watchdog watchdog(watchdogLimit);
        QElapsedTimer time;
        time.start();
        for (std::uint64_t round = 0; round < rounds && time.elapsed() < milliseconds; ++round) {
            PlayRound(seed + round, parser.values(QStringLiteral("fault")), watchdog, tried);
        }
    }
    if (parser.isSet(QStringLiteral("windows"))) {
        for (const QString& window : tried.windows) {
            std::cout << window.toStdString() << '\n';
        }
    }
    Report(seed, tried);
    return 0;
}

#include "Main.moc"
