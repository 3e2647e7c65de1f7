// SPDX-License-Identifier: GPL-3.0-or-later
#include "Monkey.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimerEvent>
#include <QWheelEvent>
#include <iostream>
#include <utility>

#include "Found.h"
#include "forms/shell/MainMenuForm.h"
#include "forms/shell/RegisterForms.h"
#include "link/RegisterFields.h"
#include "link/Reset.h"
#include "ui/Form.h"
#include "ui/HelpForm.h"

namespace vx3260::monkey {
namespace {

/// Forms that a round begins with, each opened from the one before.
constexpr int goalDepth = 3;

/// Of the event loop, until all windows have to be closed.
constexpr int maxTurnsToClose = 20000;

/// Of event loops within one another; the deepest way through the forms has about ten.
constexpr int maxDepth = 60;

QString NameOf(const QObject* object) {
    if (object == nullptr) {
        return QStringLiteral("-");
    }
    const QString name = object->objectName();
    return name.isEmpty() ? QString::fromLatin1(object->metaObject()->className()) : name;
}

/// The form or the box in front, which blocks others.
QWidget* Window() {
    return QApplication::activeModalWidget();
}

/// The help window and plots, which can be used beside the form in front. None beside a box.
std::vector<QWidget*> WindowsBeside(const QWidget* front) {
    std::vector<QWidget*> beside;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        const bool plot = window->parentWidget() == front && qobject_cast<Form*>(window) != nullptr;
        if (front != nullptr && window->isVisible() && !window->isModal() &&
            (plot || qobject_cast<HelpForm*>(window) != nullptr)) {
            beside.push_back(window);
        }
    }
    // The application has no order of its windows.
    std::ranges::sort(beside, {}, &QObject::objectName);
    return beside;
}

/// Push buttons and menu items, the likely openers of forms.
std::vector<QObject*> OpenersIn(const QWidget& window) {
    std::vector<QObject*> openers;
    for (QPushButton* const button : window.findChildren<QPushButton*>()) {
        if (button->isVisible() && button->isEnabled()) {
            openers.push_back(button);
        }
    }
    for (const QMenuBar* const bar : window.findChildren<QMenuBar*>()) {
        for (const QAction* const menu : bar->actions()) {
            for (QAction* const item : menu->menu()->actions()) {
                if (item->isVisible() && item->isEnabled() && !item->isSeparator() &&
                    item->menu() == nullptr) {
                    openers.push_back(item);
                }
            }
        }
    }
    return openers;
}

/// May return only after the form that it opens has been closed.
void Use(QObject* opener) {
    if (auto* const button = qobject_cast<QAbstractButton*>(opener)) {
        button->click();
    } else if (auto* const item = qobject_cast<QAction*>(opener)) {
        item->trigger();
    }
}

/// A reading or a recording that runs shows a Stop button that can be pressed.
QAbstractButton* StopButtonOf(const QWidget& form) {
    auto* const stop = form.findChild<QAbstractButton*>(QStringLiteral("StopButton"));
    return stop != nullptr && stop->isVisible() && stop->isEnabled() ? stop : nullptr;
}

/// After the internal zero scale the mode form shows the register as it was before, intentionally.
bool ShowsEarlierMode(const QWidget& form) {
    const auto* const done = form.findChild<const QLabel*>(QStringLiteral("CalDoneLabel"));
    return done != nullptr && done->text().startsWith(QLatin1String("Internal zero-scale"));
}

}  // namespace

Monkey::Monkey(std::uint64_t seed, const Place& place)
    : chance_(seed), place_(place), seed_(seed) {}

void Monkey::Play(int actions) {
    MainMenuForm menu(place_.services);
    menu_ = &menu;
    phase_ = Phase::Playing;
    actions_ = actions;
    breakAt_ = place_.faults.names.empty() ? -1 : chance_.Between(1, actions);
    repairAt_ = breakAt_ < 1 ? 0 : chance_.Between(0, breakAt_ - 1);
    startTimer(0);
    menu.exec();
    RepairBoard();
}

void Monkey::CheckRegisters() {
    phase_ = Phase::Checking;
    for (const RegisterMap::RegisterDescription& description : RegisterMap::ReadableRegisters) {
        OpenRegisterForm(place_.services, description, nullptr);
    }
}

/// The timer is started anew before the action, which may open a window with a loop of its own.
void Monkey::timerEvent(QTimerEvent* event) {
    killTimer(event->timerId());
    startTimer(0);
    if (++depth_ > maxDepth) {
        Found(QStringLiteral("%1 event loops within one another").arg(maxDepth));
    }
    Act();
    --depth_;
}

