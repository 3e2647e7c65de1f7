// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QFileDialog>
#include <QLineEdit>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <cstdint>
#include <optional>
#include <set>
#include <vector>

#include "Board.h"
#include "Chance.h"
#include "FormCheck.h"
#include "Watchdog.h"
#include "app/Services.h"
#include "support/Recorders.h"

namespace vx3260::monkey {

/// What has been tried, for the last line.
struct Tried {
    int rounds = 0;
    long actions = 0;
    int comparisons = 0;  ///< of forms in use with forms opened anew
    int registers = 0;    ///< that forms show, compared with the chip
    std::set<QString> windows;
    std::set<std::string> faults;
};

/// Uses the forms at random, from within whatever event loop runs: one action in each turn, so
/// readings and message boxes are used as well. Ends the program where it finds a fault.
class Monkey final : public QObject {
  public:
    struct Place {
        Services& services;
        Board& board;
        test::RecordedSystem& system;
        Faults faults;   ///< for a part of the actions; none where it has no names
        QString folder;  ///< the only one that file dialogs show
        Watchdog& watchdog;
        Tried& tried;
    };

    Monkey(std::uint64_t seed, const Place& place);

    /// From the main menu to the main menu: opens a form that the seed chooses, makes `actions`
    /// random actions, and closes all windows. Each form that is open then is compared with the
    /// same one opened anew.
    void Play(int actions);

    /// Opens the form of each register and compares it with the chip.
    void CheckRegisters();

  protected:
    void timerEvent(QTimerEvent* event) override;

  private:
    enum class Phase { Playing, Closing, Checking };

    /// A form on the screen, and what opened it.
    struct Opened {
        QPointer<QWidget> form;
        QPointer<QObject> opener;
        bool onGoodBoard;  ///< all the time
    };

    /// A form that was closed to be opened again.
    struct Reopening {
        FormState before;
        QPointer<QObject> opener;
        QPointer<QWidget> parent;
        bool followsChip;
    };

    void Act();
    void NoteWindows();
    void KeepInFolder() const;
    void SwitchFault();
    void RepairBoard();
    void ResetChip();

    void PlayOnce();
    bool GoTowardsGoal(QWidget& window);
    void UseControl(QWidget& window);
    void PressKey(QWidget& window);
    void ChangeWindow(QWidget& window);
    void TriggerItem(QWidget& window);
    void UsePopup(QWidget& popup);

    void UseButton(QWidget& control);
    void UseLineEdit(QWidget& control);
    void UseList(QWidget& control);
    void UseSurface(QWidget& control);
    void EnterName(const QFileDialog& dialog);
    void UseSpinBox(QWidget& control);
    void TypeText(QWidget& control, const QString& text);
    void SendKey(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {});
    void ClickAt(QWidget& control, QPoint place, Qt::MouseButton button, bool twice);
    void Drag(QWidget& control);
    void TurnWheel(QWidget& control);

    void CloseOnce();
    void CheckOnce();
    void CloseUsedForm(QWidget& form);
    void CheckBits(const QWidget& form);
    void Compare(const FormState& used, const QWidget& fresh, bool followsChip);
    /// True if the window is not one to compare and has been dealt with.
    bool Dismiss(QWidget& window);

    QString RandomText(const QString& present);
    QPoint RandomPlace(const QWidget& control);
    void Log(const QObject* target, const QString& what);

    Chance chance_;
    Place place_;
    std::uint64_t seed_;
    QPointer<QWidget> menu_;
    Phase phase_ = Phase::Playing;
    int actions_ = 0;
    int goalSteps_ = 0;
    int breakAt_ = 0;
    int repairAt_ = 0;
    int turnsToClose_ = 0;
    int depth_ = 0;
    QPointer<QObject> target_;
    std::vector<Opened> opened_;
    std::optional<Reopening> reopening_;
};

}  // namespace vx3260::monkey
