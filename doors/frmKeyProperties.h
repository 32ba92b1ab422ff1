#pragma once

#include "data/Recordset.h"
#include "doors/DoorCommands.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

class Clock;
class Connection;
class Operator;
class QButtonGroup;
class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class Timer;
enum class Answer;
enum class Buttons;
struct Module1;

namespace Ui {
class frmKeyProperties;
}

/// All settings of one door, each with a button that sends it to the unit as a command. A button
/// shows once its setting has been touched.
///
/// The file has a new value as soon as a button is pressed, whatever the operator answers then;
/// nothing waits for the unit. What the unit reports is written over the row by the interpreter,
/// and comes onto the screen at the next tick of Timer1 or load().
///
/// To be used so: load(), show(), close(). Closing lets go of the database; before the screen is
/// shown again it is to be loaded again.
class frmKeyProperties : public QWidget {
    Q_OBJECT
public:
    frmKeyProperties(Module1 &module, Operator &person, Clock &clock, QWidget *parent = nullptr);
    ~frmKeyProperties() override;

    /// Opens a connection of its own and shows the door KeySelect. What was typed before is saved
    /// first. A failure is shown and ends the load where it happened: the later steps don't run,
    /// and the controls stay as the earlier ones left them.
    void load();

protected:
    void changeEvent(QEvent *event) override;
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    using Values = std::vector<std::pair<QString, QString>>; ///< columns and their new texts

    void collectControls();
    void connectControls();

    void loadDoor();
    void openDatabase();
    void OpenDoorRecord();
    void fillLists();
    void checkOwnNumber();
    void captionAdministrator();
    void clearModel();
    void Timer1_Timer();

    void ApplyDoorType(int index);
    void KeyTXT_Change();
    void Combo1_Click(int index);
    void chooseWarned(int list, const QString &question, int button);
    void showStored(int list);
    void SendDoorCommand(int index);
    void UpDown1_Change(bool up);

    bool act(const std::function<void()> &handler, const QString &advice = {});
    Answer ask(const QString &text, Buttons buttons);
    QString askPeriod();
    bool mayLoseEdits();
    void showRow();
    void saveRow(const Values &further = {});
    Values edits() const;
    QString text(int field) const;
    DoorEntry entry() const;
    std::optional<DoorModel> model() const;
    void setShown(QWidget &control, bool shows);
    void queue(const QString &command);
    std::array<QWidget *, 6> listLabels() const;
    void showControls(bool forLists);
    void retranslate();
    void paintReadOnly();

    Module1 &module_;
    Operator &person_;
    Clock &clock_;
    std::shared_ptr<Connection> connection_;
    Recordset rsDoor_;
    Recordset rsQueue_;
    std::unique_ptr<Timer> Timer1_;
    bool busy_ = false; ///< an action is under way, maybe with a box open
    std::unique_ptr<Ui::frmKeyProperties> ui_;
    std::array<QLineEdit *, 22> KeyTXT_{};
    std::array<QPushButton *, 22> Command1_{}; ///< null at 0, 2 and 3: no such buttons
    std::array<QComboBox *, 6> Combo1_{};
    std::array<QRadioButton *, 3> KeyType_{};
    QButtonGroup *types_;
};