void Monkey::Act() {
    place_.watchdog.Feed();
    NoteWindows();
    KeepInFolder();
    if (!place_.board.IsBroken() &&
        place_.services.port.Answers().Last() == ChipAnswers::Answer::Missing) {
        Log(nullptr, QStringLiteral("reset after a time-out"));
        ResetChip();
    }
    if (phase_ == Phase::Playing && (actions_ == 0 || !place_.system.ended.empty())) {
        RepairBoard();
        phase_ = Phase::Closing;
    }
    switch (phase_) {
        case Phase::Playing:
            --actions_;
            ++place_.tried.actions;
            if (reopening_) {
                CloseOnce();
            } else {
                SwitchFault();
                PlayOnce();
            }
            break;
        case Phase::Closing:
            CloseOnce();
            break;
        case Phase::Checking:
            CheckOnce();
            break;
    }
}

void Monkey::NoteWindows() {
    std::erase_if(opened_, [](const Opened& opened) { return opened.form.isNull(); });
    QWidget* const window = Window();
    if (window == nullptr) {
        return;
    }
    place_.tried.windows.insert(NameOf(window));
    for (const QWidget* const beside : WindowsBeside(window)) {
        place_.tried.windows.insert(NameOf(beside));
    }
    const bool known = std::ranges::any_of(
        opened_, [window](const Opened& opened) { return opened.form == window; });
    if (!known) {
        opened_.push_back({window, target_, !place_.board.IsBroken()});
    }
}

/// Files are written and deleted in there only.
void Monkey::KeepInFolder() const {
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        auto* const dialog = qobject_cast<QFileDialog*>(window);
        if (dialog != nullptr && dialog->isVisible() &&
            !dialog->directory().absolutePath().startsWith(place_.folder)) {
            dialog->setDirectory(place_.folder);
        }
    }
}

void Monkey::SwitchFault() {
    if (actions_ <= breakAt_) {
        breakAt_ = -1;
        for (const std::string& name : place_.faults.names) {
            Log(nullptr, QStringLiteral("fault ") + QString::fromStdString(name));
            place_.tried.faults.insert(name.substr(0, name.find('=')));
        }
        place_.board.Break(place_.faults);
        for (Opened& opened : opened_) {
            opened.onGoodBoard = false;
        }
    } else if (actions_ <= repairAt_) {
        RepairBoard();
    }
}

void Monkey::RepairBoard() {
    if (place_.board.IsBroken()) {
        Log(nullptr, QStringLiteral("no fault any more"));
        place_.board.Repair();
        ResetChip();
    }
}

/// What the chip understood through bad wires is unknown. After a time-out it still waits for the
/// clocks of the result, which can happen on a good board too, such as with its oscillator off. The
/// forms that are open show what they met before.
void Monkey::ResetChip() {
    HardwareReset(place_.services.port, DefaultPortAddress);
    place_.services.port.ForgetBoard();
    for (Opened& opened : opened_) {
        opened.onGoodBoard = false;
    }
}

void Monkey::Log(const QObject* target, const QString& what) {
    std::clog << "- " << actions_ << ' ' << NameOf(Window()).toStdString() << ' '
              << NameOf(target).toStdString() << ": " << what.toStdString() << std::endl;
}

void Monkey::PlayOnce() {
    target_.clear();
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        UsePopup(*popup);
        return;
    }
    QWidget* window = Window();
    if (window == nullptr || GoTowardsGoal(*window)) {
        return;
    }
    if (const std::vector<QWidget*> beside = WindowsBeside(window);
        !beside.empty() && qobject_cast<Form*>(window) != nullptr && chance_.Percent(50)) {
        window = chance_.In(beside);
    }
    auto* const dialog = qobject_cast<QFileDialog*>(window);
    const std::size_t choice = chance_.Below(100);
    if (dialog != nullptr && choice < 50) {
        EnterName(*dialog);
    } else if (choice < 12) {
        PressKey(*window);
    } else if (choice < 18) {
        ChangeWindow(*window);
    } else if (choice < (window == menu_ ? 60 : 24)) {
        TriggerItem(*window);
    } else {
        UseControl(*window);
    }
}

/// The first action is each opener of the main menu for seeds in a row, the next ones open a form
/// from there. Questions on the way are answered with Yes.
bool Monkey::GoTowardsGoal(QWidget& window) {
    if (goalSteps_ >= goalDepth) {
        return false;
    }
    if (auto* const box = qobject_cast<QMessageBox*>(&window)) {
        QAbstractButton* const yes = box->button(QMessageBox::Yes);
        Log(box, QStringLiteral("answer"));
        Use(yes != nullptr ? yes : box->buttons().constFirst());
        return true;
    }
    const std::vector<QObject*> openers = OpenersIn(window);
    if (openers.empty() || qobject_cast<Form*>(&window) == nullptr) {
        goalSteps_ = goalDepth;
        return false;
    }
    target_ = goalSteps_ == 0 ? openers[seed_ % openers.size()] : chance_.In(openers);
    ++goalSteps_;
    Log(target_, QStringLiteral("open"));
    Use(target_);
    return true;
}

void Monkey::UseControl(QWidget& window) {
    static constexpr struct {
        const char* className;
        unsigned weight;
        void (Monkey::*use)(QWidget&);
    } kinds[] = {
        {"QPushButton", 8, &Monkey::UseButton},     {"QAbstractButton", 4, &Monkey::UseButton},
        {"QLineEdit", 4, &Monkey::UseLineEdit},     {"QAbstractSpinBox", 3, &Monkey::UseSpinBox},
        {"QAbstractItemView", 3, &Monkey::UseList}, {"QComboBox", 4, &Monkey::UseSurface},
        {"QCustomPlot", 8, &Monkey::UseSurface},    {"QTextEdit", 3, &Monkey::UseSurface},
        {"QTabBar", 3, &Monkey::UseSurface},        {"QAbstractSlider", 1, &Monkey::UseSurface},
        {"QMenuBar", 2, &Monkey::UseSurface},       {"vx3260::BitRow", 1, &Monkey::UseSurface},
        {"QLabel", 0, &Monkey::UseSurface},
    };
    std::vector<std::pair<QWidget*, void (Monkey::*)(QWidget&)>> choices;
    for (QWidget* const control : window.findChildren<QWidget*>()) {
        if (!control->isVisible() || !control->isEnabled() || control->window() != &window) {
            continue;
        }
        const auto* const kind = std::ranges::find_if(
            kinds, [control](const auto& k) { return control->inherits(k.className); });
        if (kind != std::end(kinds)) {
            choices.insert(choices.end(), kind->weight, {control, kind->use});
        }
    }
    if (choices.empty()) {
        PressKey(window);
        return;
    }
    const auto& [control, use] = chance_.In(choices);
    (this->*use)(*control);
}

void Monkey::UseButton(QWidget& control) {
    // What ends the use of a form, or of all of them, is one control among many.
    const auto& button = static_cast<QAbstractButton&>(control);
    const bool quits = button.text() == QLatin1String("&Quit");
    const bool leaves = button.text() == QLatin1String("B&ack");
    if ((quits && !chance_.Percent(10)) || (leaves && !chance_.Percent(20))) {
        return;
    }
    if (leaves && control.window() == Window() && StopButtonOf(*Window()) == nullptr) {
        CloseUsedForm(*Window());
        return;
    }
    if (chance_.Percent(85)) {
        target_ = &control;
        Log(&control, QStringLiteral("click"));
        Use(&control);
        return;
    }
    static constexpr Qt::Key keys[] = {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Up,
                                       Qt::Key_Down,  Qt::Key_Left,   Qt::Key_Right};
    control.setFocus();
    SendKey(control, chance_.In(keys));
}

void Monkey::UseLineEdit(QWidget& control) {
    const QPointer<QLineEdit> edit = qobject_cast<QLineEdit*>(&control);
    edit->setFocus();
    if (edit && chance_.Percent(80)) {
        edit->selectAll();
    }
    if (edit) {
        TypeText(*edit, RandomText(edit->text()));
    }
    if (edit && chance_.Percent(60)) {
        SendKey(*edit, Qt::Key_Return);
    }
}

/// Most of a file dialog is the library's, so it is not used for long.
void Monkey::EnterName(const QFileDialog& dialog) {
    if (auto* const edit = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))) {
        const QPointer<QLineEdit> name = edit;
        name->selectAll();
        TypeText(*name, RandomText(QString()));
        if (name) {
            SendKey(*name, Qt::Key_Return);
        }
    }
}

void Monkey::UseSpinBox(QWidget& control) {
    if (chance_.Percent(40)) {
        auto* const box = qobject_cast<QAbstractSpinBox*>(&control);
        const int steps = chance_.Between(-20, 20);
        Log(box, QStringLiteral("step %1").arg(steps));
        box->stepBy(steps);
    } else if (chance_.Percent(50)) {
        TypeText(control, RandomText(QStringLiteral("0")));
    } else {
        UseSurface(control);
    }
}

void Monkey::UseList(QWidget& control) {
    auto* const view = qobject_cast<QAbstractItemView*>(&control);
    const QAbstractItemModel* const model = view->model();
    const QModelIndex root = view->rootIndex();
    if (model == nullptr || model->rowCount(root) == 0 || model->columnCount(root) == 0 ||
        chance_.Percent(25)) {
        UseSurface(*view->viewport());
        return;
    }
    const QModelIndex item = model->index(chance_.Between(0, model->rowCount(root) - 1),
                                          chance_.Between(0, model->columnCount(root) - 1), root);
    view->scrollTo(item);
    const QRect place = view->visualRect(item);
    // At its left end too, where an item's check box is.
    ClickAt(*view->viewport(),
            chance_.Percent(50) ? place.center() : QPoint(place.left() + 8, place.center().y()),
            Qt::LeftButton, chance_.Percent(40));
}

void Monkey::UseSurface(QWidget& control) {
    const std::size_t choice = chance_.Below(10);
    if (choice < 5) {
        ClickAt(control, RandomPlace(control), Qt::LeftButton, chance_.Percent(20));
    } else if (choice == 5) {
        const QPoint place = RandomPlace(control);
        Log(&control, QStringLiteral("context menu"));
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, control.mapToGlobal(place));
        QApplication::sendEvent(&control, &event);
    } else if (choice < 8) {
        TurnWheel(control);
    } else if (control.inherits("QCustomPlot")) {
        Drag(control);
    } else {
        control.setFocus();
        PressKey(*control.window());
    }
}

void Monkey::UsePopup(QWidget& popup) {
    const std::size_t choice = chance_.Below(10);
    auto* const list = popup.findChild<QAbstractItemView*>();
    if (choice < 5) {
        static constexpr Qt::Key keys[] = {Qt::Key_Up,    Qt::Key_Down, Qt::Key_Right, Qt::Key_Left,
                                           Qt::Key_Enter, Qt::Key_Home, Qt::Key_Escape};
        QWidget* const focused = popup.focusWidget();
        SendKey(focused == nullptr ? popup : *focused, chance_.In(keys));
    } else if (choice == 5) {
        Log(&popup, QStringLiteral("close"));
        popup.close();
    } else if (list != nullptr) {
        UseList(*list);
    } else {
        ClickAt(popup, RandomPlace(popup), Qt::LeftButton, false);
    }
}

void Monkey::TriggerItem(QWidget& window) {
    const std::vector<QObject*> openers = OpenersIn(window);
    if (openers.empty()) {
        UseControl(window);
        return;
    }
    QObject* const opener = chance_.In(openers);
    if (auto* const button = qobject_cast<QWidget*>(opener)) {
        UseButton(*button);
        return;
    }
    target_ = opener;
    Log(target_, QStringLiteral("trigger"));
    Use(target_);
}

void Monkey::ChangeWindow(QWidget& window) {
    const std::size_t choice = chance_.Below(10);
    if (choice < 5) {
        const QSize size(chance_.Between(1, 1600), chance_.Between(1, 1200));
        Log(&window, QStringLiteral("resize to %1 x %2").arg(size.width()).arg(size.height()));
        window.resize(size);
    } else if (choice == 5) {
        Log(&window, QStringLiteral("maximise or restore"));
        window.setWindowState(window.windowState() ^ Qt::WindowMaximized);
    } else if (choice == 6) {
        const bool dark = chance_.Percent(50);
        Log(&window, dark ? QStringLiteral("dark colours") : QStringLiteral("light colours"));
        QApplication::setPalette(dark ? QPalette(QColor(Qt::darkGray).darker()) : QPalette());
    } else if (chance_.Percent(&window == menu_ ? 5 : 30)) {
        Log(&window, QStringLiteral("close"));
        window.close();
    }
}

void Monkey::PressKey(QWidget& window) {
    static constexpr Qt::Key keys[] = {
        Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space,
        Qt::Key_Escape, Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Left,  Qt::Key_Right,
        Qt::Key_PageUp, Qt::Key_Home,    Qt::Key_End,    Qt::Key_F1,    Qt::Key_Delete,
        Qt::Key_Plus,   Qt::Key_Minus,   Qt::Key_F4,     Qt::Key_Shift, Qt::Key_Backspace};
    QWidget* const focused = window.focusWidget();
    QWidget& receiver = focused == nullptr ? window : *focused;
    const std::size_t choice = chance_.Below(10);
    const auto letter = static_cast<Qt::Key>(Qt::Key_A + chance_.Between(0, 25));
    if (choice < 6) {
        SendKey(receiver, chance_.In(keys),
                chance_.Percent(15) ? Qt::ShiftModifier : Qt::NoModifier);
    } else if (choice < 9) {
        SendKey(receiver, letter, Qt::AltModifier);
    } else {
        SendKey(receiver, letter, Qt::ControlModifier);
    }
}

void Monkey::SendKey(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers) {
    const QPointer<QWidget> receiver = &control;
    Log(receiver, QKeySequence(QKeyCombination(modifiers, key)).toString());
    QTest::keyPress(receiver.data(), key, modifiers);
    if (receiver) {
        QTest::keyRelease(receiver.data(), key, modifiers);
    }
}

void Monkey::TypeText(QWidget& control, const QString& text) {
    const QPointer<QWidget> receiver = &control;
    Log(receiver, QStringLiteral("type \"%1\"").arg(text));
    for (const QChar character : text) {
        for (const QTest::KeyAction action : {QTest::Press, QTest::Release}) {
            if (receiver) {
                QTest::sendKeyEvent(action, receiver.data(), Qt::Key_unknown, QString(character),
                                    Qt::NoModifier);
            }
        }
    }
}

void Monkey::ClickAt(QWidget& control, QPoint place, Qt::MouseButton button, bool twice) {
    const QPointer<QWidget> receiver = &control;
    Log(receiver, QStringLiteral("%1 at %2, %3")
                      .arg(twice ? QStringLiteral("double click") : QStringLiteral("click"))
                      .arg(place.x())
                      .arg(place.y()));
    QTest::mousePress(receiver.data(), button, {}, place);
    if (receiver) {
        QTest::mouseRelease(receiver.data(), button, {}, place);
    }
    if (receiver && twice) {
        QMouseEvent second(QEvent::MouseButtonDblClick, place, receiver->mapToGlobal(place), button,
                           button, {});
        QApplication::sendEvent(receiver, &second);
        if (receiver) {
            QTest::mouseRelease(receiver.data(), button, {}, place);
        }
    }
}

void Monkey::Drag(QWidget& control) {
    const QPointer<QWidget> receiver = &control;
    const Qt::MouseButton button = chance_.Percent(70) ? Qt::LeftButton : Qt::RightButton;
    const Qt::KeyboardModifiers modifiers =
        chance_.Percent(30) ? Qt::ShiftModifier : Qt::NoModifier;
    Log(receiver, QStringLiteral("drag"));
    QPoint place = RandomPlace(control);
    QTest::mousePress(receiver.data(), button, modifiers, place);
    for (int i = 0; i < 3 && receiver; ++i) {
        place = RandomPlace(control);
        QMouseEvent move(QEvent::MouseMove, place, receiver->mapToGlobal(place), Qt::NoButton,
                         button, modifiers);
        QApplication::sendEvent(receiver, &move);
    }
    if (receiver) {
        QTest::mouseRelease(receiver.data(), button, modifiers, place);
    }
}

void Monkey::TurnWheel(QWidget& control) {
    const QPoint place = RandomPlace(control);
    const int turn = 120 * chance_.Between(-5, 5);
    Log(&control, QStringLiteral("wheel %1").arg(turn));
    QWheelEvent event(place, control.mapToGlobal(place), {}, {0, turn}, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&control, &event);
}

QPoint Monkey::RandomPlace(const QWidget& control) {
    return {chance_.Between(0, std::max(0, control.width() - 1)),
            chance_.Between(0, std::max(0, control.height() - 1))};
}

/// Numbers, names of files, and what is neither; more often what fits the text that is there. No
/// path leads out of the folder.
QString Monkey::RandomText(const QString& present) {
    static const QString names[] = {QStringLiteral("main.dat"),      QStringLiteral("aux.txt"),
                                    QStringLiteral("junk.dat"),      QStringLiteral("chip.vx3260"),
                                    QStringLiteral("record.csv"),    QStringLiteral("report.pdf"),
                                    QStringLiteral("plot.png"),      QStringLiteral("sweep"),
                                    QStringLiteral("locked"),        QStringLiteral("none/new.dat"),
                                    QStringLiteral("locked/new.dat")};
    static const QString others[] = {
        QString(),
        QStringLiteral(" "),
        QStringLiteral("2.5"),
        QStringLiteral("1,5"),
        QStringLiteral("1e400"),
        QStringLiteral("1e-320"),
        QStringLiteral("NaN"),
        QStringLiteral("&H"),
        QStringLiteral("&HFFFFFFFF"),
        QStringLiteral("0x7F"),
        QStringLiteral("99999999999999999999"),
        QStringLiteral("-32769"),
        QStringLiteral("13, 69, 255"),
        QStringLiteral("%1 %s %n"),
        QStringLiteral("<b>\"x\"&amp;</b>"),
        QStringLiteral("\u00e9\u20ac\u6f22\u5b57 \U0001F39B \u0661\u0662"),
        QString(100, QLatin1Char('7')),
        QString(300, QLatin1Char('x')),
    };
    bool isNumber = false;
    (void)present.toDouble(&isNumber);
    if (chance_.Percent(50)) {
        return isNumber ? QString::number(chance_.Between(0, 40)) : chance_.In(names);
    }
    switch (chance_.Below(4)) {
        case 0:
            return QString::number(chance_.Between(-10, 300));
        case 1:
            return QString::number(chance_.Below(std::size_t{1} << chance_.Below(33)), 16)
                .toUpper();
        default:
            return chance_.In(others);
    }
}

/// One window after the other, until the main menu is closed; a form that was used is opened once
/// more and compared.
void Monkey::CloseOnce() {
    QWidget* const window = Window();
    if (++turnsToClose_ > maxTurnsToClose) {
        Found(NameOf(window) + QStringLiteral(" cannot be closed"));
    }
    const std::vector<QWidget*> beside = WindowsBeside(window);
    if (QWidget* const popup = QApplication::activePopupWidget()) {
        popup->close();
    } else if (window == nullptr || Dismiss(*window)) {
        return;
    } else if (!beside.empty()) {
        beside.front()->close();
    } else if (reopening_ && reopening_->before.name == window->objectName()) {
        Compare(reopening_->before, *window, reopening_->followsChip);
        reopening_.reset();
        window->close();
    } else if (reopening_ && reopening_->parent == window) {
        const QPointer<QObject> opener = std::exchange(reopening_->opener, nullptr);
        if (opener) {
            Log(opener, QStringLiteral("open again"));
            Use(opener);
        }
        // What it opened has been compared and closed, or a message box refused.
        reopening_.reset();
    } else if (window == menu_) {
        const MainMenuForm fresh(place_.services);
        Compare(StateOf(*window), fresh, false);
        window->close();
    } else {
        CloseUsedForm(*window);
    }
}

bool Monkey::Dismiss(QWidget& window) {
    if (const auto* const box = qobject_cast<QMessageBox*>(&window)) {
        const QList<QAbstractButton*> buttons = box->buttons();
        Use(chance_.In(buttons));
        return true;
    }
    if (qobject_cast<Form*>(&window) == nullptr) {
        window.close();
        return true;
    }
    if (QAbstractButton* const stop = StopButtonOf(window)) {
        stop->click();
        return true;
    }
    return false;
}

void Monkey::CloseUsedForm(QWidget& form) {
    const auto opened = std::ranges::find_if(
        opened_, [&form](const Opened& candidate) { return candidate.form == &form; });
    const bool followsChip = opened->onGoodBoard && !ShowsEarlierMode(form);
    if (followsChip) {
        CheckBits(form);
    }
    reopening_ = {StateOf(form), opened->opener, form.parentWidget(), followsChip};
    Log(&form, QStringLiteral("close"));
    form.close();
}

void Monkey::CheckBits(const QWidget& form) {
    if (const QString wrong = WrongBits(form, place_.board.Chip()); !wrong.isEmpty()) {
        Found(wrong);
    }
    place_.tried.registers += RegistersIn(form);
}

void Monkey::Compare(const FormState& used, const QWidget& fresh, bool followsChip) {
    // What a register's form shows of a board that was broken and reset under it stays.
    if (used.showsOptions && !followsChip) {
        return;
    }
    if (const QString wrong = Differences(used, StateOf(fresh)); !wrong.isEmpty()) {
        Found(wrong);
    }
    ++place_.tried.comparisons;
}

void Monkey::CheckOnce() {
    QWidget* const window = Window();
    if (window == nullptr || Dismiss(*window)) {
        return;
    }
    CheckBits(*window);
    window->close();
}

}  // namespace vx3260::monkey
